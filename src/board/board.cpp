#include "board/board.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "board/cell_text.h"
#include "board/links.h"
#include "core/record.h"
#include "core/records.h"

namespace tavlero {

namespace {

constexpr int32_t kRed = 255;
constexpr int32_t kDarkRed = 128;
// Zoom levels whose cell drawings are kept: a zoom in and back out copies both.
constexpr size_t kKeptContexts = 3;

ParsedCell parseCell(const std::string& record) {
  return {toLong(numberField(record, key::positionX)), toLong(numberField(record, key::positionY)),
          getField(record, key::methodName),           getField(record, key::shortDescription),
          toLong(numberField(record, key::cellColor)), toInteger(numberField(record, key::cellFillStyle))};
}

// The last cell of a name, from the redraw's index or, for a link drawn alone, by a walk.
int16_t lastCellNamed(const ProjectStore& store, const DrawingMemo* memo, const std::string& name) {
  if (memo) {
    auto it = memo->nameSlots.find(name);
    return it == memo->nameSlots.end() ? int16_t{-1} : memo->lastCellOf[it->second];
  }
  int16_t found = -1;
  const auto& items = store.itemList.items();
  for (size_t i = 0; i < items.size(); ++i)
    if (getField(items[i], key::methodName) == name) found = static_cast<int16_t>(i);
  return found;
}

void selectFont(App& app, int16_t size, bool bold) {
  app.canvas.Font.Name = app.store.fontName;
  app.canvas.Font.Size = static_cast<float>(size) * app.store.zoomFactor;
  app.canvas.Font.Bold = bold;
}

int32_t offsetBy(int32_t value, int32_t delta) {
  int64_t sum = static_cast<int64_t>(value) + delta;
  return static_cast<int32_t>(std::clamp<int64_t>(sum, INT32_MIN, INT32_MAX));
}

StartPen penOf(const Surface& canvas, bool selected) {
  return {selected, canvas.ForeColor, canvas.DrawStyle, canvas.DrawWidth()};
}

// What a link found of its cells; drawn is false when it drew nothing or was blanked.
struct FoundCells {
  bool drawn = false;
  int16_t source = -1;
  int16_t target = -1;
  Box sourceBox;
  Box targetBox;
  int32_t fillColor = 0;
  int16_t fillStyle = 0;
};

// boxes and cells: the cells' boxes as sizeList reads and their records read, when the
// caller has them.
FoundCells drawLinkWith(App& app, int16_t index, const LinkEnds& ends, const DrawingMemo* memo,
                        const std::vector<Box>* boxes = nullptr,
                        const std::vector<CellDrawing>* cells = nullptr) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  FoundCells found;
  if (ends.source.empty() || ends.target.empty()) return found;

  if (index == store.selectedLink) canvas.ForeColor = kRed;
  int16_t source = lastCellNamed(store, memo, ends.source);
  int16_t target = lastCellNamed(store, memo, ends.target);
  if (source < 0 || target < 0) {
    store.linkList.setList(index, "");
    store.linkSizeList.setList(index, "");
    canvas.ForeColor = 0;
    return found;
  }

  Box s = boxes ? (*boxes)[static_cast<size_t>(source)] : readBox(store.sizeList.List(source));
  Box t = boxes ? (*boxes)[static_cast<size_t>(target)] : readBox(store.sizeList.List(target));
  int16_t keptWidth = canvas.DrawWidth();
  canvas.DrawStyle = 1;
  canvas.setDrawWidth(1);

  float sourceX = (s.x2 - s.x1) / 2 + s.x1;
  float sourceY = (s.y2 - s.y1) / 2 + s.y1;
  float targetX = (t.x2 - t.x1) / 2 + t.x1;
  float targetY = (t.y2 - t.y1) / 2 + t.y1;
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  switch (linkDirection(sourceX, sourceY, targetX, targetY)) {
    case 0:
      x1 = sourceX, y1 = s.y1, x2 = targetX, y2 = t.y2;
      break;
    case 1:
      x1 = s.x2, y1 = sourceY, x2 = t.x1, y2 = targetY;
      break;
    case 2:
      x1 = sourceX, y1 = s.y2, x2 = targetX, y2 = t.y1;
      break;
    default:
      x1 = s.x1, y1 = sourceY, x2 = t.x2, y2 = targetY;
      break;
  }
  store.linkSizeList.setList(
      index, buildGeometry(numberToText(x1), numberToText(y1), numberToText(x2), numberToText(y2)));
  canvas.Line(x1, y1, x2, y2);

