#include "qt/info_forms.h"

#include <QCloseEvent>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextDocument>
#include <algorithm>
#include <cmath>
#include <limits>

#include "core/cp1252.h"
#include "export/browser_html.h"
#include "export/info_dialogs.h"
#include "export/info_view.h"
#include "qt/dialog_support.h"
#include "qt/qt_surface.h"

namespace tavlero {

ForwardingDialog::ForwardingDialog(App& app, QWidget* parent, Qt::WindowFlags flags, Handler onClose,
                                   Handler onEscape)
    : QDialog(parent, flags), app_(app), onClose_(onClose), onEscape_(onEscape) {
  setFont(dialogFont());
}

void ForwardingDialog::reject() {
  if (onEscape_) onEscape_(app_);
}

// The logic decides what becomes of the form; the closing itself is never refused.
void ForwardingDialog::closeEvent(QCloseEvent* event) {
  onClose_(app_);
  event->accept();
}

QtProgramInfoForm::QtProgramInfoForm(App& app, QWidget* parent)
    : ForwardingDialog(app, parent, kFixedDialog, programInfoForm_Command1_Click, nullptr) {
  setWindowTitle(QStringLiteral("Programinformasjon"));
  setObjectName(QStringLiteral("programInfoForm"));
  // Made in the tab order; labels take no focus.
  auto* label1 = new QLabel(QStringLiteral("Navn:"), this);
  programName = new QLineEdit(this);
  auto* label2 = new QLabel(QStringLiteral("Beskrivelse:"), this);
  programDescription = new QPlainTextEdit(this);
  command1 = new QPushButton(QStringLiteral("OK"), this);
  programName->setObjectName(QStringLiteral("programName"));
  programDescription->setObjectName(QStringLiteral("programDescription"));
  command1->setObjectName(QStringLiteral("Command1"));

  place(label1, 120, 240, 615, 255);
  place(programName, 720, 240, 3495, 285);
  place(label2, 120, 840, 975, 255);
  place(programDescription, 120, 1200, 4095, 3615);
  place(command1, 1560, 5040, 1335, 615);
  setFixedSize(pixels(4395), pixels(5760));

  programName->setMaxLength(std::numeric_limits<int>::max());
  programDescription->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  programDescription->setTabChangesFocus(true);
  programDescription->installEventFilter(this);
  // Only an explicit default presses OK on Enter, so that clearing it lasts.
  command1->setAutoDefault(false);
  command1->setDefault(true);
  setTabOrder(programName, programDescription);
  setTabOrder(programDescription, command1);

  connect(programName, &QLineEdit::textChanged, this, [&app](const QString& text) {
    programInfoForm_programName_Change(app, utf8ToCp1252(text.toStdString()));
  });
  connect(programDescription, &QPlainTextEdit::textChanged, this, [this, &app] {
    programInfoForm_programDescription_Change(app, logicText(programDescription->toPlainText()));
  });
  connect(command1, &QPushButton::clicked, this, [&app] { programInfoForm_Command1_Click(app); });
}

void QtProgramInfoForm::Show(const std::string& name, const std::string& description) {
  {
    // Showing the texts is no edit; a round trip through Unicode must not touch them.
    const QSignalBlocker nameBlocker(programName);
    const QSignalBlocker descriptionBlocker(programDescription);
    programName->setText(fromCp1252(name));
    programDescription->setPlainText(multiLineText(description));
  }
  showAndActivate(this);
}

void QtProgramInfoForm::Hide() {
  hide();
}

void QtProgramInfoForm::setOkDefault(bool isDefault) {
  command1->setDefault(isDefault);
}

bool QtProgramInfoForm::eventFilter(QObject* watched, QEvent* event) {
  if (watched == programDescription && event->type() == QEvent::FocusIn)
    programInfoForm_programDescription_GotFocus(app_);
  return QDialog::eventFilter(watched, event);
}

InfoBrowser::InfoBrowser(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setOpenExternalLinks(false);
}

QVariant InfoBrowser::loadResource(int type, const QUrl& name) {
  if (!name.isLocalFile()) return {};
  if (type != QTextDocument::HtmlResource) return QTextBrowser::loadResource(type, name);
  QFile file(name.toLocalFile());
  if (!file.open(QIODevice::ReadOnly)) return {};
  // The page declares no character set: it is in the program's own 8-bit text. Qt's own
  // reader takes "a < b" for a tag and drops the text behind it, so it gets the page as a
  // browser's parser reads it, written back well-formed.
  return fromCp1252(browserHtml(file.readAll().toStdString()));
}

MethodInfoDialog::MethodInfoDialog(App& app, QWidget* parent)
    : ForwardingDialog(app, parent, kFixedDialog | Qt::WindowMinMaxButtonsHint,
                       methodInfoForm_Form_QueryUnload, methodInfoForm_Command1_Click) {
  setWindowTitle(QStringLiteral("Metodeinfo/prosjektinfo"));
  setObjectName(QStringLiteral("methodInfoForm"));
  methodInfoBox = new InfoBrowser(this);
  command1 = new QPushButton(QStringLiteral("OK"), this);
  methodInfoBox->setObjectName(QStringLiteral("methodInfoBox"));
  command1->setObjectName(QStringLiteral("Command1"));
  place(methodInfoBox, 120, 120, 11295, 7575);
  place(command1, 5040, 8040, 1215, 615);
  command1->setDefault(true);
  resize(pixels(11505), pixels(8820));
  connect(command1, &QPushButton::clicked, this, [&app] { methodInfoForm_Command1_Click(app); });
}

void MethodInfoDialog::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  auto* form = dynamic_cast<QtMethodInfoForm*>(app_.methodInfoForm.get());
  if (form && form->dialog() == this) methodInfoForm_Form_Resize(app_);
}

