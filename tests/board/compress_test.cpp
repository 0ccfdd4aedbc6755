#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "board/compress.h"
#include "core/record.h"
#include "core/records.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

// The cases of tests/data/board/compress.txt; twice gives what once gives.
TEST(Compression, MovesCellsToTheMarginAndFitsTheSurface) {
  for (const auto& c : readCases("board/compress.txt")) {
    SCOPED_TRACE(c.at(0));
    FakeWorld world;
    world.canvas.setWidth(255.9375f);
    world.canvas.setHeight(173.6042f);
    world.canvas.Move(-5, -7);
    for (const auto& xy : numberGroups(c.at(1))) world.addCell("m", xy.at(0), xy.at(1));
    for (int round = 0; round < 2; ++round) {
      compressBoard(world.app);
      std::vector<std::vector<float>> got;
      for (const auto& record : world.app.store.itemList.items())
        got.push_back(
            {toSingle(numberField(record, key::positionX)), toSingle(numberField(record, key::positionY))});
      EXPECT_EQ(std::tuple(got, world.canvas.Width(), world.canvas.Height(), world.canvas.Left(),
                           world.canvas.Top()),
                std::tuple(numberGroups(c.at(2)), std::stof(c.at(3)), std::stof(c.at(4)), -5.0f, -7.0f));
    }
    EXPECT_TRUE(world.app.store.isSaved);
  }
}

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