  const std::string& sourceRecord = store.itemList.List(source);
  int32_t keptFillColor = canvas.FillColor;
  int16_t keptFillStyle = canvas.FillStyle;
  const ParsedCell* parsed = cells ? &(*cells)[static_cast<size_t>(source)].cell : nullptr;
  canvas.FillColor = parsed ? parsed->fillColor : toLong(numberField(sourceRecord, key::cellColor));
  canvas.FillStyle = parsed ? parsed->fillStyle : toInteger(numberField(sourceRecord, key::cellFillStyle));
  canvas.Circle(x2, y2, 1);
  found = {true, source, target, s, t, canvas.FillColor, canvas.FillStyle};
  canvas.FillStyle = keptFillStyle;
  canvas.FillColor = keptFillColor;

  canvas.DrawStyle = 0;
  canvas.setDrawWidth(keptWidth);
  canvas.ForeColor = 0;
  return found;
}

// The surface grows to take a cell whose origin lies beyond it; it never shrinks here.
void growFor(App& app, const ParsedCell& cell) {
  Surface& canvas = app.canvas;
  float zoom = app.store.zoomFactor;
  if (canvas.Width() / zoom < static_cast<float>(cell.positionX))
    canvas.setWidth(zoom * static_cast<float>(cell.positionX) + 100);
  if (canvas.Height() / zoom < static_cast<float>(cell.positionY))
    canvas.setHeight(zoom * static_cast<float>(cell.positionY) + 50);
}

void paintCell(App& app, int16_t index, const ParsedCell& cell) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  const int32_t positionX = cell.positionX;
  const int32_t positionY = cell.positionY;
  const std::string& name = cell.name;
  const std::string& summary = cell.summary;
  const int32_t fillColor = cell.fillColor;

  selectFont(app, store.nameFontSize, true);
  float nameWidth = canvas.TextWidth(name);
  selectFont(app, store.infoFontSize, false);

  growFor(app, cell);

  if (name.empty()) return;

  if (index == store.selectedCell) {
    canvas.ForeColor = kRed;
    if (fillColor == kRed) canvas.ForeColor = kDarkRed;
  }
  auto left = static_cast<float>(positionX);
  auto top = static_cast<float>(positionY);
  canvas.CurrentX = left;
  canvas.CurrentY = top;

  float cellWidth = nameWidth > store.minimumCellWidth ? nameWidth : store.minimumCellWidth;
  if (nameWidth > store.maximumCellWidth) cellWidth = store.maximumCellWidth;

  selectFont(app, store.nameFontSize, true);
  float belowName = layoutCellText(canvas, name, cellWidth, top, false);
  selectFont(app, store.infoFontSize, false);
  float belowSummary = layoutCellText(canvas, summary, cellWidth, belowName, false);

  canvas.FillStyle = cell.fillStyle;
  canvas.FillColor = fillColor;
  canvas.Box(left - 1, top - 1, left + cellWidth + 1, belowSummary + 1);
  canvas.FillStyle = 1;
  canvas.FillColor = 0;

  canvas.CurrentX = left;
  canvas.CurrentY = top;
  selectFont(app, store.nameFontSize, true);
  layoutCellText(canvas, name, cellWidth, top, true);
  canvas.CurrentX = left;
  canvas.CurrentY = belowName;
  selectFont(app, store.infoFontSize, false);
  if (index != store.selectedCell) canvas.ForeColor = 0;
  layoutCellText(canvas, summary, cellWidth, canvas.CurrentY, true);

