#pragma once
// The platform of the headless tool: a message box prints its text on standard error
// and takes the first button, file dialogs cancel, and nothing is shown or printed.
// Picture files are Qt's own, made offscreen.

#include <memory>
#include <string>

#include "core/app.h"

namespace tavlero::cli {

class HeadlessUi : public Ui {
 public:
  int messages = 0;

  MsgResult MsgBox(const std::string& prompt, MsgButtons buttons, MsgIcon icon,
                   const std::string& title) override;
  void Beep() override {}
  void setCaption(const std::string& caption) override { caption_ = caption; }
  std::string caption() const override { return caption_; }
  void setMousePointer(int) override {}
  void setMainEnabled(bool enabled) override { enabled_ = enabled; }
  bool mainEnabled() const override { return enabled_; }
  void focusMain() override {}
  void DoEvents() override {}
  void refreshMain() override {}
  void demoRectangleChanged() override {}
  float mainScaleWidth() const override;
  float mainScaleHeight() const override;

 private:
  std::string caption_ = "Tavlero";
  bool enabled_ = true;
};

class HeadlessDialog : public CommonDialog {
 public:
  bool ShowOpen() override { return false; }
  bool ShowSave() override { return false; }
};

// Keeps the text it is given, so that a command can write what the copy command put there.
class HeadlessClipboard : public Clipboard {
 public:
  std::string text;
  void Clear() override { text.clear(); }
  void SetText(const std::string& value) override { text = value; }
  bool SetPicture(const Surface& canvas, std::string& error) override;
};

// The tool without Qt writes no pictures: its picture command starts the one with Qt.
class HeadlessPictures : public PictureWriter {
 public:
  bool SavePicture(const Surface& canvas, const std::string& path, PictureFormat format,
                   std::string& error) override;
};

class HeadlessPrinter : public Printer {
 public:
  bool PrintForm(std::string& error) override;
};

class HeadlessForms : public FormFactory {
 public:
  HeadlessForms();
  ~HeadlessForms() override;
  std::unique_ptr<MethodFormView> makeMethodForm() override;
  std::unique_ptr<MethodInfoView> makeMethodInfoForm() override;
  std::unique_ptr<AboutView> makeAboutForm() override;
  ProgramInfoView& programInfoForm() override { return *programInfo_; }

 private:
  std::unique_ptr<ProgramInfoView> programInfo_;
};

// Prints one line on standard error: the text (Windows-1252) with its line breaks as blanks.
void printMessage(const std::string& text);

}  // namespace tavlero::cli
