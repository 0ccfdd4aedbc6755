#include "editing/hit_test.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "board_fixture.h"
#include "core/record.h"
#include "core/records.h"
#include "editing/keys.h"

namespace tavlero::testing {
namespace {

using testing::PrintTo;

std::string box(float x1, float y1, float x2, float y2) {
  return buildGeometry(numberToText(x1), numberToText(y1), numberToText(x2), numberToText(y2));
}

struct HitCase {
  const char* name;
  bool link;
  std::vector<std::string> records;
  float x, y;
  int16_t expected;
};

class HitTest : public ::testing::TestWithParam<HitCase> {};

TEST_P(HitTest, FindsTheLowestEntryAtThePoint) {
  const HitCase& c = GetParam();
  FakeWorld world;
  ProjectStore& store = world.app.store;
  for (const auto& record : c.records) (c.link ? store.linkSizeList : store.sizeList).AddItem(record);
  EXPECT_EQ(c.link ? findLinkAt(world.app, c.x, c.y) : findCellAt(world.app, c.x, c.y), c.expected);
}

const std::string kCell = box(10, 20, 40, 50), kOver = box(30, 40, 90, 90),
                  kWide = box(-1e30f, 0, 1e30f, 100);
const std::string kFlat = box(10, 50, 60, 50), kUpright = box(40, 10, 40, 60), kUpward = box(40, 60, 40, 10);
const std::string kSteep = box(0, 0, 10, 100);
const std::string kLeftward = box(60, 50, 10, 50), kRising = box(200, 300, 210, 250);

INSTANTIATE_TEST_SUITE_P(
    Cases, HitTest,
    ::testing::Values(
        HitCase{"inside", false, {kCell}, 25, 35, 0},
        HitCase{"flat, in widened box", true, {kFlat}, 30, 50.9f, 0},
        HitCase{"left edge", false, {kCell}, 10, 35, -1}, HitCase{"right edge", false, {kCell}, 40, 35, -1},
        HitCase{"top edge", false, {kCell}, 25, 20, -1}, HitCase{"bottom edge", false, {kCell}, 25, 50, -1},
        HitCase{"undrawn cell", false, {"X1: 0 Y1: 0 X2: 0 Y2: 0"}, 0, 0, -1},
        HitCase{"overlap: lowest wins", false, {kCell, kOver}, 35, 45, 0},
        HitCase{"overlap outside the lowest", false, {kCell, kOver}, 60, 45, 1},
        // Boxes over many parts of the board are looked up apart from the small ones.
        HitCase{"small box, then a wide one", false, {kCell, kWide}, 25, 35, 0},
        HitCase{"wide box alone", false, {kCell, kWide}, -5e20f, 60, 1},
        HitCase{"across the origin", false, {box(-70, -70, 70, 70)}, -65, 65, 0},
        HitCase{"flat, widened edge", true, {kFlat}, 30, 51, -1},
        HitCase{"flat, beyond its end", true, {kFlat}, 60.5f, 50, -1},
        HitCase{"upright, near its end", true, {kUpright}, 39.5f, 58, 0},
        HitCase{"upward, middle", true, {kUpward}, 40, 35, 0},
        HitCase{"upward, 1.9 off middle", true, {kUpward}, 40, 36.9f, 0},
        HitCase{"upward, 2 off middle", true, {kUpward}, 40, 37, -1},
        HitCase{"upward, far from middle", true, {kUpward}, 40, 20, -1},
        HitCase{"steep, 1.9 right", true, {kSteep}, 6.9f, 50, 0},
        HitCase{"steep, 2 right", true, {kSteep}, 7, 50, -1},
        HitCase{"leftward, no marks", true, {kLeftward}, 47.5f, 49.5f, 0},
        // A rising link earlier in the list flips how later flat lines are widened.
        HitCase{"leftward after rising", true, {kRising, kLeftward}, 47.5f, 49.5f, -1},
        HitCase{"leftward after rising, flipped", true, {kRising, kLeftward}, 22.5f, 49.5f, 1}));

// After the lower of two overlapping cells is deleted and the board redrawn, the same
// point finds the upper one under its new number.
TEST(FindCellAtBoard, OverlappingCellsFollowTheRedraw) {
  FakeWorld world;
  for (int i = 0; i < 6; ++i) world.addCell("cell" + std::to_string(i), 100.0f * static_cast<float>(i), 10);
  ProjectStore& store = world.app.store;
  store.itemList.setList(5, setField(store.itemList.List(5), "positionX", numberToText(210.0f)));
  redrawBoard(world.app);
  ASSERT_EQ(findCellAt(world.app, 215, 12), 2);
  store.selectedCell = 2;
  canvas_KeyDown(world.app, 46, 0);
  EXPECT_EQ(findCellAt(world.app, 215, 12), 4);
  // A geometry list taken whole from another store, of the same length, is new to the index.
  FakeWorld other;
  for (int i = 0; i < 5; ++i)
    other.addCell("far" + std::to_string(i), 1000.0f * static_cast<float>(i + 1), 10);
  redrawBoard(other.app);
  store.sizeList = other.app.store.sizeList;
  EXPECT_EQ(std::tuple(findCellAt(world.app, 215, 12), findCellAt(world.app, 1005, 12)), std::tuple(-1, 0));
}

}  // namespace
}  // namespace tavlero::testing
