// The info view, the program info dialog and the about box on Qt, offscreen: what they
// show, and that every way of closing them reaches the logic.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "core/cp1252.h"
#include "export/info_dialogs.h"
#include "export/info_view.h"
#include "qt/info_forms.h"
#include "qt_test_app.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

namespace fs = std::filesystem;

// The three forms of this subsystem as Qt makes them; the method form is not needed.
class QtInfoFormFactory : public FormFactory {
 public:
  App* app = nullptr;
  std::unique_ptr<QtProgramInfoForm> programInfo;
  std::unique_ptr<MethodFormView> makeMethodForm() override { return nullptr; }
  std::unique_ptr<MethodInfoView> makeMethodInfoForm() override {
    return std::make_unique<QtMethodInfoForm>(*app, nullptr);
  }
  std::unique_ptr<AboutView> makeAboutForm() override { return std::make_unique<QtAboutForm>(*app, nullptr); }
  ProgramInfoView& programInfoForm() override {
    if (!programInfo) programInfo = std::make_unique<QtProgramInfoForm>(*app, nullptr);
    return *programInfo;
  }
};

class QtInfoForms : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ensureQtApp(); }

  void SetUp() override {
    forms_.app = &app_;
    previous_ = fs::current_path();
    fs::current_path(dir_.path());
    page_ = fs::current_path().string() + "/TavleroTemp.html";
    app_.store.programName = "Butikk";
    app_.store.itemList.AddItem("<methodName>Les</methodName><cellColor> 255</cellColor>");
    app_.store.setLongDescription(0, "Åpner filen."_cp);
  }
  void TearDown() override {
    app_.methodInfoForm.reset();
    app_.aboutForm.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    fs::current_path(previous_);
  }

  MethodInfoDialog* infoDialog() {
    auto* form = dynamic_cast<QtMethodInfoForm*>(app_.methodInfoForm.get());
    return form ? form->dialog() : nullptr;
  }

  TempDir dir_;
  fs::path previous_;
  std::string page_;
  FakeWorld world_;
  QtInfoFormFactory forms_;
  App app_{world_.canvas,
           Platform{world_.ui, world_.dialog, world_.clipboard, world_.pictures, world_.printer, forms_}};
};

TEST_F(QtInfoForms, InfoViewShowsThePageAndOkRemovesIt) {
  showMethodInfo(app_);
  MethodInfoDialog* dialog = infoDialog();
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Metodeinfo/prosjektinfo"));
  EXPECT_TRUE(fs::exists(page_));
  QString shown = dialog->methodInfoBox->toPlainText();
  EXPECT_TRUE(shown.contains(QStringLiteral("Butikk")));
  EXPECT_TRUE(shown.contains(QStringLiteral("Åpner filen.")));
  EXPECT_FALSE(dialog->methodInfoBox->openLinks());
  EXPECT_FALSE(dialog->methodInfoBox->openExternalLinks());

  QTest::mouseClick(dialog->command1, Qt::LeftButton);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_FALSE(fs::exists(page_));
  EXPECT_TRUE(world_.ui.enabled);
  EXPECT_TRUE(dialog->methodInfoBox->toPlainText().isEmpty());
}

TEST_F(QtInfoForms, EscapeAndTheFrameCloseTheViewToo) {
  showMethodInfo(app_);
  QTest::keyClick(infoDialog(), Qt::Key_Escape);
  EXPECT_FALSE(fs::exists(page_));
  EXPECT_TRUE(world_.ui.enabled);

  showMethodInfo(app_);
  QPointer<MethodInfoDialog> dialog = infoDialog();
  dialog->close();
  EXPECT_EQ(app_.methodInfoForm, nullptr);
  EXPECT_FALSE(fs::exists(page_));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(dialog.isNull());
}

TEST_F(QtInfoForms, ResizingKeepsTheButtonCentredOnTheOuterWidth) {
  showMethodInfo(app_);
  MethodInfoDialog* dialog = infoDialog();
  dialog->resize(900, 500);
  QCoreApplication::processEvents();
  const double dpi = dialog->logicalDpiX();
  const double outer = dialog->frameGeometry().width() * 1440.0 / dpi;
  const double expectedLeft = (outer / 2 - 1215.0 / 2) / 1440.0 * dpi;
  EXPECT_NEAR(dialog->command1->x(), expectedLeft, 1.0);
  EXPECT_NEAR(dialog->methodInfoBox->width(), (outer - 480) / 1440.0 * dpi, 1.0);
}

TEST_F(QtInfoForms, ProgramInfoEditsTheProjectAndEnterPressesOkUntilTheDescriptionHadFocus) {
  app_.store.programDescription = "linje 1\r\nlinje 2";
  editClass_Click(app_);
  QtProgramInfoForm& form = *forms_.programInfo;
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(form.programDescription->toPlainText(), QStringLiteral("linje 1\nlinje 2"));
  EXPECT_TRUE(app_.store.isSaved);  // showing the texts is no edit

  form.programName->setFocus();
  form.programName->setText(QStringLiteral("Lager"));
  QTest::keyClick(form.programName, Qt::Key_Return);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(app_.store.programName, "Lager");
  EXPECT_FALSE(app_.store.isSaved);
  EXPECT_TRUE(world_.ui.enabled);

  editClass_Click(app_);
  form.activateWindow();
  form.programDescription->setFocus();
  QCoreApplication::processEvents();
  QTest::keyClick(form.programDescription, Qt::Key_End, Qt::ControlModifier);
  QTest::keyClick(form.programDescription, Qt::Key_Return);
  EXPECT_EQ(app_.store.programDescription, "linje 1\r\nlinje 2\r\n");
  form.programName->setFocus();
  QTest::keyClick(form.programName, Qt::Key_Return);
  EXPECT_TRUE(form.isVisible());
  form.close();
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(world_.ui.enabled);
}

TEST_F(QtInfoForms, AboutBoxClosesByOkAndIsMadeAnew) {
  aboutmenu_Click(app_);
  QPointer<AboutDialog> first = dynamic_cast<QtAboutForm*>(app_.aboutForm.get())->dialog();
  ASSERT_FALSE(first.isNull());
  EXPECT_EQ(first->windowTitle(), QStringLiteral("Om..."));
  QTest::mouseClick(first->command1, Qt::LeftButton);
  EXPECT_EQ(app_.aboutForm, nullptr);
  EXPECT_TRUE(world_.ui.enabled);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(first.isNull());
  EXPECT_TRUE(app_.store.isSaved);
}

}  // namespace
}  // namespace tavlero::testing
