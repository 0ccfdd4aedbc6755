// The window system for the logic on Qt: message boxes, the file dialog, and the whole
// desktop put together and started the way the program starts.

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "core/startup.h"
#include "editing/method_dialog.h"
#include "qt/desktop.h"
#include "qt/method_form.h"
#include "qt/qt_common_dialog.h"
#include "qt/qt_ui.h"
#include "qt_world.h"

namespace tavlero {
namespace {

using testing::TempDir;

// Runs act on the modal dialog of type D once it shows, from inside its event loop.
template <typename D>
void whenModal(std::function<void(D*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(5);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    if (auto* dialog = qobject_cast<D*>(QApplication::activeModalWidget())) {
      timer->stop();
      timer->deleteLater();
      act(dialog);
    }
  });
  timer->start();
}

class QtPlatformTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testing::ensureQtApp(); }
};

TEST_F(QtPlatformTest, MessageBoxesHaveTheirButtonsWithYesFirstAndDefault) {
  QtUi ui;
  whenModal<QMessageBox>([](QMessageBox* box) {
    EXPECT_EQ(box->windowTitle(), QStringLiteral("Advarsel"));
    EXPECT_EQ(box->text(), QStringLiteral("Vil du lagre før du avslutter?"));
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::Yes));
    box->button(QMessageBox::No)->click();
  });
  EXPECT_EQ(ui.MsgBox("Vil du lagre f\xF8r du avslutter?", MsgButtons::YesNoCancel, MsgIcon::Exclamation,
                      "Advarsel"),
            MsgResult::No);

  // Escape: Cancel where there is one, otherwise No.
  whenModal<QMessageBox>([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); });
  EXPECT_EQ(ui.MsgBox("?", MsgButtons::YesNoCancel, MsgIcon::Exclamation, "Advarsel"), MsgResult::Cancel);
  whenModal<QMessageBox>([](QMessageBox* box) {
    EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::Yes));
    QTest::keyClick(box, Qt::Key_Escape);
  });
  EXPECT_EQ(ui.MsgBox("Slette?", MsgButtons::YesNo, MsgIcon::Exclamation, "Bekreft sletting"), MsgResult::No);
  whenModal<QMessageBox>([](QMessageBox* box) {
    EXPECT_EQ(box->icon(), QMessageBox::Critical);
    QTest::keyClick(box, Qt::Key_Return);
  });
  EXPECT_EQ(ui.MsgBox("Feil", MsgButtons::YesNo, MsgIcon::Critical, "Gale parametre"), MsgResult::Yes);
  whenModal<QMessageBox>([](QMessageBox* box) {
    EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
    box->accept();
  });
  EXPECT_EQ(ui.MsgBox("Ferdig", MsgButtons::OK, MsgIcon::Information, "Tavlero"), MsgResult::OK);
}

TEST_F(QtPlatformTest, FileDialogTakesTheFilterAndDefaultExtensionAndGivesNameAndTitle) {
  TempDir folder;
  testing::writeFile(folder.file("finnes.tvl"), "x");
  QtCommonDialog dialog;
  dialog.Filter = "Tavlero-prosjekter (*.tvl)|*.tvl|Bilder (*.bmp;*.png)|*.bmp;*.png";
  dialog.DefaultExt = "*.tvl";

  // Saving adds the extension to a bare name.
  whenModal<QFileDialog>([&](QFileDialog* files) {
    EXPECT_EQ(files->nameFilters(), QStringList({QStringLiteral("Tavlero-prosjekter (*.tvl)"),
                                                 QStringLiteral("Bilder (*.bmp *.png)")}));
    EXPECT_EQ(files->defaultSuffix(), QStringLiteral("tvl"));
    EXPECT_EQ(files->acceptMode(), QFileDialog::AcceptSave);
    files->setDirectory(QString::fromStdString(folder.path()));
    files->selectFile(QStringLiteral("plan"));
    static_cast<QDialog*>(files)->accept();
  });
  ASSERT_TRUE(dialog.ShowSave());
  EXPECT_EQ(dialog.FileName, folder.file("plan.tvl"));
  EXPECT_EQ(dialog.FileTitle, "plan.tvl");

  // Opening takes only a file that exists; cancelling leaves the last choice.
  whenModal<QFileDialog>([&](QFileDialog* files) {
    files->selectFile(QString::fromStdString(folder.file("mangler.tvl")));
    // The dialog says that the file is not there, and stays.
    whenModal<QMessageBox>([](QMessageBox* warning) { warning->accept(); });
    static_cast<QDialog*>(files)->accept();
    EXPECT_TRUE(files->isVisible());
    files->reject();
  });
  EXPECT_FALSE(dialog.ShowOpen());
  EXPECT_EQ(dialog.FileName, folder.file("plan.tvl"));

  whenModal<QFileDialog>([&](QFileDialog* files) {
    files->selectFile(QString::fromStdString(folder.file("finnes.tvl")));
    static_cast<QDialog*>(files)->accept();
  });
  ASSERT_TRUE(dialog.ShowOpen());
  EXPECT_EQ(dialog.FileName, folder.file("finnes.tvl"));
  EXPECT_EQ(dialog.FileTitle, "finnes.tvl");
}

