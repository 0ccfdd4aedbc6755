#pragma once
// Wrapping of a cell's name and summary into the cell width. The same routine measures
// and prints, so both runs break at the same places.

#include <cstdint>
#include <string>

#include "platform/surface.h"

namespace tavlero {

// Pieces end at a blank, a period or a comma (the break character stays in the piece);
// a period or comma breaks only while a blank still follows somewhere in the rest.
int16_t countTextPieces(const std::string& text);
std::string textPiece(const std::string& text, int16_t n);  // 1-based; beyond the last gives the last

// Lays the text out from CurrentX at y within width, printing only when draw is set.
// Returns the y below the text; CurrentX ends at the left margin.
float layoutCellText(Surface& canvas, const std::string& text, float width, float y, bool draw);

}  // namespace tavlero