  double right = static_cast<double>(positionX) + static_cast<double>(cellWidth) + 1;
  store.sizeList.setList(
      index, buildGeometry(numberToText(offsetBy(positionX, -1)), numberToText(offsetBy(positionY, -1)),
                           numberToText(right), numberToText(belowSummary + 1)));
  canvas.ForeColor = 0;
}

// Everything beyond the record and the pen that a cell's drawing depends on. The measures
// of one letter and one line in both fonts stand for the canvas's metrics; the font is put
// back, so that a board without cells leaves the canvas as it found it.
CellContext contextNow(App& app) {
  const ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  CellContext context{store.zoomFactor,   store.minimumCellWidth, store.maximumCellWidth,
                      store.nameFontSize, store.infoFontSize,     store.fontName,
                      canvas.unitX(),     canvas.unitY(),         {}};
  const FontSpec kept = canvas.Font;
  selectFont(app, store.nameFontSize, true);
  context.measures[0] = canvas.TextWidth("W");
  context.measures[1] = canvas.TextHeight("");
  selectFont(app, store.infoFontSize, false);
  context.measures[2] = canvas.TextWidth("W");
  context.measures[3] = canvas.TextHeight("");
  canvas.Font = kept;
  return context;
}

DrawingMemo::Drawings& drawingsAt(DrawingMemo& memo, CellContext context) {
  auto& sets = memo.contexts;
  auto it = std::find_if(sets.begin(), sets.end(), [&](const auto& set) { return set.context == context; });
  if (it == sets.end()) {
    if (sets.size() >= kKeptContexts) sets.pop_back();
    DrawingMemo::Drawings set;
    set.context = std::move(context);
    sets.insert(sets.begin(), std::move(set));
  } else {
    std::rotate(sets.begin(), it, it + 1);
  }
  return sets.front();
}

// The drawings by index follow the list: an entry taken out of the list takes its drawing
// with it, so that the entries behind it still find theirs. Only a removal is followed;
// any other change draws afresh.
template <typename Drawing>
Drawing& drawingAt(std::vector<Drawing>& drawings, size_t count, size_t index, const std::string& record) {
  while (drawings.size() > count && index + 1 < drawings.size() && drawings[index].record != record &&
         drawings[index + 1].record == record)
    drawings.erase(drawings.begin() + static_cast<ptrdiff_t>(index));
  if (drawings.size() <= index) drawings.resize(index + 1);
  return drawings[index];
}

// The entries of a list changed since a revision, by their index now, and the entries
// taken out, each by the index it had as it went; told is false when the list cannot say.
struct ListChanges {
  bool told = false;
  std::vector<int16_t> changed;  // ascending
  std::vector<int16_t> removed;
  bool stands(int16_t index) const {
    return told && !std::binary_search(changed.begin(), changed.end(), index);
  }
};

ListChanges changesOf(const StringList& list, uint64_t since) {
  ListChanges out;
  std::vector<StringList::Change> changes;
  out.told = list.changesSince(since, changes);
  for (const StringList::Change& change : changes) {
    if (change.kind != StringList::Change::Kind::Removed) {
      out.changed.push_back(change.index);
      continue;
    }
    out.removed.push_back(change.index);
    std::erase(out.changed, change.index);
    for (int16_t& at : out.changed) at = static_cast<int16_t>(at - (at > change.index ? 1 : 0));
  }
  std::sort(out.changed.begin(), out.changed.end());
  return out;
}

void drawCellFromMemo(App& app, int16_t index, const CellDrawing& d,
                      const std::shared_ptr<KeptDrawings>& kept, bool geometryStands) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  growFor(app, d.cell);
  selectFont(app, store.infoFontSize, false);
  if (d.cell.name.empty()) return;
  canvas.replay(kept, d.drawn);
  canvas.FillStyle = 1;
  canvas.FillColor = 0;
  canvas.CurrentX = d.endX;
  canvas.CurrentY = d.endY;
  if (!geometryStands && store.sizeList.List(index) != d.geometry) store.sizeList.setList(index, d.geometry);
  canvas.ForeColor = 0;
}

