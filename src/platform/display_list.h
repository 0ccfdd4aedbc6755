#pragma once
// What was drawn on the canvas since the last Cls, kept as data so that the screen can
// paint only the visible part and a picture of the whole board can be made on demand,
// without ever holding one bitmap of a board that may be far larger than any image.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
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

// Texts one after another in blocks that never move, so that a view of one holds while the
// store lives, and letting go of a whole board's texts frees a few blocks.
class TextStore {
 public:
  std::string_view hold(std::string_view text);
  void clear();

 private:
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  size_t room_ = 0;
};

// Drawings kept to be drawn again in later pictures: their operations one after another
// (text and font: indices into texts and fonts here), so that copying a whole board's
// drawings reads memory in order rather than one block a drawing. A kept range never
// changes; a picture that copied from it holds it, so its texts outlive the keeper's interest.
struct KeptDrawings {
  std::vector<DrawOp> ops;
  std::vector<std::string_view> texts;  // in chars
  TextStore chars;
  std::vector<FontSpec> fonts;
};

// One drawing's operations in a KeptDrawings, and their bounds.
struct KeptRange {
  uint32_t from = 0;
  uint32_t to = 0;
  BoardRect bounds{0, 0, 0, 0};  // meaningless when empty
};

class DisplayList {
 public:
  void clear();
  void add(const DrawOp& op);
  uint32_t addText(std::string_view text);
  uint32_t addFont(const FontSpec& font);
  // The operations [from, to) with what they need, kept at the end of kept.
  KeptRange keep(size_t from, size_t to, KeptDrawings& kept) const;
  // Operations kept before, added at the end; this picture only reads kept, and holds it.
  void append(const std::shared_ptr<KeptDrawings>& kept, const KeptRange& range);
  // The operations [from, to) once more at the end, sharing their texts.
  void repeat(size_t from, size_t to);

  // A range of one keeper kept again at the end of another, for a keeper that sheds what
  // it no longer needs.
  static KeptRange keepAgain(const KeptDrawings& from, const KeptRange& range, KeptDrawings& to);

  const std::vector<DrawOp>& ops() const { return ops_; }
  std::string_view text(uint32_t index) const { return texts_[index]; }
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

  uint32_t fontOf(const KeptDrawings& kept, uint32_t index);
  void madeBy(const void* source, uint32_t from, uint32_t to);
  void takeOverLastIndex() const;

  std::vector<DrawOp> ops_;
  std::vector<std::string_view> texts_;  // in printed_ or in one of kept_
  TextStore printed_;
  std::vector<std::shared_ptr<KeptDrawings>> kept_;
  std::vector<FontSpec> fonts_;
  // The fonts of the keeper last copied from, as this picture numbers them.
  const KeptDrawings* fontsOf_ = nullptr;
  std::vector<uint32_t> keptFonts_;
  mutable Grid grid_;
  mutable std::vector<uint32_t> huge_;   // operations too large to bucket, or not finite
  mutable std::vector<uint32_t> loose_;  // added since the grid was made
  mutable std::vector<uint8_t> again_;   // per operation: a text known to be printed again later
  mutable size_t indexed_ = 0;

  // How the picture was made, as far as it can be told again: runs of kept operations and
  // repeats, in order; fresh_ once anything was drawn anew. An operation that two pictures
  // took the same way is the same operation, so the later picture's index takes over the
  // earlier's places for it: wholesale for an unchanged board redrawn, and for all but
  // what was drawn anew after a change.
  struct Piece {
    const void* source;  // the keeper, or this list for a repeat
    uint32_t from, to;
    uint32_t at;  // where the piece begins in the picture
    bool operator==(const Piece&) const = default;
  };
  std::vector<Piece> recipe_;
  bool fresh_ = false;
  // The last few pictures indexed, latest first, every operation placed, with what holds
  // their kept drawings: a zoom back to a level seen before finds its picture among them.
  struct Indexed {
    std::vector<Piece> recipe;
    size_t size = 0;
    Grid grid;
    std::vector<uint32_t> huge, loose;
    std::vector<uint8_t> again;
    std::vector<std::shared_ptr<KeptDrawings>> kept;
  };
  mutable std::vector<Indexed> last_;
};

}  // namespace tavlero
