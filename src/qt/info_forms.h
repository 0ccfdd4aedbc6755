#pragma once
// programInfoForm, methodInfoForm and aboutForm on Qt. They show what the logic tells
// them and forward their buttons, their closing by the frame and their text edits to the
// logic's handlers. The info view and the about box are discarded by the logic from
// inside their own events, so for them the view object and the dialog widget are apart
// and the widget is only scheduled for deletion.

#include <QDialog>
#include <QPointer>
#include <QTextBrowser>

#include "core/app.h"
#include "platform/forms.h"

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace tavlero {

// A dialog whose Esc and closing by the frame go to the logic's handlers; Esc does
// nothing where the form has no cancel button (onEscape null).
class ForwardingDialog : public QDialog {
 public:
  using Handler = void (*)(App&);
  ForwardingDialog(App& app, QWidget* parent, Qt::WindowFlags flags, Handler onClose, Handler onEscape);

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

  App& app_;

 private:
  Handler onClose_;
  Handler onEscape_;
};

class QtProgramInfoForm : public ForwardingDialog, public ProgramInfoView {
 public:
  QtProgramInfoForm(App& app, QWidget* parent);

  void Show(const std::string& programName, const std::string& programDescription) override;
  void Hide() override;
  void setOkDefault(bool isDefault) override;

  QLineEdit* programName;
  QPlainTextEdit* programDescription;
  QPushButton* command1;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

// Shows the page file, decoded from the program's 8-bit text; it follows no link and
// fetches nothing from outside.
class InfoBrowser : public QTextBrowser {
 public:
  explicit InfoBrowser(QWidget* parent);
  QVariant loadResource(int type, const QUrl& name) override;
};

class MethodInfoDialog : public ForwardingDialog {
 public:
  MethodInfoDialog(App& app, QWidget* parent);

  InfoBrowser* methodInfoBox;
  QPushButton* command1;  // also the cancel button

 protected:
  void resizeEvent(QResizeEvent* event) override;
};

class QtMethodInfoForm : public MethodInfoView {
 public:
  QtMethodInfoForm(App& app, QWidget* parent);
  ~QtMethodInfoForm() override;

  void Show() override;
  void Hide() override;
  void Navigate(const std::string& path) override;
  void SetFocus() override;
  float formWidth() const override;
  float formHeight() const override;
  void placeButton(float left, float top) override;
  void sizeBrowser(float width, float height) override;

  MethodInfoDialog* dialog() const { return dialog_; }

 private:
  QPointer<MethodInfoDialog> dialog_;
};

class AboutDialog : public ForwardingDialog {
 public:
  AboutDialog(App& app, QWidget* parent);

  QPushButton* command1;
};

class QtAboutForm : public AboutView {
 public:
  QtAboutForm(App& app, QWidget* parent);
  ~QtAboutForm() override;

  void Show() override;
  void Unload() override;

  AboutDialog* dialog() const { return dialog_; }

 private:
  QPointer<AboutDialog> dialog_;
};

}  // namespace tavlero
