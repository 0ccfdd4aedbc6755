// The picture file, the clipboard and the printer on Qt, offscreen.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPrinterInfo>

#include "board/board.h"
#include "core/cp1252.h"
#include "core/record.h"
#include "export/pictures.h"
#include "files/project_file.h"
#include "qt/qt_outputs.h"
#include "qt/qt_surface.h"
#include "qt_test_app.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

// The worked example as the program starts it, with the real picture writer.
class QtOutputs : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ensureQtApp(); }
  void SetUp() override {
    canvas_.setWidth(fakes_.ui.clientWidth);
    canvas_.setHeight(fakes_.ui.clientHeight);
    zoomIn(app_);
    zoomOut(app_);
    ASSERT_TRUE(readProject(app_, dataPath("export/example/plan.tvl")));
  }

  QImage savedPicture(const std::string& name) {
    fakes_.dialog.saveAnswers.push_back(dir_.file(name));
    saveBoardPicture(app_);
    return QImage(QString::fromStdString(dir_.file(name)));
  }

  FakePlatform fakes_;
  QtSurface canvas_{96};
  QtPictureWriter writer_;
  App app_{canvas_,
           Platform{fakes_.ui, fakes_.dialog, fakes_.clipboard, writer_, fakes_.printer, fakes_.forms}};
  TempDir dir_;
};

// The picture is the board as last drawn, at the zoom of the moment.
TEST_F(QtOutputs, PictureKeepsTheSelectionAndGrowsWithTheZoom) {
  app_.store.selectedCell = 0;  // Les, white with a black outline unless selected
  redrawBoard(app_);
  const QImage picture = savedPicture("brett.bmp");
  ASSERT_FALSE(picture.isNull());
  const std::string& box = app_.store.sizeList.List(0);
  const auto at = [&](const char* key) {
    return static_cast<int>(textToNumber(getField(box, key)) * canvas_.pixelsPerUnitX());
  };
  bool red = false;  // at the left side of the box
  for (int x = at("X1") - 1; x <= at("X1") + 1; ++x)
    red = red || picture.pixelColor(x, (at("Y1") + at("Y2")) / 2) == QColor(255, 0, 0);
  EXPECT_TRUE(red);

  zoomIn(app_);
  const QImage zoomed = savedPicture("zoom.bmp");
  EXPECT_GT(zoomed.width(), picture.width());
  EXPECT_GT(zoomed.height(), picture.height());
  EXPECT_TRUE(fakes_.ui.messages.empty());
}

TEST_F(QtOutputs, ClipboardTakesTextAndPictureAndRefusesWhatIsTooLarge) {
  QtClipboard clipboard;
  clipboard.SetText("Fremgangsmåte:"_cp);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Fremgangsmåte:"));
  std::string error;
  ASSERT_TRUE(clipboard.SetPicture(canvas_, error)) << error;
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), savedPicture("brett.bmp").size());

  canvas_.setWidth(1.0e6f);
  EXPECT_FALSE(clipboard.SetPicture(canvas_, error));
  EXPECT_FALSE(writer_.SavePicture(canvas_, dir_.file("stor.bmp"), error));
  EXPECT_FALSE(error.empty());
}

TEST_F(QtOutputs, PrintingWithoutAPrinterSaysSo) {
  if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "this machine has a printer";
  QWidget window;
  QtPrinter printer(&window);
  std::string error;
  EXPECT_FALSE(printer.PrintForm(error));
  EXPECT_EQ(error, "Fant ingen skriver.");
}

}  // namespace
}  // namespace tavlero::testing
