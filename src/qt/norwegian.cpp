#include "qt/norwegian.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <cstring>

namespace tavlero {

namespace {

struct Text {
  const char* context;
  const char* source;
  const char* norwegian;  // UTF-8
};

// Debian ships Qt's catalogue in nynorsk and not in bokmål. These are the bokmål texts of
// everything a user meets in this program; the nynorsk catalogue under them covers the rare
// rest (a scroll bar's menu, the details of an unknown file type), which is still Norwegian.
constexpr Text kTexts[] = {
    {"QPlatformTheme", "OK", "OK"},
    {"QPlatformTheme", "Save", "Lagre"},
    {"QPlatformTheme", "Save All", "Lagre alle"},
    {"QPlatformTheme", "Open", "Åpne"},
    {"QPlatformTheme", "&Yes", "&Ja"},
    {"QPlatformTheme", "Yes to &All", "Ja til &alle"},
    {"QPlatformTheme", "&No", "&Nei"},
    {"QPlatformTheme", "N&o to All", "Nei til a&lle"},
    {"QPlatformTheme", "Abort", "Avbryt"},
    {"QPlatformTheme", "Retry", "Prøv igjen"},
    {"QPlatformTheme", "Ignore", "Ignorer"},
    {"QPlatformTheme", "Close", "Lukk"},
    {"QPlatformTheme", "Cancel", "Avbryt"},
    {"QPlatformTheme", "Discard", "Forkast"},
    {"QPlatformTheme", "Help", "Hjelp"},
    {"QPlatformTheme", "Apply", "Bruk"},
    {"QPlatformTheme", "Reset", "Tilbakestill"},
    {"QPlatformTheme", "Restore Defaults", "Gjenopprett standard"},
    {"QDialogButtonBox", "OK", "OK"},
    {"QMessageBox", "Show Details...", "Vis detaljer …"},
    {"QMessageBox", "Hide Details...", "Skjul detaljer …"},
    {"QFileDialog", "Look in:", "Se i:"},
    {"QFileDialog", "File &name:", "Fil&navn:"},
    {"QFileDialog", "Files of type:", "Filtype:"},
    {"QFileDialog", "&Open", "&Åpne"},
    {"QFileDialog", "&Save", "&Lagre"},
    {"QFileDialog", "&Choose", "&Velg"},
    {"QFileDialog", "Open", "Åpne"},
    {"QFileDialog", "Save As", "Lagre som"},
    {"QFileDialog", "Back", "Tilbake"},
    {"QFileDialog", "Forward", "Fremover"},
    {"QFileDialog", "Parent Directory", "Overordnet mappe"},
    {"QFileDialog", "Go back", "Gå tilbake"},
    {"QFileDialog", "Go forward", "Gå fremover"},
    {"QFileDialog", "Go to the parent directory", "Gå til overordnet mappe"},
    {"QFileDialog", "Create New Folder", "Lag ny mappe"},
    {"QFileDialog", "Create a New Folder", "Lag en ny mappe"},
    {"QFileDialog", "List View", "Liste"},
    {"QFileDialog", "Detail View", "Detaljer"},
    {"QFileDialog", "Change to list view mode", "Vis som liste"},
    {"QFileDialog", "Change to detail view mode", "Vis med detaljer"},
    {"QFileDialog", "Sidebar", "Sidepanel"},
    {"QFileDialog", "List of places and bookmarks", "Steder og bokmerker"},
    {"QFileDialog", "Recent Places", "Nylig brukte steder"},
    {"QFileDialog", "My Computer", "Datamaskinen"},
    {"QFileDialog", "Computer", "Datamaskin"},
    {"QFileDialog", "New Folder", "Ny mappe"},
    {"QFileDialog", "&New Folder", "&Ny mappe"},
    {"QFileDialog", "&Rename", "&Gi nytt navn"},
    {"QFileDialog", "&Delete", "&Slett"},
    {"QFileDialog", "Delete", "Slett"},
    {"QFileDialog", "Remove", "Fjern"},
    {"QFileDialog", "Show &hidden files", "Vis &skjulte filer"},
    {"QFileDialog", "Directory:", "Mappe:"},
    {"QFileDialog", "Directories", "Mapper"},
    {"QFileDialog", "Files", "Filer"},
    {"QFileDialog", "File", "Fil"},
    {"QFileDialog", "%1 File", "%1-fil"},
    {"QFileDialog", "File Folder", "Filmappe"},
    {"QFileDialog", "Folder", "Mappe"},
    {"QFileDialog", "Alias", "Alias"},
    {"QFileDialog", "Shortcut", "Snarvei"},
    {"QFileDialog", "Drive", "Stasjon"},
    {"QFileDialog", "Unknown", "Ukjent"},
    {"QFileDialog", "All Files (*)", "Alle filer (*)"},
    {"QFileDialog", "All files (*)", "Alle filer (*)"},
    {"QFileDialog", "%1 already exists.\nDo you want to replace it?",
     "%1 finnes fra før.\nVil du erstatte den?"},
    {"QFileDialog", "%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nFant ikke filen.\nKontroller at riktig filnavn er oppgitt."},
    {"QFileDialog", "%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nFant ikke mappen.\nKontroller at riktig mappenavn er oppgitt."},
    {"QFileDialog", "Are you sure you want to delete '%1'?", "Er du sikker på at du vil slette «%1»?"},
    {"QFileDialog", "'%1' is write protected.\nDo you want to delete it anyway?",
     "«%1» er skrivebeskyttet.\nVil du slette den likevel?"},
    {"QFileDialog", "Could not delete directory.", "Kunne ikke slette mappen."},
    {"QAbstractFileIconProvider", "Drive", "Stasjon"},
    {"QAbstractFileIconProvider", "Folder", "Mappe"},
    {"QAbstractFileIconProvider", "File Folder", "Filmappe"},
    {"QAbstractFileIconProvider", "File", "Fil"},
    {"QAbstractFileIconProvider", "%1 File", "%1-fil"},
    {"QAbstractFileIconProvider", "Shortcut", "Snarvei"},
    {"QAbstractFileIconProvider", "Alias", "Alias"},
    {"QAbstractFileIconProvider", "Unknown", "Ukjent"},
    {"QFileSystemModel", "Name", "Navn"},
    {"QFileSystemModel", "Size", "Størrelse"},
    {"QFileSystemModel", "Type", "Type"},
    {"QFileSystemModel", "Kind", "Type"},
    {"QFileSystemModel", "Date Modified", "Endret"},
    {"QFileSystemModel", "Computer", "Datamaskin"},
    {"QFileSystemModel", "My Computer", "Datamaskinen"},
    {"QFileSystemModel", "Invalid filename", "Ugyldig filnavn"},
    {"QLineEdit", "&Undo", "&Angre"},
    {"QLineEdit", "&Redo", "&Gjør om"},
    {"QLineEdit", "Cu&t", "Klipp &ut"},
    {"QLineEdit", "&Copy", "&Kopier"},
    {"QLineEdit", "&Paste", "&Lim inn"},
    {"QLineEdit", "Delete", "Slett"},
    {"QLineEdit", "Select All", "Merk alt"},
    {"QWidgetTextControl", "&Undo", "&Angre"},
    {"QWidgetTextControl", "&Redo", "&Gjør om"},
    {"QWidgetTextControl", "Cu&t", "Klipp &ut"},
    {"QWidgetTextControl", "&Copy", "&Kopier"},
    {"QWidgetTextControl", "Copy &Link Location", "Kopier &lenkeadresse"},
    {"QWidgetTextControl", "&Paste", "&Lim inn"},
    {"QWidgetTextControl", "Delete", "Slett"},
    {"QWidgetTextControl", "Select All", "Merk alt"},
};

class BokmalTranslator : public QTranslator {
 public:
  explicit BokmalTranslator(QObject* parent) : QTranslator(parent) {}
  bool isEmpty() const override { return false; }

  QString translate(const char* context, const char* source, const char* disambiguation,
                    int n) const override {
    if (!context || !source) return {};
    for (const Text& text : kTexts)
      if (std::strcmp(text.context, context) == 0 && std::strcmp(text.source, source) == 0)
        return QString::fromUtf8(text.norwegian);
    return {};
  }
};

}  // namespace

void installNorwegian(QCoreApplication& application) {
  QLocale::setDefault(QLocale(QLocale::NorwegianBokmal, QLocale::Norway));
  // Installed last, asked first: bokmål wins over the nynorsk catalogue.
  auto* nynorsk = new QTranslator(&application);
  if (nynorsk->load(QStringLiteral("qtbase_nn"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(nynorsk);
  QCoreApplication::installTranslator(new BokmalTranslator(&application));
}

}  // namespace tavlero
