#pragma once
// A surface with fixed, predictable text metrics for the tests and the benchmarks: every
// character is charWidth board units wide and a line is lineHeight high, whatever the
// font. What was drawn is in Image().

#include "platform/surface.h"

namespace tavlero {

class TestSurface : public Surface {
 public:
  float charWidth = 1.0f;
  float lineHeight = 4.0f;

  float TextWidth(const std::string& text) override;
  float TextHeight(const std::string& text) override;
};

}  // namespace tavlero
