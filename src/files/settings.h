#pragma once
// The settings file beside the program: read at start, made with defaults when missing.

#include "core/app.h"

namespace tavlero {

void loadSettings(App& app);
void writeDefaultSettings(App& app);

}  // namespace tavlero
