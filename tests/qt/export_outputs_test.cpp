// The picture file, the clipboard and the printer on Qt, offscreen.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPrinterInfo>
#include <filesystem>

#include "core/cp1252.h"
#include "qt/qt_outputs.h"
#include "qt/qt_surface.h"
#include "qt_test_app.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

class QtOutputs : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ensureQtApp(); }
  void SetUp() override {
    canvas_.setWidth(50.8f);  // 192 pixels at 96 DPI
    canvas_.setHeight(25.4f);
    canvas_.ForeColor = 255;
    canvas_.Line(1, 1, 20, 20);
  }
  QtSurface canvas_{96.0};
  TempDir dir_;
};

struct FormatCase {
  std::string name;
  std::string signature;
};

class QtPictureFormats : public QtOutputs, public ::testing::WithParamInterface<FormatCase> {};

TEST_P(QtPictureFormats, FileHoldsTheWholeCanvas) {
  QtPictureWriter writer;
  std::string error;
  const std::string path = dir_.file(GetParam().name);
  ASSERT_TRUE(writer.SavePicture(canvas_, path, error)) << error;
  EXPECT_EQ(readFile(path).substr(0, GetParam().signature.size()), GetParam().signature);
  QImage saved(QString::fromStdString(path));
  EXPECT_EQ(saved.size(), QSize(192, 96));
}

INSTANTIATE_TEST_SUITE_P(Formats, QtPictureFormats,
                         ::testing::Values(FormatCase{"brett.bmp", "BM"}, FormatCase{"brett.png", "\x89PNG"},
                                           FormatCase{"brett.PNG", "\x89PNG"}));

TEST_F(QtOutputs, PictureFailuresGiveAReason) {
  QtPictureWriter writer;
  std::string error;
  EXPECT_FALSE(writer.SavePicture(canvas_, dir_.file("mangler/brett.bmp"), error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(std::filesystem::exists(dir_.file("mangler/brett.bmp")));

  error.clear();
  canvas_.setWidth(1.0e6f);
  EXPECT_FALSE(writer.SavePicture(canvas_, dir_.file("stor.bmp"), error));
  EXPECT_FALSE(error.empty());
  EXPECT_FALSE(std::filesystem::exists(dir_.file("stor.bmp")));

  QtClipboard clipboard;
  error.clear();
  EXPECT_FALSE(clipboard.SetPicture(canvas_, error));
  EXPECT_FALSE(error.empty());
}

TEST_F(QtOutputs, ClipboardTakesTextAndPicture) {
  QtClipboard clipboard;
  clipboard.SetText("Fremgangsmåte:"_cp);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Fremgangsmåte:"));
  std::string error;
  ASSERT_TRUE(clipboard.SetPicture(canvas_, error)) << error;
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(192, 96));
  clipboard.Clear();
  EXPECT_TRUE(QGuiApplication::clipboard()->text().isEmpty());
}

TEST_F(QtOutputs, PrintingWithoutAPrinterSaysSo) {
  if (!QPrinterInfo::defaultPrinter().isNull())
    GTEST_SKIP() << "this machine has a printer; nothing is printed";
  QWidget window;
  QtPrinter printer(&window);
  std::string error;
  EXPECT_FALSE(printer.PrintForm(error));
  EXPECT_EQ(error, "Fant ingen skriver.");
}

}  // namespace
}  // namespace tavlero::testing
