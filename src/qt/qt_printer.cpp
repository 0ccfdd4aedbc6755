#include "qt/qt_printer.h"

#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QPrinterInfo>

#include "core/cp1252.h"

namespace tavlero {

bool QtPrinter::PrintForm(std::string& error) {
  QPrinterInfo target = QPrinterInfo::defaultPrinter();
  if (target.isNull()) {
    error = "Fant ingen skriver.";
    return false;
  }
  if (!window_) {
    error = "Det er ikke noe vindu å skrive ut."_cp;
    return false;
  }
  QPixmap shot = window_->grab();
  QPrinter printer(target, QPrinter::HighResolution);
  QPainter painter;
  if (!painter.begin(&printer)) {
    error = "Skriveren kunne ikke startes.";
    return false;
  }
  // At the scale of the screen: one logical pixel of the window is one pixel at its DPI.
  const double scale = printer.resolution() / static_cast<double>(window_->logicalDpiX());
  const QSizeF logical = shot.deviceIndependentSize();
  painter.drawPixmap(QRectF(QPointF(0, 0), logical * scale), shot, QRectF(shot.rect()));
  if (!painter.end()) {
    error = "Utskriften kunne ikke sendes til skriveren.";
    return false;
  }
  return true;
}

}  // namespace tavlero
