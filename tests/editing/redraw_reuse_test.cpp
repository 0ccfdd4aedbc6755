// A redraw copies the drawings of cells and links whose inputs stand, and hit testing takes
// the boxes the redraw hands it. After each kind of change, both must leave what a program
// that kept nothing leaves: the same lists, picture, canvas state and hits.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "board/board.h"
#include "board_fixture.h"
#include "core/record.h"
#include "core/records.h"
#include "editing/hit_test.h"
#include "test_support.h"

namespace tavlero {
namespace {

struct Change {
  const char* name;
  void (*apply)(testing::FakeWorld&);
};
// Names the case in the test's name, where the bytes of the pointers would change every build.
void PrintTo(const Change& change, std::ostream* out) {
  *out << change.name;
}

void setCellField(testing::FakeWorld& w, int16_t index, std::string_view key, const std::string& value) {
  w.app.store.itemList.setList(index, setField(w.app.store.itemList.List(index), key, value));
}

const Change kChanges[] = {
    {"nothing", [](testing::FakeWorld&) {}},
    {"move", [](testing::FakeWorld& w) { setCellField(w, 1, key::positionX, " 140"); }},
    {"rename", [](testing::FakeWorld& w) { setCellField(w, 2, key::methodName, "D"); }},
    {"rename to B", [](testing::FakeWorld& w) { setCellField(w, 2, key::methodName, "B"); }},
    {"rename with its links",
     [](testing::FakeWorld& w) {
       setCellField(w, 2, key::methodName, "D");
       w.app.store.linkList.setList(1, buildLink("B", "D")),
           w.app.store.linkList.setList(2, buildLink("D", "A"));
     }},
    {"rename the later B",
     [](testing::FakeWorld& w) {
       w.addCell("B", 200, 100, "tvilling");
       redrawBoard(w.app);
       setCellField(w, 3, key::methodName, "E");
     }},
    {"summary",
     [](testing::FakeWorld& w) { setCellField(w, 0, key::shortDescription, "mye lengre nå, i linjer"); }},
    {"recolour", [](testing::FakeWorld& w) { setCellField(w, 0, key::cellColor, " 65280"); }},
    {"select cell", [](testing::FakeWorld& w) { w.app.store.selectedCell = 1; }},
    {"select link", [](testing::FakeWorld& w) { w.app.store.selectedLink = 2; }},
    {"pen", [](testing::FakeWorld& w) { w.canvas.ForeColor = 255; }},
    {"zoom", [](testing::FakeWorld& w) { zoomIn(w.app); }},
    {"zoom back",
     [](testing::FakeWorld& w) {
       zoomIn(w.app), w.canvas.Image().query({0, 0, 50, 50}), zoomOut(w.app);
     }},
    {"font size", [](testing::FakeWorld& w) { w.app.store.nameFontSize = 9; }},
    {"metrics", [](testing::FakeWorld& w) { w.canvas.charWidth = 2; }},
    {"add", [](testing::FakeWorld& w) { w.addCell("E", 200, 200, "ny"); }},
    {"add a second B", [](testing::FakeWorld& w) { w.addCell("B", 200, 100, "tvilling"); }},
    {"delete cell",
     [](testing::FakeWorld& w) {
       w.app.store.itemList.RemoveItem(1);
       w.app.store.sizeList.RemoveItem(1);
     }},
    {"delete the later B",
     [](testing::FakeWorld& w) {
       w.addCell("B", 200, 100, "tvilling"), w.addCell("E", 200, 200, "ny");
       redrawBoard(w.app);
       w.app.store.itemList.RemoveItem(3);
       w.app.store.sizeList.RemoveItem(3);
     }},
    {"a thousand recolourings, then the kept drawings shed",
     [](testing::FakeWorld& w) {
       for (int i = 0; i < 1000; ++i)
         setCellField(w, 0, key::cellColor, i % 2 ? " 65280" : " 255"), redrawBoard(w.app);
     }},
    {"recolour C, then delete B",
     [](testing::FakeWorld& w) {
       setCellField(w, 2, key::cellColor, " 65280");
       w.app.store.itemList.RemoveItem(1), w.app.store.sizeList.RemoveItem(1);
     }},
    {"rename C, then more writes than the list tells",
     [](testing::FakeWorld& w) {
       setCellField(w, 2, key::methodName, "D");
       for (int i = 0; i < 70; ++i) setCellField(w, 0, key::cellColor, i % 2 ? " 65280" : " 255");
     }},
    {"delete link",
     [](testing::FakeWorld& w) {
       w.app.store.linkList.RemoveItem(0);
       w.app.store.linkSizeList.RemoveItem(0);
     }},
};

class RedrawReuse : public ::testing::TestWithParam<Change> {};

auto seen(testing::FakeWorld& w) {
  std::vector<std::tuple<DrawKind, float, float, float, float, int32_t, int32_t, int16_t, int16_t, int16_t,
                         std::string, float, bool>>
      ops;
  const DisplayList& image = w.canvas.Image();
  for (uint32_t i : image.query({-1e9f, -1e9f, 1e9f, 1e9f})) {
    const DrawOp& op = image.ops()[i];
    bool text = op.kind == DrawKind::Text;
    ops.emplace_back(op.kind, op.x1, op.y1, op.x2, op.y2, op.foreColor, op.fillColor, op.fillStyle,
                     op.drawStyle, op.drawWidth, text ? image.text(op.text) : "",
                     text ? image.font(op.font).Size : 0.0f, text && image.font(op.font).Bold);
  }
  std::vector<std::vector<uint32_t>> tiles;  // as a paint asks for the parts it shows
  for (float x = -64; x < 320; x += 48)
    for (float y = -64; y < 320; y += 48) tiles.push_back(image.query({x, y, x + 48, y + 48}));
  std::vector<int16_t> hits;
  for (float x = 0; x < 260; x += 3)
    for (float y = 0; y < 260; y += 3)
      hits.push_back(static_cast<int16_t>(findCellAt(w.app, x, y) * 100 + findLinkAt(w.app, x, y)));
  const ProjectStore& s = w.app.store;
  return std::make_tuple(ops, tiles, hits, s.itemList.items(), s.sizeList.items(), s.linkList.items(),
                         s.linkSizeList.items(), w.canvas.Width(), w.canvas.Height(), w.canvas.CurrentX,
                         w.canvas.CurrentY,
                         w.canvas.Font == FontSpec{s.fontName, s.infoFontSize * s.zoomFactor, false});
}

TEST_P(RedrawReuse, LeavesWhatAFreshRedrawLeaves) {
  testing::FakeWorld reused, fresh;
  for (testing::FakeWorld* w : {&reused, &fresh}) {
    w->addCell("A", 10, 10, "en tekst som brytes over linjer", 255);
    w->addCell("B", 100, 10, "kort");
    w->addCell("C", 10, 100, "", 16777215, 2);
    w->addLinkRecord("A", "B"), w->addLinkRecord("B", "C"), w->addLinkRecord("C", "A");
    redrawBoard(w->app);
    findCellAt(w->app, 0, 0), findLinkAt(w->app, 0, 0);
    // Painted from the drawings kept, so that the picture after the change takes over its index.
    redrawBoard(w->app), w->canvas.Image().query({0, 0, 50, 50});
    GetParam().apply(*w);
  }
  fresh.app.drawingMemo = {};
  fresh.app.cellHits = {};
  fresh.app.linkHits = {};
  redrawBoard(reused.app);
  redrawBoard(fresh.app);
  fresh.app.cellHits = {};
  fresh.app.linkHits = {};
  EXPECT_EQ(seen(reused), seen(fresh));
}

INSTANTIATE_TEST_SUITE_P(Changes, RedrawReuse, ::testing::ValuesIn(kChanges));

}  // namespace
}  // namespace tavlero
