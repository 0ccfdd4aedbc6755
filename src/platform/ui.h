#pragma once
// What the logic needs of the window system for main: message boxes, the beep, the
// caption, the pointer, enabling and focus, pending events and the client size.
// All texts are Windows-1252.

#include <string>

namespace tavlero {

enum class MsgButtons { OK, YesNo, YesNoCancel };
enum class MsgIcon { Critical, Exclamation, Information };
enum class MsgResult { OK, Yes, No, Cancel };

// Mouse pointer codes of main.
constexpr int kPointerDefault = 0;
constexpr int kPointerSizeAll = 15;

class Ui {
 public:
  virtual ~Ui() = default;

  // Blocks until answered; the first button is the default.
  virtual MsgResult MsgBox(const std::string& prompt, MsgButtons buttons, MsgIcon icon,
                           const std::string& title) = 0;
  virtual void Beep() = 0;

  virtual void setCaption(const std::string& caption) = 0;
  virtual std::string caption() const = 0;
  virtual void setMousePointer(int code) = 0;

  virtual void setMainEnabled(bool enabled) = 0;
  virtual bool mainEnabled() const = 0;
  // Gives main the focus; main hands it on to the canvas.
  virtual void focusMain() = 0;

  virtual void DoEvents() = 0;
  virtual void refreshMain() = 0;
  // The demo rectangle of the app moved, or was shown or hidden.
  virtual void demoRectangleChanged() = 0;

  // Interior of main in millimetres.
  virtual float mainScaleWidth() const = 0;
  virtual float mainScaleHeight() const = 0;
};

}  // namespace tavlero