// The desktop as the program starts it, with its settings file in a folder of its own.
class DesktopTest : public QtPlatformTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Form_Load(desktop.app(), folder.file("tavlero"), "")); }

  TempDir folder;
  Desktop desktop{96};
};

TEST_F(DesktopTest, StartUpGivesTheCanvasTheClientAreaOfMain) {
  MainWindow& window = desktop.window();
  EXPECT_EQ(window.canvas().size(), window.centralWidget()->size());
  EXPECT_EQ(window.canvas().pos(), QPoint(0, 0));
  EXPECT_FLOAT_EQ(desktop.app().store.zoomFactor, 2.0f);
  EXPECT_TRUE(testing::readFile(folder.file("tavlero.cfg")).find("<doubleDraw>") != std::string::npos);

  Ui& ui = desktop.app().ui;
  ui.setCaption("Tavlero: Bl\xE5 (plan.tvl)");
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Tavlero: Blå (plan.tvl)"));
  EXPECT_EQ(ui.caption(), "Tavlero: Bl\xE5 (plan.tvl)");
  ui.setMousePointer(kPointerSizeAll);
  EXPECT_EQ(window.cursor().shape(), Qt::SizeAllCursor);
  ui.setMousePointer(kPointerDefault);
  EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
  EXPECT_NEAR(ui.mainScaleWidth(), twipsToMillimetres(kMainClientWidthTwips), 0.3);
  EXPECT_NEAR(ui.mainScaleHeight(), twipsToMillimetres(kMainClientHeightTwips), 0.3);
}

TEST_F(DesktopTest, TheMethodDialogOpensOverADisabledMainAndHandsTheFocusBack) {
  MainWindow& window = desktop.window();
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

  QPoint empty(600, 500);
  QTest::mouseMove(&window.canvas(), empty);
  QTest::mouseDClick(&window.canvas(), Qt::LeftButton, {}, empty);
  App& app = desktop.app();
  ASSERT_TRUE(app.addMethodForm);
  MethodDialog* dialog = static_cast<QtMethodForm&>(*app.addMethodForm).dialog();
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->parentWidget(), &window);
  // main takes no input, while the dialog it owns does.
  EXPECT_FALSE(app.ui.mainEnabled());
  EXPECT_FALSE(window.menuBar()->isEnabled());
  EXPECT_TRUE(dialog->isEnabled());
  EXPECT_TRUE(dialog->methodName->isEnabled());

  dialog->methodName->setText(QStringLiteral("ny()"));
  dialog->command2->click();
  EXPECT_FALSE(app.addMethodForm);
  ASSERT_EQ(app.store.itemList.ListCount(), 1);
  EXPECT_TRUE(app.ui.mainEnabled());
  EXPECT_EQ(QApplication::focusWidget(), &window.canvas());
  // The new cell stands where the double click was, in board units of 2 mm.
  EXPECT_EQ(textToNumber(getField(app.store.itemList.List(0), "positionX")),
            std::round(empty.x() * 25.4 / 96 / 2));
}

}  // namespace
}  // namespace tavlero
