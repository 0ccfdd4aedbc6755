// The info view, the program info dialog and the about box on Qt, offscreen.

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "core/cp1252.h"
#include "export/info_dialogs.h"
#include "export/info_view.h"
#include "qt/qt_forms.h"
#include "qt_test_app.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

namespace fs = std::filesystem;

class QtInfoForms : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ensureQtApp(); }

  void SetUp() override {
    fs::current_path(dir_.path());
    page_ = fs::current_path().string() + "/TavleroTemp.html";
    app_.store.itemList.AddItem("<methodName>Les</methodName><cellColor> 255</cellColor>");
    app_.store.setLongDescription(0, "Åpner filen."_cp);
  }
  void TearDown() override {
    app_.methodInfoForm.reset();
    app_.aboutForm.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    fs::current_path(previous_);
  }

  MethodInfoDialog* infoDialog() { return dynamic_cast<QtMethodInfoForm&>(*app_.methodInfoForm).dialog(); }

  TempDir dir_;
  fs::path previous_ = fs::current_path();
  std::string page_;
  FakeWorld world_;
  QtFormFactory forms_{app_};
  App app_{world_.canvas,
           Platform{world_.ui, world_.dialog, world_.clipboard, world_.pictures, world_.printer, forms_}};
};

// Every way of closing the view reaches the logic: OK, Escape and the frame.
TEST_F(QtInfoForms, InfoViewShowsThePageUntilItIsClosed) {
  showMethodInfo(app_);
  MethodInfoDialog* dialog = infoDialog();
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_TRUE(dialog->methodInfoBox->toPlainText().contains(QStringLiteral("Åpner filen.")));
  QTest::mouseClick(dialog->command1, Qt::LeftButton);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_FALSE(fs::exists(page_));
  EXPECT_TRUE(world_.ui.enabled);

  showMethodInfo(app_);
  QTest::keyClick(infoDialog(), Qt::Key_Escape);
  EXPECT_FALSE(fs::exists(page_));
  EXPECT_TRUE(world_.ui.enabled);

  showMethodInfo(app_);
  EXPECT_TRUE(fs::exists(page_));
  infoDialog()->close();
  EXPECT_EQ(app_.methodInfoForm, nullptr);
  EXPECT_FALSE(fs::exists(page_));
  EXPECT_TRUE(world_.ui.enabled);
}

// The texts are the project's own, Enter presses OK until the description had the focus,
// and every OK counts as a change.
TEST_F(QtInfoForms, ProgramInfoEditsTheProject) {
  app_.store.programDescription = "linje 1\r\nlinje 2";
  editClass_Click(app_);
  auto& form = dynamic_cast<QtProgramInfoForm&>(forms_.programInfoForm());
  EXPECT_EQ(form.programDescription->toPlainText(), QStringLiteral("linje 1\nlinje 2"));
  form.programName->setText(QStringLiteral("Lager"));
  QTest::keyClick(form.programName, Qt::Key_Return);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(app_.store.programName, "Lager");
  EXPECT_FALSE(app_.store.isSaved);
  EXPECT_TRUE(world_.ui.enabled);

  app_.store.programName = "Lest inn";  // as a project read in meanwhile leaves it
  app_.store.isSaved = true;
  editClass_Click(app_);
  EXPECT_EQ(form.programName->text(), QStringLiteral("Lest inn"));
  form.activateWindow();
  form.programDescription->setFocus();
  QCoreApplication::processEvents();
  QTest::keyClick(form.programDescription, Qt::Key_End, Qt::ControlModifier);
  QTest::keyClick(form.programDescription, Qt::Key_Return);
  EXPECT_EQ(app_.store.programDescription, "linje 1\r\nlinje 2\r\n");
  QTest::keyClick(form.programName, Qt::Key_Return);
  EXPECT_TRUE(form.isVisible());
  QTest::mouseClick(form.command1, Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  EXPECT_FALSE(app_.store.isSaved);
  EXPECT_TRUE(world_.ui.enabled);
}

TEST_F(QtInfoForms, AboutBoxClosesByOkAndChangesNothing) {
  aboutmenu_Click(app_);
  QTest::mouseClick(dynamic_cast<QtAboutForm&>(*app_.aboutForm).dialog()->command1, Qt::LeftButton);
  EXPECT_EQ(app_.aboutForm, nullptr);
  EXPECT_TRUE(world_.ui.enabled);
  EXPECT_TRUE(app_.store.isSaved);
}

}  // namespace
}  // namespace tavlero::testing
