#include "qt/qt_outputs.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

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

}  // namespace tavlero
