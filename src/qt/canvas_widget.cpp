#include "qt/canvas_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "editing/gestures.h"
#include "editing/keys.h"
#include "editing/method_dialog.h"
#include "qt/input_codes.h"

namespace tavlero {

namespace {
// Far beyond any screen, well inside the range of widget coordinates.
constexpr double kMaxOffset = 1 << 30;

int toPixels(double value, double low, double high) {
  return std::isnan(value) ? 0 : static_cast<int>(std::clamp(std::round(value), low, high));
}
}  // namespace

CanvasWidget::CanvasWidget(App& app, QtSurface& surface, QWidget* parent)
    : QWidget(parent), app_(app), surface_(surface) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  surface_.setListener(this);
  surfaceGeometryChanged();
}

CanvasWidget::~CanvasWidget() {
  surface_.setListener(nullptr);
}

BoardScale CanvasWidget::scale() const {
  return {surface_.pixelsPerUnitX(), surface_.pixelsPerUnitY(), surface_.dpi()};
}

void CanvasWidget::surfaceGeometryChanged() {
  QRect place(toPixels(surface_.mmToPixels(surface_.Left()), -kMaxOffset, kMaxOffset),
              toPixels(surface_.mmToPixels(surface_.Top()), -kMaxOffset, kMaxOffset),
              toPixels(surface_.mmToPixels(surface_.Width()), 0, QWIDGETSIZE_MAX),
              toPixels(surface_.mmToPixels(surface_.Height()), 0, QWIDGETSIZE_MAX));
  if (place != geometry()) setGeometry(place);
  // A new scale moves everything that is drawn.
  queueRepaint();
}

void CanvasWidget::surfaceImageCleared() {
  queueRepaint();
}

void CanvasWidget::surfaceImageAdded(const BoardRect& bounds) {
  if (repaintQueued_ || !parentWidget()) return;
  BoardScale s = scale();
  QRectF drawn(QPointF(bounds.left * s.x, bounds.top * s.y),
               QPointF(bounds.right * s.x, bounds.bottom * s.y));
  QRectF visible = QRectF(rect()).intersected(QRectF(-pos(), parentWidget()->size()));
  if (drawn.intersects(visible)) queueRepaint();
}

void CanvasWidget::surfaceFocusRequested() {
  setFocus(Qt::OtherFocusReason);
}

void CanvasWidget::queueRepaint() {
  // One repaint of the visible part serves any number of operations drawn before it.
  if (repaintQueued_) return;
  update();
  repaintQueued_ = isVisible();
}

QRect CanvasWidget::demoPixels() const {
  const DemoRectangle& demo = app_.demoRectangle;
  BoardScale s = scale();
  return QRect(toPixels(demo.Left * s.x, -kMaxOffset, kMaxOffset),
               toPixels(demo.Top * s.y, -kMaxOffset, kMaxOffset), toPixels(demo.Width * s.x, 0, kMaxOffset),
               toPixels(demo.Height * s.y, 0, kMaxOffset));
}

void CanvasWidget::demoRectangleChanged() {
  QRect now = app_.demoRectangle.Visible ? demoPixels() : QRect();
  if (now == shownDemo_) return;
  if (!shownDemo_.isNull()) update(shownDemo_.adjusted(-2, -2, 2, 2));
  if (!now.isNull()) update(now.adjusted(-2, -2, 2, 2));
  shownDemo_ = now;
}

void CanvasWidget::paintEvent(QPaintEvent* event) {
  repaintQueued_ = false;
  QPainter painter(this);
  painter.fillRect(event->rect(), boardBackground());
  paintBoard(painter, surface_.Image(), scale(), event->rect());
  if (!shownDemo_.isNull()) {
    painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(shownDemo_);
  }
}

void CanvasWidget::forward(MouseHandler handler, int16_t button, const QMouseEvent* event) {
  BoardScale s = scale();
  handler(app_, button, shiftState(event->modifiers()), static_cast<float>(event->position().x() / s.x),
          static_cast<float>(event->position().y() / s.y));
}

void CanvasWidget::press(const QMouseEvent* event) {
  if (int16_t button = buttonCode(event->button())) forward(canvas_MouseDown, button, event);
}

void CanvasWidget::mousePressEvent(QMouseEvent* event) {
  pressDelivered_ = true;
  press(event);
}

void CanvasWidget::mouseMoveEvent(QMouseEvent* event) {
  forward(canvas_MouseMove, buttonSet(event->buttons()), event);
}

void CanvasWidget::mouseReleaseEvent(QMouseEvent* event) {
  pressDelivered_ = false;
  if (int16_t button = buttonCode(event->button())) forward(canvas_MouseUp, button, event);
}

void CanvasWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!pressDelivered_) press(event);
  pressDelivered_ = true;
  // Only the left button double-clicks; a second press of another button is a press.
  if (event->button() == Qt::LeftButton) canvas_DblClick(app_);
}

void CanvasWidget::keyPressEvent(QKeyEvent* event) {
  Qt::KeyboardModifiers modifiers = event->modifiers();
  if (int16_t code = windowsKeyCode(event->key(), modifiers))
    canvas_KeyDown(app_, code, shiftState(modifiers));
  if (int16_t ascii = keyAscii(event->text(), modifiers)) canvas_KeyPress(app_, ascii);
}

}  // namespace tavlero
