// The Qt surface and the painter: text measures, and pixels of pictures drawn both by
// direct surface operations and through the logic's own board drawing.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>

#include "board/board.h"
#include "core/record.h"
#include "files/project_file.h"
#include "qt/board_painter.h"
#include "qt/qt_surface.h"
#include "qt_world.h"

namespace tavlero {
namespace {

using testing::dataPath;

class QtSurfaceTest : public ::testing::Test, protected testing::QtWorld {
 protected:
  // A surface 100 by 80 board units of 2 mm, as the zoom leaves it.
  void SetUp() override {
    canvas.setWidth(200);
    canvas.setHeight(160);
    canvas.setScaleWidth(100);
    canvas.setScaleHeight(80);
  }

  QImage render() {
    QString error;
    QImage picture = renderBoardImage(canvas, &error);
    EXPECT_FALSE(picture.isNull()) << error.toStdString();
    return picture;
  }

  QPoint px(double x, double y) const {
    return QPoint(static_cast<int>(std::floor(x * canvas.pixelsPerUnitX())),
                  static_cast<int>(std::floor(y * canvas.pixelsPerUnitY())));
  }
};

int countColour(const QImage& picture, const QRect& area, QColor colour) {
  int count = 0;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x)
      if (picture.pixelColor(x, y) == colour) ++count;
  return count;
}

TEST_F(QtSurfaceTest, TextMeasuresFollowFontAndScale) {
  canvas.Font = {"Arial", 12, false};
  float line = canvas.TextHeight("Mg");
  EXPECT_GT(line, 0);
  EXPECT_FLOAT_EQ(canvas.TextHeight(""), line);
  EXPECT_FLOAT_EQ(canvas.TextHeight("a\r\nb"), 2 * line);
  EXPECT_FLOAT_EQ(canvas.TextHeight("a\nb\rc"), 3 * line);
  EXPECT_FLOAT_EQ(canvas.TextWidth(""), 0);

  float regular = canvas.TextWidth("Hello world");
  EXPECT_GT(regular, canvas.TextWidth("Hello"));
  EXPECT_FLOAT_EQ(canvas.TextWidth("Hello world\r\nHi"), regular);
  canvas.Font.Bold = true;
  EXPECT_GT(canvas.TextWidth("Hello world"), regular);
  canvas.Font.Bold = false;

  // 12 points at 96 dpi are 16 pixels; a line is a little taller than the size.
  double linePixels = line * canvas.pixelsPerUnitY();
  EXPECT_GT(linePixels, 16);
  EXPECT_LT(linePixels, 24);

  // Units twice as long: the same text is half as many units wide.
  canvas.setScaleWidth(50);
  EXPECT_NEAR(canvas.TextWidth("Hello world"), regular / 2, 1e-4);

  // Windows-1252 bytes are letters, not broken UTF-8: three letters, three widths.
  float aeoa = canvas.TextWidth("\xE6\xF8\xE5");
  EXPECT_NEAR(aeoa, canvas.TextWidth("\xE6") + canvas.TextWidth("\xF8") + canvas.TextWidth("\xE5"), 0.05);
  EXPECT_LT(aeoa, canvas.TextWidth("???????"));
}

TEST_F(QtSurfaceTest, PictureHasTheSurfaceSizeAndRefusesWhatIsTooLarge) {
  canvas.setWidth(50.8f);  // two inches
  canvas.setHeight(25.4f);
  QImage picture = render();
  EXPECT_EQ(picture.size(), QSize(192, 96));
  EXPECT_EQ(picture.pixelColor(5, 5), boardBackground());

  for (auto [width, height] : {std::pair{5000.0f, 10.0f}, {10.0f, 5000.0f}, {3000.0f, 3000.0f}}) {
    canvas.setWidth(width);
    canvas.setHeight(height);
    QString error;
    EXPECT_TRUE(renderBoardImage(canvas, &error).isNull()) << width << " x " << height;
    EXPECT_EQ(error, QStringLiteral("Bildet av brettet er for stort til å lages."));
  }
}

TEST_F(QtSurfaceTest, BoxFillsFollowFillStyle) {
  const QColor green(0, 255, 0);
  canvas.FillColor = 65280;
  canvas.ForeColor = 0;

  auto fill = [&](int16_t style) {
    canvas.Cls();
    canvas.FillStyle = style;
    canvas.Box(10, 10, 60, 60);
    return render();
  };
  QRect inside(px(15, 15), px(55, 55));

  QImage solid = fill(0);
  EXPECT_EQ(countColour(solid, inside, green), inside.width() * inside.height());
  EXPECT_EQ(solid.pixelColor(px(10, 35)), QColor(0, 0, 0));  // the outline

  for (int16_t none : {int16_t{1}, int16_t{8}, int16_t{-3}, int16_t{200}})
    EXPECT_EQ(countColour(fill(none), inside, green), 0) << none;

  // Stripes: every row (horizontal) or every column (vertical) is all or nothing.
  auto uniformLines = [&](const QImage& picture, bool rows) {
    int full = 0, empty = 0;
    for (int i = 0; i < inside.height(); ++i) {
      QRect line = rows ? QRect(inside.left(), inside.top() + i, inside.width(), 1)
                        : QRect(inside.left() + i, inside.top(), 1, inside.height());
      int n = countColour(picture, line, green);
      if (n == 0)
        ++empty;
      else if (n == (rows ? line.width() : line.height()))
        ++full;
      else
        return false;
    }
    return full > 0 && empty > full;
  };
  EXPECT_TRUE(uniformLines(fill(2), true));
  EXPECT_FALSE(uniformLines(fill(2), false));
  EXPECT_TRUE(uniformLines(fill(3), false));
  EXPECT_FALSE(uniformLines(fill(3), true));

  // Diagonals: 4 rises to the right, 5 falls to the right; 6 and 7 cross.
  auto follows = [&](const QImage& picture, int dy) {
    int along = 0, across = 0;
    for (int y = inside.top() + 1; y < inside.bottom(); ++y)
      for (int x = inside.left(); x < inside.right(); ++x)
        if (picture.pixelColor(x, y) == green) {
          if (picture.pixelColor(x + 1, y + dy) == green) ++along;
          if (picture.pixelColor(x + 1, y - dy) == green) ++across;
        }
    return along > 0 && across == 0;
  };
  EXPECT_TRUE(follows(fill(4), -1));
  EXPECT_TRUE(follows(fill(5), 1));
  QImage cross = fill(6);
  EXPECT_TRUE(uniformLines(cross, true) || countColour(cross, inside, green) > inside.width());
  EXPECT_FALSE(follows(fill(7), 1));
  EXPECT_FALSE(follows(fill(7), -1));
  EXPECT_GT(countColour(fill(7), inside, green), 0);
}

TEST_F(QtSurfaceTest, LinesCirclesAndTextLandWhereTheyWereDrawn) {
  canvas.ForeColor = 0;
  canvas.DrawStyle = 1;
  canvas.Line(5, 20, 95, 20);
  canvas.DrawStyle = 0;
  canvas.setDrawWidth(3);
  canvas.Line(5, 40, 95, 40);
  canvas.setDrawWidth(1);
  canvas.FillStyle = 0;
  canvas.FillColor = 255;
  canvas.Circle(50, 60, 5);
  canvas.ForeColor = 128;
  canvas.Font = {"Arial", 14, true};
  canvas.CurrentX = 10;
  canvas.CurrentY = 65;
  canvas.Print("Tavlero");
  float textRight = canvas.CurrentX;
  float textBottom = 65 + canvas.TextHeight("Tavlero");
  QImage picture = render();

  const QColor black(0, 0, 0);
  auto blackInRow = [&](double y) {
    QRect row(px(5, y).x(), px(5, y).y() - 1, px(95, y).x() - px(5, y).x(), 3);
    return countColour(picture, row, black);
  };
  int dashed = blackInRow(20);
  int run = px(95, 0).x() - px(5, 0).x();
  EXPECT_GT(dashed, run / 3);
  EXPECT_LT(dashed, run * 3 / 4);            // gaps between the dashes
  EXPECT_GE(blackInRow(40), (run - 2) * 3);  // a solid line three pixels wide

  QPoint centre = px(50, 60);
  EXPECT_EQ(picture.pixelColor(centre), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(px(50, 66)), boardBackground());

  // The text is dark red, inside its measured extent and nowhere else.
  const QColor darkRed(128, 0, 0);
  QRect extent(px(10, 65), px(textRight, textBottom));
  int inExtent = countColour(picture, extent.adjusted(-1, -1, 1, 1), darkRed);
  EXPECT_GT(inExtent, 20);
  EXPECT_EQ(countColour(picture, picture.rect(), darkRed), inExtent);
}

TEST_F(QtSurfaceTest, PainterDrawsOnlyWhatMeetsTheArea) {
  canvas.FillStyle = 0;
  canvas.FillColor = 255;
  canvas.Box(2, 2, 8, 8);
  canvas.Box(60, 60, 70, 70);
  QImage picture(px(100, 80).x(), px(100, 80).y(), QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  BoardScale scale{canvas.pixelsPerUnitX(), canvas.pixelsPerUnitY(), canvas.dpi()};
  paintBoard(painter, canvas.Image(), scale, QRectF(QPointF(0, 0), QPointF(px(20, 20))));
  painter.end();
  EXPECT_EQ(picture.pixelColor(px(5, 5)), QColor(255, 0, 0));
  EXPECT_EQ(picture.pixelColor(px(65, 65)), QColor(Qt::white));
}

TEST_F(QtSurfaceTest, FarAwayAndDegenerateOperationsPaintWithoutHarm) {
  canvas.FillStyle = 0;
  canvas.FillColor = 255;
  canvas.ForeColor = 0;
  canvas.Line(1, 1, 1e9f, 1);
  canvas.Line(-1e30f, 5, 1e30f, 5);
  canvas.Box(-1e9f, -1e9f, 1e9f, 30);
  canvas.Box(20, 20, 20, 20);
  canvas.Circle(50, 50, 1e12f);
  canvas.Circle(50, 50, -3);
  canvas.Font = {"", 1e9f, true};
  canvas.CurrentX = -1e7f;
  canvas.Print(std::string("a\0b\x81\x8d\xff", 6));
  canvas.setDrawWidth(32767);
  canvas.Line(0, 0, 10, 10);
  QImage picture = render();
  // The box reaching far out fills what is in view.
  EXPECT_EQ(picture.pixelColor(px(40, 20)), QColor(255, 0, 0));
}

// The logic draws a small board on the real surface: cells, fills, links, selection.
class QtBoardTest : public QtSurfaceTest {
 protected:
  void SetUp() override {
    startCanvas();
    ASSERT_TRUE(readProject(app, dataPath("qt/board.tvl")));
    ASSERT_EQ(app.store.itemList.ListCount(), 3);
  }
};

TEST_F(QtBoardTest, CellsLinksAndSelectionShowInThePicture) {
  QImage picture = render();
  const QColor blue(0, 0, 255), green(0, 255, 0), black(0, 0, 0), red(255, 0, 0);

  // The solid cell: its inside is blue but for its two lines of text.
  QRectF solid = cellPixels(0);
  QRect solidInside(QPoint(solid.left() + 3, solid.top() + 3), QPoint(solid.right() - 3, solid.bottom() - 3));
  EXPECT_GT(countColour(picture, solidInside, blue), solidInside.width() * solidInside.height() * 6 / 10);
  EXPECT_EQ(picture.pixelColor(QPoint(solid.left() + 0.5, (solid.top() + solid.bottom()) / 2)), black);

  // The striped cell: green rows with background rows between them, right of the text.
  QRectF striped = cellPixels(1);
  int x = static_cast<int>(striped.right() - 4);
  int greenRows = 0, plainRows = 0;
  for (int y = static_cast<int>(striped.top() + 3); y < striped.bottom() - 3; ++y) {
    QColor c = picture.pixelColor(x, y);
    if (c == green)
      ++greenRows;
    else if (c == boardBackground())
      ++plainRows;
  }
  EXPECT_GT(greenRows, 2);
  EXPECT_GT(plainRows, greenRows);

  // The link to the right: dashed between the two cells.
  int row = static_cast<int>((solid.top() + solid.bottom()) / 2);
  int from = static_cast<int>(solid.right() + 3), to = static_cast<int>(striped.left() - 10);
  int dashes = 0;
  for (int y = row - 2; y <= row + 2; ++y)
    dashes = std::max(dashes, countColour(picture, QRect(from, y, to - from, 1), black));
  EXPECT_GT(dashes, (to - from) / 3);
  EXPECT_LT(dashes, to - from);

  // Selected, the solid cell has a red outline.
  app.store.selectedCell = 0;
  redrawBoard(app);
  QImage selected = render();
  QRect leftSide(QPoint(solid.left() - 2, solid.top() + 3), QPoint(solid.left() + 2, solid.bottom() - 3));
  EXPECT_GT(countColour(selected, leftSide, red), leftSide.height());
  EXPECT_EQ(countColour(picture, leftSide, red), 0);
}

}  // namespace
}  // namespace tavlero