void drawCellAfresh(App& app, int16_t index, const std::string& record, const StartPen& pen, CellDrawing& d,
                    KeptDrawings& kept) {
  Surface& canvas = app.canvas;
  d.valid = false;
  d.record = record;
  d.cell = parseCell(record);
  d.pen = pen;
  size_t from = canvas.Image().size();
  paintCell(app, index, d.cell);
  d.drawn = canvas.Image().keep(from, canvas.Image().size(), kept);
  d.geometry = app.store.sizeList.List(index);
  d.box = readBox(d.geometry);
  d.endX = canvas.CurrentX;
  d.endY = canvas.CurrentY;
  d.valid = true;
}

// The names index follows the cells' names. Cells added at the end only add names; a
// link's cells then stay where they were found unless a new cell takes an old name.
void updateNames(DrawingMemo& memo, const std::vector<CellDrawing>& drawings, bool renamed) {
  size_t from = memo.cellNames.size();
  bool moved = renamed;
  if (renamed) {
    from = 0;
    memo.cellNames.clear();
    memo.nameSlots.clear();
    memo.lastCellOf.clear();
  }
  memo.cellNames.resize(drawings.size());
  for (size_t i = from; i < drawings.size(); ++i) {
    memo.cellNames[i] = drawings[i].cell.name;
    auto [at, isNew] = memo.nameSlots.try_emplace(memo.cellNames[i], memo.lastCellOf.size());
    if (isNew) memo.lastCellOf.emplace_back();
    memo.lastCellOf[at->second] = static_cast<int16_t>(i);
    moved = moved || !isNew;
  }
  if (moved) {
    ++memo.namesGeneration;
    memo.removedCell = memo.renamedCell = -1;
  }
}

// The last cell of name before index, or -1.
int16_t lastNamedBefore(const std::vector<std::string>& names, size_t index, const std::string& name) {
  auto before = std::find(names.rbegin() + static_cast<ptrdiff_t>(names.size() - index), names.rend(), name);
  return static_cast<int16_t>(names.rend() - before - 1);
}

// The names index after cell index alone took a new name where it stands: its old name
// falls back to the last cell before it of that name, if any, and the new one is its
// own unless a later cell has it too.
void renameName(DrawingMemo& memo, int16_t index, const std::string& name) {
  const auto at = static_cast<size_t>(index);
  std::string old = std::exchange(memo.cellNames[at], name);
  int16_t& oldLast = memo.lastCellOf[memo.nameSlots.find(old)->second];
  if (oldLast == index) oldLast = lastNamedBefore(memo.cellNames, at, old);
  auto [slot, isNew] = memo.nameSlots.try_emplace(name, memo.lastCellOf.size());
  if (isNew) memo.lastCellOf.push_back(index);
  int16_t& newLast = memo.lastCellOf[slot->second];
  newLast = std::max(newLast, index);
  ++memo.namesGeneration;
  memo.removedCell = -1;
  memo.renamedCell = index;
  memo.renamedFrom = std::move(old);
  memo.renamedTo = name;
}

// The names index after cell index alone left the list: the cells behind it move down one,
// and its name falls back to the last cell before it of that name, if any.
void removeName(DrawingMemo& memo, int16_t index) {
  const auto at = static_cast<size_t>(index);
  const std::string name = std::move(memo.cellNames[at]);
  memo.cellNames.erase(memo.cellNames.begin() + static_cast<ptrdiff_t>(at));
  for (int16_t& last : memo.lastCellOf)
    if (last > index) --last;
  int16_t& last = memo.lastCellOf[memo.nameSlots.find(name)->second];
  if (last == index) last = lastNamedBefore(memo.cellNames, at, name);
  ++memo.namesGeneration;
  memo.removedCell = index;
  memo.renamedCell = -1;
}

