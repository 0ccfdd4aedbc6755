#pragma once
// The main window at start: the board's size before any plan is read.

namespace tavlero {

// main's client area and place at start, in twips (1440 to the inch).
constexpr float kMainClientWidthTwips = 14505;
constexpr float kMainClientHeightTwips = 9840;
constexpr float kMainLeftTwips = 165;
constexpr float kMainTopTwips = 615;

constexpr float twipsToMillimetres(float twips) {
  return twips / 1440.0f * 25.4f;
}

}  // namespace tavlero
