#pragma once
// What was drawn on the canvas since the last Cls, kept as data so that the screen can
// paint only the visible part and a picture of the whole board can be made on demand,
// without ever holding one bitmap of a board that may be far larger than any image.

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/default_font.h"

namespace tavlero {

struct FontSpec {
  std::string Name = defaults::fontName;
  float Size = 8.25f;  // points
  bool Bold = false;
  bool operator==(const FontSpec&) const = default;
};

enum class DrawKind : uint8_t { Line, Box, Circle, Text };

// One drawing operation in board units. Line/Box: (x1, y1)-(x2, y2). Circle: centre
// (x1, y1), radius x2. Text: top left (x1, y1), extent to (x2, y2).
struct DrawOp {
  DrawKind kind;
  float x1, y1, x2, y2;
  int32_t foreColor;
  int32_t fillColor;
  int16_t fillStyle;
  int16_t drawStyle;
  int16_t drawWidth;
  uint32_t text = 0;  // index into texts() for Text
  uint32_t font = 0;  // index into fonts() for Text
};

struct BoardRect {
  float left, top, right, bottom;
};

// Operations taken out of a picture with their texts and fonts, to be drawn again later
// exactly as they were. A picture they are added to shares them, texts and all.
struct DrawnOps {
  std::vector<DrawOp> ops;  // text and font: indices into texts and fonts below
  std::vector<std::string> texts;
  std::vector<FontSpec> fonts;
  BoardRect bounds{0, 0, 0, 0};  // of all the operations; meaningless when there are none
};

class DisplayList {
 public:
  void clear();
  void add(const DrawOp& op);
  uint32_t addText(std::string text);
  uint32_t addFont(const FontSpec& font);
  // The operations [from, to) with what they need, and their adding back at the end.
  std::shared_ptr<const DrawnOps> copy(size_t from, size_t to) const;
  void append(std::shared_ptr<const DrawnOps> drawn);
  // The operations [from, to) once more at the end, sharing their texts.
  void repeat(size_t from, size_t to);

  const std::vector<DrawOp>& ops() const { return ops_; }
  const std::string& text(uint32_t index) const { return *texts_[index]; }
  const FontSpec& font(uint32_t index) const { return fonts_[index]; }
  size_t size() const { return ops_.size(); }

  // Indices of the operations whose bounds meet the rectangle, in drawing order, less
  // the texts printed again later at the same place in the same font: a screen that
  // smooths its letters would darken and fringe a text printed over itself, so the later
  // print replaces the earlier, as it does on a screen that does not. A coarse grid over
  // the board keeps this proportional to what is visible.
  std::vector<uint32_t> query(const BoardRect& area) const;

  // The bounds of one operation, widened by half a pen and, for text, by its extent.
  static BoardRect bounds(const DrawOp& op);
  static BoardRect unite(const BoardRect& a, const BoardRect& b);

 private:
  // A grid over the extent of the operations, made in two passes (count, then fill) when
  // first asked. Its buckets are 64 units square, or larger where the board is so large
  // that they would far outnumber the operations.
  struct Grid {
    double inverse = 1.0 / 64;  // buckets per board unit
    double x0 = 0;              // first column and row, in buckets
    double y0 = 0;
    int64_t columns = 0;
    int64_t rows = 0;
    std::vector<uint32_t> starts;  // per bucket, into items, and one past the last
    std::vector<uint32_t> items;   // ascending within each bucket
  };
  struct Span {
    int64_t x0, y0, x1, y1;  // buckets of the grid, inclusive
  };
  // The buckets a rectangle covers, clipped to the grid; false when none.
  bool spanOf(const BoardRect& r, Span& span) const;
  void buildGrid() const;
  void rebuildIndexIfNeeded() const;
  bool printedAgain(uint32_t opIndex) const;

  std::vector<DrawOp> ops_;
  std::vector<const std::string*> texts_;  // in printed_ or in one of shared_
  std::deque<std::string> printed_;
  std::vector<std::shared_ptr<const DrawnOps>> shared_;
  std::vector<FontSpec> fonts_;
  mutable Grid grid_;
  mutable std::vector<uint32_t> huge_;   // operations too large to bucket, or not finite
  mutable std::vector<uint32_t> loose_;  // added since the grid was made
  mutable std::vector<uint8_t> again_;   // per operation: a text known to be printed again later
  mutable size_t indexed_ = 0;
};

}  // namespace tavlero
