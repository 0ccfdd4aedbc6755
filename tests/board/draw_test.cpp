#include <gtest/gtest.h>

#include "board/board.h"
#include "core/record.h"
#include "test_support.h"

namespace tavlero {
namespace {

using testing::FakeWorld;

// Name lines are 5 units high, summary lines 3.5; characters 1.25 units wide.
class MetricSurface : public TestSurface {
 public:
  MetricSurface() { charWidth = 1.25f; }
  float TextHeight(const std::string&) override { return Font.Bold ? 5.0f : 3.5f; }
};

struct BoxValues {
  float x1, y1, x2, y2;
};

BoxValues boxOf(const ProjectStore& store, int16_t index) {
  const std::string& g = store.sizeList.List(index);
  return {static_cast<float>(textToNumber(getField(g, "X1"))),
          static_cast<float>(textToNumber(getField(g, "Y1"))),
          static_cast<float>(textToNumber(getField(g, "X2"))),
          static_cast<float>(textToNumber(getField(g, "Y2")))};
}

const DrawOp* firstOp(const Surface& canvas, DrawKind kind) {
  for (const auto& op : canvas.Image().ops())
    if (op.kind == kind) return &op;
  return nullptr;
}

TEST(DrawCell, WritesTheGeometryOfTheBoxExample) {
  MetricSurface canvas;
  testing::FakeUi ui;
  testing::FakeWorld world;
  App app(canvas, Platform{ui, world.dialog, world.clipboard, world.pictures, world.printer, world.forms});
  // A 25-character name at 1.25 is 31.25 wide; the summary wraps into two lines.
  std::string name(25, 'n');
  std::string record = "<positionX> 10</positionX><positionY> 20</positionY><methodName>" + name +
                       "</methodName><shortDescription>aaaaaaaaaaaaaaaaaaaa bbbbbbbbbb</shortDescription>"
                       "<cellColor> 65535</cellColor><cellFillStyle> 6</cellFillStyle>";
  app.store.itemList.AddItem(record);
  app.store.sizeList.AddItem("X1: 0 Y1: 0 X2: 0 Y2: 0");
  drawCell(app, 0);
  EXPECT_EQ(app.store.sizeList.List(0), "<X1> 9</X1><Y1> 19</Y1><X2> 42.25</X2><Y2> 33</Y2>");
  const DrawOp* box = firstOp(canvas, DrawKind::Box);
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->fillColor, 65535);
  EXPECT_EQ(box->fillStyle, 6);
  EXPECT_EQ(box->foreColor, 0);
  // The surface is left as the next drawing expects it.
  EXPECT_EQ(canvas.ForeColor, 0);
  EXPECT_EQ(canvas.FillStyle, 1);
  EXPECT_EQ(canvas.FillColor, 0);
}

struct WidthCase {
  float minimum, maximum;
  int nameLength;  // characters of one unit each
  float expectedWidth;
};

class CellWidthTest : public ::testing::TestWithParam<WidthCase> {};

TEST_P(CellWidthTest, FollowsTheNameBetweenTheLimits) {
  const auto& c = GetParam();
  FakeWorld world;
  world.app.store.minimumCellWidth = c.minimum;
  world.app.store.maximumCellWidth = c.maximum;
  world.addCell(std::string(static_cast<size_t>(c.nameLength), 'x'), 10, 10,
                "a long summary that never widens");
  drawCell(world.app, 0);
  BoxValues box = boxOf(world.app.store, 0);
  EXPECT_FLOAT_EQ(box.x2 - box.x1, c.expectedWidth + 2);
}

INSTANTIATE_TEST_SUITE_P(
    Limits, CellWidthTest,
    ::testing::Values(WidthCase{25, 50, 3, 25}, WidthCase{25, 50, 25, 25}, WidthCase{25, 50, 30, 30},
                      WidthCase{25, 50, 50, 50}, WidthCase{25, 50, 80, 50},
                      // A minimum above the maximum: the maximum wins only for wider names.
                      WidthCase{40, 30, 20, 40}, WidthCase{40, 30, 35, 30}));

TEST(DrawCell, LongNameWrapsAndSummaryAddsItsLines) {
  FakeWorld world;  // one unit per character, every line 4 high
  world.addCell("abcdefghij abcdefghij abcdefghij abcdefghij abcdefghij abcdefghij", 10, 10, "");
  drawCell(world.app, 0);
  BoxValues box = boxOf(world.app.store, 0);
  EXPECT_FLOAT_EQ(box.x2 - box.x1, 52);
  // Two name lines, and the empty summary still adds one line.
  EXPECT_FLOAT_EQ(box.y2, 10 + 3 * 4 + 1);
}

TEST(DrawCell, RoundsPositionsToEvenAndKeepsTheRecord) {
  FakeWorld world;
  world.addCell("a", 10.5f, 11.5f);
  drawCell(world.app, 0);
  BoxValues box = boxOf(world.app.store, 0);
  EXPECT_FLOAT_EQ(box.x1, 9);
  EXPECT_FLOAT_EQ(box.y1, 11);
  EXPECT_EQ(getField(world.app.store.itemList.List(0), "positionX"), " 10.5");
}

TEST(DrawCell, CellAtOriginHasNegativeCorner) {
  FakeWorld world;
  world.addCell("a", 0, 0);
  drawCell(world.app, 0);
  EXPECT_EQ(getField(world.app.store.sizeList.List(0), "X1"), "-1");
}

TEST(DrawCell, EmptyNameDrawsNothingAndKeepsThePlaceholder) {
  FakeWorld world;
  world.addCell("", 5, 5);
  drawCell(world.app, 0);
  EXPECT_EQ(world.app.store.sizeList.List(0), "X1: 0 Y1: 0 X2: 0 Y2: 0");
  EXPECT_TRUE(world.canvas.Image().ops().empty());
}

TEST(DrawCell, SelectionColours) {
  struct Case {
    int32_t cellColor;
    bool selected;
    int32_t outline;
  } cases[] = {{255, true, 128}, {65535, true, 255}, {128, true, 255}, {255, false, 0}};
  for (const auto& c : cases) {
    FakeWorld world;
    world.addCell("a", 5, 5, "summary", c.cellColor);
    world.app.store.selectedCell = c.selected ? 0 : -1;
    drawCell(world.app, 0);
    for (const auto& op : world.canvas.Image().ops()) {
      if (op.kind == DrawKind::Box || op.kind == DrawKind::Text) {
        EXPECT_EQ(op.foreColor, c.outline);
      }
    }
    EXPECT_EQ(world.canvas.ForeColor, 0);
  }
}

TEST(DrawCell, GrowsTheSurfaceForAnOriginBeyondIt) {
  FakeWorld world;
  world.canvas.setWidth(200);
  world.canvas.setHeight(100);
  world.addCell("far", 150, 20);
  world.addCell("low", 10, 80);
  drawCell(world.app, 0);
  EXPECT_FLOAT_EQ(world.canvas.Width(), 2 * 150 + 100);
  EXPECT_FLOAT_EQ(world.canvas.Height(), 100);
  drawCell(world.app, 1);
  EXPECT_FLOAT_EQ(world.canvas.Height(), 2 * 80 + 50);
}

TEST(DrawCell, DrawingNeverMarksTheProjectChanged) {
  FakeWorld world;
  world.addCell("a", 5, 5);
  redrawBoard(world.app);
  EXPECT_TRUE(world.app.store.isSaved);
}

}  // namespace
}  // namespace tavlero
