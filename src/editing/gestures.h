#pragma once
// The pointer on the board. Button: 1 left, 2 right, 4 middle (a set in MouseMove).
// Shift: 1 Shift, 2 Ctrl, 4 Alt. X, Y in board units of the canvas.

#include <cstdint>

#include "core/app.h"

namespace tavlero {

void canvas_MouseDown(App& app, int16_t Button, int16_t Shift, float X, float Y);
void canvas_MouseMove(App& app, int16_t Button, int16_t Shift, float X, float Y);
void canvas_MouseUp(App& app, int16_t Button, int16_t Shift, float X, float Y);

}  // namespace tavlero