// A link's cells as the names index gives them now, from where they were found one
// removal or rename ago when that can tell; false when one of them is gone.
bool findLinkCells(App& app, LinkDrawing& d) {
  const DrawingMemo& memo = app.drawingMemo;
  const int16_t removed = memo.removedCell;
  const bool oneChangeAgo = d.names + 1 == memo.namesGeneration;
  auto untouched = [&memo](const std::string& end) {
    return end != memo.renamedFrom && end != memo.renamedTo;
  };
  if (oneChangeAgo && removed >= 0 && d.source != removed && d.target != removed) {
    d.source = static_cast<int16_t>(d.source - (d.source > removed ? 1 : 0));
    d.target = static_cast<int16_t>(d.target - (d.target > removed ? 1 : 0));
  } else if (oneChangeAgo && memo.renamedCell >= 0 && untouched(d.ends.source) && untouched(d.ends.target)) {
    // Neither name the rename touched: both cells stay where they were found.
  } else {
    d.source = lastCellNamed(app.store, &memo, d.ends.source);
    d.target = lastCellNamed(app.store, &memo, d.ends.target);
    if (d.source < 0 || d.target < 0) return false;
  }
  d.names = memo.namesGeneration;
  return true;
}

// Whether the link's last drawing still holds: the same record, cells of the same boxes
// (wherever the list has moved them) and the source's fill, and the same pen.
bool linkStillHolds(App& app, const DrawingMemo::Drawings& set, LinkDrawing& d, const std::string& record,
                    const std::vector<Box>& boxes) {
  DrawingMemo& memo = app.drawingMemo;
  if (!d.valid || (set.linksSeen.records != app.store.linkList.revision() && d.record != record))
    return false;
  if (d.names != memo.namesGeneration && !findLinkCells(app, d)) return false;
  const auto source = static_cast<size_t>(d.source);
  const auto target = static_cast<size_t>(d.target);
  const ParsedCell& fill = set.cells[source].cell;
  return boxes[source] == d.sourceBox && boxes[target] == d.targetBox && fill.fillColor == d.fillColor &&
         fill.fillStyle == d.fillStyle;
}

// The link's drawing as it stands after drawing it: its operations live while it is valid.
const LinkDrawing& drawLinkInRedraw(App& app, DrawingMemo::Drawings& set, int16_t index,
                                    const std::vector<Box>& boxes) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  DrawingMemo& memo = app.drawingMemo;
  const std::string& record = store.linkList.List(index);
  LinkDrawing& d = drawingAt(set.links, static_cast<size_t>(store.linkList.ListCount()),
                             static_cast<size_t>(index), record);
  // Only the colour a link starts in shows in its drawing; it sets the rest itself.
  StartPen pen{index == store.selectedLink, canvas.ForeColor, 0, 1};
  if (d.pen == pen && linkStillHolds(app, set, d, record, boxes)) {
    if (set.linksSeen.geometry != store.linkSizeList.revision() &&
        store.linkSizeList.List(index) != d.geometry)
      store.linkSizeList.setList(index, d.geometry);
    canvas.replay(set.kept, d.drawn);
    canvas.DrawStyle = 0;
    canvas.ForeColor = 0;
    return d;
  }
  d.valid = false;
  d.record = record;
  d.ends = readLink(record);
  size_t from = canvas.Image().size();
  FoundCells found = drawLinkWith(app, index, d.ends, &memo, &boxes, &set.cells);
  if (!found.drawn) return d;
  d.names = memo.namesGeneration;
  d.source = found.source;
  d.target = found.target;
  d.pen = pen;
  d.sourceBox = found.sourceBox;
  d.targetBox = found.targetBox;
  d.fillColor = found.fillColor;
  d.fillStyle = found.fillStyle;
  d.drawn = canvas.Image().keep(from, canvas.Image().size(), *set.kept);
  d.geometry = store.linkSizeList.List(index);
  d.box = readBox(d.geometry);
  d.valid = true;
  return d;
}

size_t opsOf(const KeptRange& range) {
  return range.to - range.from;
}

