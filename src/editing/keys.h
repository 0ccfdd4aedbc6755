#pragma once
// Keys of the board and the colour and fill menu entries.

#include <cstdint>

#include "core/app.h"

namespace tavlero {

void canvas_KeyDown(App& app, int16_t KeyCode, int16_t Shift);
void canvas_KeyPress(App& app, int16_t KeyAscii);

// The menu entries "Sett farge" 1..9 and "Sett fylltype" 1..7.
void setColorMenu_Click(App& app, int number);
void setFillMenu_Click(App& app, int number);

}  // namespace tavlero
