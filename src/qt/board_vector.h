#pragma once
// Vector pictures of the board for the headless tool: SVG and PDF, painted from the
// canvas's display list as the screen is, with texts as text. Nothing of the board's
// area is held as pixels, so a board far past the bitmap limit still makes a picture.

#include <string>

#include "platform/surface.h"

namespace tavlero {

enum class VectorFormat { Svg, Pdf };

// Writes the whole retained picture of canvas to path. False, with a Norwegian reason in
// error, when the file cannot be written.
bool saveVectorPicture(const Surface& canvas, VectorFormat format, const std::string& path,
                       std::string& error);

}  // namespace tavlero
