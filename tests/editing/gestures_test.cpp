#include "editing/gestures.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "board_fixture.h"
#include "core/record.h"

namespace tavlero::testing {
namespace {

using testing::PrintTo;

class GestureTest : public BoardTest {
 protected:
  void press(int16_t button, int16_t shift, Point p) { canvas_MouseDown(app, button, shift, p.x, p.y); }
  void move(int16_t buttons, Point p) { canvas_MouseMove(app, buttons, 0, p.x, p.y); }
  void release(int16_t button, Point p) { canvas_MouseUp(app, button, 0, p.x, p.y); }
};

enum Target { kOnLes, kOnB, kOnLink, kEmpty };

struct PressCase {
  const char* name;
  int16_t cellBefore, linkBefore, button, shift;  // the link before: 0 les -> B, -1 none
  Target target;
  int16_t cellAfter, linkAfter, links;
  bool saved;
  size_t cellsDrawn, linksDrawn;
};

class PressTest : public GestureTest, public ::testing::WithParamInterface<PressCase> {};

TEST_P(PressTest, SelectsLinksOrDeselectsAndPaintsOnlyWhatChanged) {
  const PressCase& p = GetParam();
  store.selectedCell = p.cellBefore;
  store.selectedLink = p.linkBefore;
  Point at = std::vector<Point>{
      centreOf(a), centreOf(b), centreIn(store.linkSizeList.List(0)), {300, 300}}[p.target];
  size_t mark = imageSize();
  press(p.button, p.shift, at);
  EXPECT_EQ(std::tuple(store.selectedCell, store.selectedLink, store.linkList.ListCount(), store.isSaved,
                       drawnSince(mark, DrawKind::Box), drawnSince(mark, DrawKind::Circle)),
            std::tuple(p.cellAfter, p.linkAfter, p.links, p.saved, p.cellsDrawn, p.linksDrawn));
}

// Buttons: 1 left, 2 right, 4 middle; modifiers: 1 Shift, 2 Ctrl, 4 Alt.
INSTANTIATE_TEST_SUITE_P(
    Cases, PressTest,
    ::testing::Values(PressCase{"select", 0, -1, 1, 0, kOnB, 1, -1, 3, true, 2, 0},
                      PressCase{"select ends link", -1, 0, 1, 0, kOnLes, 0, -1, 3, true, 1, 1},
                      PressCase{"shift links", 1, -1, 1, 1, kOnLes, 1, -1, 4, false, 0, 1},
                      PressCase{"shift, none selected", -1, -1, 1, 1, kOnB, -1, -1, 3, true, 0, 0},
                      PressCase{"shift ctrl", 0, -1, 1, 3, kOnB, -1, -1, 3, true, 1, 0},
                      PressCase{"ctrl", 0, -1, 1, 2, kOnB, -1, -1, 3, true, 1, 0},
                      PressCase{"alt", 0, -1, 1, 4, kOnB, -1, -1, 3, true, 1, 0},
                      PressCase{"right", 0, -1, 2, 0, kOnLes, -1, -1, 3, true, 1, 0},
                      PressCase{"middle", 0, -1, 4, 0, kOnB, -1, -1, 3, true, 1, 0},
                      PressCase{"on the link", 0, -1, 1, 0, kOnLink, -1, 0, 3, true, 1, 1},
                      PressCase{"empty board ends link", -1, 0, 1, 0, kEmpty, -1, -1, 3, true, 0, 1}));

struct DropCase {
  const char* name;
  float byX, byY;      // how far les is dragged
  std::string places;  // of les and B afterwards
  float canvasLeft, canvasTop;
};

class DropTest : public GestureTest, public ::testing::WithParamInterface<DropCase> {};

// The pointer always strays on the way, so that a drop back at the start is a drop too.
TEST_P(DropTest, OnlyTheRectangleFollowsAndTheDropMovesTheCell) {
  const DropCase& d = GetParam();
  Point start = centreOf(a), end{start.x + d.byX, start.y + d.byY};
  press(1, 0, start);
  EXPECT_EQ(app.demoRectangle.Width, readBox(store.sizeList.List(a)).x2 - 10)
      << "measured from the stored position";
  size_t mark = imageSize();
  move(1, {start.x + 7, start.y + 3});
  move(1, end);
  // Only the rectangle follows; the board and the plan wait for the drop.
  const DemoRectangle& rect = app.demoRectangle;
  EXPECT_EQ(std::tuple(rect.Visible, rect.Left, rect.Top, imageSize(), store.isSaved),
            std::tuple(true, 10 + d.byX, 10 + d.byY, mark, true));

  release(1, end);
  std::string places =
      field(a, "positionX") + field(a, "positionY") + field(b, "positionX") + field(b, "positionY");
  EXPECT_EQ(std::tuple(places, world.canvas.Left(), world.canvas.Top(), store.isSaved, rect.Visible,
                       store.selectedCell),
            std::tuple(d.places, d.canvasLeft, d.canvasTop, false, false, a));
  std::vector<std::string> drawn = store.sizeList.items();
  redrawBoard(app);
  EXPECT_EQ(store.sizeList.items(), drawn) << "the drop redrew the board";
}

INSTANTIATE_TEST_SUITE_P(Drops, DropTest,
                         ::testing::Values(DropCase{"right and down", 30.5f, 20, " 40.5 30 100 10", 0, 0},
                                           DropCase{"back to the start", 0, 0, " 10 10 100 10", 0, 0},
                                           DropCase{"left of the edge", -40, 0, " 10 10 140 10", -20, 0},
                                           DropCase{"beyond both edges", -12.5f, -30, " 10 10 112.5 40", 7.5f,
                                                    -10}));

TEST_F(GestureTest, ARightPressDuringALeftDragEndsTheDrag) {
  Point start = centreOf(a), aside{start.x + 20, start.y};
  press(1, 0, start);
  move(1, aside);
  press(2, 0, aside);
  release(2, aside);
  release(1, aside);
  // Nothing hides the rectangle without a selection.
  EXPECT_EQ(std::tuple(store.selectedCell, field(a, "positionX"), store.isSaved, app.demoRectangle.Visible),
            std::tuple(-1, " 10", true, true));

  // The next press on a cell lays the still visible rectangle over it; its release drops.
  press(1, 0, centreOf(b));
  EXPECT_EQ(app.demoRectangle.Left, 100);
  release(1, centreOf(b));
  EXPECT_EQ(std::tuple(app.demoRectangle.Visible, store.isSaved), std::tuple(false, false));
}

TEST_F(GestureTest, ARightDragPansTheCanvasAndNothingElse) {
  world.canvas.Move(5, 5);
  press(2, 0, {50, 50});
  size_t mark = imageSize();
  move(2, {60.4f, 44.5f});
  // 5 + 10.4 rounds to 15; 5 - 5.5 = -0.5 ties to even.
  EXPECT_EQ(std::tuple(world.ui.pointer, world.canvas.Left(), world.canvas.Top()),
            std::tuple(kPointerSizeAll, 15.0f, 0.0f));
  move(2, {60.4f, 44.5f});
  EXPECT_EQ(world.canvas.Left(), 25) << "each step adds to where the canvas stands";
  release(2, {60, 45});
  EXPECT_EQ(std::tuple(world.ui.pointer, imageSize(), store.isSaved),
            std::tuple(kPointerDefault, mark, true));
}

TEST_F(GestureTest, EveryMoveSetsTheTitleAndThePointerPosition) {
  // The file name is a native UTF-8 path component; the title is in Windows-1252.
  store.programName = "Bl\xE5";
  store.projectFileName = "bl\xC3\xA5.tvl";
  move(0, {-3, 44.5f});
  EXPECT_EQ(world.ui.captionText, "Tavlero: Bl\xE5 (bl\xE5.tvl) (X:-3   Y: 44)");
  store.programName = store.projectFileName = "";
  move(0, {40000, -40000});
  EXPECT_EQ(world.ui.captionText, "Tavlero:  () (X: 32767   Y:-32768)");
  EXPECT_EQ(std::tuple(store.lastMouseX, store.lastMouseY, store.isSaved), std::tuple(40000, -40000, true));
}

}  // namespace
}  // namespace tavlero::testing
