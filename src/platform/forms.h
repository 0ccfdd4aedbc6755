#pragma once
// The dialogs as the logic sees them. Each form's behaviour is in the logic; a view only
// shows what it is told and forwards its events to the logic's handlers.

#include <memory>
#include <string>

namespace tavlero {

// addMethodForm: made anew at each opening, discarded at each closing.
class MethodFormView {
 public:
  virtual ~MethodFormView() = default;
  virtual void Show() = 0;  // without blocking
  virtual void Unload() = 0;
  virtual void setCaption(const std::string& caption) = 0;
  virtual std::string methodName() const = 0;
  virtual std::string shortDescription() const = 0;
  virtual std::string longDescription() const = 0;
  virtual void setTexts(const std::string& methodName, const std::string& shortDescription,
                        const std::string& longDescription) = 0;
  // methodName.SetFocus with its whole text selected.
  virtual void focusNameSelectAll() = 0;
  virtual void setErrorLabel(const std::string& caption, bool visible) = 0;
  virtual void setOkDefault(bool isDefault) = 0;
};

// programInfoForm: lives as long as the program, hidden between uses.
class ProgramInfoView {
 public:
  virtual ~ProgramInfoView() = default;
  virtual void Show(const std::string& programName, const std::string& programDescription) = 0;
  virtual void Hide() = 0;
  virtual void setOkDefault(bool isDefault) = 0;
};

// methodInfoForm: shows a local HTML file; sizes in twips.
class MethodInfoView {
 public:
  virtual ~MethodInfoView() = default;
  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual void Navigate(const std::string& path) = 0;  // native path; empty stops showing
  virtual void SetFocus() = 0;
  virtual float formWidth() const = 0;  // outer size of the form
  virtual float formHeight() const = 0;
  virtual void placeButton(float left, float top) = 0;
  virtual void sizeBrowser(float width, float height) = 0;
};

class AboutView {
 public:
  virtual ~AboutView() = default;
  virtual void Show() = 0;
  virtual void Unload() = 0;
};

// Makes the views; the logic holds what it made for as long as the form lives.
class FormFactory {
 public:
  virtual ~FormFactory() = default;
  virtual std::unique_ptr<MethodFormView> makeMethodForm() = 0;
  virtual std::unique_ptr<MethodInfoView> makeMethodInfoForm() = 0;
  virtual std::unique_ptr<AboutView> makeAboutForm() = 0;
  virtual ProgramInfoView& programInfoForm() = 0;
};

}  // namespace tavlero
