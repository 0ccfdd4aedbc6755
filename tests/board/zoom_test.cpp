#include <gtest/gtest.h>

#include "board/board.h"
#include "test_support.h"

namespace tavlero {
namespace {

using testing::FakeWorld;

class Zoom : public ::testing::Test {
 protected:
  FakeWorld world;
  ProjectStore& store = world.app.store;
  Surface& canvas = world.canvas;

  void SetUp() override {
    canvas.setWidth(250);
    canvas.setHeight(100);
    zoomIn(world.app);
    zoomOut(world.app);
  }
};

TEST_F(Zoom, StartUpPairSetsTheScaleAndEndsWhereItBegan) {
  EXPECT_FLOAT_EQ(store.zoomFactor, 2.0f);
  EXPECT_FLOAT_EQ(canvas.Width(), 250);
  EXPECT_FLOAT_EQ(canvas.ScaleWidth(), 125);
  EXPECT_FLOAT_EQ(canvas.unitX(), 2);
}

TEST_F(Zoom, StepKeepsTheExtentInBoardUnits) {
  zoomIn(world.app);
  EXPECT_FLOAT_EQ(store.zoomFactor, 2.5f);
  EXPECT_FLOAT_EQ(canvas.Width(), 312.5f);
  EXPECT_FLOAT_EQ(canvas.ScaleWidth(), 125);
  EXPECT_FLOAT_EQ(canvas.ScaleHeight(), 50);
}

TEST_F(Zoom, LimitsOnlyBeep) {
  for (int i = 0; i < 5; ++i) zoomIn(world.app);
  EXPECT_FLOAT_EQ(store.zoomFactor, 3.0f);
  EXPECT_EQ(world.ui.beeps, 3);
  float width = canvas.Width();
  size_t drawn = canvas.Image().size();
  zoomIn(world.app);
  EXPECT_EQ(world.ui.beeps, 4);
  EXPECT_FLOAT_EQ(canvas.Width(), width);
  EXPECT_EQ(canvas.Image().size(), drawn);
  for (int i = 0; i < 5; ++i) zoomOut(world.app);
  EXPECT_FLOAT_EQ(store.zoomFactor, 1.0f);
  EXPECT_EQ(world.ui.beeps, 5);
  EXPECT_FLOAT_EQ(canvas.ScaleWidth(), 125);
}

TEST_F(Zoom, DrawWidthFollowsTheZoom) {
  const std::pair<float, int16_t> table[] = {{1.0f, 1}, {1.5f, 2}, {2.0f, 2}, {2.5f, 3}, {3.0f, 3}};
  for (int i = 0; i < 2; ++i) zoomOut(world.app);
  for (const auto& [zoom, width] : table) {
    EXPECT_FLOAT_EQ(store.zoomFactor, zoom);
    EXPECT_EQ(canvas.DrawWidth(), width) << zoom;
    zoomIn(world.app);
  }
}

TEST_F(Zoom, RecordsKeepBoardUnitsAcrossZoom) {
  world.addCell("A", 10, 10);
  redrawBoard(world.app);
  std::string before = store.sizeList.List(0);
  zoomIn(world.app);
  zoomOut(world.app);
  EXPECT_EQ(store.sizeList.List(0), before);
  EXPECT_TRUE(store.isSaved);
}

TEST_F(Zoom, ResetViewOnlyMovesTheSurfaceBack) {
  canvas.Move(-40, 25);
  size_t drawn = canvas.Image().size();
  resetview_Click(world.app);
  EXPECT_FLOAT_EQ(canvas.Left(), 0);
  EXPECT_FLOAT_EQ(canvas.Top(), 0);
  EXPECT_FLOAT_EQ(store.zoomFactor, 2.0f);
  EXPECT_EQ(canvas.Image().size(), drawn);
}

TEST(Redraw, DoubleDrawPaintsCellsOverLinks) {
  for (bool doubleDraw : {true, false}) {
    FakeWorld world;
    world.app.store.doubleDraw = doubleDraw;
    world.addCell("A", 10, 10);
    world.addCell("B", 100, 10);
    world.addLinkRecord("A", "B");
    redrawBoard(world.app);
    const auto& ops = world.canvas.Image().ops();
    ASSERT_FALSE(ops.empty());
    int boxes = 0;
    for (const auto& op : ops) boxes += op.kind == DrawKind::Box;
    EXPECT_EQ(boxes, doubleDraw ? 4 : 2);
    EXPECT_EQ(ops.back().kind == DrawKind::Circle, !doubleDraw);
  }
}

TEST(Redraw, EmptyBoardDrawsNothingButSetsThePen) {
  FakeWorld world;
  world.app.store.zoomFactor = 2.5f;
  redrawBoard(world.app);
  EXPECT_TRUE(world.canvas.Image().ops().empty());
  EXPECT_EQ(world.canvas.DrawWidth(), 3);
}

TEST(DisplayList, QueryFindsWhatMeetsTheAreaInDrawingOrder) {
  FakeWorld world;
  for (int i = 0; i < 200; ++i) world.addCell("c" + std::to_string(i), static_cast<float>(i * 40), 10);
  redrawBoard(world.app);
  const DisplayList& image = world.canvas.Image();
  BoardRect area{400, 0, 480, 50};
  auto found = image.query(area);
  ASSERT_FALSE(found.empty());
  EXPECT_TRUE(std::is_sorted(found.begin(), found.end()));
  // Exactly the operations a full walk would find.
  std::vector<uint32_t> walked;
  for (uint32_t i = 0; i < image.size(); ++i) {
    BoardRect r = DisplayList::bounds(image.ops()[i]);
    if (r.right >= area.left && r.left <= area.right && r.bottom >= area.top && r.top <= area.bottom)
      walked.push_back(i);
  }
  EXPECT_EQ(found, walked);
  EXPECT_LT(found.size(), image.size() / 10);
}

}  // namespace
}  // namespace tavlero
