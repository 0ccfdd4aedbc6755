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

class QtProgramInfoForm : public QDialog, public ProgramInfoView {
 public:
  QtProgramInfoForm(App& app, QWidget* parent);

  void Show(const std::string& programName, const std::string& programDescription) override;
  void Hide() override;
  void setOkDefault(bool isDefault) override;

  QLineEdit* programName;
  QPlainTextEdit* programDescription;
  QPushButton* command1;

  void reject() override;  // the form has no cancel: Esc does nothing

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  App& app_;
};

// Shows the page file, decoded from the program's 8-bit text; it follows no link and
// fetches nothing from outside.
class InfoBrowser : public QTextBrowser {
 public:
  explicit InfoBrowser(QWidget* parent);
  QVariant loadResource(int type, const QUrl& name) override;
};

class MethodInfoDialog : public QDialog {
 public:
  MethodInfoDialog(App& app, QWidget* parent);

  InfoBrowser* methodInfoBox;
  QPushButton* command1;

  void reject() override;  // Esc: Command1 is also the cancel button

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  App& app_;
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

class AboutDialog : public QDialog {
 public:
  AboutDialog(App& app, QWidget* parent);

  QPushButton* command1;

  void reject() override;  // no cancel button: Esc does nothing

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  App& app_;
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
