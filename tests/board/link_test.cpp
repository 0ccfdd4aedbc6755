#include <gtest/gtest.h>

#include <tuple>

#include "board/board.h"
#include "board/links.h"
#include "core/record.h"
#include "test_support.h"

namespace tavlero {
namespace {

TEST(LinkDirection, LongerDistanceChoosesTheSideAndTiesGoVertical) {
  const std::tuple<float, float, float, float, int16_t> cases[] = {
      {0, 0, 10, 2, 1}, {0, 0, -10, 2, 3}, {0, 0, 2, 10, 2}, {0, 0, 2, -10, 0},
      {0, 0, 5, 5, 2},  {0, 0, 5, -5, 0},  {3, 3, 3, 3, 0}};
  for (auto [x1, y1, x2, y2, side] : cases) EXPECT_EQ(linkDirection(x1, y1, x2, y2), side) << x2 << ',' << y2;
}

// One unit per character, lines 4 high, minimum width 25: a one-letter cell at (x, y)
// covers (x-1, y-1)-(x+26, y+9).
class LinkDrawing : public ::testing::Test {
 protected:
  testing::FakeWorld world;
  ProjectStore& store = world.app.store;
  const std::string& geometry(int16_t link) { return store.linkSizeList.List(link); }
};

TEST_F(LinkDrawing, JoinsFacingSidesWithACircleInTheSourceColours) {
  world.addCell("A", 10, 10, "", 255, 4);
  world.addCell("B", 100, 12);
  world.addCell("C", 10, 10);
  world.addLinkRecord("A", "B");
  world.addLinkRecord("C", "C");
  store.selectedLink = 0;
  redrawBoard(world.app);
  EXPECT_EQ(geometry(0), "<X1> 36</X1><Y1> 14</Y1><X2> 99</X2><Y2> 16</Y2>");
  // A self link has equal centres: from the top side to the bottom side.
  EXPECT_EQ(geometry(1), "<X1> 22.5</X1><Y1> 9</Y1><X2> 22.5</X2><Y2> 19</Y2>");
  std::vector<const DrawOp*> lines, circles;
  for (const auto& op : world.canvas.Image().ops()) {
    if (op.kind == DrawKind::Line) lines.push_back(&op);
    if (op.kind == DrawKind::Circle) circles.push_back(&op);
  }
  ASSERT_EQ(std::tuple(lines.size(), circles.size()), std::tuple(2u, 2u));
  // The selected link is red; a link is one pixel wide at every zoom; the pen is put back.
  EXPECT_EQ(std::tuple(lines[0]->foreColor, lines[1]->foreColor, lines[0]->drawStyle, lines[0]->drawWidth),
            std::tuple(255, 0, 1, 1));
  EXPECT_EQ(std::tuple(circles[0]->x1, circles[0]->x2, circles[0]->fillColor, circles[0]->fillStyle,
                       world.canvas.DrawStyle, world.canvas.DrawWidth()),
            std::tuple(99.0f, 1.0f, 255, 4, 0, 2));
}

TEST_F(LinkDrawing, OppositeLinksShareEndsAndTheLastCellOfANameWins) {
  world.addCell("A", 10, 10);
  world.addCell("B", 10, 100);
  world.addCell("B", 200, 10);
  world.addLinkRecord("A", "B");
  world.addLinkRecord("B", "A");
  redrawBoard(world.app);
  EXPECT_EQ(geometry(0), "<X1> 36</X1><Y1> 14</Y1><X2> 199</X2><Y2> 14</Y2>");
  EXPECT_EQ(geometry(1), "<X1> 199</X1><Y1> 14</Y1><X2> 36</X2><Y2> 14</Y2>");
  // Drawn alone, a link finds its cells the same way.
  store.linkSizeList.setList(0, "");
  drawLink(world.app, 0);
  EXPECT_EQ(geometry(0), "<X1> 36</X1><Y1> 14</Y1><X2> 199</X2><Y2> 14</Y2>");
}

TEST_F(LinkDrawing, LinksThatLostACellAreSweptOutInOneRedraw) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  world.addCell("C", 10, 100);
  for (auto [source, target] : {std::pair{"A", "gone"}, {"gone", "B"}, {"A", "B"}, {"a", "B"}, {"C", "A"}})
    world.addLinkRecord(source, target);
  redrawBoard(world.app);
  ASSERT_EQ(std::tuple(store.linkList.ListCount(), store.linkSizeList.ListCount()), std::tuple(2, 2));
  // Sweeping links is no change of the project.
  EXPECT_EQ(std::tuple(getField(store.linkList.List(0), "linkSource"),
                       getField(store.linkList.List(1), "linkSource"),
                       store.linkSizeList.List(1).find("<X1>") != std::string::npos, store.isSaved),
            std::tuple("A", "C", true, true));
}

TEST_F(LinkDrawing, AddLinkRefusesSelfLinksDuplicatesAndAFullPlan) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  addLink(world.app, 0, 0);
  EXPECT_EQ(std::tuple(store.linkList.ListCount(), store.isSaved), std::tuple(0, true))
      << "a self link is no change";
  addLink(world.app, 0, 1);
  EXPECT_EQ(std::tuple(store.linkList.List(0), store.linkSizeList.List(0)),
            std::tuple("<linkSource>A</linkSource><linkTarget>B</linkTarget>",
                       "<X1>0</X1><Y1>0</Y1><X2>0</X2><Y2>0</Y2>"));
  store.isSaved = true;
  addLink(world.app, 0, 1);
  EXPECT_EQ(std::tuple(store.linkList.ListCount(), store.isSaved), std::tuple(1, false))
      << "a refused duplicate still counts as a change";
  // A record read from a file carries white space, so it is no duplicate of a fresh one.
  store.linkList.setList(0, "\r\n\t<linkSource>A</linkSource><linkTarget>B</linkTarget>\r\n");
  addLink(world.app, 0, 1);
  EXPECT_EQ(store.linkList.ListCount(), 2);
  while (store.linkList.AddItem("x")) store.linkSizeList.AddItem("x");
  addLink(world.app, 1, 0);
  EXPECT_EQ(std::tuple(store.linkList.ListCount(), store.linkSizeList.ListCount(), world.ui.beeps,
                       world.ui.messages.size()),
            std::tuple(ProjectStore::kMaxLinks, ProjectStore::kMaxLinks, 1, 1u));
}

TEST(RemoveBlankLinks, KeepsListsParallelAndInOrder) {
  testing::FakeWorld world;
  auto& store = world.app.store;
  for (const char* entry : {"", "a", "", "", "b", ""}) {
    store.linkList.AddItem(entry);
    store.linkSizeList.AddItem(std::string(entry) + "g");
  }
  removeBlankLinks(world.app);
  EXPECT_EQ(std::tuple(store.linkList.items(), store.linkSizeList.items()),
            std::tuple(std::vector<std::string>{"a", "b"}, std::vector<std::string>{"ag", "bg"}));
}

}  // namespace
}  // namespace tavlero