QtMethodInfoForm::QtMethodInfoForm(App& app, QWidget* parent) : dialog_(new MethodInfoDialog(app, parent)) {}

QtMethodInfoForm::~QtMethodInfoForm() {
  discard(dialog_);
}

void QtMethodInfoForm::Show() {
  if (dialog_) showAndActivate(dialog_);
}

void QtMethodInfoForm::Hide() {
  if (dialog_) dialog_->hide();
}

void QtMethodInfoForm::Navigate(const std::string& path) {
  if (!dialog_) return;
  InfoBrowser* browser = dialog_->methodInfoBox;
  if (path.empty()) {
    browser->clear();
    browser->clearHistory();
    return;
  }
  browser->setSource(QUrl::fromLocalFile(QString::fromStdString(path)));
}

void QtMethodInfoForm::SetFocus() {
  if (dialog_) dialog_->methodInfoBox->setFocus();
}

float QtMethodInfoForm::formWidth() const {
  return dialog_ ? twips(dialog_->frameGeometry().width()) : 0;
}

float QtMethodInfoForm::formHeight() const {
  return dialog_ ? twips(dialog_->frameGeometry().height()) : 0;
}

void QtMethodInfoForm::placeButton(float left, float top) {
  if (dialog_) dialog_->command1->move(pixels(left), pixels(top));
}

// A form made smaller than its frame gives negative sizes; the browser then has none.
void QtMethodInfoForm::sizeBrowser(float width, float height) {
  if (dialog_) dialog_->methodInfoBox->resize(std::max(0, pixels(width)), std::max(0, pixels(height)));
}

AboutDialog::AboutDialog(App& app, QWidget* parent)
    : ForwardingDialog(app, parent, kFixedDialog, aboutForm_Command1_Click, nullptr) {
  setWindowTitle(QStringLiteral("Om..."));
  setObjectName(QStringLiteral("aboutForm"));
  auto* title = new QLabel(QStringLiteral("Tavlero"), this);
  QFont titleFont(QStringLiteral("Arial"));
  titleFont.setPointSize(72);
  title->setFont(titleFont);
  title->setAlignment(Qt::AlignCenter);
  auto* version = new QLabel(QStringLiteral("versjon 0.1"), this);
  version->setAlignment(Qt::AlignCenter);
  command1 = new QPushButton(QStringLiteral("OK"), this);
  command1->setObjectName(QStringLiteral("Command1"));
  place(title, 120, 120, 6240, 1920);
  place(version, 120, 2160, 6240, 285);
  place(command1, 2580, 2760, 1335, 615);
  setFixedSize(pixels(6480), pixels(3600));
  command1->setDefault(true);
  connect(command1, &QPushButton::clicked, this, [&app] { aboutForm_Command1_Click(app); });
}

QtAboutForm::QtAboutForm(App& app, QWidget* parent) : dialog_(new AboutDialog(app, parent)) {}

QtAboutForm::~QtAboutForm() {
  Unload();
}

void QtAboutForm::Show() {
  if (dialog_) showAndActivate(dialog_);
}

void QtAboutForm::Unload() {
  discard(dialog_);
}

}  // namespace tavlero
