#include <gtest/gtest.h>

#include "board/compress.h"
#include "core/record.h"
#include "core/records.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

struct Cell {
  float x, y;
};

struct CompressCase {
  const char* name;
  std::vector<Cell> cells;
  std::vector<Cell> expected;
  float width, height;  // of the surface afterwards, in millimetres
};

void PrintTo(const CompressCase& c, std::ostream* os) {
  *os << c.name;
}

class Compression : public ::testing::TestWithParam<CompressCase> {};

std::vector<Cell> positions(const ProjectStore& store) {
  std::vector<Cell> cells;
  for (const auto& record : store.itemList.items())
    cells.push_back(
        {toSingle(numberField(record, key::positionX)), toSingle(numberField(record, key::positionY))});
  return cells;
}

TEST_P(Compression, MovesCellsToTheMarginAndFitsTheSurface) {
  const CompressCase& c = GetParam();
  FakeWorld world;
  world.canvas.setWidth(255.9375f);
  world.canvas.setHeight(173.6042f);
  world.canvas.Move(-5, -7);
  for (const Cell& cell : c.cells) world.addCell("m", cell.x, cell.y);
  for (int round = 0; round < 2; ++round) {  // twice gives what once gives
    compressBoard(world.app);
    std::vector<Cell> got = positions(world.app.store);
    ASSERT_EQ(got.size(), c.expected.size());
    for (size_t i = 0; i < got.size(); ++i) {
      EXPECT_FLOAT_EQ(got[i].x, c.expected[i].x) << i;
      EXPECT_FLOAT_EQ(got[i].y, c.expected[i].y) << i;
    }
    EXPECT_FLOAT_EQ(world.canvas.Width(), c.width);
    EXPECT_FLOAT_EQ(world.canvas.Height(), c.height);
    EXPECT_EQ(world.canvas.Left(), -5);
    EXPECT_EQ(world.canvas.Top(), -7);
  }
  EXPECT_TRUE(world.app.store.isSaved);
}

INSTANTIATE_TEST_SUITE_P(
    Board, Compression,
    ::testing::Values(CompressCase{"two", {{50, 80}, {130, 100}}, {{10, 10}, {90, 30}}, 260, 140},
                      CompressCase{"one", {{100, 60}}, {{10, 10}}, 100, 100},
                      CompressCase{"empty", {}, {}, 255.9375f, 173.6042f},
                      CompressCase{"negative", {{-20, 15.5f}, {30, -4}}, {{10, 29.5f}, {60, 10}}, 200, 139}));

TEST(Compression, CellsBeyondTheSurfaceKeepItsSizeAsSmallest) {
  FakeWorld world;
  world.canvas.setWidth(100);
  world.canvas.setHeight(100);
  world.addCell("far", 300, 400);
  compressBoard(world.app);
  // Width 100 stays the smallest x, so the cell moves by 10 - 100 only.
  EXPECT_EQ(getField(world.app.store.itemList.List(0), "positionX"), " 210");
  EXPECT_EQ(getField(world.app.store.itemList.List(0), "positionY"), " 310");
  EXPECT_FLOAT_EQ(world.canvas.Width(), 500);
}

TEST(Compression, ShiftWritesFloatTextAndKeepsTheRestOfTheRecord) {
  FakeWorld world;
  world.app.store.itemList.AddItem("\r\n\t<positionX>1</positionX><positionY>2</positionY>tail\r\n");
  shiftBoard(world.app, 0.25f, -3);
  EXPECT_EQ(world.app.store.itemList.List(0),
            "\r\n\t<positionX> 1.25</positionX><positionY>-1</positionY>tail\r\n");
}

}  // namespace
}  // namespace tavlero::testing
