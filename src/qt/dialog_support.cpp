#include "qt/dialog_support.h"

#include <QLabel>
#include <algorithm>
#include <cmath>

#include "core/cp1252.h"
#include "qt/qt_surface.h"

namespace tavlero {

namespace {
constexpr double kTwipsPerInch = 1440;
}

QFont dialogFont() {
  QFont font(QStringLiteral("Arial"));
  font.setPointSize(8);
  return font;
}

int pixels(double twips) {
  return static_cast<int>(std::lround(twips / kTwipsPerInch * QtSurface::screenDpi()));
}

float twips(int pixels) {
  return static_cast<float>(pixels * kTwipsPerInch / QtSurface::screenDpi());
}

void place(QWidget* widget, double left, double top, double width, double height) {
  int widthInPixels = pixels(width);
  // The boxes were measured for another font: a label grows rather than cut its text.
  if (qobject_cast<QLabel*>(widget)) widthInPixels = std::max(widthInPixels, widget->sizeHint().width());
  widget->setGeometry(pixels(left), pixels(top), widthInPixels, pixels(height));
}

QString multiLineText(const std::string& text) {
  return fromCp1252(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

std::string logicText(QString text) {
  return utf8ToCp1252(text.replace(QLatin1Char('\n'), QStringLiteral("\r\n")).toStdString());
}

void showAndActivate(QWidget* window) {
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace tavlero
