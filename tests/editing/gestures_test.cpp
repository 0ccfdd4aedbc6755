// Presses, drags and moves on the board; the pressing and dropping cases are tables in
// tests/data/editing/.
#include "editing/gestures.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "board_fixture.h"
#include "core/record.h"

namespace tavlero::testing {
namespace {

class GestureTest : public BoardTest {
 protected:
  void press(int16_t button, int16_t shift, Point p) { canvas_MouseDown(app, button, shift, p.x, p.y); }
  void move(int16_t buttons, Point p) { canvas_MouseMove(app, buttons, 0, p.x, p.y); }
  void release(int16_t button, Point p) { canvas_MouseUp(app, button, 0, p.x, p.y); }
};

class PressTest : public GestureTest, public ::testing::WithParamInterface<Case> {};

TEST_P(PressTest, SelectsLinksOrDeselectsAndPaintsOnlyWhatChanged) {
  const Case& p = GetParam();
  auto number = [&](size_t column) { return static_cast<int16_t>(std::stoi(p.at(column))); };
  store.selectedCell = number(1);
  store.selectedLink = number(2);
  const std::string& target = p.at(5);
  Point at = target == "les"    ? centreOf(a)
             : target == "B"    ? centreOf(b)
             : target == "link" ? centreIn(store.linkSizeList.List(0))
                                : Point{300, 300};
  size_t mark = imageSize();
  press(number(3), number(4), at);
  EXPECT_EQ(std::tuple(store.selectedCell, store.selectedLink, store.linkList.ListCount(), store.isSaved,
                       drawnSince(mark, DrawKind::Box), drawnSince(mark, DrawKind::Circle)),
            std::tuple(number(6), number(7), number(8), p.at(9) == "1", static_cast<size_t>(number(10)),
                       static_cast<size_t>(number(11))));
}

INSTANTIATE_TEST_SUITE_P(Cases, PressTest, ::testing::ValuesIn(readCases("editing/presses.txt")));

class DropTest : public GestureTest, public ::testing::WithParamInterface<Case> {};

// The pointer always strays on the way, so that a drop back at the start is a drop too.
TEST_P(DropTest, OnlyTheRectangleFollowsAndTheDropMovesTheCell) {
  const Case& d = GetParam();
  const float byX = std::stof(d.at(1)), byY = std::stof(d.at(2));
  Point start = centreOf(a), end{start.x + byX, start.y + byY};
  press(1, 0, start);
  EXPECT_EQ(app.demoRectangle.Width, readBox(store.sizeList.List(a)).x2 - 10)
      << "measured from the stored position";
  size_t mark = imageSize();
  move(1, {start.x + 7, start.y + 3});
  move(1, end);
  // Only the rectangle follows; the board and the plan wait for the drop.
  const DemoRectangle& rect = app.demoRectangle;
  EXPECT_EQ(std::tuple(rect.Visible, rect.Left, rect.Top, imageSize(), store.isSaved),
            std::tuple(true, 10 + byX, 10 + byY, mark, true));

  release(1, end);
  std::string places =
      field(a, "positionX") + field(a, "positionY") + field(b, "positionX") + field(b, "positionY");
  EXPECT_EQ(std::tuple(places, world.canvas.Left(), world.canvas.Top(), store.isSaved, rect.Visible,
                       store.selectedCell),
            std::tuple(d.at(3), std::stof(d.at(4)), std::stof(d.at(5)), false, false, a));
  std::vector<std::string> drawn = store.sizeList.items();
  redrawBoard(app);
  EXPECT_EQ(store.sizeList.items(), drawn) << "the drop redrew the board";
}

INSTANTIATE_TEST_SUITE_P(Drops, DropTest, ::testing::ValuesIn(readCases("editing/drops.txt")));

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
