#include <gtest/gtest.h>

#include "board/board.h"
#include "core/record.h"
#include "editing/links.h"
#include "test_support.h"

namespace tavlero {
namespace {

using testing::FakeWorld;

TEST(LinkDirection, LongerDistanceChoosesTheSideAndTiesGoVertical) {
  EXPECT_EQ(linkDirection(0, 0, 10, 2), 1);
  EXPECT_EQ(linkDirection(0, 0, -10, 2), 3);
  EXPECT_EQ(linkDirection(0, 0, 2, 10), 2);
  EXPECT_EQ(linkDirection(0, 0, 2, -10), 0);
  EXPECT_EQ(linkDirection(0, 0, 5, 5), 2);
  EXPECT_EQ(linkDirection(0, 0, 5, -5), 0);
  EXPECT_EQ(linkDirection(3, 3, 3, 3), 0);
}

// Cells of known boxes: one unit per character, lines 4 high, minimum width 25.
class LinkDrawing : public ::testing::Test {
 protected:
  FakeWorld world;
  ProjectStore& store = world.app.store;

  std::string geometry(int16_t link) { return store.linkSizeList.List(link); }
};

TEST_F(LinkDrawing, JoinsFacingSidesWithCircleAtTheTarget) {
  world.addCell("A", 10, 10, "", 255, 4);  // box (9,9)-(36,19)
  world.addCell("B", 100, 12);             // box (99,11)-(126,21), to the right
  world.addLinkRecord("A", "B");
  redrawBoard(world.app);
  EXPECT_EQ(geometry(0), "<X1> 36</X1><Y1> 14</Y1><X2> 99</X2><Y2> 16</Y2>");
  const DrawOp* line = nullptr;
  const DrawOp* circle = nullptr;
  for (const auto& op : world.canvas.Image().ops()) {
    if (op.kind == DrawKind::Line && !line) line = &op;
    if (op.kind == DrawKind::Circle && !circle) circle = &op;
  }
  ASSERT_TRUE(line && circle);
  EXPECT_EQ(line->drawStyle, 1);
  EXPECT_EQ(line->drawWidth, 1);
  EXPECT_FLOAT_EQ(circle->x1, 99);
  EXPECT_FLOAT_EQ(circle->x2, 1);
  // The circle wears the source cell's colour and fill.
  EXPECT_EQ(circle->fillColor, 255);
  EXPECT_EQ(circle->fillStyle, 4);
  EXPECT_EQ(world.canvas.DrawStyle, 0);
  EXPECT_EQ(world.canvas.DrawWidth(), 2);
}

TEST_F(LinkDrawing, SelfLinkRunsFromTopToBottom) {
  world.addCell("A", 10, 10);
  world.addLinkRecord("A", "A");
  redrawBoard(world.app);
  EXPECT_EQ(geometry(0), "<X1> 22.5</X1><Y1> 9</Y1><X2> 22.5</X2><Y2> 19</Y2>");
}

TEST_F(LinkDrawing, OppositeLinksShareEndsAndTheLastOfANameWins) {
  world.addCell("A", 10, 10);
  world.addCell("B", 10, 100);
  world.addCell("B", 200, 10);  // same name, higher index: wins for both ends
  world.addLinkRecord("A", "B");
  world.addLinkRecord("B", "A");
  redrawBoard(world.app);
  EXPECT_EQ(geometry(0), "<X1> 36</X1><Y1> 14</Y1><X2> 199</X2><Y2> 14</Y2>");
  EXPECT_EQ(geometry(1), "<X1> 199</X1><Y1> 14</Y1><X2> 36</X2><Y2> 14</Y2>");
}

TEST_F(LinkDrawing, SelectedLinkIsRedAndOthersBlack) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  world.addLinkRecord("A", "B");
  world.addLinkRecord("B", "A");
  store.selectedLink = 0;
  redrawBoard(world.app);
  std::vector<int32_t> lineColours;
  for (const auto& op : world.canvas.Image().ops())
    if (op.kind == DrawKind::Line) lineColours.push_back(op.foreColor);
  EXPECT_EQ(lineColours, (std::vector<int32_t>{255, 0}));
}

TEST_F(LinkDrawing, LinksThatLostACellAreSweptOutInOneRedraw) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  world.addCell("C", 10, 100);
  world.addLinkRecord("A", "gone");
  world.addLinkRecord("gone", "B");
  world.addLinkRecord("A", "B");
  world.addLinkRecord("a", "B");  // names are compared with case
  world.addLinkRecord("C", "A");
  redrawBoard(world.app);
  ASSERT_EQ(store.linkList.ListCount(), 2);
  ASSERT_EQ(store.linkSizeList.ListCount(), 2);
  EXPECT_EQ(getField(store.linkList.List(0), "linkSource"), "A");
  EXPECT_EQ(getField(store.linkList.List(1), "linkSource"), "C");
  EXPECT_NE(store.linkSizeList.List(1).find("<X1>"), std::string::npos);
  EXPECT_TRUE(store.isSaved) << "sweeping links is no change of the project";
}

