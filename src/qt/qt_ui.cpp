#include "qt/qt_ui.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "core/cp1252.h"
#include "qt/main_window.h"

namespace tavlero {

namespace {
QMessageBox::Icon qtIcon(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::Critical:
      return QMessageBox::Critical;
    case MsgIcon::Exclamation:
      return QMessageBox::Warning;
    case MsgIcon::Information:
      return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}
}  // namespace

MsgResult QtUi::MsgBox(const std::string& prompt, MsgButtons buttons, MsgIcon icon,
                       const std::string& title) {
  QMessageBox box(qtIcon(icon), fromCp1252(title), fromCp1252(prompt), QMessageBox::NoButton, window_);
  switch (buttons) {
    case MsgButtons::OK:
      box.setDefaultButton(box.addButton(QMessageBox::Ok));
      box.exec();
      return MsgResult::OK;
    case MsgButtons::YesNo:
      box.setDefaultButton(box.addButton(QMessageBox::Yes));
      box.addButton(QMessageBox::No);
      break;
    case MsgButtons::YesNoCancel:
      box.setDefaultButton(box.addButton(QMessageBox::Yes));
      box.addButton(QMessageBox::No);
      box.setEscapeButton(box.addButton(QMessageBox::Cancel));
      break;
  }
  box.exec();
  QAbstractButton* clicked = box.clickedButton();
  if (clicked == box.button(QMessageBox::Yes)) return MsgResult::Yes;
  if (clicked == box.button(QMessageBox::No)) return MsgResult::No;
  return buttons == MsgButtons::YesNo ? MsgResult::No : MsgResult::Cancel;
}

void QtUi::Beep() {
  QApplication::beep();
}

void QtUi::setCaption(const std::string& caption) {
  if (window_) window_->setWindowTitle(fromCp1252(caption));
}

std::string QtUi::caption() const {
  return window_ ? utf8ToCp1252(window_->windowTitle().toStdString()) : std::string();
}

void QtUi::setMousePointer(int code) {
  if (!window_) return;
  if (code == kPointerSizeAll)
    window_->setCursor(Qt::SizeAllCursor);
  else
    window_->unsetCursor();
}

void QtUi::setMainEnabled(bool enabled) {
  if (window_) window_->setInputEnabled(enabled);
}

bool QtUi::mainEnabled() const {
  return !window_ || window_->inputEnabled();
}

void QtUi::focusMain() {
  if (window_) window_->focusMain();
}

void QtUi::DoEvents() {
  QCoreApplication::processEvents();
}

void QtUi::refreshMain() {
  if (window_) window_->repaint();
}

void QtUi::demoRectangleChanged() {
  if (window_) window_->canvas().demoRectangleChanged();
}

float QtUi::mainScaleWidth() const {
  return window_ ? static_cast<float>(window_->clientSizeMm().width()) : 0;
}

float QtUi::mainScaleHeight() const {
  return window_ ? static_cast<float>(window_->clientSizeMm().height()) : 0;
}

}  // namespace tavlero
