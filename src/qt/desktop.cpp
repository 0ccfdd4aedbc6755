#include "qt/desktop.h"

#include <QApplication>

#include "qt/dialog_support.h"

namespace tavlero {

Desktop::Desktop(double dpi)
    : surface_(dpi),
      app_(surface_, Platform{ui_, dialog_, clipboard_, pictures_, printer_, forms_}),
      window_(app_, surface_) {
  // Message boxes and menus in the dialogs' own font.
  QApplication::setFont(dialogFont());
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
