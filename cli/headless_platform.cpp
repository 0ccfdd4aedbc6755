#include "headless_platform.h"

#include <cstdio>

#include "core/cp1252.h"
#include "program/startup.h"

namespace tavlero::cli {

namespace {

class NoMethodForm : public MethodFormView {
 public:
  void Show() override {}
  void Unload() override {}
  void setCaption(const std::string&) override {}
  std::string methodName() const override { return {}; }
  std::string shortDescription() const override { return {}; }
  std::string longDescription() const override { return {}; }
  void setTexts(const std::string&, const std::string&, const std::string&) override {}
  void focusNameSelectAll() override {}
  void setErrorLabel(const std::string&, bool) override {}
  void setOkDefault(bool) override {}
};

class NoProgramInfo : public ProgramInfoView {
 public:
  void Show(const std::string&, const std::string&) override {}
  void Hide() override {}
  void setOkDefault(bool) override {}
};

// The info form at its designed outer size in twips.
class NoMethodInfo : public MethodInfoView {
 public:
  void Show() override {}
  void Hide() override {}
  void Navigate(const std::string&) override {}
  void SetFocus() override {}
  float formWidth() const override { return 11625; }
  float formHeight() const override { return 9225; }
  void placeButton(float, float) override {}
  void sizeBrowser(float, float) override {}
};

class NoAbout : public AboutView {
 public:
  void Show() override {}
  void Unload() override {}
};

}  // namespace

void printMessage(const std::string& text) {
  std::string line = cp1252ToUtf8(text);
  for (char& c : line)
    if (c == '\r' || c == '\n' || c == '\t') c = ' ';
  std::fprintf(stderr, "tavlero-cli: %s\n", line.c_str());
}

MsgResult HeadlessUi::MsgBox(const std::string& prompt, MsgButtons buttons, MsgIcon, const std::string&) {
  ++messages;
  printMessage(prompt);
  return buttons == MsgButtons::OK ? MsgResult::OK : MsgResult::Yes;
}

float HeadlessUi::mainScaleWidth() const {
  return twipsToMillimetres(kMainClientWidthTwips);
}
float HeadlessUi::mainScaleHeight() const {
  return twipsToMillimetres(kMainClientHeightTwips);
}

bool HeadlessClipboard::SetPicture(const Surface&, std::string& error) {
  error = "Den kommandolinjebaserte utgaven har ingen utklippstavle for bilder.";
  return false;
}

bool HeadlessPictures::SavePicture(const Surface&, const std::string&, PictureFormat, std::string& error) {
  error = "Bilder skrives av tavlero-cli-picture.";
  return false;
}

bool HeadlessPrinter::PrintForm(std::string& error) {
  error = "Fant ingen skriver.";
  return false;
}

HeadlessForms::HeadlessForms() : programInfo_(std::make_unique<NoProgramInfo>()) {}
HeadlessForms::~HeadlessForms() = default;

std::unique_ptr<MethodFormView> HeadlessForms::makeMethodForm() {
  return std::make_unique<NoMethodForm>();
}
std::unique_ptr<MethodInfoView> HeadlessForms::makeMethodInfoForm() {
  return std::make_unique<NoMethodInfo>();
}
std::unique_ptr<AboutView> HeadlessForms::makeAboutForm() {
  return std::make_unique<NoAbout>();
}

}  // namespace tavlero::cli
