#include <gtest/gtest.h>

#include "board/board.h"
#include "board/links.h"
#include "core/record.h"
#include "test_support.h"

namespace tavlero {
namespace {

TEST(LinkDirection, LongerDistanceChoosesTheSideAndTiesGoVertical) {
  EXPECT_EQ(linkDirection(0, 0, 10, 2), 1);
  EXPECT_EQ(linkDirection(0, 0, -10, 2), 3);
  EXPECT_EQ(linkDirection(0, 0, 2, 10), 2);
  EXPECT_EQ(linkDirection(0, 0, 2, -10), 0);
  EXPECT_EQ(linkDirection(0, 0, 5, 5), 2);
  EXPECT_EQ(linkDirection(0, 0, 5, -5), 0);
  EXPECT_EQ(linkDirection(3, 3, 3, 3), 0);
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
  ASSERT_EQ(lines.size(), 2u);
  ASSERT_EQ(circles.size(), 2u);
  EXPECT_EQ(lines[0]->foreColor, 255) << "the selected link is red";
  EXPECT_EQ(lines[1]->foreColor, 0);
  EXPECT_EQ(lines[0]->drawStyle, 1);
  EXPECT_EQ(lines[0]->drawWidth, 1) << "a link is one pixel wide at every zoom";
  EXPECT_FLOAT_EQ(circles[0]->x1, 99);
  EXPECT_FLOAT_EQ(circles[0]->x2, 1);
  EXPECT_EQ(circles[0]->fillColor, 255);
  EXPECT_EQ(circles[0]->fillStyle, 4);
  EXPECT_EQ(world.canvas.DrawStyle, 0);
  EXPECT_EQ(world.canvas.DrawWidth(), 2);
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
  ASSERT_EQ(store.linkList.ListCount(), 2);
  ASSERT_EQ(store.linkSizeList.ListCount(), 2);
  EXPECT_EQ(getField(store.linkList.List(0), "linkSource"), "A");
  EXPECT_EQ(getField(store.linkList.List(1), "linkSource"), "C");
  EXPECT_NE(store.linkSizeList.List(1).find("<X1>"), std::string::npos);
  EXPECT_TRUE(store.isSaved) << "sweeping links is no change of the project";
}

TEST_F(LinkDrawing, AddLinkRefusesSelfLinksDuplicatesAndAFullPlan) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  addLink(world.app, 0, 0);
  EXPECT_EQ(store.linkList.ListCount(), 0);
  EXPECT_TRUE(store.isSaved) << "a refused self link is no change";
  addLink(world.app, 0, 1);
  EXPECT_EQ(store.linkList.List(0), "<linkSource>A</linkSource><linkTarget>B</linkTarget>");
  EXPECT_EQ(store.linkSizeList.List(0), "<X1>0</X1><Y1>0</Y1><X2>0</X2><Y2>0</Y2>");
  store.isSaved = true;
  addLink(world.app, 0, 1);
  EXPECT_EQ(store.linkList.ListCount(), 1);
  EXPECT_FALSE(store.isSaved) << "a refused duplicate still counts as a change";
  // A record read from a file carries white space, so it is no duplicate of a fresh one.
  store.linkList.setList(0, "\r\n\t<linkSource>A</linkSource><linkTarget>B</linkTarget>\r\n");
  addLink(world.app, 0, 1);
  EXPECT_EQ(store.linkList.ListCount(), 2);
  while (store.linkList.AddItem("x")) store.linkSizeList.AddItem("x");
  addLink(world.app, 1, 0);
  EXPECT_EQ(store.linkList.ListCount(), ProjectStore::kMaxLinks);
  EXPECT_EQ(store.linkSizeList.ListCount(), ProjectStore::kMaxLinks);
  EXPECT_EQ(world.ui.beeps, 1);
  EXPECT_EQ(world.ui.messages.size(), 1u);
}

TEST(RemoveBlankLinks, KeepsListsParallelAndInOrder) {
  testing::FakeWorld world;
  auto& store = world.app.store;
  for (const char* entry : {"", "a", "", "", "b", ""}) {
    store.linkList.AddItem(entry);
    store.linkSizeList.AddItem(std::string(entry) + "g");
  }
  removeBlankLinks(world.app);
  ASSERT_EQ(store.linkList.ListCount(), 2);
  EXPECT_EQ(store.linkList.List(1), "b");
  EXPECT_EQ(store.linkSizeList.List(0), "ag");
}

}  // namespace
}  // namespace tavlero
