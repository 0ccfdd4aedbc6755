#include <gtest/gtest.h>

#include "board/board.h"
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

TEST_F(Zoom, StepsKeepTheExtentInBoardUnits) {
  // The start-up pair sets a unit of 2 mm and ends where it began.
  EXPECT_FLOAT_EQ(store.zoomFactor, 2.0f);
  EXPECT_FLOAT_EQ(canvas.Width(), 250);
  EXPECT_FLOAT_EQ(canvas.ScaleWidth(), 125);
  zoomIn(world.app);
  EXPECT_FLOAT_EQ(canvas.Width(), 312.5f);
  EXPECT_FLOAT_EQ(canvas.ScaleWidth(), 125);
  EXPECT_FLOAT_EQ(canvas.ScaleHeight(), 50);
  EXPECT_EQ(world.ui.beeps, 0);
}

TEST_F(Zoom, LimitsOnlyBeepAndDrawWidthFollows) {
  for (int i = 0; i < 3; ++i) zoomOut(world.app);
  EXPECT_FLOAT_EQ(store.zoomFactor, 1.0f);
  EXPECT_EQ(world.ui.beeps, 1);
  const std::pair<float, int16_t> table[] = {{1.0f, 1}, {1.5f, 2}, {2.0f, 2}, {2.5f, 3}, {3.0f, 3}};
  for (const auto& [zoom, width] : table) {
    EXPECT_FLOAT_EQ(store.zoomFactor, zoom);
    EXPECT_EQ(canvas.DrawWidth(), width) << zoom;
    zoomIn(world.app);
  }
  // The last step met the limit: only a beep, nothing else changes.
  EXPECT_EQ(world.ui.beeps, 2);
  float width = canvas.Width();
  zoomIn(world.app);
  EXPECT_EQ(world.ui.beeps, 3);
  EXPECT_FLOAT_EQ(canvas.Width(), width);
  EXPECT_FLOAT_EQ(canvas.ScaleWidth(), 125);
}

TEST_F(Zoom, RecordsAndTheViewKeepTheirPlace) {
  world.addCell("A", 10, 10);
  redrawBoard(world.app);
  std::string before = store.sizeList.List(0);
  zoomIn(world.app);
  zoomOut(world.app);
  EXPECT_EQ(store.sizeList.List(0), before);
  EXPECT_TRUE(store.isSaved);
  canvas.Move(-40, 25);
  size_t drawn = canvas.Image().size();
  resetview_Click(world.app);
  EXPECT_FLOAT_EQ(canvas.Left(), 0);
  EXPECT_FLOAT_EQ(canvas.Top(), 0);
  EXPECT_EQ(canvas.Image().size(), drawn) << "resetting the view repaints nothing";
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
