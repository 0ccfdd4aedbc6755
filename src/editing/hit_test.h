#pragma once
// What lies under the pointer, read from the geometry records of the last drawing through
// the indexes the App keeps of them.

#include <cstdint>

#include "core/app.h"

namespace tavlero {

int16_t findCellAt(App& app, float x, float y);
int16_t findLinkAt(App& app, float x, float y);

}  // namespace tavlero
