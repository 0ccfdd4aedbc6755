#include <gtest/gtest.h>

#include <tuple>

#include "board/board.h"
#include "core/record.h"
#include "test_support.h"

namespace tavlero {
namespace {

class Zoom : public ::testing::Test {
 protected:
  testing::FakeWorld world;
  ProjectStore& store = world.app.store;
  Surface& canvas = world.canvas;

  void SetUp() override {
    canvas.setWidth(250);
    canvas.setHeight(100);
    zoomIn(world.app);
    zoomOut(world.app);
  }
};

TEST_F(Zoom, StepsKeepTheExtentInBoardUnitsAndLimitsOnlyBeep) {
  // The start-up pair sets a unit of 2 mm and ends where it began.
  EXPECT_EQ(std::tuple(store.zoomFactor, canvas.Width(), canvas.ScaleWidth()),
            std::tuple(2.0f, 250.0f, 125.0f));
  zoomIn(world.app);
  EXPECT_EQ(std::tuple(canvas.Width(), canvas.ScaleWidth(), canvas.ScaleHeight(), world.ui.beeps),
            std::tuple(312.5f, 125.0f, 50.0f, 0));
  for (int i = 0; i < 4; ++i) zoomOut(world.app);
  EXPECT_EQ(std::tuple(store.zoomFactor, world.ui.beeps), std::tuple(1.0f, 1));
  const std::pair<float, int16_t> table[] = {{1.0f, 1}, {1.5f, 2}, {2.0f, 2}, {2.5f, 3}, {3.0f, 3}};
  for (const auto& [zoom, width] : table) {
    EXPECT_EQ(std::tuple(store.zoomFactor, canvas.DrawWidth()), std::tuple(zoom, width));
    zoomIn(world.app);
  }
  // The last step met the limit: only a beep, nothing else changes.
  float width = canvas.Width();
  zoomIn(world.app);
  EXPECT_EQ(std::tuple(world.ui.beeps, canvas.Width(), canvas.ScaleWidth()), std::tuple(3, width, 125.0f));
}

TEST_F(Zoom, RecordsAndTheViewKeepTheirPlace) {
  world.addCell("A", 10, 10);
  redrawBoard(world.app);
  std::string before = store.sizeList.List(0);
  zoomIn(world.app);
  zoomOut(world.app);
  EXPECT_EQ(std::tuple(store.sizeList.List(0), store.isSaved), std::tuple(before, true));
  canvas.Move(-40, 25);
  size_t drawn = canvas.Image().size();
  resetview_Click(world.app);
  // Resetting the view repaints nothing.
  EXPECT_EQ(std::tuple(canvas.Left(), canvas.Top(), canvas.Image().size()), std::tuple(0.0f, 0.0f, drawn));
}

TEST(Redraw, DoubleDrawPaintsCellsOverLinks) {
  for (bool doubleDraw : {true, false}) {
    testing::FakeWorld world;
    world.app.store.doubleDraw = doubleDraw;
    world.addCell("A", 10, 10);
    world.addCell("B", 100, 10);
    world.addLinkRecord("A", "B");
    redrawBoard(world.app);
    const auto& ops = world.canvas.Image().ops();
    auto boxes =
        std::count_if(ops.begin(), ops.end(), [](const DrawOp& op) { return op.kind == DrawKind::Box; });
    EXPECT_EQ(boxes, doubleDraw ? 4 : 2);
    EXPECT_EQ(ops.back().kind == DrawKind::Circle, !doubleDraw);
  }
}

// The redraw copies its first drawing of the cells for the second; it must come out as
// drawing them again would, with a cell and a link selected and whatever pen it found.
TEST(Redraw, SecondDrawingOfTheCellsIsTheFirstOnceMore) {
  auto board = [](testing::FakeWorld& world, int32_t pen) {
    world.addCell("A", 10, 10, "en lang nok tekst til to linjer her", 255);
    world.addCell("B", 100, 10, "kort");
    world.addLinkRecord("A", "B");
    world.app.store.selectedCell = 1;
    world.app.store.selectedLink = 0;
    world.canvas.ForeColor = pen;
  };
  auto seen = [](const Surface& canvas) {
    std::vector<
        std::tuple<DrawKind, float, float, float, float, int32_t, int32_t, int16_t, int16_t, std::string>>
        ops;
    for (const DrawOp& op : canvas.Image().ops())
      ops.emplace_back(op.kind, op.x1, op.y1, op.x2, op.y2, op.foreColor, op.fillColor, op.fillStyle,
                       op.drawStyle, op.kind == DrawKind::Text ? canvas.Image().text(op.text) : "");
    return ops;
  };
  for (int32_t pen : {0, 255}) {
    testing::FakeWorld redrawn, drawn;
    board(redrawn, pen);
    board(drawn, pen);
    redrawBoard(redrawn.app);
    drawn.canvas.Cls();
    drawn.canvas.setDrawWidth(toInteger(drawn.app.store.zoomFactor + 0.1));
    for (int16_t i : {int16_t{0}, int16_t{1}}) drawCell(drawn.app, i);
    drawLink(drawn.app, 0);
    for (int16_t i : {int16_t{0}, int16_t{1}}) drawCell(drawn.app, i);
    EXPECT_EQ(seen(redrawn.canvas), seen(drawn.canvas)) << pen;
    EXPECT_EQ(redrawn.app.store.sizeList.items(), drawn.app.store.sizeList.items());
  }
}

TEST(DisplayList, QueryFindsWhatMeetsTheAreaInDrawingOrder) {
  testing::FakeWorld world;
  world.app.store.doubleDraw = false;  // a second print of a text would replace the first
  for (int i = 0; i < 200; ++i) world.addCell("c" + std::to_string(i), static_cast<float>(i * 40), 10);
  redrawBoard(world.app);
  const DisplayList& image = world.canvas.Image();
  BoardRect area{400, 0, 480, 50};
  std::vector<uint32_t> walked;
  for (uint32_t i = 0; i < image.size(); ++i) {
    BoardRect r = DisplayList::bounds(image.ops()[i]);
    if (r.right >= area.left && r.left <= area.right && r.bottom >= area.top && r.top <= area.bottom)
      walked.push_back(i);
  }
  EXPECT_EQ(image.query(area), walked);
  EXPECT_LT(walked.size(), image.size() / 10);
}

}  // namespace
}  // namespace tavlero
