#include <gtest/gtest.h>

#include <tuple>

#include "board/board.h"
#include "core/record.h"
#include "core/records.h"
#include "test_support.h"

namespace tavlero {
namespace {

using testing::FakeWorld;

TEST(DrawCell, WritesTheGeometryOfTheBoxExample) {
  // Name lines 5 high, summary lines 3.5; characters 1.25 wide, so 25 characters make 31.25.
  struct MetricSurface : TestSurface {
    MetricSurface() { charWidth = 1.25f; }
    float TextHeight(const std::string&) override { return Font.Bold ? 5.0f : 3.5f; }
  } canvas;
  testing::FakePlatform fakes;
  App app(canvas, fakes.platform());
  app.store.itemList.AddItem(
      "<positionX> 10</positionX><positionY> 20</positionY><methodName>" + std::string(25, 'n') +
      "</methodName><shortDescription>aaaaaaaaaaaaaaaaaaaa bbbbbbbbbb</shortDescription>"
      "<cellColor> 65535</cellColor><cellFillStyle> 6</cellFillStyle>");
  app.store.sizeList.AddItem("X1: 0 Y1: 0 X2: 0 Y2: 0");
  drawCell(app, 0);
  EXPECT_EQ(app.store.sizeList.List(0), "<X1> 9</X1><Y1> 19</Y1><X2> 42.25</X2><Y2> 33</Y2>");
  const DrawOp& box = canvas.Image().ops().front();
  // The surface is left as the next drawing expects it.
  EXPECT_EQ(std::tuple(box.kind, box.fillColor, box.fillStyle, canvas.ForeColor, canvas.FillStyle,
                       canvas.FillColor),
            std::tuple(DrawKind::Box, 65535, 6, 0, 1, 0));
}

// The cases of tests/data/board/cell_widths.txt. A long summary wraps to the cell and never
// widens it; the name wraps at its blanks.
TEST(DrawCell, WidthFollowsTheNameBetweenTheLimits) {
  for (const auto& c : testing::readCases("board/cell_widths.txt")) {
    FakeWorld world;
    world.app.store.minimumCellWidth = std::stof(c.at(0));
    world.app.store.maximumCellWidth = std::stof(c.at(1));
    std::string name;
    for (int i = 0; i < std::stoi(c.at(2)); ++i) name += (i % 10 == 9) ? ' ' : 'x';
    world.addCell(name, 10, 10, "a summary far longer than any of the cells here, in many words");
    world.addCell("", 10, 10);
    drawCell(world.app, 0);
    Box box = readBox(world.app.store.sizeList.List(0));
    EXPECT_FLOAT_EQ(box.x2 - box.x1, std::stof(c.at(3)) + 2) << c[0] << ' ' << c[2];
    EXPECT_GT(box.y2, std::stof(c.at(4))) << "the summary adds its lines";
  }
}

TEST(DrawCell, RoundsPositionsToEvenAndLeavesTheRecord) {
  FakeWorld world;
  world.addCell("a", 10.5f, 11.5f);
  world.addCell("b", 0, 0);
  world.addCell("", 5, 5);
  redrawBoard(world.app);
  const auto& sizes = world.app.store.sizeList;
  // A cell without a name is not painted and keeps its placeholder, so it can't be hit;
  // drawing is no change of the project.
  EXPECT_EQ(std::tuple(readBox(sizes.List(0)).x1, readBox(sizes.List(0)).y1,
                       getField(world.app.store.itemList.List(0), "positionX"), getField(sizes.List(1), "X1"),
                       sizes.List(2), world.app.store.isSaved),
            std::tuple(9.0f, 11.0f, " 10.5", "-1", "X1: 0 Y1: 0 X2: 0 Y2: 0", true));
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
    for (const auto& op : world.canvas.Image().ops()) EXPECT_EQ(op.foreColor, c.outline) << c.cellColor;
    EXPECT_EQ(world.canvas.ForeColor, 0);
  }
}

TEST(DrawCell, GrowsTheSurfaceOnlyForAnOriginBeyondIt) {
  FakeWorld world;
  world.canvas.setWidth(200);
  world.canvas.setHeight(100);
  world.addCell("far", 150, 20);
  world.addCell("low", 10, 80);
  world.addCell("a wide name that reaches over the right edge", 95, 10);
  drawCell(world.app, 2);
  EXPECT_EQ(world.canvas.Width(), 200);
  drawCell(world.app, 0);
  EXPECT_EQ(std::tuple(world.canvas.Width(), world.canvas.Height()), std::tuple(2 * 150 + 100, 100));
  drawCell(world.app, 1);
  EXPECT_EQ(world.canvas.Height(), 2 * 80 + 50);
}

}  // namespace
}  // namespace tavlero
