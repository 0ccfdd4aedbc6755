#pragma once
// The board's font at start and after a reset: the canvas's own default, which the
// store's fontName stands for, so it lives with the canvas below the store.

namespace tavlero::defaults {
inline constexpr const char* fontName = "Arial";
}  // namespace tavlero::defaults
