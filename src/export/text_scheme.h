#pragma once
// The plan as plain text, to the clipboard and to a file.

#include <cstdint>
#include <string>

#include "core/app.h"

namespace tavlero {

std::string buildSchemeText(const ProjectStore& store, int16_t index);
void copySchemeText(App& app);
void saveSchemeText(App& app);

}  // namespace tavlero
