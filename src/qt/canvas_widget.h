#pragma once
// The canvas on screen: a child of main's client area placed and sized as the surface
// says, painting only its visible part from the display list, with the demo rectangle
// over it. Mouse and keys go to the logic's handlers in the board's codes.

#include <QRect>
#include <QWidget>

#include "core/app.h"
#include "qt/board_painter.h"
#include "qt/qt_surface.h"

namespace tavlero {

class CanvasWidget : public QWidget, private SurfaceListener {
  Q_OBJECT

 public:
  CanvasWidget(App& app, QtSurface& surface, QWidget* parent);
  ~CanvasWidget() override;

  // The app's demo rectangle moved, or was shown or hidden.
  void demoRectangleChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  // Tab is a key of the board, not a way out of it.
  bool focusNextPrevChild(bool) override { return false; }

 private:
  void surfaceGeometryChanged() override;
  void surfaceImageCleared() override;
  void surfaceImageAdded(const BoardRect& bounds) override;
  void surfaceFocusRequested() override;

  using MouseHandler = void (*)(App&, int16_t Button, int16_t Shift, float X, float Y);
  // Calls handler with the modifiers and the pointer in board units.
  void forward(MouseHandler handler, int16_t button, const QMouseEvent* event);
  void press(const QMouseEvent* event);
  void queueRepaint();
  BoardScale scale() const;
  QRect demoPixels() const;

  App& app_;
  QtSurface& surface_;
  QRect shownDemo_;
  bool repaintQueued_ = false;
  // Whether the press of the click in progress has reached the logic: some window
  // systems deliver a double click's second press, others only the double click.
  bool pressDelivered_ = false;
};

}  // namespace tavlero
