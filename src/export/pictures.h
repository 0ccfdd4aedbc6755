#pragma once
// The board as a picture: clipboard, BMP file, printer.

#include "core/app.h"

namespace tavlero {

void copyBoardPicture(App& app);
void saveBoardPicture(App& app);
void printproject_Click(App& app);

}  // namespace tavlero
