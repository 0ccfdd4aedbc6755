#include "qt/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLayout>
#include <QMenuBar>
#include <cmath>

#include "program/startup.h"
#include "qt/main_menus.h"

namespace tavlero {

MainWindow::MainWindow(App& app, QtSurface& surface)
    : app_(app),
      surface_(surface),
      client_(new QWidget(this)),
      canvas_(new CanvasWidget(app, surface, client_)) {
  setWindowTitle(QStringLiteral("Tavlero"));
  setCentralWidget(client_);
  buildMenuBar(*menuBar(), app_, *this);

  auto pixels = [&](float twips) {
    return static_cast<int>(std::lround(surface_.mmToPixels(twipsToMillimetres(twips))));
  };
  resize(pixels(kMainClientWidthTwips), pixels(kMainClientHeightTwips) + menuBar()->sizeHint().height());
  move(pixels(kMainLeftTwips), pixels(kMainTopTwips));
  // Lay out now, so that the client size is known before the window first shows.
  layout()->activate();
}

QSizeF MainWindow::clientSizeMm() const {
  return {client_->width() * 25.4 / surface_.dpi(), client_->height() * 25.4 / surface_.dpi()};
}

void MainWindow::setInputEnabled(bool enabled) {
  menuBar()->setEnabled(enabled);
  client_->setEnabled(enabled);
}

bool MainWindow::inputEnabled() const {
  return client_->isEnabled();
}

void MainWindow::focusMain() {
  activateWindow();
  Form_GotFocus(app_);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // A disabled window takes no input, its close box included.
  if (event->spontaneous() && !inputEnabled()) {
    event->ignore();
    return;
  }
  if (!Form_QueryUnload(app_)) {
    event->ignore();
    return;
  }
  event->accept();
  // The other forms go with main.
  QCoreApplication::quit();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) Form_GotFocus(app_);
}

}  // namespace tavlero
