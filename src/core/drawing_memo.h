#pragma once
// What the last redraws made of each cell and link, kept beside the records they were made
// from, so that a redraw copies every drawing whose inputs are all as they were and
// measures and formats only what changed. The board's drawing fills and reads it.

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/records.h"
#include "platform/display_list.h"

namespace tavlero {

// A cell record read once: the fields the drawing uses, as drawCell reads them.
struct ParsedCell {
  int32_t positionX = 0;
  int32_t positionY = 0;
  std::string name;
  std::string summary;
  int32_t fillColor = 0;
  int16_t fillStyle = 0;
};

// The pen a drawing starts with; a cell or link drawn with another pen looks different.
struct StartPen {
  bool selected = false;
  int32_t foreColor = 0;
  int16_t drawStyle = 0;
  int16_t drawWidth = 1;
  bool operator==(const StartPen&) const = default;
};

struct CellDrawing {
  bool valid = false;
  std::string record;
  ParsedCell cell;
  StartPen pen;
  KeptRange drawn;       // in the keeper of its context
  std::string geometry;  // the record written into sizeList
  Box box;               // that record read back, as the links and hit tests read it
  float endX = 0;        // CurrentX and CurrentY as the drawing left them
  float endY = 0;
};

struct LinkDrawing {
  bool valid = false;
  std::string record;
  LinkEnds ends;
  uint64_t names = 0;  // the name index the cells were found with
  int16_t source = -1;
  int16_t target = -1;
  StartPen pen;
  Box sourceBox;
  Box targetBox;
  int32_t fillColor = 0;  // of the source cell, which the circle wears
  int16_t fillStyle = 0;
  KeptRange drawn;
  std::string geometry;
  Box box;
};

// Everything a cell's drawing depends on beyond its record and its pen: the zoom, the
// settings, the canvas's unit and what its measures give in the two fonts.
struct CellContext {
  float zoom = 0;
  float minimumCellWidth = 0;
  float maximumCellWidth = 0;
  int16_t nameFontSize = 0;
  int16_t infoFontSize = 0;
  std::string fontName;
  float unitX = 0;
  float unitY = 0;
  float measures[4] = {};
  bool operator==(const CellContext&) const = default;
};

struct DrawingMemo {
  // The drawings at the last few contexts, most recent first, so that a zoom back to a
  // level seen before copies its drawings too; the links' follow their cells' boxes.
  // The revisions of the lists after the last redraw that drew at a context: while they
  // stand, every record and geometry record is the one its drawing knows.
  struct Seen {
    uint64_t records = UINT64_MAX;
    uint64_t geometry = UINT64_MAX;
  };
  struct Drawings {
    CellContext context;
    // The operations of this context's drawings, which sheds the replaced ones now and then.
    std::shared_ptr<KeptDrawings> kept = std::make_shared<KeptDrawings>();
    std::vector<CellDrawing> cells;
    Seen cellsSeen;
    std::vector<LinkDrawing> links;
    Seen linksSeen;
  };
  std::vector<Drawings> contexts;

  // The cells' names by index and the last index of each name, as the links look them up;
  // made again only when a name or the count changes, which moves the generation on.
  std::vector<std::string> cellNames;
  // Each name's place in lastCellOf, which a removal walks as plain numbers; -1 there
  // when no cell has the name any more.
  std::unordered_map<std::string, size_t> nameSlots;
  std::vector<int16_t> lastCellOf;
  uint64_t namesGeneration = 0;
  // The cell whose removal alone made this generation, or -1: a link found one generation
  // before, not at that cell, moves down past it instead of being looked up again.
  int16_t removedCell = -1;
  // Likewise the cell whose new name alone made it, with the name it had and has: a link
  // naming neither keeps its cells.
  int16_t renamedCell = -1;
  std::string renamedFrom;
  std::string renamedTo;
  // The revision of itemList the names were last taken from.
  uint64_t namesRevision = UINT64_MAX;
};

}  // namespace tavlero
