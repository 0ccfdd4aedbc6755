#pragma once
// A scripted fake platform: every call the logic makes of the window system is recorded,
// and every question it asks is answered from a queue the test fills in advance.

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "core/app.h"
#include "program/startup.h"
#include "test_surface.h"

namespace tavlero::testing {

struct Message {
  std::string prompt;
  MsgButtons buttons;
  MsgIcon icon;
  std::string title;
};

class FakeUi : public Ui {
 public:
  std::deque<MsgResult> answers;  // next answers to MsgBox; empty: the first button's
  std::vector<Message> messages;
  int beeps = 0;
  std::string captionText = "Tavlero";
  int pointer = kPointerDefault;
  bool enabled = true;
  float clientWidth = twipsToMillimetres(kMainClientWidthTwips);
  float clientHeight = twipsToMillimetres(kMainClientHeightTwips);

  MsgResult MsgBox(const std::string& prompt, MsgButtons buttons, MsgIcon icon,
                   const std::string& title) override;
  void Beep() override { ++beeps; }
  void setCaption(const std::string& caption) override { captionText = caption; }
  std::string caption() const override { return captionText; }
  void setMousePointer(int code) override { pointer = code; }
  void setMainEnabled(bool value) override { enabled = value; }
  bool mainEnabled() const override { return enabled; }
  void focusMain() override {}
  void DoEvents() override {}
  void refreshMain() override {}
  void demoRectangleChanged() override {}
  float mainScaleWidth() const override { return clientWidth; }
  float mainScaleHeight() const override { return clientHeight; }
};

// Answers ShowOpen/ShowSave from queues of full paths; an empty string, or an empty
// queue, is a cancel.
class FakeCommonDialog : public CommonDialog {
 public:
  std::deque<std::string> openAnswers;
  std::deque<std::string> saveAnswers;
  int opens = 0;
  int saves = 0;
  std::vector<std::string> filtersSeen;
  bool ShowOpen() override { return answer(openAnswers, opens); }
  bool ShowSave() override { return answer(saveAnswers, saves); }

 private:
  bool answer(std::deque<std::string>& queue, int& shown);
};

class FakeClipboard : public Clipboard {
 public:
  bool hasText = false;
  std::string text;
  int pictures = 0;
  int clears = 0;
  void Clear() override {
    ++clears;
    hasText = false;
    text.clear();
  }
  void SetText(const std::string& value) override {
    hasText = true;
    text = value;
  }
  bool SetPicture(const Surface&, std::string&) override { return ++pictures > 0; }
};

class FakePictures : public PictureWriter {
 public:
  std::vector<std::string> paths;
  bool fail = false;
  bool SavePicture(const Surface& canvas, const std::string& path, PictureFormat format,
                   std::string& error) override;
};

class FakePrinter : public Printer {
 public:
  int printed = 0;
  bool PrintForm(std::string&) override { return ++printed > 0; }
};

class FakeMethodForm : public MethodFormView {
 public:
  std::string captionText = "Legg til ny metode";
  std::string name, summary, description;
  std::string errorCaption;
  bool errorVisible = false;
  void Show() override {}
  void Unload() override {}
  void setCaption(const std::string& caption) override { captionText = caption; }
  std::string methodName() const override { return name; }
  std::string shortDescription() const override { return summary; }
  std::string longDescription() const override { return description; }
  void setTexts(const std::string& n, const std::string& s, const std::string& l) override {
    name = n;
    summary = s;
    description = l;
  }
  void focusNameSelectAll() override {}
  void setErrorLabel(const std::string& caption, bool visible) override {
    errorCaption = caption;
    errorVisible = visible;
  }
  void setOkDefault(bool) override {}
};

class FakeProgramInfo : public ProgramInfoView {
 public:
  bool shown = false;
  void Show(const std::string&, const std::string&) override { shown = true; }
  void Hide() override { shown = false; }
  void setOkDefault(bool) override {}
};

class FakeMethodInfo : public MethodInfoView {
 public:
  bool shown = false;
  float width = 11625, height = 9225;
  float buttonLeft = 0, buttonTop = 0, browserWidth = 0, browserHeight = 0;
  void Show() override { shown = true; }
  void Hide() override { shown = false; }
  void Navigate(const std::string&) override {}
  void SetFocus() override {}
  float formWidth() const override { return width; }
  float formHeight() const override { return height; }
  void placeButton(float left, float top) override {
    buttonLeft = left;
    buttonTop = top;
  }
  void sizeBrowser(float w, float h) override {
    browserWidth = w;
    browserHeight = h;
  }
};

class FakeAbout : public AboutView {
 public:
  bool shown = false;
  void Show() override { shown = true; }
  void Unload() override { shown = false; }
};

// Hands out fakes and keeps a pointer to the last one made, for the test to inspect.
class FakeForms : public FormFactory {
 public:
  FakeMethodInfo* lastMethodInfo = nullptr;
  FakeAbout* lastAbout = nullptr;
  FakeProgramInfo programInfo;
  std::unique_ptr<MethodFormView> makeMethodForm() override { return std::make_unique<FakeMethodForm>(); }
  std::unique_ptr<MethodInfoView> makeMethodInfoForm() override { return made(lastMethodInfo); }
  std::unique_ptr<AboutView> makeAboutForm() override { return made(lastAbout); }
  ProgramInfoView& programInfoForm() override { return programInfo; }

 private:
  template <typename Form>
  static std::unique_ptr<Form> made(Form*& last) {
    auto form = std::make_unique<Form>();
    last = form.get();
    return form;
  }
};

// A fake of every platform interface, for an App over any surface.
struct FakePlatform {
  FakeUi ui;
  FakeCommonDialog dialog;
  FakeClipboard clipboard;
  FakePictures pictures;
  FakePrinter printer;
  FakeForms forms;
  Platform platform() { return Platform{ui, dialog, clipboard, pictures, printer, forms}; }
};

// The whole fake world with an App over a TestSurface.
struct FakeWorld : FakePlatform {
  TestSurface canvas;
  App app{canvas, platform()};

  // Appends a cell record the way the method dialog builds one, with its geometry
  // placeholder and long description; returns its index.
  int16_t addCell(const std::string& name, float x, float y, const std::string& summary = "",
                  int32_t color = defaults::cellColor, int32_t fill = defaults::fillStyle,
                  const std::string& longDescription = "");
  // Appends a fresh link record with the placeholder geometry.
  int16_t addLinkRecord(const std::string& source, const std::string& target);
};

// A fresh empty folder under the system's temporary folder, removed by its destructor.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return path_; }  // ends in '/'
  std::string file(const std::string& name) const { return path_ + name; }

 private:
  std::string path_;
};

std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);
// A file of tests/data.
std::string dataPath(const std::string& relative);
// The cases of a table in tests/data: one a line, its fields apart by TAB, where \r, \n, \t,
// \\ and \xHH stand for their bytes. Blank lines and lines that start with # are comments.
std::vector<std::vector<std::string>> readCases(const std::string& relative);
// A case table's field of number groups, "1 2;3 4", as {{1, 2}, {3, 4}}; a group that is
// not all numbers is empty.
std::vector<std::vector<float>> numberGroups(const std::string& field);

}  // namespace tavlero::testing
