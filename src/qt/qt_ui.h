#pragma once
// The window system for the logic: message boxes, beep, and main's caption, pointer,
// enabling, focus and size. Until a main window is attached only the message boxes, the
// beep and the event processing work, which is all that a program without one needs.

#include "platform/ui.h"

namespace tavlero {

class MainWindow;

class QtUi : public Ui {
 public:
  void attach(MainWindow* window) { window_ = window; }

  MsgResult MsgBox(const std::string& prompt, MsgButtons buttons, MsgIcon icon,
                   const std::string& title) override;
  void Beep() override;

  void setCaption(const std::string& caption) override;
  std::string caption() const override;
  void setMousePointer(int code) override;

  void setMainEnabled(bool enabled) override;
  bool mainEnabled() const override;
  void focusMain() override;

  void DoEvents() override;
  void refreshMain() override;
  void demoRectangleChanged() override;

  float mainScaleWidth() const override;
  float mainScaleHeight() const override;

 private:
  MainWindow* window_ = nullptr;
};

}  // namespace tavlero
