#include "board/board.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "board/cell_text.h"
#include "board/links.h"
#include "core/record.h"
#include "core/records.h"

namespace tavlero {

namespace {

constexpr int32_t kRed = 255;
constexpr int32_t kDarkRed = 128;

// Cell names to the index of the last cell of that name, so that every link of a redraw
// finds its cells without walking all records; the last cell of a name wins.
using NameIndex = std::unordered_map<std::string, int16_t>;

NameIndex buildNameIndex(const ProjectStore& store) {
  NameIndex names;
  const auto& items = store.itemList.items();
  names.reserve(items.size());
  for (size_t i = 0; i < items.size(); ++i)
    names[getField(items[i], key::methodName)] = static_cast<int16_t>(i);
  return names;
}

int16_t lastCellNamed(const ProjectStore& store, const NameIndex* names, const std::string& name) {
  if (names) {
    auto it = names->find(name);
    return it == names->end() ? int16_t{-1} : it->second;
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

void drawLinkWith(App& app, int16_t index, const NameIndex* names) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  const std::string& record = store.linkList.List(index);
  LinkEnds ends = readLink(record);
  if (ends.source.empty() || ends.target.empty()) return;

  if (index == store.selectedLink) canvas.ForeColor = kRed;
  int16_t source = lastCellNamed(store, names, ends.source);
  int16_t target = lastCellNamed(store, names, ends.target);
  if (source < 0 || target < 0) {
    store.linkList.setList(index, "");
    store.linkSizeList.setList(index, "");
    canvas.ForeColor = 0;
    return;
  }

  Box s = readBox(store.sizeList.List(source));
  Box t = readBox(store.sizeList.List(target));
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
  canvas.FillColor = toLong(numberField(sourceRecord, key::cellColor));
  canvas.FillStyle = toInteger(numberField(sourceRecord, key::cellFillStyle));
  canvas.Circle(x2, y2, 1);
  canvas.FillStyle = keptFillStyle;
  canvas.FillColor = keptFillColor;

  canvas.DrawStyle = 0;
  canvas.setDrawWidth(keptWidth);
  canvas.ForeColor = 0;
}

}  // namespace

void drawCell(App& app, int16_t index) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  const std::string record = store.itemList.List(index);
  int32_t positionX = toLong(numberField(record, key::positionX));
  int32_t positionY = toLong(numberField(record, key::positionY));
  std::string name = getField(record, key::methodName);
  std::string summary = getField(record, key::shortDescription);
  int32_t fillColor = toLong(numberField(record, key::cellColor));

  selectFont(app, store.nameFontSize, true);
  float nameWidth = canvas.TextWidth(name);
  selectFont(app, store.infoFontSize, false);

  // The surface grows to take a cell whose origin lies beyond it; it never shrinks here.
  float zoom = store.zoomFactor;
  if (canvas.Width() / zoom < static_cast<float>(positionX))
    canvas.setWidth(zoom * static_cast<float>(positionX) + 100);
  if (canvas.Height() / zoom < static_cast<float>(positionY))
    canvas.setHeight(zoom * static_cast<float>(positionY) + 50);

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

  canvas.FillStyle = toInteger(numberField(record, key::cellFillStyle));
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

void drawLink(App& app, int16_t index) {
  drawLinkWith(app, index, nullptr);
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
  canvas.Cls();
  canvas.setDrawWidth(toInteger(store.zoomFactor + 0.1));
  const int32_t foreColor = canvas.ForeColor;
  const int16_t drawStyle = canvas.DrawStyle;
  const size_t firstCellOp = canvas.Image().size();
  int16_t cells = store.itemList.ListCount();
  for (int16_t i = 0; i < cells; ++i) drawCell(app, i);
  const size_t lastCellOp = canvas.Image().size();
  // Drawing never renames a cell, so one index serves every link of this redraw.
  NameIndex names = buildNameIndex(store);
  int16_t links = store.linkList.ListCount();
  for (int16_t i = 0; i < links; ++i) drawLinkWith(app, i, &names);
  if (store.doubleDraw) {
    // The cells over the links. Links change no record of a cell, and leave the pen as
    // the cells found it, so the cells' operations come out as they did the first time
    // and their geometry records stand; drawing them again costs a copy.
    if (canvas.ForeColor == foreColor && canvas.DrawStyle == drawStyle)
      canvas.repeat(firstCellOp, lastCellOp);
    else
      for (int16_t i = 0; i < cells; ++i) drawCell(app, i);
  }
  removeBlankLinks(app);
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
