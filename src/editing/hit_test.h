#pragma once
// What lies under the pointer, read from the geometry records of the last drawing.

#include <cstdint>

#include "core/project_store.h"

namespace tavlero {

int16_t findCellAt(const ProjectStore& store, float x, float y);
int16_t findLinkAt(const ProjectStore& store, float x, float y);

}  // namespace tavlero