// The keeper sheds the operations of the drawings since replaced once they outnumber the
// live ones, so that it stays within twice what the board draws.
void shedReplaced(DrawingMemo::Drawings& set, size_t live) {
  if (set.kept->ops.size() <= 2 * live + 4096) return;
  auto kept = std::make_shared<KeptDrawings>();
  kept->ops.reserve(live);
  auto copyOver = [&](auto& drawings) {
    for (auto& d : drawings)
      d.drawn = d.valid ? DisplayList::keepAgain(*set.kept, d.drawn, *kept) : KeptRange{};
  };
  copyOver(set.cells);
  copyOver(set.links);
  set.kept = std::move(kept);
}

}  // namespace

void drawCell(App& app, int16_t index) {
  paintCell(app, index, parseCell(app.store.itemList.List(index)));
}

bool cellNamed(const App& app, const std::string& name) {
  const DrawingMemo& memo = app.drawingMemo;
  const bool current = memo.namesRevision == app.store.itemList.revision();
  return lastCellNamed(app.store, current ? &memo : nullptr, name) >= 0;
}

void drawLink(App& app, int16_t index) {
  drawLinkWith(app, index, readLink(app.store.linkList.List(index)), nullptr);
}

int16_t linkDirection(float sourceX, float sourceY, float targetX, float targetY) {
  float dx = std::fabs(targetX - sourceX);
  float dy = std::fabs(targetY - sourceY);
  if (dx > dy) return targetX < sourceX ? 3 : 1;
  return targetY > sourceY ? 2 : 0;
}

