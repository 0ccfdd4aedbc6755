// The method dialog in the desktop program: opened from the board, filled by typing and
// closed by the keyboard, together with the other mouse and key work on the board.

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
#include <tuple>
#include <utility>

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
  void SetUp() override { desktop.window().show(); }

  App& app = desktop.app();
  ProjectStore& store = app.store;
  CanvasWidget& board() { return desktop.window().canvas(); }

  QPointF pixelsOf(float x, float y) {
    auto& surface = static_cast<QtSurface&>(app.canvas);
    return {x * surface.pixelsPerUnitX(), y * surface.pixelsPerUnitY()};
  }
  void mouse(QEvent::Type type, QPointF at, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {}) {
    Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, board().mapToGlobal(at), button, held, modifiers);
    QCoreApplication::sendEvent(&board(), &event);
  }
  void click(QPointF at, Qt::KeyboardModifiers modifiers = {}) {
    mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, modifiers);
    mouse(QEvent::MouseButtonRelease, at, Qt::NoButton, modifiers);
  }
  // Opens the dialog at a board position, as the user does it.
  MethodDialog* doubleClick(float x, float y) {
    QPointF at = pixelsOf(x, y);
    mouse(QEvent::MouseMove, at, Qt::NoButton);
    click(at);
    mouse(QEvent::MouseButtonDblClick, at, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, at, Qt::NoButton);
    auto* form = dynamic_cast<QtMethodForm*>(app.addMethodForm.get());
    return form ? form->dialog() : nullptr;
  }
  bool drawnText(const std::string& text) {
    const DisplayList& image = app.canvas.Image();
    for (const DrawOp& op : image.ops())
      if (op.kind == DrawKind::Text && image.text(op.text) == text) return true;
    return false;
  }

  Desktop desktop{96};
};

TEST_F(MethodFormTest, AfterTheLongDescriptionEnterNoLongerPressesOk) {
  MethodDialog* open = doubleClick(40, 30);
  ASSERT_NE(open, nullptr);
  QTest::keyClick(open->methodName, Qt::Key_Return);
  EXPECT_TRUE(open->errorLabel->isVisible()) << "an empty name is refused";

  QApplication::setActiveWindow(open);
  QTest::keyClicks(open->methodName, QStringLiteral("les"));
  open->longDescription->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(open->longDescription, QStringLiteral("linje 1"));
  QTest::keyClick(open->longDescription, Qt::Key_Return);
  QTest::keyClicks(open->longDescription, QStringLiteral("linje 2"));
  QTest::keyClick(open->methodName, Qt::Key_Return);
  ASSERT_NE(app.addMethodForm, nullptr) << "Enter in the name did not press OK";

  // A focused button still takes Enter itself.
  open->command2->setFocus(Qt::TabFocusReason);
  QTest::keyClick(open->command2, Qt::Key_Return);
  EXPECT_EQ(app.addMethodForm, nullptr);
  ASSERT_EQ(store.itemList.ListCount(), 1);
  EXPECT_EQ(store.getLongDescription(0), "linje 1\r\nlinje 2");
}

// A dialog left by Esc, two cells by the dialog, a link by Shift, a drag, and the deletion
// of a cell answered Yes in the real message box.
TEST_F(MethodFormTest, ABoardSessionThroughTheWindow) {
  MethodDialog* left = doubleClick(40, 30);
  ASSERT_NE(left, nullptr);
  QTest::keyClicks(left->methodName, QStringLiteral("les"));
  QTest::keyClick(left->methodName, Qt::Key_Escape);
  EXPECT_EQ(std::tuple(app.addMethodForm.get(), store.itemList.ListCount(), store.isSaved),
            std::tuple(nullptr, int16_t{0}, true));
  for (auto [name, x] : {std::pair{"A", 20.0f}, std::pair{"B\xC3\x85", 100.0f}}) {
    MethodDialog* open = doubleClick(x, 20);
    ASSERT_NE(open, nullptr);
    EXPECT_FALSE(desktop.window().inputEnabled());
    QTest::keyClicks(open->methodName, QString::fromUtf8(name));
    QTest::keyClick(open->methodName, Qt::Key_Return);
    EXPECT_EQ(std::tuple(app.addMethodForm.get(), desktop.window().inputEnabled()),
              std::tuple(nullptr, true));
  }
  ASSERT_EQ(store.itemList.ListCount(), 2);
  EXPECT_EQ(getField(store.itemList.List(1), "methodName"), "B\xC5");
  EXPECT_TRUE(drawnText("B\xC5"));

  // A cell's box starts where the cell stands, so a few units in is on the cell.
  click(pixelsOf(23, 23));
  click(pixelsOf(103, 23), Qt::ShiftModifier);
  ASSERT_EQ(store.linkList.ListCount(), 1);

  mouse(QEvent::MouseButtonPress, pixelsOf(103, 23), Qt::LeftButton);
  mouse(QEvent::MouseMove, pixelsOf(103, 63), Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, pixelsOf(103, 63), Qt::NoButton);
  EXPECT_EQ(getField(store.itemList.List(1), "positionY"), " 60");

  QString question;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    question = box->text();
    box->button(QMessageBox::Yes)->click();
  });
  QTest::keyClick(&board(), Qt::Key_Delete);
  EXPECT_EQ(question, QStringLiteral("Er du sikker på at du vil slette 'BÅ'?"));
  EXPECT_EQ(store.itemList.ListCount(), 1);
  EXPECT_EQ(store.linkList.ListCount(), 0);
  EXPECT_FALSE(drawnText("B\xC5"));
}

}  // namespace
}  // namespace tavlero
