#pragma once
// Moving the whole board: the shift of all cells and the compression to the top left.

#include "core/app.h"

namespace tavlero {

void shiftBoard(App& app, float dx, float dy);
void compressBoard(App& app);
void compress_Click(App& app);

}  // namespace tavlero
