#pragma once
// The desktop program put together: the Qt surface and platform, the App over them and
// main. Built in this order so that each part exists before the next one needs it.

#include "core/app.h"
#include "qt/main_window.h"
#include "qt/qt_common_dialog.h"
#include "qt/qt_forms.h"
#include "qt/qt_outputs.h"
#include "qt/qt_printer.h"
#include "qt/qt_surface.h"
#include "qt/qt_ui.h"

namespace tavlero {

class Desktop {
 public:
  explicit Desktop(double dpi = QtSurface::screenDpi());
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  App& app() { return app_; }
  MainWindow& window() { return window_; }

 private:
  QtSurface surface_;
  QtUi ui_;
  QtCommonDialog dialog_;
  QtClipboard clipboard_;
  QtPictureWriter pictures_;
  QtPrinter printer_{nullptr};
  QtFormFactory forms_{app_};
  App app_;
  MainWindow window_;
};

}  // namespace tavlero