void redrawBoard(App& app) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  DrawingMemo& memo = app.drawingMemo;
  canvas.Cls();
  canvas.setDrawWidth(toInteger(store.zoomFactor + 0.1));
  const int32_t foreColor = canvas.ForeColor;
  const int16_t drawStyle = canvas.DrawStyle;
  const size_t firstCellOp = canvas.Image().size();
  const int16_t cells = store.itemList.ListCount();
  const auto cellCount = static_cast<size_t>(cells);
  DrawingMemo::Drawings& set = drawingsAt(memo, contextNow(app));
  std::vector<CellDrawing>& drawings = set.cells;
  const bool recordsStand = set.cellsSeen.records == store.itemList.revision();
  const bool geometryStands = set.cellsSeen.geometry == store.sizeList.revision();
  const ListChanges records = changesOf(store.itemList, set.cellsSeen.records);
  const ListChanges geometry = changesOf(store.sizeList, set.cellsSeen.geometry);
  // The boxes as reading sizeList gives them, for the links.
  std::vector<Box> boxes(cellCount);
  const size_t named = memo.cellNames.size();
  // Cells whose name changed where they stand, and the last of them.
  size_t renames = 0;
  int16_t renamedAt = -1;
  // Cells taken out of the list, as their drawings followed them; the names follow one.
  size_t removed = 0;
  int16_t removedAt = -1;
  for (int16_t at : records.removed) {
    if (static_cast<size_t>(at) >= drawings.size()) continue;
    drawings.erase(drawings.begin() + at);
    ++removed;
    removedAt = at;
  }
  size_t live = 0;  // operations of the drawings kept
  for (int16_t i = 0; i < cells; ++i) {
    const std::string& record = store.itemList.List(i);
    const size_t kept = drawings.size();
    CellDrawing& d = drawingAt(drawings, cellCount, static_cast<size_t>(i), record);
    if (drawings.size() < kept) {
      removed += kept - drawings.size();
      removedAt = i;
    }
    StartPen pen = penOf(canvas, i == store.selectedCell);
    if (d.valid && d.pen == pen && (recordsStand || records.stands(i) || d.record == record))
      drawCellFromMemo(app, i, d, set.kept, geometryStands || geometry.stands(i));
    else
      drawCellAfresh(app, i, record, pen, d, *set.kept);
    live += opsOf(d.drawn);
    const size_t was = static_cast<size_t>(i) + (i >= removedAt ? removed : 0);
    if (was < named && memo.cellNames[was] != d.cell.name) {
      ++renames;
      renamedAt = i;
    }
    boxes[static_cast<size_t>(i)] = d.cell.name.empty() ? readBox(store.sizeList.List(i)) : d.box;
  }
  drawings.resize(cellCount);
  const size_t lastCellOp = canvas.Image().size();
  // Drawing never renames a cell, so one index of the names serves every link of this redraw.
  const bool renamed = (renames > 0 && removed > 0) || renames > 1 || named > cellCount + removed ||
                       removed > 1 || (removed == 1 && static_cast<size_t>(removedAt) >= named);
  if (!renamed && removed == 1) removeName(memo, removedAt);
  if (!renamed && renames == 1)
    renameName(memo, renamedAt, drawings[static_cast<size_t>(renamedAt)].cell.name);
  if (renamed || memo.cellNames.size() < cellCount) updateNames(memo, drawings, renamed);
  memo.namesRevision = store.itemList.revision();
  int16_t links = store.linkList.ListCount();
  for (int16_t i = 0; i < links; ++i) {
    const DrawingMemo::Seen before{store.linkList.revision(), store.linkSizeList.revision()};
    const LinkDrawing& d = drawLinkInRedraw(app, set, i, boxes);
    if (d.valid) live += opsOf(d.drawn);
    // A link writes only its own entries, so what stood for the links behind it still does.
    if (set.linksSeen.records == before.records) set.linksSeen.records = store.linkList.revision();
    if (set.linksSeen.geometry == before.geometry) set.linksSeen.geometry = store.linkSizeList.revision();
  }
  if (store.doubleDraw) {
    // The cells over the links. Links change no record of a cell, and leave the pen as
    // the cells found it, so the cells' operations come out as they did the first time
    // and their geometry records stand; drawing them again costs a copy.
    if (canvas.ForeColor == foreColor && canvas.DrawStyle == drawStyle)
      canvas.repeat(firstCellOp, lastCellOp);
    else
      for (int16_t i = 0; i < cells; ++i) drawCell(app, i);
  }
  app.cellHits.adopt(store.sizeList, std::move(boxes));
  set.cellsSeen = {store.itemList.revision(), store.sizeList.revision()};

  // The links' boxes as their records read, less those that the sweep takes out. Every
  // link drawn in this redraw has its record, as its drawing knows it, in linkSizeList.
  set.links.resize(static_cast<size_t>(links));
  std::vector<Box> lines;
  lines.reserve(set.links.size());
  for (int16_t i = 0; i < links; ++i) {
    const LinkDrawing& d = set.links[static_cast<size_t>(i)];
    if (!store.linkList.List(i).empty())
      lines.push_back(d.valid ? d.box : readBox(store.linkSizeList.List(i)));
  }
  for (int16_t i = links; i-- > 0;)
    if (store.linkList.List(i).empty()) set.links.erase(set.links.begin() + i);
  removeBlankLinks(app);
  app.linkHits.adopt(store.linkSizeList, std::move(lines));
  set.linksSeen = {store.linkList.revision(), store.linkSizeList.revision()};
  shedReplaced(set, live);
}

namespace {

// One zoom step. The scale is written while Width and Height are still the old ones,
// with the new zoom; the sizes then follow, and the board keeps its extent in units.
void zoomBy(App& app, float step) {
  Surface& canvas = app.canvas;
  float& zoom = app.store.zoomFactor;
  zoom += step;
  canvas.setScaleWidth(canvas.Width() / zoom);
  canvas.setScaleHeight(canvas.Height() / zoom);
  canvas.setHeight(canvas.Height() * (zoom / (zoom - step)));
  canvas.setWidth(canvas.Width() * (zoom / (zoom - step)));
  redrawBoard(app);
}

}  // namespace

void zoomIn(App& app) {
  if (!(app.store.zoomFactor < 3.0f)) {
    app.platform.ui.Beep();
    return;
  }
  zoomBy(app, 0.5f);
}

void zoomOut(App& app) {
  if (!(app.store.zoomFactor > 1.0f)) {
    app.platform.ui.Beep();
    return;
  }
  zoomBy(app, -0.5f);
}

void resetview_Click(App& app) {
  app.canvas.Move(0, 0);
}

}  // namespace tavlero
