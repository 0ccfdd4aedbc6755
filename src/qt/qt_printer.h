#pragma once
// The printer on Qt: the main window's picture goes to the default printer.

#include <QPointer>
#include <QWidget>

#include "platform/outputs.h"

namespace tavlero {

class QtPrinter : public Printer {
 public:
  // window: the main window, whose picture goes to paper.
  explicit QtPrinter(QWidget* window) : window_(window) {}
  bool PrintForm(std::string& error) override;

 private:
  QPointer<QWidget> window_;
};

}  // namespace tavlero
