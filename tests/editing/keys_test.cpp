#include "editing/keys.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "board_fixture.h"
#include "core/record.h"

namespace tavlero::testing {
namespace {

constexpr int16_t kDelete = 46;
constexpr int16_t kF5 = 116;

class KeysTest : public BoardTest {
 protected:
  int16_t a = world.addCell("les", 10, 10, "", 255, 0, "lang 0");
  int16_t b = world.addCell("B", 100, 10, "", 16777215, 0, "lang 1");
  int16_t c = world.addCell("C", 10, 100, "", 16777215, 0, "lang 2");

  void SetUp() override {
    world.addLinkRecord("les", "B");
    world.addLinkRecord("B", "C");
    world.addLinkRecord("C", "les");
    drawBoard();
  }
};

TEST_F(KeysTest, DeletingACellAnsweredYesTakesItsLinksAndDescription) {
  store.selectedCell = a;
  canvas_KeyDown(app, kDelete, 0);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(world.ui.messages[0].prompt, "Er du sikker p\xE5 at du vil slette 'les'?");
  EXPECT_EQ(world.ui.messages[0].title, "Bekreft sletting");
  EXPECT_EQ(world.ui.messages[0].buttons, MsgButtons::YesNo);

  ASSERT_EQ(store.itemList.ListCount(), 2);
  EXPECT_EQ(store.sizeList.ListCount(), 2);
  EXPECT_EQ(field(0, "methodName"), "B");
  EXPECT_EQ(store.getLongDescription(0), "lang 1");
  EXPECT_EQ(store.getLongDescription(1), "lang 2");
  ASSERT_EQ(store.linkList.ListCount(), 1);
  EXPECT_EQ(store.linkSizeList.ListCount(), 1);
  EXPECT_EQ(getField(store.linkList.List(0), "linkSource"), "B");
  EXPECT_EQ(store.selectedCell, -1);
  EXPECT_FALSE(store.isSaved);
}

TEST_F(KeysTest, DeletingALinkAnsweredYesLeavesNothingSelected) {
  store.selectedLink = 1;
  canvas_KeyDown(app, kDelete, 0);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(world.ui.messages[0].prompt, "Er du sikker p\xE5 at du vil slette koblingen mellom 'B' og 'C'?");
  EXPECT_EQ(world.ui.messages[0].title, "Bekreft sletting");
  ASSERT_EQ(store.linkList.ListCount(), 2);
  EXPECT_EQ(store.linkSizeList.ListCount(), 2);
  EXPECT_EQ(getField(store.linkList.List(1), "linkSource"), "C");
  EXPECT_EQ(store.selectedLink, -1);
  EXPECT_FALSE(store.isSaved);

  store.isSaved = true;
  canvas_KeyDown(app, kDelete, 0);
  EXPECT_EQ(world.ui.messages.size(), 1u) << "a second Delete asks nothing";
  EXPECT_TRUE(store.isSaved);
}

TEST_F(KeysTest, DeletingAnsweredNoChangesNothing) {
  for (bool cell : {true, false}) {
    store.selectedCell = cell ? a : int16_t{-1};
    store.selectedLink = cell ? int16_t{-1} : int16_t{0};
    world.ui.answers.push_back(MsgResult::No);
    size_t image = imageSize();
    canvas_KeyDown(app, kDelete, 0);
    EXPECT_EQ(store.itemList.ListCount(), 3);
    EXPECT_EQ(store.linkList.ListCount(), 3);
    EXPECT_EQ(store.selectedCell, cell ? a : -1);
    EXPECT_EQ(store.selectedLink, cell ? -1 : 0);
    EXPECT_EQ(imageSize(), image);
    EXPECT_TRUE(store.isSaved);
  }
  EXPECT_EQ(world.ui.messages.size(), 2u);
}

TEST_F(KeysTest, DeleteWithNothingSelectedAsksNothing) {
  canvas_KeyDown(app, kDelete, 0);
  EXPECT_TRUE(world.ui.messages.empty());
  EXPECT_EQ(store.itemList.ListCount(), 3);
}

TEST_F(KeysTest, F5RedrawsWithAnyModifierAndChangesNothing) {
  for (int16_t shift : {0, 1, 2, 7}) {
    size_t cellsBefore = drawnSince(0, DrawKind::Box);
    world.canvas.Cls();
    canvas_KeyDown(app, kF5, shift);
    EXPECT_EQ(drawnSince(0, DrawKind::Box), cellsBefore) << "shift " << shift;
  }
  EXPECT_TRUE(store.isSaved);
}

struct ColourCase {
  const char* name;
  int16_t keyCode, shift;
  bool selected;
  int32_t color, fill;    // currentColor, currentFillStyle afterwards
  const char* cellColor;  // of cell "les" afterwards
  const char* cellFill;
  bool saved;
  size_t drawn;  // boxes drawn
};

void PrintTo(const ColourCase& c, std::ostream* out) {
  *out << c.name;
}

class ColourKeyTest : public KeysTest, public ::testing::WithParamInterface<ColourCase> {};

TEST_P(ColourKeyTest, SetsTheCurrentChoiceAndPaintsTheSelectedCell) {
  const ColourCase& k = GetParam();
  store.selectedCell = k.selected ? a : int16_t{-1};
  size_t mark = imageSize();
  canvas_KeyDown(app, k.keyCode, k.shift);
  EXPECT_EQ(store.currentColor, k.color);
  EXPECT_EQ(store.currentFillStyle, k.fill);
  EXPECT_EQ(field(a, "cellColor"), k.cellColor);
  EXPECT_EQ(field(a, "cellFillStyle"), k.cellFill);
  EXPECT_EQ(store.isSaved, k.saved);
  EXPECT_EQ(drawnSince(mark, DrawKind::Box), k.drawn);
  EXPECT_EQ(drawnSince(mark, DrawKind::Circle), 0u) << "links are not redrawn";
  EXPECT_EQ(store.selectedCell, k.selected ? a : -1);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, ColourKeyTest,
    ::testing::Values(ColourCase{"1 light grey", 49, 0, true, 12632256, 0, " 12632256", " 0", false, 1},
                      ColourCase{"3 blue", 51, 0, true, 16711680, 0, " 16711680", " 0", false, 1},
                      ColourCase{"3 without a cell", 51, 0, false, 16711680, 0, " 255", " 0", true, 0},
                      ColourCase{"6 red again", 54, 0, true, 255, 0, " 255", " 0", false, 1},
                      ColourCase{"9 white", 57, 0, true, 16777215, 0, " 16777215", " 0", false, 1},
                      ColourCase{"0 is no colour", 48, 0, true, 16777215, 0, " 255", " 0", true, 0},
                      ColourCase{"shift 1 is no colour", 49, 1, true, 16777215, 0, " 255", " 0", true, 0},
                      ColourCase{"ctrl 1 solid", 49, 2, true, 16777215, 0, " 255", " 0", false, 2},
                      ColourCase{"ctrl 2 horizontal", 50, 2, true, 16777215, 2, " 255", " 2", false, 2},
                      ColourCase{"ctrl 5 diagonal", 53, 2, true, 16777215, 5, " 255", " 5", false, 2},
                      ColourCase{"ctrl 7 cross", 55, 2, true, 16777215, 7, " 255", " 7", false, 2},
                      ColourCase{"ctrl 7 without a cell", 55, 2, false, 16777215, 7, " 255", " 0", true, 0},
                      ColourCase{"ctrl 8 is no fill", 56, 2, true, 16777215, 0, " 255", " 0", true, 0},
                      ColourCase{"ctrl 9 is no fill", 57, 2, true, 16777215, 0, " 255", " 0", true, 0},
                      ColourCase{"ctrl shift 1 is no fill", 49, 3, true, 16777215, 0, " 255", " 0", true, 0},
                      ColourCase{"keypad 1 does nothing", 97, 0, true, 16777215, 0, " 255", " 0", true, 0}));

TEST_F(KeysTest, AFillPaintsWhiteFirstAndThenThePatternInTheOldColour) {
  // A colour written without its blank, as a hand-edited file may hold it.
  store.itemList.setList(a, setField(store.itemList.List(a), "cellColor", "65280"));
  store.selectedCell = a;
  size_t mark = imageSize();
  canvas_KeyDown(app, 53, 2);

  std::vector<DrawOp> boxes;
  const auto& ops = world.canvas.Image().ops();
  for (size_t i = mark; i < ops.size(); ++i)
    if (ops[i].kind == DrawKind::Box) boxes.push_back(ops[i]);
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[0].fillColor, 16777215);
  EXPECT_EQ(boxes[0].fillStyle, 0);
  EXPECT_EQ(boxes[1].fillColor, 65280);
  EXPECT_EQ(boxes[1].fillStyle, 5);
  EXPECT_EQ(field(a, "cellColor"), " 65280");
  EXPECT_EQ(field(a, "cellFillStyle"), " 5");
}

TEST_F(KeysTest, TheMenuEntriesAreTheKeys) {
  store.selectedCell = a;
  setColorMenu_Click(app, 3);
  EXPECT_EQ(field(a, "cellColor"), " 16711680");
  setFillMenu_Click(app, 7);
  EXPECT_EQ(field(a, "cellFillStyle"), " 7");
  EXPECT_EQ(store.currentFillStyle, 7);

  store.isSaved = true;
  setColorMenu_Click(app, 10);
  setFillMenu_Click(app, 0);
  EXPECT_TRUE(store.isSaved);
  EXPECT_EQ(store.currentColor, 16711680);
}

struct ActionCase {
  const char* name;
  std::string actionKey;
  int16_t keyAscii;
  int16_t selectedCell, selectedLink;
  bool dialog, info;
};

void PrintTo(const ActionCase& c, std::ostream* out) {
  *out << c.name;
}

class ActionKeyTest : public KeysTest, public ::testing::WithParamInterface<ActionCase> {
 protected:
  // The info view writes its page into the current folder.
  TempDir folder;
  std::filesystem::path kept = std::filesystem::current_path();
  void SetUp() override {
    KeysTest::SetUp();
    std::filesystem::current_path(folder.path());
  }
  void TearDown() override { std::filesystem::current_path(kept); }
};

TEST_P(ActionKeyTest, OpensTheDialogOrTheInfoView) {
  const ActionCase& k = GetParam();
  store.actionKey = k.actionKey;
  store.selectedCell = k.selectedCell;
  store.selectedLink = k.selectedLink;
  canvas_KeyPress(app, k.keyAscii);
  EXPECT_EQ(app.addMethodForm != nullptr, k.dialog);
  EXPECT_EQ(app.methodInfoForm != nullptr, k.info);
  EXPECT_EQ(world.ui.enabled, !(k.dialog || k.info));
  if (k.dialog) {
    EXPECT_EQ(world.forms.lastMethodForm->captionText, "Legg til ny metode");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Keys, ActionKeyTest,
    ::testing::Values(ActionCase{"k adds", "k", 'k', -1, -1, true, false},
                      ActionCase{"K adds", "k", 'K', -1, -1, true, false},
                      ActionCase{"k with a link selected adds", "k", 'k', -1, 0, true, false},
                      ActionCase{"k with a cell selected shows", "k", 'k', 0, -1, false, true},
                      ActionCase{"only the first character", "ab", 'b', -1, -1, false, false},
                      ActionCase{"another key", "k", 'j', -1, -1, false, false},
                      ActionCase{"an empty action key", "", 0, -1, -1, false, false},
                      ActionCase{"a Norwegian letter in upper case", "\xE5", 0xC5, -1, -1, true, false}));

TEST_F(KeysTest, PlusAndMinusZoom) {
  canvas_KeyPress(app, '+');
  EXPECT_EQ(store.zoomFactor, 2.5f);
  canvas_KeyPress(app, '-');
  canvas_KeyPress(app, '-');
  EXPECT_EQ(store.zoomFactor, 1.5f);
  EXPECT_TRUE(store.isSaved);
  EXPECT_EQ(app.addMethodForm, nullptr);
}

}  // namespace
}  // namespace tavlero::testing
