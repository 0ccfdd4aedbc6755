#include "editing/hit_test.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "board_fixture.h"
#include "core/record.h"
#include "core/records.h"
#include "editing/keys.h"

namespace tavlero::testing {
namespace {

// The cases of tests/data/editing/hits.txt, each on a fresh geometry list.
TEST(HitTest, FindsTheLowestEntryAtThePoint) {
  for (const auto& c : readCases("editing/hits.txt")) {
    FakeWorld world;
    const bool link = c.at(1) == "link";
    for (const auto& box : numberGroups(c.at(2)))
      (link ? world.app.store.linkSizeList : world.app.store.sizeList)
          .AddItem(box.empty() ? std::string(kGeometryPlaceholder)
                               : buildGeometry(numberToText(box.at(0)), numberToText(box.at(1)),
                                               numberToText(box.at(2)), numberToText(box.at(3))));
    const float x = std::stof(c.at(3)), y = std::stof(c.at(4));
    EXPECT_EQ(link ? findLinkAt(world.app, x, y) : findCellAt(world.app, x, y), std::stoi(c.at(5))) << c[0];
  }
}

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

// Link boxes written or appended one at a time after a search are read alone. The answers
// stay a fresh index's: with the widening that an earlier reversed link passes on to the
// later ones, past the changes the list keeps count of, and after a write that a removal moved.
TEST(FindLinkAtBoard, EntriesWrittenAloneAnswerAsAFreshIndex) {
  FakeWorld world;
  StringList& links = world.app.store.linkSizeList;
  unsigned seed = 7;
  auto next = [&seed](int range) {
    return static_cast<float>((seed = seed * 1103515245u + 12345u) >> 16) / 65536 * static_cast<float>(range);
  };
  auto line = [&] {
    return buildGeometry(numberToText(next(300)), numberToText(next(300)), numberToText(next(300)),
                         numberToText(next(300)));
  };
  for (int i = 0; i < 8; ++i) links.AddItem(line());
  const std::string changes[] = {"write", "append", "write", "append", "writes", "remove", "write"};
  for (const std::string& change : changes) {
    findLinkAt(world.app, 0, 0);
    if (change == "write") links.setList(static_cast<int16_t>(next(links.ListCount())), line());
    if (change == "append") links.AddItem(line()), links.setList(links.ListCount() - 1, line());
    for (int i = 0; change == "writes" && i < 100; ++i)
      links.setList(static_cast<int16_t>(next(links.ListCount())), line());
    if (change == "remove") links.setList(5, line()), links.RemoveItem(2);
    FakeWorld fresh;
    fresh.app.store.linkSizeList = links;
    for (float x = 0; x < 300; x += 4)
      for (float y = 0; y < 300; y += 4)
        ASSERT_EQ(findLinkAt(world.app, x, y), findLinkAt(fresh.app, x, y))
            << change << " at " << x << "," << y;
  }
}

}  // namespace
}  // namespace tavlero::testing
