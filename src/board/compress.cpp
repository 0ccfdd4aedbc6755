#include "board/compress.h"

#include "board/board.h"
#include "core/record.h"
#include "core/records.h"

namespace tavlero {

namespace {

constexpr float kMargin = 10.0f;

float positionOf(const std::string& record, std::string_view key) {
  return toSingle(numberField(record, key));
}

}  // namespace

void shiftBoard(App& app, float dx, float dy) {
  StringList& items = app.store.itemList;
  // A record whose text already holds the new number is left alone: no copy of it is made.
  auto place = [&items](int16_t i, std::string_view key, const std::string& number) {
    if (!fieldHolds(items.List(i), key, number)) items.setList(i, setField(items.List(i), key, number));
  };
  for (int16_t i = 0; i < items.ListCount(); ++i) {
    place(i, key::positionX, numberToText(positionOf(items.List(i), key::positionX) + dx));
    // Read again: the first replacement may have moved what the second one finds.
    place(i, key::positionY, numberToText(positionOf(items.List(i), key::positionY) + dy));
  }
}

void compressBoard(App& app) {
  const StringList& items = app.store.itemList;
  if (items.ListCount() == 0) return;
  // The smallest start at the surface's size in millimetres: merely large numbers.
  float smallestX = app.canvas.Width();
  float smallestY = app.canvas.Height();
  float largestX = 0;
  float largestY = 0;
  for (const std::string& record : items.items()) {
    float x = positionOf(record, key::positionX);
    float y = positionOf(record, key::positionY);
    if (x < smallestX) smallestX = x;
    if (y < smallestY) smallestY = y;
    if (x > largestX) largestX = x;
    if (y > largestY) largestY = y;
  }
  shiftBoard(app, kMargin - smallestX, kMargin - smallestY);
  const float zoom = app.store.zoomFactor;
  const float room = app.store.maximumCellWidth * zoom;
  app.canvas.setHeight(largestY * zoom - smallestY * zoom + room);
  app.canvas.setWidth(largestX * zoom - smallestX * zoom + room);
  app.platform.ui.DoEvents();
}

void compress_Click(App& app) {
  compressBoard(app);
  app.canvas.Cls();
  redrawBoard(app);
}

}  // namespace tavlero
