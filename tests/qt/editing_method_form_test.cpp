// The method dialog in the desktop program: opened from the board, filled by typing,
// closed by Enter, Esc or the frame, and what it leaves on the board and in main.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <vector>

#include "board/board.h"
#include "core/record.h"
#include "qt/desktop.h"
#include "qt/method_form.h"
#include "qt_test_app.h"

namespace tavlero {
namespace {

class MethodFormTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testing::ensureQtApp(); }

  void SetUp() override {
    app.canvas.setWidth(200);
    app.canvas.setHeight(150);
    zoomIn(app);
    zoomOut(app);
    desktop.window().show();
  }

  App& app = desktop.app();
  ProjectStore& store = app.store;
  CanvasWidget& board() { return desktop.window().canvas(); }
  QtSurface& surface() { return static_cast<QtSurface&>(app.canvas); }

  QPointF pixelsOf(float x, float y) {
    return {x * surface().pixelsPerUnitX(), y * surface().pixelsPerUnitY()};
  }
  QPointF centreOf(int16_t cell) {
    auto value = [&](const char* key) {
      return static_cast<float>(textToNumber(getField(store.sizeList.List(cell), key)));
    };
    return pixelsOf((value("X1") + value("X2")) / 2, (value("Y1") + value("Y2")) / 2);
  }

  void mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QMouseEvent event(type, at, board().mapToGlobal(at), button, held, modifiers);
    QCoreApplication::sendEvent(&board(), &event);
  }
  void doubleClick(QPointF at) {
    mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    mouse(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
  }

  // The open dialog; null when the logic holds none.
  MethodDialog* dialog() {
    auto* form = dynamic_cast<QtMethodForm*>(app.addMethodForm.get());
    return form ? form->dialog() : nullptr;
  }

  // A cell added through the dialog, as the user does it.
  void addCell(const QString& name, float x, float y) {
    mouse(QEvent::MouseMove, pixelsOf(x, y), Qt::NoButton, Qt::NoButton);
    doubleClick(pixelsOf(x, y));
    ASSERT_NE(dialog(), nullptr);
    QTest::keyClicks(dialog()->methodName, name);
    QTest::keyClick(dialog()->methodName, Qt::Key_Return);
    ASSERT_EQ(dialog(), nullptr);
  }

  bool drawnText(const std::string& text) {
    const DisplayList& image = app.canvas.Image();
    for (const DrawOp& op : image.ops())
      if (op.kind == DrawKind::Text && image.text(op.text) == text) return true;
    return false;
  }

  Desktop desktop{96};
};

