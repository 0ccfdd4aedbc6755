#pragma once
// addMethodForm on Qt: a fixed-size dialog, shown without blocking, that forwards its
// buttons, its closing and the focus of the long description to the logic. The view
// object and the dialog widget are apart, so that the logic may discard the view from
// inside a click of the dialog: the widget is only scheduled for deletion.

#include <QDialog>
#include <QPointer>

#include "core/app.h"
#include "platform/forms.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace tavlero {

class MethodDialog : public QDialog {
 public:
  MethodDialog(App& app, QWidget* parent);

  QLineEdit* methodName;
  QLineEdit* shortDescription;
  QPlainTextEdit* longDescription;
  QLabel* errorLabel;
  QPushButton* command2;  // OK
  QPushButton* command1;  // Avbryt

  void reject() override;  // Esc

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  App& app_;
};

class QtMethodForm : public MethodFormView {
 public:
  QtMethodForm(App& app, QWidget* parent);
  ~QtMethodForm() override;

  void Show() override;
  void Unload() override;
  void setCaption(const std::string& caption) override;
  std::string methodName() const override;
  std::string shortDescription() const override;
  std::string longDescription() const override;
  void setTexts(const std::string& methodName, const std::string& shortDescription,
                const std::string& longDescription) override;
  void focusNameSelectAll() override;
  void setErrorLabel(const std::string& caption, bool visible) override;
  void setOkDefault(bool isDefault) override;

  // The dialog while it lives; null once discarded.
  MethodDialog* dialog() const { return dialog_; }

 private:
  QPointer<MethodDialog> dialog_;
};

}  // namespace tavlero
