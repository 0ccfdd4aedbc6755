#pragma once
// main: the window with the menu bar and the client area in which the canvas lies.
// It holds no decisions: closing asks Form_QueryUnload, activation runs Form_GotFocus,
// and each menu entry calls its handler.

#include <QMainWindow>
#include <QSizeF>

#include "core/app.h"
#include "qt/canvas_widget.h"
#include "qt/qt_surface.h"

namespace tavlero {

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow(App& app, QtSurface& surface);

  CanvasWidget& canvas() { return *canvas_; }

  // The interior below the menu bar, in millimetres.
  QSizeF clientSizeMm() const;

  // Enabled is the input of main: its menus and its client area. The forms that main
  // owns stay usable while it is disabled.
  void setInputEnabled(bool enabled);
  bool inputEnabled() const;

  // Activates main and hands the focus on, as a click on it would.
  void focusMain();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  App& app_;
  QtSurface& surface_;
  QWidget* client_;
  CanvasWidget* canvas_;
};

}  // namespace tavlero
