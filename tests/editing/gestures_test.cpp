#include "editing/gestures.h"

#include <gtest/gtest.h>

#include <string>

#include "board_fixture.h"
#include "core/record.h"

namespace tavlero::testing {
namespace {

// Three cells, A and B side by side and C below A, with the link A -> B between them.
class GestureTest : public BoardTest {
 protected:
  int16_t a = world.addCell("A", 10, 10);
  int16_t b = world.addCell("B", 100, 10);
  int16_t c = world.addCell("C", 10, 100);
  int16_t ab = world.addLinkRecord("A", "B");

  void SetUp() override { drawBoard(); }

  Point linkMiddle() const {
    const std::string& record = store.linkSizeList.List(ab);
    auto read = [&](const char* key) { return static_cast<float>(textToNumber(getField(record, key))); };
    return {(read("X1") + read("X2")) / 2, (read("Y1") + read("Y2")) / 2};
  }
  void press(int16_t button, int16_t shift, Point p) { canvas_MouseDown(app, button, shift, p.x, p.y); }
  void move(int16_t buttons, Point p) { canvas_MouseMove(app, buttons, 0, p.x, p.y); }
  void release(int16_t button, Point p) { canvas_MouseUp(app, button, 0, p.x, p.y); }
};

enum class Target { CellA, CellB, Link, Empty };

struct PressCase {
  const char* name;
  int16_t selectedBefore;  // a cell, or -1
  bool linkSelectedBefore;
  int16_t button, shift;
  Target target;
  int16_t selectedAfter;
  int16_t linkAfter;
  int16_t links;  // links in the plan afterwards
  bool savedAfter;
  size_t cellsDrawn, linksDrawn;
};

void PrintTo(const PressCase& c, std::ostream* out) {
  *out << c.name;
}

class PressTest : public GestureTest, public ::testing::WithParamInterface<PressCase> {};

TEST_P(PressTest, SelectsLinksOrDeselectsAndPaintsOnlyWhatChanged) {
  const PressCase& p = GetParam();
  store.selectedCell = p.selectedBefore;
  store.selectedLink = p.linkSelectedBefore ? ab : int16_t{-1};
  Point at = p.target == Target::CellA   ? centreOf(a)
             : p.target == Target::CellB ? centreOf(b)
             : p.target == Target::Link  ? linkMiddle()
                                         : Point{300, 300};
  size_t mark = imageSize();
  press(p.button, p.shift, at);

  EXPECT_EQ(store.selectedCell, p.selectedAfter);
  EXPECT_EQ(store.selectedLink, p.linkAfter);
  EXPECT_EQ(store.linkList.ListCount(), p.links);
  EXPECT_EQ(store.isSaved, p.savedAfter);
  EXPECT_EQ(drawnSince(mark, DrawKind::Box), p.cellsDrawn);
  EXPECT_EQ(drawnSince(mark, DrawKind::Circle), p.linksDrawn);
  EXPECT_EQ(store.dragStartX, at.x);
  EXPECT_EQ(store.dragStartY, at.y);
  EXPECT_FALSE(app.demoRectangle.Visible);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PressTest,
    ::testing::Values(
        PressCase{"select another cell", 0, false, 1, 0, Target::CellB, 1, -1, 1, true, 2, 0},
        PressCase{"select the selected cell again", 0, false, 1, 0, Target::CellA, 0, -1, 1, true, 2, 0},
        PressCase{"select ends the link selection", -1, true, 1, 0, Target::CellA, 0, -1, 1, true, 1, 1},
        PressCase{"shift links from the selection", 1, false, 1, 1, Target::CellA, 1, -1, 2, false, 0, 1},
        PressCase{"shift on a duplicate link", 0, false, 1, 1, Target::CellB, 0, -1, 1, false, 0, 1},
        PressCase{"shift on the selected cell itself", 0, false, 1, 1, Target::CellA, 0, -1, 1, true, 0, 1},
        PressCase{"shift with nothing selected", -1, false, 1, 1, Target::CellB, -1, -1, 1, true, 0, 0},
        PressCase{"ctrl on a cell deselects", 0, false, 1, 2, Target::CellB, -1, -1, 1, true, 1, 0},
        PressCase{"alt on a cell deselects", 0, false, 1, 4, Target::CellB, -1, -1, 1, true, 1, 0},
        PressCase{"shift with ctrl is no link", 0, false, 1, 3, Target::CellB, -1, -1, 1, true, 1, 0},
        PressCase{"right on the selected cell", 0, false, 2, 0, Target::CellA, -1, -1, 1, true, 1, 0},
        PressCase{"middle on a cell", 0, false, 4, 0, Target::CellB, -1, -1, 1, true, 1, 0},
        PressCase{"left and right together", 0, false, 3, 0, Target::CellB, -1, -1, 1, true, 1, 0},
        PressCase{"left on empty board", 0, false, 1, 0, Target::Empty, -1, -1, 1, true, 1, 0},
        PressCase{"left on the link", 0, false, 1, 0, Target::Link, -1, 0, 1, true, 1, 1},
        PressCase{"right on the link", -1, false, 2, 0, Target::Link, -1, 0, 1, true, 0, 1},
        PressCase{"shift on the link, not on a cell", 0, false, 1, 1, Target::Link, -1, 0, 1, true, 1, 1},
        PressCase{"on the selected link again", -1, true, 1, 0, Target::Link, -1, 0, 1, true, 0, 2},
        PressCase{"empty board ends the link selection", -1, true, 1, 0, Target::Empty, -1, -1, 1, true, 0,
                  1}));

TEST_F(GestureTest, AClickWithoutMovingChangesNothing) {
  std::string record = store.itemList.List(a);
  press(1, 0, centreOf(a));
  release(1, centreOf(a));
  EXPECT_EQ(store.selectedCell, a);
  EXPECT_EQ(store.itemList.List(a), record);
  EXPECT_TRUE(store.isSaved);
  EXPECT_FALSE(app.demoRectangle.Visible);
}

TEST_F(GestureTest, ADragMovesOnlyTheRectangleAndTheDropMovesTheCell) {
  Point start = centreOf(a);
  Point end{start.x + 30.5f, start.y + 20};
  press(1, 0, start);
  // Laid at the stored position with the size of the last drawing, still hidden.
  EXPECT_EQ(app.demoRectangle.Width, geometry(a, "X2") - 10);
  EXPECT_EQ(app.demoRectangle.Height, geometry(a, "Y2") - 10);
  size_t mark = imageSize();
  int changes = world.ui.demoChanges;
  move(1, {start.x + 5, start.y + 5});
  move(1, end);

  EXPECT_TRUE(app.demoRectangle.Visible);
  EXPECT_EQ(app.demoRectangle.Left, 40.5f);
  EXPECT_EQ(app.demoRectangle.Top, 30);
  EXPECT_EQ(world.ui.demoChanges, changes + 2);
  EXPECT_EQ(imageSize(), mark) << "the board is not touched during a drag";
  EXPECT_EQ(field(a, "positionX"), " 10");
  EXPECT_TRUE(store.isSaved);

  release(1, end);
  EXPECT_EQ(field(a, "positionX"), " 40.5");
  EXPECT_EQ(field(a, "positionY"), " 30");
  EXPECT_FALSE(store.isSaved);
  EXPECT_FALSE(app.demoRectangle.Visible);
  EXPECT_EQ(store.selectedCell, a);
  EXPECT_EQ(store.dragStartX, 0);
  EXPECT_EQ(store.dragStartY, 0);
  EXPECT_EQ(geometry(a, "X1"), 39) << "the board was redrawn";
  EXPECT_EQ(world.ui.doEventsCalls, 1);
}

TEST_F(GestureTest, ADragBackToTheStartStillDrops) {
  store.itemList.setList(a, setField(store.itemList.List(a), "positionX", "10"));
  Point start = centreOf(a);
  press(1, 0, start);
  move(1, {start.x + 7, start.y});
  move(1, start);
  release(1, start);
  EXPECT_EQ(field(a, "positionX"), " 10");
  EXPECT_FALSE(store.isSaved);
}

struct DropCase {
  const char* name;
  Point by;  // how far cell A (at 10, 10) is dragged
  const char* aX;
  const char* aY;
  const char* bX;  // cell B stood at 100, 10
  const char* bY;
  float canvasLeft, canvasTop;
};

void PrintTo(const DropCase& c, std::ostream* out) {
  *out << c.name;
}

class NegativeDropTest : public GestureTest, public ::testing::WithParamInterface<DropCase> {};

TEST_P(NegativeDropTest, ShiftsTheBoardSoTheCellStandsTenFromTheEdge) {
  const DropCase& d = GetParam();
  Point start = centreOf(a);
  Point end{start.x + d.by.x, start.y + d.by.y};
  press(1, 0, start);
  move(1, end);
  release(1, end);
  EXPECT_EQ(field(a, "positionX"), d.aX);
  EXPECT_EQ(field(a, "positionY"), d.aY);
  EXPECT_EQ(field(b, "positionX"), d.bX);
  EXPECT_EQ(field(b, "positionY"), d.bY);
  EXPECT_EQ(world.canvas.Left(), d.canvasLeft);
  EXPECT_EQ(world.canvas.Top(), d.canvasTop);
  EXPECT_FALSE(store.isSaved);
}

INSTANTIATE_TEST_SUITE_P(
    Drops, NegativeDropTest,
    ::testing::Values(DropCase{"left of the edge", {-40, 0}, " 10", " 10", " 140", " 10", -20, 0},
                      DropCase{"exactly at 0", {-10, 0}, " 0", " 10", " 100", " 10", 0, 0},
                      DropCase{"above the edge", {0, -15}, " 10", " 10", " 100", " 25", 0, 5},
                      DropCase{
                          "beyond both edges", {-12.5f, -30}, " 10", " 10", " 112.5", " 40", 7.5f, -10}));

TEST_F(GestureTest, ARightPressDuringALeftDragEndsTheDrag) {
  Point start = centreOf(a);
  press(1, 0, start);
  move(1, {start.x + 20, start.y});
  float left = app.demoRectangle.Left;
  press(2, 0, {start.x + 20, start.y});
  EXPECT_EQ(store.selectedCell, -1);

  release(2, {start.x + 20, start.y});
  release(1, {start.x + 20, start.y});
  EXPECT_TRUE(store.isSaved);
  EXPECT_TRUE(app.demoRectangle.Visible) << "nothing hides the rectangle without a selection";
  EXPECT_EQ(app.demoRectangle.Left, left);
  EXPECT_EQ(field(a, "positionX"), " 10");

  // The next press on a cell lays the visible rectangle over it, and its release drops.
  press(1, 0, centreOf(b));
  EXPECT_EQ(app.demoRectangle.Left, 100);
  release(1, centreOf(b));
  EXPECT_FALSE(app.demoRectangle.Visible);
  EXPECT_FALSE(store.isSaved);
  EXPECT_EQ(field(b, "positionX"), " 100");
}

TEST_F(GestureTest, ALeftDragAfterDeselectingShowsNoRectangle) {
  store.selectedCell = a;
  press(1, 0, {300, 300});
  move(1, {320, 310});
  release(1, {320, 310});
  EXPECT_FALSE(app.demoRectangle.Visible);
  EXPECT_TRUE(store.isSaved);
}

TEST_F(GestureTest, AMoveAfterAShiftPressDragsTheSource) {
  press(1, 0, centreOf(a));
  Point onB = centreOf(b);
  press(1, 1, onB);
  move(1, {onB.x + 10, onB.y + 5});
  EXPECT_TRUE(app.demoRectangle.Visible);
  EXPECT_EQ(app.demoRectangle.Left, 20);
  EXPECT_EQ(app.demoRectangle.Top, 15);
  release(1, {onB.x + 10, onB.y + 5});
  EXPECT_EQ(field(a, "positionX"), " 20");
}

TEST_F(GestureTest, ARightDragPansTheCanvasAndNothingElse) {
  world.canvas.Move(5, 5);
  press(2, 0, {50, 50});
  size_t mark = imageSize();
  move(2, {60.4f, 44.5f});
  EXPECT_EQ(world.ui.pointer, kPointerSizeAll);
  EXPECT_EQ(world.canvas.Left(), 15);  // 5 + 10.4, rounded
  EXPECT_EQ(world.canvas.Top(), 0);    // 5 - 5.5 = -0.5, ties to even
  EXPECT_EQ(world.ui.refreshCalls, 1);
  EXPECT_EQ(world.ui.doEventsCalls, 1);
  move(2, {60.4f, 44.5f});
  EXPECT_EQ(world.canvas.Left(), 25) << "each step adds to the place the canvas has";
  release(2, {60, 45});
  EXPECT_EQ(world.ui.pointer, kPointerDefault);
  EXPECT_EQ(imageSize(), mark);
  EXPECT_TRUE(store.isSaved);
}

TEST_F(GestureTest, LeftAndRightTogetherNeitherDragNorPan) {
  press(1, 0, centreOf(a));
  move(3, {200, 200});
  EXPECT_FALSE(app.demoRectangle.Visible);
  EXPECT_EQ(world.canvas.Left(), 0);
  EXPECT_EQ(world.ui.pointer, kPointerDefault);
  EXPECT_EQ(world.ui.captionText, "Tavlero:  () (X: 200   Y: 200)");
}

struct CaptionCase {
  const char* name;
  std::string programName;
  std::string fileName;  // a native path component
  Point at;
  std::string caption;  // Windows-1252
  int32_t lastX, lastY;
};

void PrintTo(const CaptionCase& c, std::ostream* out) {
  *out << c.name;
}

class CaptionTest : public GestureTest, public ::testing::WithParamInterface<CaptionCase> {};

TEST_P(CaptionTest, EveryMoveSetsTheTitleAndThePointerPosition) {
  const CaptionCase& t = GetParam();
  store.programName = t.programName;
  store.projectFileName = t.fileName;
  move(0, t.at);
  EXPECT_EQ(world.ui.captionText, t.caption);
  EXPECT_EQ(store.lastMouseX, t.lastX);
  EXPECT_EQ(store.lastMouseY, t.lastY);
  EXPECT_TRUE(store.isSaved);
}

INSTANTIATE_TEST_SUITE_P(
    Titles, CaptionTest,
    ::testing::Values(
        CaptionCase{"named project",
                    "Lager",
                    "lager.tvl",
                    {120, 45},
                    "Tavlero: Lager (lager.tvl) (X: 120   Y: 45)",
                    120,
                    45},
        CaptionCase{"negative x",
                    "Lager",
                    "lager.tvl",
                    {-3, 45},
                    "Tavlero: Lager (lager.tvl) (X:-3   Y: 45)",
                    -3,
                    45},
        CaptionCase{"no file", "", "", {0, 0}, "Tavlero:  () (X: 0   Y: 0)", 0, 0},
        CaptionCase{"ties to even", "", "", {2.5f, 3.5f}, "Tavlero:  () (X: 2   Y: 4)", 2, 4},
        CaptionCase{"file name in UTF-8",
                    "Bl\xE5",
                    "bl\xC3\xA5\xC3\xA6r.tvl",
                    {1, 1},
                    "Tavlero: Bl\xE5 (bl\xE5\xE6r.tvl) (X: 1   Y: 1)",
                    1,
                    1},
        CaptionCase{
            "beyond 16 bits", "", "", {40000, -40000}, "Tavlero:  () (X: 32767   Y:-32768)", 40000, -40000}));

}  // namespace
}  // namespace tavlero::testing