TEST_F(MethodFormTest, ADoubleClickTypingAndEnterPutTheCellOnTheBoard) {
  QPointF at = pixelsOf(40, 30);
  mouse(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(desktop.window().windowTitle(), QStringLiteral("Tavlero:  () (X: 40   Y: 30)"));
  doubleClick(at);

  QPointer<MethodDialog> shown = dialog();
  ASSERT_NE(shown, nullptr);
  EXPECT_TRUE(shown->isVisible());
  EXPECT_FALSE(shown->isModal());
  EXPECT_EQ(shown->windowTitle(), QStringLiteral("Legg til ny metode"));
  EXPECT_FALSE(desktop.window().inputEnabled());
  EXPECT_TRUE(shown->methodName->isEnabled()) << "the dialog works while main is disabled";
  EXPECT_FALSE(shown->errorLabel->isVisible());
  EXPECT_TRUE(shown->command2->isDefault());

  // Enter on an empty name: the red error, and the dialog stays.
  QTest::keyClick(shown->methodName, Qt::Key_Return);
  ASSERT_EQ(dialog(), shown);
  EXPECT_TRUE(shown->errorLabel->isVisible());
  EXPECT_EQ(shown->errorLabel->text(), QStringLiteral("Feil: Metoden må ha et navn!"));
  EXPECT_EQ(shown->errorLabel->palette().color(QPalette::WindowText), QColor(255, 0, 0));

  QTest::keyClicks(shown->methodName, QStringLiteral("lesFilÅ"));
  QTest::keyClicks(shown->shortDescription, QStringLiteral("Leser"));
  QTest::keyClick(shown->methodName, Qt::Key_Return);

  EXPECT_EQ(dialog(), nullptr);
  ASSERT_EQ(store.itemList.ListCount(), 1);
  EXPECT_EQ(getField(store.itemList.List(0), "methodName"), "lesFil\xC5");
  EXPECT_EQ(getField(store.itemList.List(0), "positionX"), " 40");
  EXPECT_TRUE(drawnText("lesFil\xC5"));
  EXPECT_TRUE(desktop.window().inputEnabled());

  // The dialog goes once the event that closed it has ended.
  ASSERT_NE(shown, nullptr);
  EXPECT_FALSE(shown->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(shown, nullptr);
}

TEST_F(MethodFormTest, AfterTheLongDescriptionEnterNoLongerPressesOk) {
  doubleClick(pixelsOf(40, 30));
  MethodDialog* open = dialog();
  ASSERT_NE(open, nullptr);
  QApplication::setActiveWindow(open);
  QTest::keyClicks(open->methodName, QStringLiteral("les"));
  open->longDescription->setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(open->longDescription->hasFocus());
  EXPECT_FALSE(open->command2->isDefault());
  QTest::keyClicks(open->longDescription, QStringLiteral("linje 1"));
  QTest::keyClick(open->longDescription, Qt::Key_Return);
  QTest::keyClicks(open->longDescription, QStringLiteral("linje 2"));
  QTest::keyClick(open->methodName, Qt::Key_Return);
  ASSERT_EQ(dialog(), open) << "Enter in the name did not press OK";

  // A focused button still takes Enter itself.
  open->command2->setFocus(Qt::TabFocusReason);
  QTest::keyClick(open->command2, Qt::Key_Return);
  EXPECT_EQ(dialog(), nullptr);
  ASSERT_EQ(store.itemList.ListCount(), 1);
  EXPECT_EQ(store.getLongDescription(0), "linje 1\r\nlinje 2");
}

TEST_F(MethodFormTest, EscAvbrytAndTheFrameCloseWithoutChange) {
  for (int way = 0; way < 3; ++way) {
    doubleClick(pixelsOf(40, 30));
    MethodDialog* open = dialog();
    ASSERT_NE(open, nullptr);
    QTest::keyClicks(open->methodName, QStringLiteral("les"));
    if (way == 0) QTest::keyClick(open->methodName, Qt::Key_Escape);
    if (way == 1) QTest::mouseClick(open->command1, Qt::LeftButton);
    if (way == 2) open->close();
    EXPECT_EQ(dialog(), nullptr) << way;
    EXPECT_TRUE(desktop.window().inputEnabled());
    EXPECT_EQ(store.itemList.ListCount(), 0);
    EXPECT_TRUE(store.isSaved);
  }
}

TEST_F(MethodFormTest, TypingStopsAtTheLimitsButAStoredLongerNameIsKept) {
  doubleClick(pixelsOf(40, 30));
  ASSERT_NE(dialog(), nullptr);
  QTest::keyClicks(dialog()->methodName, QString(300, QLatin1Char('a')));
  EXPECT_EQ(dialog()->methodName->text().size(), 256);
  QTest::keyClicks(dialog()->shortDescription, QString(200, QLatin1Char('b')));
  EXPECT_EQ(dialog()->shortDescription->text().size(), 160);
  QTest::keyClick(dialog()->methodName, Qt::Key_Escape);

  // A name from a file may be longer: editing shows it whole and saves it whole.
  std::string longName(300, 'n');
  store.itemList.AddItem("<positionX> 10</positionX><positionY> 10</positionY><methodName>" + longName +
                         "</methodName><shortDescription></shortDescription><cellColor> 255</cellColor>"
                         "<cellFillStyle> 0</cellFillStyle>");
  store.sizeList.AddItem("X1: 0 Y1: 0 X2: 0 Y2: 0");
  redrawBoard(app);
  mouse(QEvent::MouseButtonPress, centreOf(0), Qt::LeftButton, Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, centreOf(0), Qt::LeftButton, Qt::NoButton);
  doubleClick(centreOf(0));
  ASSERT_NE(dialog(), nullptr);
  EXPECT_EQ(dialog()->windowTitle(), QStringLiteral("Redigere metode"));
  EXPECT_EQ(dialog()->methodName->text().size(), 300);
  QTest::keyClick(dialog()->methodName, Qt::Key_End);
  QTest::keyClicks(dialog()->methodName, QStringLiteral("x"));
  EXPECT_EQ(dialog()->methodName->text().size(), 300);
  QTest::keyClick(dialog()->methodName, Qt::Key_Return);
  EXPECT_EQ(getField(store.itemList.List(0), "methodName"), longName);
}

TEST_F(MethodFormTest, TheLayoutIsInTwipsAtTheLogicalDpi) {
  doubleClick(pixelsOf(40, 30));
  MethodDialog* open = dialog();
  ASSERT_NE(open, nullptr);
  EXPECT_EQ(open->size(), QSize(332, 395));  // 4980 x 5925 twips at 96 DPI
  EXPECT_EQ(open->minimumSize(), open->maximumSize());
  EXPECT_EQ(open->longDescription->geometry(), QRect(8, 120, 313, 209));
  EXPECT_EQ(open->command1->geometry(), QRect(232, 352, 81, 33));
  EXPECT_FALSE(open->windowFlags() & Qt::WindowMinMaxButtonsHint);
  EXPECT_EQ(open->methodName->toolTip(),
            QStringLiteral("Navnet på metoden, f.eks: public void testMetode()"));

  // Tab order: OK, Avbryt, the name, the summary, the description, and round again.
  std::vector<QWidget*> order;
  QWidget* widget = open->command2;
  do {
    if (widget->focusPolicy() & Qt::TabFocus) order.push_back(widget);
    widget = widget->nextInFocusChain();
  } while (widget != open->command2);
  EXPECT_EQ(order, (std::vector<QWidget*>{open->command2, open->command1, open->methodName,
                                          open->shortDescription, open->longDescription}));
}

// A whole session on the board: two cells by the dialog, a link by Shift, a drag, and the
// deletion of a cell answered Yes in the real message box.
TEST_F(MethodFormTest, ABoardSessionThroughTheWindow) {
  addCell(QStringLiteral("A"), 20, 20);
  addCell(QStringLiteral("B"), 100, 20);
  ASSERT_EQ(store.itemList.ListCount(), 2);

  mouse(QEvent::MouseButtonPress, centreOf(0), Qt::LeftButton, Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, centreOf(0), Qt::LeftButton, Qt::NoButton);
  mouse(QEvent::MouseButtonPress, centreOf(1), Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
  mouse(QEvent::MouseButtonRelease, centreOf(1), Qt::LeftButton, Qt::NoButton, Qt::ShiftModifier);
  ASSERT_EQ(store.linkList.ListCount(), 1);

  QPointF from = centreOf(1);
  QPointF to = from + pixelsOf(0, 40);
  mouse(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
  mouse(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
  EXPECT_TRUE(app.demoRectangle.Visible);
  mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
  EXPECT_EQ(getField(store.itemList.List(1), "positionY"), " 60");
  EXPECT_FALSE(store.isSaved);

  QString question;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    question = box->text();
    box->button(QMessageBox::Yes)->click();
  });
  QTest::keyClick(&board(), Qt::Key_Delete);
  EXPECT_EQ(question, QStringLiteral("Er du sikker på at du vil slette 'B'?"));
  EXPECT_EQ(store.itemList.ListCount(), 1);
  EXPECT_EQ(store.linkList.ListCount(), 0);
  EXPECT_FALSE(drawnText("B"));
}

}  // namespace
}  // namespace tavlero
