#include "qt/method_form.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>
#include <limits>

#include "core/cp1252.h"
#include "editing/method_dialog.h"
#include "qt/dialog_support.h"
#include "qt/qt_surface.h"

namespace tavlero {

namespace {

// Limits what is typed, not what the program puts in: a longer name read from a file
// is shown and saved whole, and may be shortened but not grown. An edit that would pass
// the limit is taken back.
class TypedLengthLimit : public QObject {
 public:
  TypedLengthLimit(QLineEdit* edit, qsizetype limit) : QObject(edit) {
    edit->setMaxLength(std::numeric_limits<int>::max());
    // Signals of one edit come in the order textEdited, textChanged; the text is read
    // from the box, since the edit may have been taken back in between.
    connect(edit, &QLineEdit::textChanged, this, [this, edit] { kept_ = edit->text(); });
    connect(edit, &QLineEdit::textEdited, this, [this, edit, limit](const QString& text) {
      if (text.size() <= limit || text.size() <= kept_.size()) return;
      int cursor = edit->cursorPosition() - static_cast<int>(text.size() - kept_.size());
      edit->setText(kept_);
      edit->setCursorPosition(std::max(cursor, 0));
    });
  }

 private:
  QString kept_;
};

}  // namespace

MethodDialog::MethodDialog(App& app, QWidget* parent) : QDialog(parent, kFixedDialog), app_(app) {
  setWindowTitle(QStringLiteral("Legg til ny metode"));
  setFont(dialogFont());
  // Made in the tab order: OK, Avbryt, then the three texts; labels take no focus.
  command2 = new QPushButton(QStringLiteral("&OK"), this);
  command1 = new QPushButton(QStringLiteral("Avbryt"), this);
  auto* label1 = new QLabel(QStringLiteral("Navn:"), this);
  methodName = new QLineEdit(this);
  auto* label2 = new QLabel(QStringLiteral("Oppsummering:"), this);
  shortDescription = new QLineEdit(this);
  auto* label3 = new QLabel(QStringLiteral("Fremgangsmåte:"), this);
  longDescription = new QPlainTextEdit(this);
  errorLabel = new QLabel(this);

  command2->setObjectName(QStringLiteral("Command2"));
  command1->setObjectName(QStringLiteral("Command1"));
  methodName->setObjectName(QStringLiteral("methodName"));
  shortDescription->setObjectName(QStringLiteral("shortDescription"));
  longDescription->setObjectName(QStringLiteral("longDescription"));
  errorLabel->setObjectName(QStringLiteral("errorLabel"));

  place(label1, 120, 240, 615, 255);
  place(methodName, 1320, 240, 3495, 285);
  place(label2, 120, 840, 1215, 255);
  place(shortDescription, 1320, 840, 3495, 285);
  place(label3, 120, 1440, 1215, 255);
  place(longDescription, 120, 1800, 4695, 3135);
  place(errorLabel, 480, 5040, 4335, 255);
  place(command2, 120, 5280, 1335, 495);
  place(command1, 3480, 5280, 1215, 495);
  setFixedSize(pixels(4980), pixels(5925));

  new TypedLengthLimit(methodName, 256);
  new TypedLengthLimit(shortDescription, 160);
  methodName->setToolTip(QStringLiteral("Navnet på metoden, f.eks: public void testMetode()"));
  shortDescription->setToolTip(QStringLiteral("En kort beskrivelse av hva metoden gjør."));
  longDescription->setToolTip(QStringLiteral("Grundigere informasjon om hvordan oppgaven blir gjennomført."));
  longDescription->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  longDescription->setTabChangesFocus(true);
  longDescription->installEventFilter(this);

  QPalette red = errorLabel->palette();
  red.setColor(QPalette::WindowText, QColor(255, 0, 0));
  errorLabel->setPalette(red);
  errorLabel->hide();

  // Enter goes to the default button only; a focused button takes Enter itself (see
  // keyPressEvent), and nothing makes OK the default again once it has been cleared.
  command1->setAutoDefault(false);
  command2->setAutoDefault(false);
  command2->setDefault(true);
  setTabOrder(command2, command1);
  setTabOrder(command1, methodName);
  setTabOrder(methodName, shortDescription);
  setTabOrder(shortDescription, longDescription);

  connect(command2, &QPushButton::clicked, this, [&app] { addMethodForm_Command2_Click(app); });
  connect(command1, &QPushButton::clicked, this, [&app] { addMethodForm_Command1_Click(app); });
}

void MethodDialog::reject() {
  addMethodForm_Command1_Click(app_);
}

void MethodDialog::closeEvent(QCloseEvent* event) {
  addMethodForm_Command1_Click(app_);
  event->accept();
}

void MethodDialog::keyPressEvent(QKeyEvent* event) {
  bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && event->modifiers() == Qt::NoModifier) {
    if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
      button->click();
      return;
    }
  }
  QDialog::keyPressEvent(event);
}

bool MethodDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == longDescription && event->type() == QEvent::FocusIn)
    addMethodForm_longDescription_GotFocus(app_);
  return QDialog::eventFilter(watched, event);
}

QtMethodForm::QtMethodForm(App& app, QWidget* parent) : dialog_(new MethodDialog(app, parent)) {}

QtMethodForm::~QtMethodForm() {
  Unload();
}

void QtMethodForm::Show() {
  if (dialog_) showAndActivate(dialog_);
}

void QtMethodForm::Unload() {
  discard(dialog_);
}

void QtMethodForm::setCaption(const std::string& caption) {
  if (dialog_) dialog_->setWindowTitle(fromCp1252(caption));
}

std::string QtMethodForm::methodName() const {
  return dialog_ ? utf8ToCp1252(dialog_->methodName->text().toStdString()) : std::string();
}

std::string QtMethodForm::shortDescription() const {
  return dialog_ ? utf8ToCp1252(dialog_->shortDescription->text().toStdString()) : std::string();
}

std::string QtMethodForm::longDescription() const {
  return dialog_ ? logicText(dialog_->longDescription->toPlainText()) : std::string();
}

void QtMethodForm::setTexts(const std::string& methodName, const std::string& shortDescription,
                            const std::string& longDescription) {
  if (!dialog_) return;
  dialog_->methodName->setText(fromCp1252(methodName));
  dialog_->shortDescription->setText(fromCp1252(shortDescription));
  dialog_->longDescription->setPlainText(multiLineText(longDescription));
}

void QtMethodForm::focusNameSelectAll() {
  if (!dialog_) return;
  dialog_->methodName->setFocus();
  dialog_->methodName->selectAll();
}

void QtMethodForm::setErrorLabel(const std::string& caption, bool visible) {
  if (!dialog_) return;
  dialog_->errorLabel->setText(fromCp1252(caption));
  dialog_->errorLabel->setVisible(visible);
}

void QtMethodForm::setOkDefault(bool isDefault) {
  if (dialog_) dialog_->command2->setDefault(isDefault);
}

}  // namespace tavlero