TEST_F(LinkDrawing, DrawLinkAloneFindsCellsWithoutAnIndex) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  redrawBoard(world.app);
  world.addLinkRecord("A", "B");
  drawLink(world.app, 0);
  EXPECT_EQ(geometry(0), "<X1> 36</X1><Y1> 14</Y1><X2> 99</X2><Y2> 14</Y2>");
  // A link record with an empty name is skipped: nothing drawn, nothing written.
  store.linkList.AddItem("<linkSource></linkSource><linkTarget>B</linkTarget>");
  store.linkSizeList.AddItem("placeholder");
  size_t before = world.canvas.Image().size();
  drawLink(world.app, 1);
  EXPECT_EQ(store.linkSizeList.List(1), "placeholder");
  EXPECT_EQ(world.canvas.Image().size(), before);
}

TEST_F(LinkDrawing, AddLinkRefusesSelfLinksAndDuplicates) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  addLink(world.app, 0, 0);
  EXPECT_EQ(store.linkList.ListCount(), 0);
  EXPECT_TRUE(store.isSaved) << "a refused self link is no change";
  addLink(world.app, 0, 1);
  ASSERT_EQ(store.linkList.ListCount(), 1);
  EXPECT_EQ(store.linkList.List(0), "<linkSource>A</linkSource><linkTarget>B</linkTarget>");
  EXPECT_EQ(store.linkSizeList.List(0), "<X1>0</X1><Y1>0</Y1><X2>0</X2><Y2>0</Y2>");
  store.isSaved = true;
  addLink(world.app, 0, 1);
  EXPECT_EQ(store.linkList.ListCount(), 1);
  EXPECT_FALSE(store.isSaved) << "a refused duplicate still counts as a change";
  addLink(world.app, 1, 0);
  EXPECT_EQ(store.linkList.ListCount(), 2);
  // A record read from a file carries white space, so it is no duplicate of a fresh one.
  store.linkList.setList(0, "\r\n\t<linkSource>A</linkSource><linkTarget>B</linkTarget>\r\n");
  addLink(world.app, 0, 1);
  EXPECT_EQ(store.linkList.ListCount(), 3);
}

TEST_F(LinkDrawing, AddLinkRefusesBeyondTheLimitWithAMessage) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  for (int i = 0; i < ProjectStore::kMaxLinks; ++i) {
    store.linkList.AddItem("x");
    store.linkSizeList.AddItem("x");
  }
  addLink(world.app, 0, 1);
  EXPECT_EQ(store.linkList.ListCount(), ProjectStore::kMaxLinks);
  EXPECT_EQ(store.linkSizeList.ListCount(), ProjectStore::kMaxLinks);
  EXPECT_EQ(world.ui.beeps, 1);
  ASSERT_EQ(world.ui.messages.size(), 1u);
}

TEST(RemoveBlankLinks, KeepsListsParallelAndInOrder) {
  FakeWorld world;
  auto& store = world.app.store;
  for (const char* entry : {"", "a", "", "", "b", ""}) {
    store.linkList.AddItem(entry);
    store.linkSizeList.AddItem(std::string(entry) + "g");
  }
  removeBlankLinks(world.app);
  ASSERT_EQ(store.linkList.ListCount(), 2);
  EXPECT_EQ(store.linkList.List(1), "b");
  EXPECT_EQ(store.linkSizeList.List(0), "ag");
  removeBlankLinks(world.app);
  EXPECT_EQ(store.linkList.ListCount(), 2);
}

}  // namespace
}  // namespace tavlero
