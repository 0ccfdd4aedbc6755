#include "files/project_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "board/board.h"
#include "board/compress.h"
#include "core/cp1252.h"
#include "core/record.h"
#include "files/project_text.h"
#include "files/save_file.h"
#include "files/settings.h"

namespace tavlero {

namespace {

constexpr const char* kProjectFilter = "Tavlero-prosjekter (*.tvl)|*.tvl";
constexpr const char* kProjectExt = "*.tvl";
constexpr const char* kPlaceholder = "X1: 0 Y1: 0 X2: 0 Y2: 0";

// A path that names no file, in a folder that exists, becomes an empty file first.
bool loadProjectBytes(const std::string& path, std::string& bytes) {
  std::error_code ec;
  if (!std::filesystem::exists(path, ec) && !ec) {
    std::filesystem::path parent = std::filesystem::path(path).parent_path();
    if (!parent.empty() && !std::filesystem::is_directory(parent, ec)) return false;
    int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) return false;
    ::close(fd);
  }
  return readWholeFile(path, bytes);
}

std::string countText(size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

void reportLeftOut(App& app, size_t methods, size_t links) {
  std::string lost;
  if (methods > 0) lost = countText(methods, "metode", "metoder");
  if (links > 0) lost += (lost.empty() ? "" : " og ") + countText(links, "kobling", "koblinger");
  app.ui.MsgBox("Prosjektet har flere metoder eller koblinger enn en plan kan holde (" +
                    std::to_string(ProjectStore::kMaxMethods) + " metoder og " +
                    std::to_string(ProjectStore::kMaxLinks) + " koblinger). " + lost +
                    " ble ikke lest inn."_cp,
                MsgButtons::OK, MsgIcon::Exclamation, "Tavlero");
}

size_t readMethods(ProjectStore& store, std::string_view fileText) {
  ElementScanner scanner(fileText, "userMethod", kSkipBehindMethod);
  size_t leftOut = 0;
  // An element can only equal an earlier record when such a record kept a
  // "<longDescription" of its own; until then the store's lookup would find nothing.
  bool recordsHoldTag = false;
  for (std::string_view element = scanner.next(); !element.empty(); element = scanner.next()) {
    if (store.itemList.ListCount() >= ProjectStore::kMaxMethods) {
      ++leftOut;
      continue;
    }
    MethodParts parts = splitMethod(element);
    int16_t n = store.itemList.ListCount();
    std::string longDescription = parts.longDescription;
    if (recordsHoldTag && parts.hasLongDescription && parts.closedLongDescription)
      longDescription = store.getField(element, "longDescription");
    store.setLongDescription(n, std::move(longDescription));
    if (parts.record.find("<longDescription") != std::string::npos) recordsHoldTag = true;
    store.itemList.AddItem(std::move(parts.record));
    store.sizeList.AddItem(kPlaceholder);
  }
  return leftOut;
}

size_t readLinks(ProjectStore& store, std::string_view fileText) {
  ElementScanner scanner(fileText, "userLink", kSkipBehindLink);
  size_t leftOut = 0;
  for (std::string_view element = scanner.next(); !element.empty(); element = scanner.next()) {
    if (!store.linkList.AddItem(std::string(element))) {
      ++leftOut;
      continue;
    }
    store.linkSizeList.AddItem(kPlaceholder);
  }
  return leftOut;
}

// Everything of the reader after the file was read; the lists are already empty.
void readProjectText(App& app, const std::string& fileText) {
  ProjectStore& store = app.store;
  store.programName = getField(fileText, "projectName");
  store.programDescription = getField(fileText, "projectDescription");
  store.minimumCellWidth = toSingle(textToNumber(getField(fileText, "minimumCellWidth")));
  store.maximumCellWidth = toSingle(textToNumber(getField(fileText, "maximumCellWidth")));
  store.nameFontSize = fontSizeOf(getField(fileText, "nameFontSize"));
  store.infoFontSize = fontSizeOf(getField(fileText, "infoFontSize"));
  store.fontName = getField(fileText, "fontName");

  if (!(store.minimumCellWidth >= 1.0f) || !(store.maximumCellWidth >= 1.0f) || store.nameFontSize < 1 ||
      store.infoFontSize < 1) {
    app.ui.MsgBox("Det oppstod problemer under parsing. Dokumentet vil antakelig ikke vises riktig.",
                  MsgButtons::OK, MsgIcon::Exclamation, "Tavlero");
    loadSettings(app);
  }

  size_t methodsLeftOut = readMethods(store, fileText);
  size_t linksLeftOut = readLinks(store, fileText);
  if (methodsLeftOut > 0 || linksLeftOut > 0) reportLeftOut(app, methodsLeftOut, linksLeftOut);

  store.isSaved = true;
  compressBoard(app);
  redrawBoard(app);
}

void clearProject(ProjectStore& store) {
  store.itemList.Clear();
  store.sizeList.Clear();
  store.linkList.Clear();
  store.linkSizeList.Clear();
  store.selectedCell = -1;
  store.selectedLink = -1;
}

}  // namespace

bool writeProject(App& app, const std::string& fileName, const std::string& folder) {
  std::string path = folder + fileName;
  std::string error;
  if (!saveFileAtomically(path, projectFileText(app.store), error)) {
    app.ui.MsgBox("Kunne ikke lagre filen '" + utf8ToCp1252(path) + "'. " + error, MsgButtons::OK,
                  MsgIcon::Exclamation, "Tavlero");
    return false;
  }
  app.store.isSaved = true;
  return true;
}

bool readProject(App& app, const std::string& path) {
  clearProject(app.store);
  std::string fileText;
  if (!loadProjectBytes(path, fileText)) return false;
  readProjectText(app, fileText);
  return true;
}

void readProjectFromText(App& app, const std::string& fileText) {
  clearProject(app.store);
  readProjectText(app, fileText);
}

bool showSaveDialog(App& app, const std::string& filter, const std::string& defaultExt) {
  CommonDialog& dialog = app.commonDialog;
  dialog.CancelError = true;
  dialog.FileName.clear();
  dialog.DefaultExt = defaultExt;
  dialog.Filter = filter;
  dialog.Flags = 2050;
  if (!dialog.ShowSave() || dialog.FileTitle.size() > dialog.FileName.size()) return false;
  app.store.projectFileName = dialog.FileTitle;
  app.store.projectFolder = dialog.FileName.substr(0, dialog.FileName.size() - dialog.FileTitle.size());
  return true;
}

void saveProjectAs(App& app) {
  if (showSaveDialog(app, kProjectFilter, kProjectExt))
    writeProject(app, app.store.projectFileName, app.store.projectFolder);
}

void openProjectDialog(App& app) {
  CommonDialog& dialog = app.commonDialog;
  dialog.CancelError = true;
  dialog.DefaultExt = kProjectExt;
  dialog.Filter = kProjectFilter;
  dialog.Flags = 6146;
  if (!dialog.ShowOpen() || dialog.FileTitle.size() > dialog.FileName.size()) return;
  // The file is read before anything is dropped, so a file that cannot be read costs
  // the user nothing of the project on the board.
  std::string fileText;
  if (!loadProjectBytes(dialog.FileName, fileText)) {
    app.ui.MsgBox("Kunne ikke åpne filen '"_cp + utf8ToCp1252(dialog.FileName) + "'.", MsgButtons::OK,
                  MsgIcon::Exclamation, "Tavlero");
    return;
  }
  app.store.projectFileName = dialog.FileTitle;
  app.store.projectFolder = dialog.FileName.substr(0, dialog.FileName.size() - dialog.FileTitle.size());
  clearProject(app.store);
  readProjectText(app, fileText);
}

}  // namespace tavlero
