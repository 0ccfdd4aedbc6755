#include "qt/qt_common_dialog.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStringList>

#include "files/file_names.h"
#include "qt/qt_surface.h"

namespace tavlero {

namespace {
// "Text (*.a)|*.a|Other (*.b;*.c)|*.b;*.c" as Qt's name filters: the text of each pair
// with its patterns, blank-separated, in brackets behind it.
QStringList nameFilters(const std::string& filter) {
  QStringList parts = fromCp1252(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString text = parts[i];
    qsizetype bracket = text.lastIndexOf(QLatin1Char('('));
    if (bracket > 0 && text.endsWith(QLatin1Char(')'))) text = text.left(bracket).trimmed();
    QString patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts).join(QLatin1Char(' '));
    filters << text + QStringLiteral(" (") + patterns + QLatin1Char(')');
  }
  return filters;
}

// Qt's own dialog takes a name in a missing folder; this one asks the logic first, says
// why it refuses, and stays open as the dialog of the Flags does.
class CheckedFileDialog : public QFileDialog {
 public:
  CheckedFileDialog(QWidget* parent, const QString& caption, int32_t flags)
      : QFileDialog(parent, caption), flags_(flags) {}

  void accept() override {
    const QStringList chosen = selectedFiles();
    if (!chosen.isEmpty()) {
      std::string why = refusedFileName(flags_, QFile::encodeName(chosen.first()).toStdString());
      if (!why.empty()) {
        QMessageBox::warning(this, windowTitle(), fromCp1252(why));
        return;
      }
    }
    QFileDialog::accept();
  }

 private:
  int32_t flags_;
};
}  // namespace

bool QtCommonDialog::ShowOpen() {
  return show(false);
}

bool QtCommonDialog::ShowSave() {
  return show(true);
}

bool QtCommonDialog::show(bool save) {
  CheckedFileDialog dialog(parent_, save ? QStringLiteral("Lagre som") : QString::fromUtf8("Åpne"), Flags);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  QStringList filters = nameFilters(Filter);
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  QString suffix = fromCp1252(DefaultExt);
  while (suffix.startsWith(QLatin1Char('*')) || suffix.startsWith(QLatin1Char('.'))) suffix.remove(0, 1);
  if (!suffix.isEmpty()) dialog.setDefaultSuffix(suffix);
  if (!FileName.empty()) dialog.selectFile(QFile::decodeName(FileName.c_str()));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;

  QString chosen = dialog.selectedFiles().first();
  FileName = QFile::encodeName(chosen).toStdString();
  FileTitle = QFile::encodeName(QFileInfo(chosen).fileName()).toStdString();
  return true;
}

}  // namespace tavlero
