#pragma once
// The canvas: a retained drawing surface in board units. The state (pens, fonts, text
// position, place and scale) and the scale arithmetic live here; a platform surface only
// measures text, shows the display list and follows changes of place and size.

#include <cstdint>
#include <string>

#include "platform/display_list.h"

namespace tavlero {

// The capitalised members keep the drawing names that the handlers are written in (and
// "Color" with them); setters and the lower-case members are this program's own.
class Surface {
 public:
  virtual ~Surface() = default;

  // Pen and text state, read by every drawing operation.
  float CurrentX = 0;
  float CurrentY = 0;
  int32_t ForeColor = 0;
  int32_t FillColor = 0;
  int16_t FillStyle = 1;  // transparent
  int16_t DrawStyle = 0;  // 0 solid, 1 dashed
  FontSpec Font;

  int16_t DrawWidth() const { return drawWidth_; }
  void setDrawWidth(int16_t width) { drawWidth_ = width < 1 ? int16_t{1} : width; }

  // Place and size on main in millimetres.
  float Left() const { return left_; }
  float Top() const { return top_; }
  float Width() const { return width_; }
  float Height() const { return height_; }
  void setWidth(float mm);
  void setHeight(float mm);
  void Move(float left, float top);

  // Board units across the surface. Writing one sets the length of a unit; a later
  // change of Width or Height keeps that length.
  float ScaleWidth() const { return width_ / unitX_; }
  float ScaleHeight() const { return height_ / unitY_; }
  void setScaleWidth(float units);
  void setScaleHeight(float units);
  // Millimetres per board unit.
  float unitX() const { return unitX_; }
  float unitY() const { return unitY_; }

  void Cls();
  void Line(float x1, float y1, float x2, float y2);
  void Box(float x1, float y1, float x2, float y2);  // Line with the box option
  void Circle(float x, float y, float radius);
  // Text at (CurrentX, CurrentY); CurrentX moves behind it, CurrentY stays.
  void Print(const std::string& text);
  // Draws the picture's operations [from, to) again, exactly as they were drawn.
  void repeat(size_t from, size_t to);
  // Draws operations taken from a picture of this surface again, as they were drawn; the
  // pen and text state are the caller's to set as that drawing left them.
  void replay(const std::shared_ptr<KeptDrawings>& kept, const KeptRange& drawn);

  // Extent in the current Font, in board units. TextHeight is one line height for any
  // text without line ends, the empty text included.
  virtual float TextWidth(const std::string& text) = 0;
  virtual float TextHeight(const std::string& text) = 0;

  virtual void SetFocus() {}

  // The retained picture: everything drawn since the last Cls.
  const DisplayList& Image() const { return image_; }

 protected:
  // Called after every change of place, size or scale.
  virtual void geometryChanged() {}
  // Called after the picture changed: cleared, or an operation added within these bounds.
  virtual void imageCleared() {}
  virtual void imageAdded(const BoardRect& bounds) {}
  // For a canvas whose picture nobody looks at: drawing then only places and measures.
  void keepNoImage() { keepsImage_ = false; }

 private:
  void addOp(DrawKind kind, float x1, float y1, float x2, float y2);

  int16_t drawWidth_ = 1;
  float left_ = 0;
  float top_ = 0;
  float width_ = 100;
  float height_ = 100;
  float unitX_ = 1;
  float unitY_ = 1;
  DisplayList image_;
  bool keepsImage_ = true;
};

// A canvas for work whose output holds no geometry (the text files, the report, the
// project file): every text measures nothing and no picture is kept, so reading a plan
// needs no fonts, and every record but the geometry comes out as on a real canvas.
class UnmeasuredSurface : public Surface {
 public:
  UnmeasuredSurface() { keepNoImage(); }
  float TextWidth(const std::string&) override { return 0; }
  float TextHeight(const std::string&) override { return 0; }
};

}  // namespace tavlero
