#include "platform/surface.h"

#include <cmath>

namespace tavlero {

namespace {
// A unit length must stay positive and finite, whatever a damaged file or a setting
// asked for, or every later conversion would divide by zero.
float safeUnit(float unit, float fallback) {
  return (std::isfinite(unit) && unit > 0) ? unit : fallback;
}
float safeSize(float mm) {
  return std::isfinite(mm) ? std::fmax(mm, 0.0f) : 0.0f;
}
}  // namespace

void Surface::setWidth(float mm) {
  width_ = safeSize(mm);
  geometryChanged();
}

void Surface::setHeight(float mm) {
  height_ = safeSize(mm);
  geometryChanged();
}

void Surface::Move(float left, float top) {
  left_ = std::isfinite(left) ? left : 0;
  top_ = std::isfinite(top) ? top : 0;
  geometryChanged();
}

void Surface::setScaleWidth(float units) {
  unitX_ = safeUnit(width_ / units, unitX_);
  geometryChanged();
}

void Surface::setScaleHeight(float units) {
  unitY_ = safeUnit(height_ / units, unitY_);
  geometryChanged();
}

void Surface::Cls() {
  image_.clear();
  CurrentX = 0;
  CurrentY = 0;
  imageCleared();
}

void Surface::addOp(DrawKind kind, float x1, float y1, float x2, float y2) {
  if (!keepsImage_) return;
  DrawOp op{kind, x1, y1, x2, y2, ForeColor, FillColor, FillStyle, DrawStyle, drawWidth_};
  image_.add(op);
  imageAdded(DisplayList::bounds(op));
}

void Surface::replay(const std::shared_ptr<KeptDrawings>& kept, const KeptRange& drawn) {
  if (!keepsImage_ || drawn.from == drawn.to) return;
  image_.append(kept, drawn);
  imageAdded(drawn.bounds);
}

void Surface::Line(float x1, float y1, float x2, float y2) {
  addOp(DrawKind::Line, x1, y1, x2, y2);
}

void Surface::Box(float x1, float y1, float x2, float y2) {
  addOp(DrawKind::Box, x1, y1, x2, y2);
}

void Surface::Circle(float x, float y, float radius) {
  addOp(DrawKind::Circle, x, y, radius, 0);
}

void Surface::repeat(size_t from, size_t to) {
  if (!keepsImage_ || from >= to) return;
  BoardRect all = DisplayList::bounds(image_.ops()[from]);
  for (size_t i = from + 1; i < to; ++i) all = DisplayList::unite(all, DisplayList::bounds(image_.ops()[i]));
  image_.repeat(from, to);
  imageAdded(all);
}

void Surface::Print(const std::string& text) {
  float width = TextWidth(text);
  if (keepsImage_) {
    float height = TextHeight(text);
    DrawOp op{DrawKind::Text, CurrentX,  CurrentY,  CurrentX + width, CurrentY + height,
              ForeColor,      FillColor, FillStyle, DrawStyle,        drawWidth_};
    op.text = image_.addText(text);
    op.font = image_.addFont(Font);
    image_.add(op);
    imageAdded(DisplayList::bounds(op));
  }
  CurrentX += width;
}

}  // namespace tavlero
