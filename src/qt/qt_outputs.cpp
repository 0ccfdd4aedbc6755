#include "qt/qt_outputs.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QPrinterInfo>

#include "core/cp1252.h"
#include "files/save_file.h"
#include "qt/board_painter.h"
#include "qt/qt_surface.h"

namespace tavlero {

namespace {

QImage boardImage(const Surface& canvas, std::string& error) {
  QString reason;
  QImage picture = renderBoardImage(canvas, &reason);
  if (picture.isNull()) error = utf8ToCp1252(reason.toStdString());
  return picture;
}

}  // namespace

void QtClipboard::Clear() {
  QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetText(const std::string& text) {
  QGuiApplication::clipboard()->setText(fromCp1252(text));
}

bool QtClipboard::SetPicture(const Surface& canvas, std::string& error) {
  QImage picture = boardImage(canvas, error);
  if (picture.isNull()) return false;
  QGuiApplication::clipboard()->setImage(picture);
  return true;
}

bool QtPictureWriter::SavePicture(const Surface& canvas, const std::string& path, PictureFormat format,
                                  std::string& error) {
  QImage picture = boardImage(canvas, error);
  if (picture.isNull()) return false;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!picture.save(&buffer, format == PictureFormat::Png ? "PNG" : "BMP")) {
    error = "Bildet kunne ikke lages.";
    return false;
  }
  // Through the one save routine, so a failed write leaves an older picture whole.
  return saveFileAtomically(path, std::string_view(bytes.constData(), static_cast<size_t>(bytes.size())),
                            error);
}

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
