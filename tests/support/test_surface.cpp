#include "test_surface.h"

#include <algorithm>

namespace tavlero {

float TestSurface::TextWidth(const std::string& text) {
  size_t longest = 0;
  size_t current = 0;
  for (char c : text) {
    if (c == '\n') {
      longest = std::max(longest, current);
      current = 0;
    } else if (c != '\r') {
      ++current;
    }
  }
  return static_cast<float>(std::max(longest, current)) * charWidth;
}

float TestSurface::TextHeight(const std::string& text) {
  auto lines = 1 + std::count(text.begin(), text.end(), '\n');
  return static_cast<float>(lines) * lineHeight;
}

}  // namespace tavlero
