#include "editing/keys.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "board_fixture.h"
#include "core/record.h"

namespace tavlero::testing {
namespace {

using testing::PrintTo;

constexpr int16_t kDelete = 46;
const std::string kAskLes = "Er du sikker p\xE5 at du vil slette 'les'?";
const std::string kPlan = "les(lang 0) B(lang 1) C(lang 2) les>B>C>";
const std::string kAskBC = "Er du sikker p\xE5 at du vil slette koblingen mellom 'B' og 'C'?";

struct DeleteCase {
  const char* name;
  int16_t cell, link;  // selected before
  MsgResult answer;
  std::string prompt;  // Windows-1252; empty: nothing is asked
  std::string plan;    // the cells with their long descriptions, then the link sources
};

class DeleteTest : public BoardTest, public ::testing::WithParamInterface<DeleteCase> {};

TEST_P(DeleteTest, AsksAndDeletesWithItsLinksOrChangesNothing) {
  const DeleteCase& d = GetParam();
  store.selectedCell = d.cell;
  store.selectedLink = d.link;
  world.ui.answers.push_back(d.answer);
  size_t image = imageSize();
  canvas_KeyDown(app, kDelete, 0);
  std::string plan;
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i)
    plan += field(i, "methodName") + "(" + store.getLongDescription(i) + ") ";
  for (const std::string& link : store.linkList.items()) plan += getField(link, "linkSource") + ">";
  EXPECT_EQ(std::tuple(world.ui.messages.empty() ? "" : world.ui.messages[0].prompt, plan,
                       store.sizeList.ListCount(), store.linkSizeList.ListCount()),
            std::tuple(d.prompt, d.plan, store.itemList.ListCount(), store.linkList.ListCount()));
  bool deleted = d.answer == MsgResult::Yes && !d.prompt.empty();
  EXPECT_EQ(
      std::tuple(store.selectedCell, store.selectedLink, store.isSaved, imageSize() == image),
      deleted ? std::tuple(int16_t{-1}, int16_t{-1}, false, false) : std::tuple(d.cell, d.link, true, true));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, DeleteTest,
    ::testing::Values(DeleteCase{"cell, yes", 0, -1, MsgResult::Yes, kAskLes, "B(lang 1) C(lang 2) B>"},
                      DeleteCase{"cell, no", 0, -1, MsgResult::No, kAskLes, kPlan},
                      DeleteCase{"link, yes", -1, 1, MsgResult::Yes, kAskBC,
                                 "les(lang 0) B(lang 1) C(lang 2) les>C>"},
                      DeleteCase{"link, no", -1, 1, MsgResult::No, kAskBC, kPlan},
                      DeleteCase{"nothing selected", -1, -1, MsgResult::Yes, "", kPlan}));

struct ColourCase {
  const char* name;
  int16_t keyCode, shift;
  bool selected;
  int32_t color, fill;  // the current choice afterwards
  std::string cell;     // colour/fill of "les" afterwards
  std::string painted;  // colour/fill of each box painted; any paint is a change
};

class ColourKeyTest : public BoardTest, public ::testing::WithParamInterface<ColourCase> {};

// A fill paints the cell white first and then the pattern in the cell's colour.
TEST_P(ColourKeyTest, SetsTheCurrentChoiceAndPaintsTheSelectedCell) {
  const ColourCase& k = GetParam();
  store.selectedCell = k.selected ? a : int16_t{-1};
  size_t mark = imageSize();
  canvas_KeyDown(app, k.keyCode, k.shift);
  std::string painted;
  const auto& ops = world.canvas.Image().ops();
  for (size_t i = mark; i < ops.size(); ++i)
    if (ops[i].kind == DrawKind::Box)
      painted += std::to_string(ops[i].fillColor) + "/" + std::to_string(ops[i].fillStyle) + " ";
  EXPECT_EQ(std::tuple(store.currentColor, store.currentFillStyle,
                       field(a, "cellColor") + "/" + field(a, "cellFillStyle"), painted, store.isSaved,
                       drawnSince(mark, DrawKind::Circle)),
            std::tuple(k.color, k.fill, k.cell, k.painted, k.painted.empty(), size_t{0}));
}

// Key codes: 48 is 0, 49 to 57 are 1 to 9; modifiers: 1 Shift, 2 Ctrl.
INSTANTIATE_TEST_SUITE_P(
    Keys, ColourKeyTest,
    ::testing::Values(ColourCase{"1", 49, 0, true, 12632256, 0, " 12632256/ 0", "12632256/0 "},
                      ColourCase{"3, no cell", 51, 0, false, 16711680, 0, " 255/ 0", ""},
                      ColourCase{"0", 48, 0, true, 16777215, 0, " 255/ 0", ""},
                      ColourCase{"shift 1", 49, 1, true, 16777215, 0, " 255/ 0", ""},
                      ColourCase{"ctrl 1", 49, 2, true, 16777215, 0, " 255/ 0", "16777215/0 255/0 "},
                      ColourCase{"ctrl 7", 55, 2, true, 16777215, 7, " 255/ 7", "16777215/0 255/7 "},
                      ColourCase{"ctrl 8", 56, 2, true, 16777215, 0, " 255/ 0", ""}));

struct PressedKey {
  const char* name;
  std::string actionKey;
  int16_t keyAscii, selectedCell;
  bool dialog, info;
  float zoom;
};

class KeyPressTest : public BoardTest, public ::testing::WithParamInterface<PressedKey> {};

TEST_P(KeyPressTest, OpensTheDialogOrTheInfoViewOrZooms) {
  const PressedKey& k = GetParam();
  store.actionKey = k.actionKey;
  store.selectedCell = k.selectedCell;
  canvas_KeyPress(app, k.keyAscii);
  EXPECT_EQ(std::tuple(app.addMethodForm != nullptr, app.methodInfoForm != nullptr, world.ui.enabled),
            std::tuple(k.dialog, k.info, !(k.dialog || k.info)));
  EXPECT_EQ(std::tuple(store.zoomFactor, store.isSaved), std::tuple(k.zoom, true));
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyPressTest,
                         ::testing::Values(PressedKey{"k adds", "k", 'k', -1, true, false, 2},
                                           PressedKey{"K adds", "k", 'K', -1, true, false, 2},
                                           PressedKey{"k on a cell shows it", "k", 'k', 0, false, true, 2},
                                           PressedKey{"another key", "k", 'j', -1, false, false, 2},
                                           PressedKey{"no action key", "", 0, -1, false, false, 2},
                                           PressedKey{"upper case \xE5", "\xE5", 0xC5, -1, true, false, 2},
                                           PressedKey{"+ zooms in", "k", '+', -1, false, false, 2.5f},
                                           PressedKey{"- zooms out", "k", '-', -1, false, false, 1.5f}));

}  // namespace
}  // namespace tavlero::testing
