#include "editing/method_dialog.h"

#include <gtest/gtest.h>

#include <string>

#include "board_fixture.h"
#include "core/cp1252.h"
#include "core/record.h"
#include "editing/gestures.h"

namespace tavlero::testing {
namespace {

const std::string kSep = "\r\n\t";

class MethodDialogTest : public BoardTest {
 protected:
  // The form the logic holds while it is open; null once it has been discarded.
  FakeMethodForm* form() const { return static_cast<FakeMethodForm*>(app.addMethodForm.get()); }

  void type(const std::string& name, const std::string& summary = "", const std::string& description = "") {
    ASSERT_NE(form(), nullptr);
    form()->setTexts(name, summary, description);
  }

  void expectClosed() {
    EXPECT_EQ(form(), nullptr);
    EXPECT_TRUE(world.ui.enabled);
    EXPECT_GE(world.ui.focusCalls, 1);
  }

  void expectRefused(const std::string& error, int16_t cells, int beeps = 1) {
    ASSERT_NE(form(), nullptr) << "the dialog stays open";
    EXPECT_EQ(form()->errorCaption, error);
    EXPECT_TRUE(form()->errorVisible);
    EXPECT_EQ(world.ui.beeps, beeps);
    EXPECT_FALSE(world.ui.enabled);
    EXPECT_EQ(store.itemList.ListCount(), cells);
    EXPECT_TRUE(store.isSaved);
  }
};

TEST_F(MethodDialogTest, ADoubleClickOnEmptyBoardAddsACellWhereThePointerWas) {
  world.addCell("A", 10, 10);
  drawBoard();
  store.selectedCell = 0;
  store.currentColor = 16711680;
  store.currentFillStyle = 5;
  canvas_MouseMove(app, 0, 0, 150.6f, 70.5f);
  canvas_MouseDown(app, 1, 0, 150.6f, 70.5f);
  canvas_DblClick(app);

  ASSERT_NE(form(), nullptr);
  EXPECT_TRUE(form()->shown);
  EXPECT_EQ(form()->captionText, "Legg til ny metode");
  EXPECT_EQ(form()->name, "");
  EXPECT_EQ(form()->nameFocus, 1);
  EXPECT_FALSE(world.ui.enabled);

  type("les", "Leser fila.", "Linje 1\r\nLinje 2");
  addMethodForm_Command2_Click(app);

  expectClosed();
  ASSERT_EQ(store.itemList.ListCount(), 2);
  EXPECT_EQ(store.itemList.List(1),
            "<positionX> 151</positionX>" + kSep + "<positionY> 70</positionY>" + kSep +
                "<methodName>les</methodName>" + kSep + "<shortDescription>Leser fila.</shortDescription>" +
                kSep + "<cellColor> 16711680</cellColor>" + kSep + "<cellFillStyle> 5</cellFillStyle>");
  EXPECT_EQ(store.getLongDescription(1), "Linje 1\r\nLinje 2");
  EXPECT_EQ(store.selectedCell, -1) << "a new cell is not selected";
  EXPECT_EQ(geometry(1, "X1"), 150) << "the board was redrawn, so the new cell can be hit";
  EXPECT_FALSE(store.isSaved);
}

TEST_F(MethodDialogTest, TheActionKeyOpeningAddsAtTheLastPointerPosition) {
  world.addCell("", 0, 0);  // a name that differs from a blank
  store.lastMouseX = 12;
  store.lastMouseY = 34;
  openAddMethodForm(app);
  type(" ");
  addMethodForm_Command2_Click(app);
  expectClosed();
  EXPECT_EQ(field(1, "methodName"), " ") << "a name of blanks is a name";
  EXPECT_EQ(field(1, "positionX"), " 12");
  EXPECT_EQ(field(1, "positionY"), " 34");
  EXPECT_EQ(field(1, "cellColor"), " 16777215");
  EXPECT_EQ(field(1, "cellFillStyle"), " 0");
}

struct RefusalCase {
  const char* name;
  bool edit;
  std::string typed;
  std::string error;  // Windows-1252
};

void PrintTo(const RefusalCase& c, std::ostream* out) {
  *out << c.name;
}

class RefusalTest : public MethodDialogTest, public ::testing::WithParamInterface<RefusalCase> {};

TEST_P(RefusalTest, ShowsTheErrorBeepsAndKeepsTheDialogOpen) {
  const RefusalCase& r = GetParam();
  world.addCell("les", 10, 10, "sum", 255, 2, "lang");
  drawBoard();
  std::string record = store.itemList.List(0);
  store.selectedCell = r.edit ? int16_t{0} : int16_t{-1};
  canvas_DblClick(app);
  type(r.typed);
  addMethodForm_Command2_Click(app);

  expectRefused(r.error, 1);
  EXPECT_EQ(store.itemList.List(0), record);

  // A second try with a good name goes through, also one that differs only in case;
  // the label does not stand in the way.
  type("Les");
  addMethodForm_Command2_Click(app);
  expectClosed();
  EXPECT_FALSE(store.isSaved);
}

INSTANTIATE_TEST_SUITE_P(
    Refusals, RefusalTest,
    ::testing::Values(RefusalCase{"empty name when adding", false, "", "Feil: Metoden m\xE5 ha et navn!"},
                      RefusalCase{"empty name when editing", true, "", "Feil: Metoden m\xE5 ha et navn!"},
                      RefusalCase{"existing name when adding", false, "les",
                                  "Feil:Navnet eksisterer allerede! Bytt navn..."}));

TEST_F(MethodDialogTest, ASecondFailureReplacesTheError) {
  world.addCell("les", 10, 10);
  openAddMethodForm(app);
  type("");
  addMethodForm_Command2_Click(app);
  type("les");
  addMethodForm_Command2_Click(app);
  expectRefused("Feil:Navnet eksisterer allerede! Bytt navn...", 1, 2);
}

TEST_F(MethodDialogTest, EditingRenamesTheLinksAndKeepsTheStoredTexts) {
  world.addCell("A", 10, 10);
  world.addCell("les", 100, 10, "gammel", 255, 3, "gammel lang");
  world.addCell("C", 10, 100);
  world.addLinkRecord("A", "les");
  world.addLinkRecord("les", "C");
  world.addLinkRecord("A", "C");
  // As read from a file: white space round the record, positions without the blank.
  store.itemList.setList(1,
                         "\r\n\t<positionX>100.25</positionX>\r\n\t<positionY>10</positionY>\r\n\t"
                         "<methodName>les</methodName>\r\n\t<shortDescription>gammel</shortDescription>\r\n\t"
                         "<cellColor>255</cellColor>\r\n\t<cellFillStyle>3</cellFillStyle>\r\n\t\r\n");
  store.setLongDescription(1, "gammel lang");
  drawBoard();

  canvas_MouseDown(app, 1, 0, centreOf(1).x, centreOf(1).y);
  canvas_DblClick(app);
  ASSERT_NE(form(), nullptr);
  EXPECT_EQ(form()->captionText, "Redigere metode");
  EXPECT_EQ(form()->name, "les");
  EXPECT_EQ(form()->summary, "gammel");
  EXPECT_EQ(form()->description, "gammel lang");
  EXPECT_EQ(form()->nameFocus, 1);

  type("lesFil", "ny", "ny lang");
  addMethodForm_Command2_Click(app);
  expectClosed();

  EXPECT_EQ(store.itemList.List(1), "<positionX>100.25</positionX>" + kSep + "<positionY>10</positionY>" +
                                        kSep + "<methodName>lesFil</methodName>" + kSep +
                                        "<shortDescription>ny</shortDescription><cellColor>255</cellColor>" +
                                        kSep + "<cellFillStyle>3</cellFillStyle>");
  EXPECT_EQ(store.getLongDescription(1), "ny lang");
  ASSERT_EQ(store.linkList.ListCount(), 3) << "the redraw kept the renamed links";
  EXPECT_EQ(store.linkList.List(0), "<linkSource>A</linkSource><linkTarget>lesFil</linkTarget>");
  EXPECT_EQ(store.linkList.List(1), "<linkSource>lesFil</linkSource><linkTarget>C</linkTarget>");
  EXPECT_EQ(store.linkList.List(2), "<linkSource>A</linkSource><linkTarget>C</linkTarget>");
  EXPECT_EQ(store.selectedCell, 1);
  EXPECT_FALSE(store.isSaved);
}

TEST_F(MethodDialogTest, EditingWithNothingAlteredStillRewritesTheRecord) {
  world.addCell("A", 10, 10, "sum");
  world.addCell("B", 100, 10);
  world.addLinkRecord("A", "B");
  drawBoard();
  store.selectedCell = 0;
  std::string before = store.itemList.List(0);
  canvas_DblClick(app);
  addMethodForm_Command2_Click(app);
  std::string expected = before;
  expected.erase(expected.find("</shortDescription>") + 19, kSep.size());
  EXPECT_EQ(store.itemList.List(0), expected);
  EXPECT_EQ(store.linkList.ListCount(), 1);
  EXPECT_FALSE(store.isSaved);
}

TEST_F(MethodDialogTest, EditingMayTakeTheNameOfAnotherCell) {
  world.addCell("A", 10, 10);
  world.addCell("B", 100, 10);
  drawBoard();
  store.selectedCell = 1;
  canvas_DblClick(app);
  type("A");
  addMethodForm_Command2_Click(app);
  expectClosed();
  EXPECT_EQ(field(1, "methodName"), "A");
  EXPECT_EQ(world.ui.beeps, 0);
}

TEST_F(MethodDialogTest, CancelAfterTypingChangesNothing) {
  world.addCell("A", 10, 10);
  drawBoard();
  store.selectedCell = 0;
  std::string before = store.itemList.List(0);
  size_t image = imageSize();
  canvas_DblClick(app);
  type("B", "x", "y");
  addMethodForm_Command1_Click(app);
  expectClosed();
  EXPECT_EQ(store.itemList.List(0), before);
  EXPECT_TRUE(store.isSaved);
  EXPECT_EQ(imageSize(), image) << "no redraw";

  // Closing again, as the discarding of the form may raise, finds the same state.
  addMethodForm_Command1_Click(app);
  expectClosed();
}

TEST_F(MethodDialogTest, EveryOpeningStartsAfresh) {
  openAddMethodForm(app);
  addMethodForm_longDescription_GotFocus(app);
  EXPECT_FALSE(form()->okDefault);
  type("");
  addMethodForm_Command2_Click(app);
  addMethodForm_Command1_Click(app);

  openAddMethodForm(app);
  EXPECT_TRUE(form()->okDefault);
  EXPECT_FALSE(form()->errorVisible);
  EXPECT_EQ(form()->name, "");
}

TEST_F(MethodDialogTest, EventsOfAClosedFormAreIgnored) {
  addMethodForm_Command2_Click(app);
  addMethodForm_longDescription_GotFocus(app);
  EXPECT_EQ(store.itemList.ListCount(), 0);
  EXPECT_TRUE(store.isSaved);
  EXPECT_EQ(world.ui.beeps, 0);
}

TEST_F(MethodDialogTest, AFullPlanRefusesAnotherMethod) {
  for (int i = 0; i < ProjectStore::kMaxMethods; ++i) {
    store.itemList.AddItem("<methodName>m" + std::to_string(i) + "</methodName>");
    store.sizeList.AddItem("X1: 0 Y1: 0 X2: 0 Y2: 0");
  }
  openAddMethodForm(app);
  type("ny", "", "lang");
  addMethodForm_Command2_Click(app);
  expectRefused("Feil: Planen har allerede 32001 metoder og kan ikke ta flere!", ProjectStore::kMaxMethods);
  EXPECT_EQ(store.sizeList.ListCount(), ProjectStore::kMaxMethods);

  addMethodForm_Command1_Click(app);
  expectClosed();
}

}  // namespace
}  // namespace tavlero::testing
