// The Qt surface: the pixels of pictures drawn by surface operations and by the logic's
// own board drawing, and the picture file.

#include <gmock/gmock.h>

#include <QPrinterInfo>
#include <cmath>
#include <tuple>

#include "export/pictures.h"
#include "qt/board_painter.h"
#include "qt/qt_outputs.h"
#include "qt/qt_printer.h"
#include "qt_world.h"

namespace tavlero {
namespace {

const QColor kBlack(0, 0, 0), kRed(255, 0, 0), kGreen(0, 255, 0), kBlue(0, 0, 255);

// The board surface as start-up leaves it: units of 2 mm.
class QtSurfaceTest : public ::testing::Test, protected testing::QtWorld {
 protected:
  void SetUp() override { startCanvas(); }

  QImage render() {
    QString error;
    QImage picture = renderBoardImage(canvas, &error);
    EXPECT_FALSE(picture.isNull()) << error.toStdString();
    return picture;
  }

  QImage savedPicture() {
    testing::TempDir folder;
    std::string error;
    EXPECT_TRUE(QtPictureWriter().SavePicture(canvas, folder.file("brett.bmp"), PictureFormat::Bmp, error))
        << error;
    return QImage(QString::fromStdString(folder.file("brett.bmp")));
  }

  QPoint px(double x, double y) const {
    return QPointF(std::floor(x * canvas.pixelsPerUnitX()), std::floor(y * canvas.pixelsPerUnitY()))
        .toPoint();
  }
};

int countColour(const QImage& picture, const QRect& area, QColor colour) {
  int count = 0;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x) count += picture.pixelColor(x, y) == colour;
  return count;
}

// The directions in which a colour mostly runs: - rows, | columns, / rising, \ falling.
std::string runs(const QImage& picture, const QRect& area, QColor colour) {
  const QPoint steps[] = {{1, 0}, {0, 1}, {1, -1}, {1, 1}};
  int total = 0, along[4] = {};
  for (int y = area.top() + 1; y < area.bottom(); ++y)
    for (int x = area.left(); x < area.right(); ++x)
      if (picture.pixelColor(x, y) == colour) {
        ++total;
        for (int i = 0; i < 4; ++i) along[i] += picture.pixelColor(QPoint(x, y) + steps[i]) == colour;
      }
  std::string found;
  for (int i = 0; i < 4; ++i)
    if (along[i] * 4 > total) found += "-|/\\"[i];
  return found;
}

TEST_F(QtSurfaceTest, TextIsMeasuredInBoardUnits) {
  canvas.Font = {"Arial", 12, false};
  float line = canvas.TextHeight("Mg"), wide = canvas.TextWidth("Hello world");
  // Windows-1252 letters, not broken UTF-8: an accent leaves the width alone.
  EXPECT_EQ(std::tuple(canvas.TextHeight(""), canvas.TextHeight("a\r\nb\nc\rd"),
                       canvas.TextWidth("Hello world\r\nHi"), canvas.TextWidth("\xE5\xE9")),
            std::tuple(line, 4 * line, wide, canvas.TextWidth("ae")));
  // 12 points at 96 dpi are 16 pixels; a line is a little taller.
  EXPECT_THAT(line * canvas.pixelsPerUnitY(), ::testing::AllOf(::testing::Gt(16), ::testing::Lt(24)));
  canvas.setScaleWidth(canvas.ScaleWidth() / 2);  // units twice as long
  EXPECT_NEAR(canvas.TextWidth("Hello world"), wide / 2, 1e-4);
}

// Widths added up from characters and pairs are Qt's own for the whole line: in fonts that
// shape pair by pair (one with one-for-one substitutions) and in one with ligatures.
TEST_F(QtSurfaceTest, EveryPairOfCharactersMeasuresAsQtMeasuresIt) {
  const QImage device(1, 1, QImage::Format_RGB32);
  for (const FontSpec& font : {FontSpec{"Arial", 9, true}, FontSpec{"Liberation Serif", 15, false},
                               FontSpec{"DejaVu Sans", 6, false}}) {
    canvas.Font = font;
    const QFontMetricsF metrics(boardFont(font, canvas.dpi(), device), &device);
    int differ = 0;
    for (int first = 1; first < 256; ++first)
      for (int second = 1; second < 256; ++second) {
        if (first == '\r' || first == '\n' || second == '\r' || second == '\n') continue;
        const std::string text{'f', static_cast<char>(first), static_cast<char>(second), 'i'};
        const auto qt =
            static_cast<float>(metrics.horizontalAdvance(fromCp1252(text)) / canvas.pixelsPerUnitX());
        differ += canvas.TextWidth(text) != qt;
      }
    EXPECT_EQ(differ, 0) << font.Name;
  }
}

TEST_F(QtSurfaceTest, PictureHasTheSurfaceSizeAndRefusesWhatIsTooLarge) {
  canvas.setWidth(50.8f);  // two inches
  canvas.setHeight(25.4f);
  EXPECT_EQ(render().size(), QSize(192, 96));
  canvas.setWidth(5000);
  QString error;
  EXPECT_TRUE(renderBoardImage(canvas, &error).isNull());
  EXPECT_EQ(error, QStringLiteral("Bildet av brettet er for stort til å lages."));
}

TEST_F(QtSurfaceTest, EveryFillStyleHasItsPattern) {
  const std::pair<int16_t, std::string> fills[] = {{0, "-|/\\"}, {1, ""},   {2, "-"},  {3, "|"},
                                                   {4, "/"},     {5, "\\"}, {6, "-|"}, {7, "/\\"}};
  canvas.FillColor = 65280;
  canvas.ForeColor = 0;
  for (auto [style, pattern] : fills) {
    canvas.Cls();
    canvas.FillStyle = style;
    canvas.Box(10, 10, 60, 60);
    QImage picture = render();
    EXPECT_EQ(runs(picture, QRect(px(15, 15), px(55, 55)), kGreen), pattern) << style;
    EXPECT_EQ(picture.pixelColor(px(10, 35)), kBlack) << style;  // the outline
  }
}

TEST_F(QtSurfaceTest, TheLogicDrawsCellsLinksAndTheSelection) {
  ASSERT_TRUE(readBoard());
  QImage picture = render();
  QRect solid = cellPixels(0).toRect(), striped = cellPixels(1).toRect();
  EXPECT_EQ(runs(picture, solid.adjusted(3, 3, -3, -3), kBlue), "-|/\\");

  // The link between them: dashed.
  int from = solid.right() + 3, to = striped.left() - 10, dashes = 0;
  for (int y = solid.center().y() - 2; y <= solid.center().y() + 2; ++y)
    dashes = std::max(dashes, countColour(picture, QRect(from, y, to - from, 1), kBlack));
  EXPECT_GT(dashes, (to - from) / 3);
  EXPECT_LT(dashes, to - from);

  // The saved picture keeps the selection, and grows with the zoom.
  app.store.selectedCell = 0;
  redrawBoard(app);
  QImage saved = savedPicture();
  QRect leftSide(QPoint(solid.left() - 2, solid.top() + 3), QPoint(solid.left() + 2, solid.bottom() - 3));
  EXPECT_GT(countColour(saved, leftSide, kRed), leftSide.height());
  EXPECT_EQ(countColour(picture, leftSide, kRed), 0);
  zoomIn(app);
  const QImage larger = savedPicture();
  EXPECT_EQ(std::tuple(larger.width() > saved.width(), larger.height() > saved.height()),
            std::tuple(true, true));
}

// Selecting and deselecting paints a cell again over the retained image; through its
// stripes the earlier, smoothed letters must not show, however often it is done.
TEST_F(QtSurfaceTest, ACellSelectedOftenLooksAsAfterARedraw) {
  ASSERT_TRUE(readBoard());
  for (int round = 0; round < 10; ++round)
    for (int16_t selected : {int16_t{1}, int16_t{-1}}) {
      app.store.selectedCell = selected;
      drawCell(app, 1);
    }
  const QImage repainted = render();
  redrawBoard(app);
  EXPECT_TRUE(render() == repainted);
}

// The menu's picture is BMP whatever its name; PNG belongs to the headless tool.
TEST_F(QtSurfaceTest, TheMenuWritesBmpAlsoUnderAPngName) {
  ASSERT_TRUE(readBoard());
  QtPictureWriter writer;
  App menu{canvas, Platform{ui, dialog, clipboard, writer, printer, forms}};
  testing::TempDir folder;
  dialog.saveAnswers.push_back(folder.file("brett.png"));
  saveBoardPicture(menu);
  EXPECT_EQ(testing::readFile(folder.file("brett.png")).substr(0, 2), "BM");
}

TEST(QtPrinter, PrintingWithoutAPrinterSaysSo) {
  testing::ensureQtApp();
  if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "this machine has a printer";
  QWidget window;
  QtPrinter printer(&window);
  std::string error;
  EXPECT_EQ(std::tuple(printer.PrintForm(error), error), std::tuple(false, "Fant ingen skriver."));
}

}  // namespace
}  // namespace tavlero
