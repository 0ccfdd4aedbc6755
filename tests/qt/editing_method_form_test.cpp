// The dialogs of the desktop program on the real widgets, and the drag and the deletion
// of a cell.

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
#include <filesystem>
#include <tuple>

#include "board/board.h"
#include "core/record.h"
#include "export/info_dialogs.h"
#include "export/info_view.h"
#include "qt/desktop.h"
#include "qt/info_forms.h"
#include "qt/method_form.h"
#include "qt/qt_forms.h"
#include "qt_test_app.h"
#include "test_support.h"

namespace tavlero {
namespace {

namespace fs = std::filesystem;

class DesktopTest : public ::testing::Test {
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
  void mouse(QEvent::Type type, QPointF at, Qt::MouseButtons held) {
    Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, board().mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&board(), &event);
  }
  // Opens the dialog at a board position, as the user does it.
  MethodDialog* doubleClick(float x, float y) {
    QPointF at = pixelsOf(x, y);
    mouse(QEvent::MouseMove, at, Qt::NoButton);
    mouse(QEvent::MouseButtonPress, at, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, at, Qt::NoButton);
    mouse(QEvent::MouseButtonDblClick, at, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, at, Qt::NoButton);
    auto* form = dynamic_cast<QtMethodForm*>(app.addMethodForm.get());
    return form ? form->dialog() : nullptr;
  }

  Desktop desktop{96};
};

// What the run of the real program leaves out: Esc leaving the dialog, Enter no longer
// pressing OK once the long description had the focus, the drag of a cell, and its
// deletion answered Yes in the real message box.
TEST_F(DesktopTest, ABoardSessionThroughTheWindow) {
  MethodDialog* left = doubleClick(40, 30);
  ASSERT_NE(left, nullptr);
  QTest::keyClicks(left->methodName, QStringLiteral("les"));
  QTest::keyClick(left->methodName, Qt::Key_Escape);
  EXPECT_EQ(std::tuple(app.addMethodForm.get(), store.itemList.ListCount()), std::tuple(nullptr, int16_t{0}));

  MethodDialog* open = doubleClick(40, 30);
  ASSERT_NE(open, nullptr);
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
  EXPECT_EQ(std::tuple(app.addMethodForm == nullptr, store.itemList.ListCount(), store.getLongDescription(0)),
            std::tuple(true, 1, "linje 1\r\nlinje 2"));

  // A cell's box starts where the cell stands, so a few units in is on the cell.
  mouse(QEvent::MouseButtonPress, pixelsOf(43, 33), Qt::LeftButton);
  mouse(QEvent::MouseMove, pixelsOf(43, 73), Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, pixelsOf(43, 73), Qt::NoButton);
  EXPECT_EQ(getField(store.itemList.List(0), "positionY"), " 70");

  QString question;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    question = box->text();
    box->button(QMessageBox::Yes)->click();
  });
  QTest::keyClick(&board(), Qt::Key_Delete);
  EXPECT_EQ(std::tuple(question, store.itemList.ListCount()),
            std::tuple(QStringLiteral("Er du sikker på at du vil slette 'les'?"), 0));
}

// The page exists while the view is open, whether OK or the frame closes it, and the
// view shows its text as a browser does, "<" and all.
TEST_F(DesktopTest, InfoViewShowsThePageUntilItIsClosed) {
  testing::TempDir folder;
  const fs::path previous = fs::current_path(), page = folder.file("TavleroTemp.html");
  fs::current_path(folder.path());
  store.itemList.AddItem("<methodName>Les</methodName>");
  store.setLongDescription(0, "Hvis a < b: bytt.\r\nReturner a + b.");
  store.selectedCell = 0;
  showMethodInfo(app);
  EXPECT_TRUE(fs::exists(page));
  MethodInfoDialog* dialog = dynamic_cast<QtMethodInfoForm&>(*app.methodInfoForm).dialog();
  const QString shown = dialog->methodInfoBox->toPlainText();
  EXPECT_TRUE(shown.contains(QStringLiteral("Hvis a < b: bytt.\nReturner a + b."))) << shown.toStdString();
  QTest::mouseClick(dialog->command1, Qt::LeftButton);
  EXPECT_EQ(std::tuple(dialog->isVisible(), fs::exists(page), desktop.window().inputEnabled()),
            std::tuple(false, false, true));

  showMethodInfo(app);
  EXPECT_TRUE(fs::exists(page));
  dynamic_cast<QtMethodInfoForm&>(*app.methodInfoForm).dialog()->close();
  EXPECT_EQ(std::tuple(app.methodInfoForm == nullptr, fs::exists(page), desktop.window().inputEnabled()),
            std::tuple(true, false, true));
  fs::current_path(previous);
}

// The dialogs are laid out for their 8-point font: whatever font the desktop gives the
// program, later too, no label is cut or covered by the box beside it.
TEST_F(DesktopTest, DialogLabelsFitAtAnyDesktopFont) {
  const QFont desktopFont = QApplication::font();
  for (int points = 8; points <= 14; ++points) {
    QApplication::setFont(QFont(QStringLiteral("Arial"), points));
    MethodDialog method(app, nullptr);
    QtProgramInfoForm program(app, nullptr);
    AboutDialog about(app, nullptr);
    for (QDialog* dialog : std::initializer_list<QDialog*>{&method, &program, &about})
      for (QLabel* label : dialog->findChildren<QLabel*>()) {
        const int needed = label->fontMetrics().horizontalAdvance(label->text());
        EXPECT_GE(label->width(), needed) << points << " pt: " << label->text().toStdString();
        const QRect text(label->pos(), QSize(needed, label->height()));
        for (QWidget* other : dialog->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
          if (other != label && !qobject_cast<QLabel*>(other) && !label->text().isEmpty()) {
            EXPECT_FALSE(other->geometry().intersects(text))
                << points << " pt: " << label->text().toStdString() << " under "
                << other->objectName().toStdString();
          }
        }
      }
  }
  QApplication::setFont(desktopFont);
}

// Every OK counts as a change, and the texts are the project's own, also when read in
// while the dialog was hidden.
TEST_F(DesktopTest, ProgramInfoEditsTheProject) {
  editClass_Click(app);
  auto& form = dynamic_cast<QtProgramInfoForm&>(app.platform.forms.programInfoForm());
  form.programName->setText(QStringLiteral("Lager"));
  QTest::mouseClick(form.command1, Qt::LeftButton);
  EXPECT_EQ(std::tuple(form.isVisible(), store.programName, store.isSaved, desktop.window().inputEnabled()),
            std::tuple(false, "Lager", false, true));

  store.programName = "Lest inn";  // as a project read in meanwhile leaves it
  store.programDescription = "linje 1\r\nlinje 2";
  editClass_Click(app);
  EXPECT_EQ(std::tuple(form.programName->text(), form.programDescription->toPlainText()),
            std::tuple(QStringLiteral("Lest inn"), QStringLiteral("linje 1\nlinje 2")));
}

}  // namespace
}  // namespace tavlero
