#include "editing/method_dialog.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "board_fixture.h"
#include "core/record.h"
#include "editing/gestures.h"
#include "editing/hit_test.h"

namespace tavlero::testing {
namespace {

const std::string kSep = "\r\n\t";

class MethodDialogTest : public BoardTest {
 protected:
  // Null once the logic has discarded the form.
  FakeMethodForm* form() const { return static_cast<FakeMethodForm*>(app.addMethodForm.get()); }
  void submit(const std::string& name, const std::string& summary = "", const std::string& description = "") {
    ASSERT_NE(form(), nullptr);
    form()->setTexts(name, summary, description);
    addMethodForm_Command2_Click(app);
  }
  void expectClosed() { EXPECT_EQ(std::tuple(form(), world.ui.enabled), std::tuple(nullptr, true)); }
};

TEST_F(MethodDialogTest, ADoubleClickOnEmptyBoardAddsACellWhereThePointerWas) {
  store.selectedCell = a;
  store.currentColor = 16711680;
  store.currentFillStyle = 5;
  canvas_MouseMove(app, 0, 0, 150.6f, 70.5f);
  canvas_MouseDown(app, 1, 0, 150.6f, 70.5f);
  canvas_DblClick(app);
  ASSERT_NE(form(), nullptr);
  EXPECT_EQ(std::tuple(form()->captionText, world.ui.enabled), std::tuple("Legg til ny metode", false));

  submit("ny", "Leser fila.", "Linje 1\r\nLinje 2");
  expectClosed();
  EXPECT_EQ(store.itemList.List(3),
            "<positionX> 151</positionX>" + kSep + "<positionY> 70</positionY>" + kSep +
                "<methodName>ny</methodName>" + kSep + "<shortDescription>Leser fila.</shortDescription>" +
                kSep + "<cellColor> 16711680</cellColor>" + kSep + "<cellFillStyle> 5</cellFillStyle>");
  // The board was redrawn: the new cell is found where it was added.
  EXPECT_EQ(std::tuple(store.getLongDescription(3), findCellAt(world.app, 155, 75), store.selectedCell,
                       store.isSaved),
            std::tuple("Linje 1\r\nLinje 2", 3, -1, false));
}

TEST_F(MethodDialogTest, EditingRenamesTheLinksAndKeepsTheStoredTexts) {
  // As read from a file: white space round the record, positions without the blank.
  store.itemList.setList(a,
                         "\r\n\t<positionX>10.25</positionX>\r\n\t<positionY>10</positionY>\r\n\t"
                         "<methodName>les</methodName>\r\n\t<shortDescription>gammel</shortDescription>\r\n\t"
                         "<cellColor>255</cellColor>\r\n\t<cellFillStyle>3</cellFillStyle>\r\n\t\r\n");
  drawBoard();
  canvas_MouseDown(app, 1, 0, centreOf(a).x, centreOf(a).y);
  canvas_DblClick(app);
  ASSERT_NE(form(), nullptr);
  EXPECT_EQ(form()->captionText + "|" + form()->name + "|" + form()->summary + "|" + form()->description,
            "Redigere metode|les|gammel|lang 0");

  submit("lesFil", "ny", "ny lang");
  expectClosed();
  EXPECT_EQ(store.itemList.List(a), "<positionX>10.25</positionX>" + kSep + "<positionY>10</positionY>" +
                                        kSep + "<methodName>lesFil</methodName>" + kSep +
                                        "<shortDescription>ny</shortDescription><cellColor>255</cellColor>" +
                                        kSep + "<cellFillStyle>3</cellFillStyle>");
  EXPECT_EQ(store.linkList.items(),
            (std::vector<std::string>{"<linkSource>lesFil</linkSource><linkTarget>B</linkTarget>",
                                      "<linkSource>B</linkSource><linkTarget>C</linkTarget>",
                                      "<linkSource>C</linkSource><linkTarget>lesFil</linkTarget>"}));
  EXPECT_EQ(std::tuple(store.getLongDescription(a), store.selectedCell, store.isSaved),
            std::tuple("ny lang", a, false));
}

class NameTest : public MethodDialogTest, public ::testing::WithParamInterface<Case> {};

TEST_P(NameTest, StoresTheNameOrRefusesWithAnErrorOrCancels) {
  const Case& n = GetParam();
  const bool edit = n.at(1) == "1", cancel = n.at(4) == "1";
  const std::string &typed = n.at(2), &error = n.at(3);
  std::string before = store.itemList.List(a);
  size_t image = imageSize();
  store.selectedCell = edit ? a : int16_t{-1};
  canvas_DblClick(app);
  ASSERT_NE(form(), nullptr);
  form()->setTexts(typed, "x", "y");
  cancel ? addMethodForm_Command1_Click(app) : addMethodForm_Command2_Click(app);
  if (error.empty() && !cancel) {
    expectClosed();
    EXPECT_EQ(std::tuple(field(edit ? a : 3, "methodName"), store.isSaved), std::tuple(typed, false));
    return;
  }
  EXPECT_EQ(std::tuple(store.itemList.ListCount(), store.itemList.List(a), store.isSaved, imageSize()),
            std::tuple(3, before, true, image));
  if (cancel) {
    expectClosed();
    addMethodForm_Command2_Click(app);  // an event that reaches the logic after the form has gone
    EXPECT_EQ(std::tuple(store.itemList.ListCount(), store.isSaved), std::tuple(3, true));
    return;
  }
  ASSERT_NE(form(), nullptr) << "the dialog stays open";
  EXPECT_EQ(std::tuple(form()->errorCaption, form()->errorVisible, world.ui.beeps, world.ui.enabled),
            std::tuple(error, true, 1, false));
  submit("ny");
  expectClosed();
}

INSTANTIATE_TEST_SUITE_P(Names, NameTest, ::testing::ValuesIn(readCases("editing/method_names.txt")));

TEST_F(MethodDialogTest, AFullPlanRefusesAnotherMethod) {
  while (store.itemList.ListCount() < ProjectStore::kMaxMethods) {
    store.itemList.AddItem("<methodName>m" + std::to_string(store.itemList.ListCount()) + "</methodName>");
    store.sizeList.AddItem("X1: 0 Y1: 0 X2: 0 Y2: 0");
  }
  openAddMethodForm(app);
  submit("ny", "", "lang");
  ASSERT_NE(form(), nullptr);
  EXPECT_EQ(form()->errorCaption, "Feil: Planen har allerede 32001 metoder og kan ikke ta flere!");
  EXPECT_EQ(std::tuple(store.itemList.ListCount(), store.sizeList.ListCount(), store.isSaved),
            std::tuple(ProjectStore::kMaxMethods, ProjectStore::kMaxMethods, true));
  addMethodForm_Command1_Click(app);
  expectClosed();
}

}  // namespace
}  // namespace tavlero::testing
