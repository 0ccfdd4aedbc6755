#include "qt/desktop.h"

#include <QApplication>
#include <QFont>

namespace tavlero {

Desktop::Desktop(double dpi)
    : surface_(dpi),
      app_(surface_, Platform{ui_, dialog_, clipboard_, pictures_, printer_, forms_}),
      window_(app_, surface_) {
  // The dialogs are laid out in twips for the classic 8-point dialog font; a larger
  // default would clip their labels.
  QFont dialogFont(QStringLiteral("Arial"));
  dialogFont.setPointSize(8);
  QApplication::setFont(dialogFont);
  ui_.attach(&window_);
  dialog_.setParent(&window_);
  printer_ = QtPrinter(&window_);
  forms_.setParent(&window_);
}

Desktop::~Desktop() {
  // The forms and the platform must not reach main while it goes.
  ui_.attach(nullptr);
  app_.addMethodForm.reset();
  app_.methodInfoForm.reset();
  app_.aboutForm.reset();
}

}  // namespace tavlero
