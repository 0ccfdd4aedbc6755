#pragma once
// The clipboard, the picture file and the printer on Qt. Pictures are rendered from the
// canvas's display list on demand; a board too large to render is refused with a reason.

#include <QPointer>
#include <QWidget>

#include "platform/outputs.h"

namespace tavlero {

class QtClipboard : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
  bool SetPicture(const Surface& canvas, std::string& error) override;
};

class QtPictureWriter : public PictureWriter {
 public:
  // BMP, or PNG for a path that ends in ".png".
  bool SavePicture(const Surface& canvas, const std::string& path, PictureFormat format,
                   std::string& error) override;
};

class QtPrinter : public Printer {
 public:
  // window: the main window, whose picture goes to paper.
  explicit QtPrinter(QWidget* window) : window_(window) {}
  bool PrintForm(std::string& error) override;

 private:
  QPointer<QWidget> window_;
};

}  // namespace tavlero
