#include "editing/hit_test.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "board_fixture.h"
#include "core/record.h"
#include "editing/keys.h"

namespace tavlero::testing {
namespace {

std::string geometry(float x1, float y1, float x2, float y2) {
  return "<X1>" + numberToText(x1) + "</X1><Y1>" + numberToText(y1) + "</Y1><X2>" + numberToText(x2) +
         "</X2><Y2>" + numberToText(y2) + "</Y2>";
}

struct HitCase {
  const char* name;
  std::vector<std::string> records;
  Point point;
  int16_t expected;
};

void PrintTo(const HitCase& c, std::ostream* out) {
  *out << c.name;
}

ProjectStore storeWith(StringList ProjectStore::*list, const std::vector<std::string>& records) {
  ProjectStore store;
  for (const auto& record : records) (store.*list).AddItem(record);
  return store;
}

class FindCellAt : public ::testing::TestWithParam<HitCase> {};

TEST_P(FindCellAt, FindsTheLowestCellStrictlyInside) {
  const HitCase& c = GetParam();
  ProjectStore store = storeWith(&ProjectStore::sizeList, c.records);
  EXPECT_EQ(findCellAt(store, c.point.x, c.point.y), c.expected);
}

const std::string kCell = geometry(10, 20, 40, 50);

INSTANTIATE_TEST_SUITE_P(
    Edges, FindCellAt,
    ::testing::Values(
        HitCase{"empty board", {}, {25, 35}, -1}, HitCase{"inside", {kCell}, {25, 35}, 0},
        HitCase{"left edge", {kCell}, {10, 35}, -1}, HitCase{"right edge", {kCell}, {40, 35}, -1},
        HitCase{"top edge", {kCell}, {25, 20}, -1}, HitCase{"bottom edge", {kCell}, {25, 50}, -1},
        HitCase{"just inside the corner", {kCell}, {10.01f, 49.99f}, 0},
        HitCase{"placeholder", {"X1: 0 Y1: 0 X2: 0 Y2: 0"}, {0, 0}, -1},
        HitCase{"no number", {kCell}, {std::nanf(""), 35}, -1},
        HitCase{"everywhere", {geometry(-1e30f, -1e30f, 1e30f, 1e30f)}, {-1e20f, 1e20f}, 0},
        HitCase{"after a miss", {geometry(0, 0, 5, 5), kCell}, {25, 35}, 1},
        HitCase{"overlap: lower index wins", {kCell, geometry(30, 40, 90, 90)}, {35, 45}, 0},
        HitCase{"overlap outside the lower one", {kCell, geometry(30, 40, 90, 90)}, {60, 45}, 1}));

class FindLinkAt : public ::testing::TestWithParam<HitCase> {};

TEST_P(FindLinkAt, MeasuresAlongOneAxisWithinTheBox) {
  const HitCase& c = GetParam();
  ProjectStore store = storeWith(&ProjectStore::linkSizeList, c.records);
  EXPECT_EQ(findLinkAt(store, c.point.x, c.point.y), c.expected);
}

const std::string kFlat = geometry(10, 50, 60, 50);
const std::string kUpright = geometry(40, 10, 40, 60);
const std::string kUpward = geometry(40, 60, 40, 10);
const std::string kSteep = geometry(0, 0, 10, 100);    // right and down, measured along X
const std::string kShallow = geometry(0, 0, 100, 10);  // right and down, measured along Y
const std::string kLeftward = geometry(60, 50, 10, 50);
const std::string kRisingFarAway = geometry(200, 300, 210, 250);

INSTANTIATE_TEST_SUITE_P(
    Lines, FindLinkAt,
    ::testing::Values(
        HitCase{"empty", {}, {0, 0}, -1}, HitCase{"flat, within the widened box", {kFlat}, {30, 50.9f}, 0},
        HitCase{"flat, on the widened edge", {kFlat}, {30, 51}, -1},
        HitCase{"flat, half a unit beyond its end", {kFlat}, {60.5f, 50}, -1},
        HitCase{"flat, half a unit before its start", {kFlat}, {9.5f, 50}, -1},
        HitCase{"upright, anywhere along it", {kUpright}, {39.5f, 58}, 0},
        HitCase{"upright, on the widened edge", {kUpright}, {41, 30}, -1},
        HitCase{"upward, in its middle", {kUpward}, {40, 35}, 0},
        HitCase{"upward, 1.9 off its middle", {kUpward}, {40, 36.9f}, 0},
        HitCase{"upward, 2 off its middle", {kUpward}, {40, 37}, -1},
        HitCase{"upward, on the line far from the middle", {kUpward}, {40, 20}, -1},
        HitCase{"steep, 1.9 right", {kSteep}, {6.9f, 50}, 0},
        HitCase{"steep, 2 right", {kSteep}, {7, 50}, -1}, HitCase{"steep, 1.9 left", {kSteep}, {3.1f, 50}, 0},
        HitCase{"steep, 2 left", {kSteep}, {3, 50}, -1},
        HitCase{"shallow, 1.9 below", {kShallow}, {50, 6.9f}, 0},
        HitCase{"shallow, 2 below", {kShallow}, {50, 7}, -1},
        HitCase{
            "undrawn link near the origin", {"<X1>0</X1><Y1>0</Y1><X2>0</X2><Y2>0</Y2>"}, {0.5f, 0.5f}, 0},
        HitCase{"undrawn link elsewhere", {"X1: 0 Y1: 0 X2: 0 Y2: 0"}, {1.5f, 0}, -1},
        HitCase{"both directions: lower index",
                {geometry(10, 10, 60, 30), geometry(60, 30, 10, 10)},
                {35, 20},
                0},
        HitCase{"leftward flat line, without marks", {kLeftward}, {47.5f, 49.5f}, 0},
        // The earlier rising link leaves its marks: the flat line is widened the other way
        // round and its catch line crosses the box the other way.
        HitCase{"leftward flat line after a rising link", {kRisingFarAway, kLeftward}, {47.5f, 49.5f}, -1},
        HitCase{"leftward flat line after a rising link, new catch line",
                {kRisingFarAway, kLeftward},
                {22.5f, 49.5f},
                1}));

// The answer of a walk from index 0 over freshly read records, for any point.
int16_t lowestHolding(const ProjectStore& store, float x, float y) {
  for (int16_t i = 0; i < store.sizeList.ListCount(); ++i) {
    const std::string& g = store.sizeList.List(i);
    auto read = [&](const char* key) { return toSingle(textToNumber(getField(g, key))); };
    if (x > read("X1") && x < read("X2") && y > read("Y1") && y < read("Y2")) return i;
  }
  return -1;
}

// Random boards with overlaps, huge, empty and inverted boxes, changed entry by entry:
// every answer must be that of the plain walk, also right after each change, where the
// changed box stood and where it stands now.
TEST(FindCellAtBoard, AnswersAsTheWalkThroughEveryChange) {
  std::mt19937 random(20261123);
  std::uniform_real_distribution<float> place(-200, 1000);
  std::uniform_real_distribution<float> size(-5, 120);
  auto anyBox = [&] {
    unsigned kind = random() % 40;
    if (kind == 0) return std::string("X1: 0 Y1: 0 X2: 0 Y2: 0");
    if (kind == 1) return geometry(-1e30f, place(random), 1e30f, place(random) + 3000);
    float x = place(random), y = place(random);
    return geometry(x, y, x + size(random), y + size(random));
  };
  auto inside = [](const std::string& box) {
    auto read = [&](const char* key) { return toSingle(textToNumber(getField(box, key))); };
    return Point{read("X1") + 1, read("Y1") + 1};
  };
  ProjectStore store;
  ProjectStore other;  // another board asked now and then must not confuse the first
  other.sizeList.AddItem(geometry(0, 0, 5000, 5000));
  for (int i = 0; i < 300; ++i) store.sizeList.AddItem(anyBox());
  for (int round = 0; round < 60; ++round) {
    auto changed = static_cast<int16_t>(random() % 300);
    std::vector<Point> probes = {inside(store.sizeList.List(changed))};
    store.sizeList.setList(changed, anyBox());
    probes.push_back(inside(store.sizeList.List(changed)));
    for (int i = 0; i < 30; ++i) probes.push_back({place(random), place(random)});
    for (Point p : probes) {
      ASSERT_EQ(findCellAt(store, p.x, p.y), lowestHolding(store, p.x, p.y))
          << "round " << round << " at " << p.x << ", " << p.y;
    }
    if (round % 10 == 0) {
      ASSERT_EQ(findCellAt(other, 10, 10), 0);
    }
  }
  store.sizeList.Clear();
  EXPECT_EQ(findCellAt(store, 10, 10), -1);
}

// The answer of a walk over freshly read link records, with the two marks carried on.
int16_t firstLinkNear(const ProjectStore& store, float x, float y) {
  bool reversed = false, rising = false;
  for (int16_t i = 0; i < store.linkSizeList.ListCount(); ++i) {
    const std::string& g = store.linkSizeList.List(i);
    auto read = [&](const char* key) { return toSingle(textToNumber(getField(g, key))); };
    float x1 = read("X1"), y1 = read("Y1"), x2 = read("X2"), y2 = read("Y2");
    reversed = reversed || x1 > x2 || y1 > y2;
    rising = rising || y1 > y2;
    if (x1 == x2) x1 += reversed ? 1.0f : -1.0f, x2 += reversed ? -1.0f : 1.0f;
    if (y1 == y2) y1 += rising ? 1.0f : -1.0f, y2 += rising ? -1.0f : 1.0f;
    if (!(std::min(x1, x2) < x && x < std::max(x1, x2) && std::min(y1, y2) < y && y < std::max(y1, y2)))
      continue;
    float dx = x2 - x1, dy = y2 - y1, ex = x, ey = y;
    if (dy < dx) {
      float slope = dy / dx;
      ey = y1 + slope * (x - x1);
    } else {
      float slope = dx / dy;
      ex = x1 + slope * (y - y1);
    }
    if (x + 2 > ex && x - 2 < ex && y + 2 > ey && y - 2 < ey) return i;
  }
  return -1;
}

TEST(FindLinkAtBoard, AnswersAsTheWalkThroughEveryChange) {
  std::mt19937 random(4711);
  std::uniform_real_distribution<float> place(-100, 600);
  std::uniform_real_distribution<float> length(-150, 150);
  std::uniform_real_distribution<float> along(0, 1);
  std::uniform_real_distribution<float> off(-3, 3);
  // Flat, upright and slanted lines in all four directions, and a few undrawn ones.
  auto anyLine = [&] {
    float x = place(random), y = place(random);
    switch (random() % 8) {
      case 0:
        return std::string("<X1>0</X1><Y1>0</Y1><X2>0</X2><Y2>0</Y2>");
      case 1:
        return geometry(x, y, x + length(random), y);
      case 2:
        return geometry(x, y, x, y + length(random));
      default:
        return geometry(x, y, x + length(random), y + length(random));
    }
  };
  auto nearLine = [&](const std::string& g) {
    auto read = [&](const char* key) { return toSingle(textToNumber(getField(g, key))); };
    float t = along(random);
    return Point{read("X1") + t * (read("X2") - read("X1")) + off(random),
                 read("Y1") + t * (read("Y2") - read("Y1")) + off(random)};
  };
  ProjectStore store;
  for (int i = 0; i < 200; ++i) store.linkSizeList.AddItem(anyLine());
  for (int round = 0; round < 60; ++round) {
    auto changed = static_cast<int16_t>(random() % 200);
    std::vector<Point> probes = {nearLine(store.linkSizeList.List(changed))};
    store.linkSizeList.setList(changed, anyLine());
    for (int i = 0; i < 30; ++i)
      probes.push_back(nearLine(store.linkSizeList.List(static_cast<int16_t>(random() % 200))));
    for (Point p : probes) {
      ASSERT_EQ(findLinkAt(store, p.x, p.y), firstLinkNear(store, p.x, p.y))
          << "round " << round << " at " << p.x << ", " << p.y;
    }
  }
}

TEST(FindCellAtBoard, AMovedCellIsFoundAtItsNewPlaceAtOnce) {
  ProjectStore store;
  store.sizeList.AddItem(geometry(10, 10, 40, 30));
  ASSERT_EQ(findCellAt(store, 20, 20), 0);
  store.sizeList.setList(0, geometry(500, 10, 530, 30));
  EXPECT_EQ(findCellAt(store, 20, 20), -1);
  EXPECT_EQ(findCellAt(store, 520, 20), 0);
}

// Hit testing sees what was drawn: after the lower of two overlapping cells is deleted
// and the board redrawn, the same point finds the upper one under its new number.
TEST_F(BoardTest, OverlappingCellsFollowTheRedraw) {
  for (int i = 0; i < 6; ++i) world.addCell("cell" + std::to_string(i), 100.0f * static_cast<float>(i), 10);
  store.itemList.setList(5, setField(store.itemList.List(5), "positionX", numberToText(210.0f)));
  drawBoard();
  Point shared{215, 12};
  ASSERT_EQ(findCellAt(store, shared.x, shared.y), 2);

  store.selectedCell = 2;
  canvas_KeyDown(app, 46, 0);
  EXPECT_EQ(findCellAt(store, shared.x, shared.y), 4);
}

TEST_F(BoardTest, AnUndrawnOrNamelessCellCannotBeHit) {
  world.addCell("", 10, 10);
  drawBoard();
  world.addCell("new", 10, 10);
  EXPECT_EQ(findCellAt(store, 15, 12), -1);
}

}  // namespace
}  // namespace tavlero::testing
