#include "files/project_file.h"

#include <utility>
#include <vector>

#include "board/board.h"
#include "board/compress.h"
#include "core/cp1252.h"
#include "core/name_index.h"
#include "core/record.h"
#include "core/records.h"
#include "files/project_text.h"
#include "files/save_file.h"
#include "files/settings.h"

namespace tavlero {

namespace {

constexpr const char* kProjectFilter = "Tavlero-prosjekter (*.tvl)|*.tvl";
constexpr const char* kProjectExt = "*.tvl";

std::string countText(size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

void reportLeftOut(App& app, size_t methods, size_t links) {
  std::string lost;
  if (methods > 0) lost = countText(methods, "metode", "metoder");
  if (links > 0) lost += (lost.empty() ? "" : " og ") + countText(links, "kobling", "koblinger");
  app.platform.ui.MsgBox("Prosjektet har flere metoder eller koblinger enn en plan kan holde (" +
                             std::to_string(ProjectStore::kMaxMethods) + " metoder og " +
                             std::to_string(ProjectStore::kMaxLinks) + " koblinger). " + lost +
                             " ble ikke lest inn."_cp,
                         MsgButtons::OK, MsgIcon::Exclamation, "Tavlero");
}

// The records as a redraw leaves them: a link that names a cell no longer there is
// removed; one with an end left empty stays, as the drawing leaves it alone.
void removeLinksToMissingCells(ProjectStore& store) {
  NameIndex names(store.itemList.items().size());
  for (const std::string& record : store.itemList.items()) names.add(fieldView(record, key::methodName));
  std::vector<int16_t> gone;
  const auto& links = store.linkList.items();
  for (size_t i = 0; i < links.size(); ++i) {
    std::string_view source = fieldView(links[i], key::linkSource);
    std::string_view target = fieldView(links[i], key::linkTarget);
    if (!source.empty() && !target.empty() && (names.find(source) < 0 || names.find(target) < 0))
      gone.push_back(static_cast<int16_t>(i));
  }
  if (gone.empty()) return;
  store.linkList.RemoveItems(gone);
  store.linkSizeList.RemoveItems(gone);
}

// Everything of the reader after the file was read; the lists are already empty. The text
// goes as soon as its lists are read, so that what comes after reuses its memory.
void readProjectText(App& app, std::string fileText, AfterReading after) {
  ProjectStore& store = app.store;
  store.programName = getField(fileText, key::projectName);
  store.programDescription = getField(fileText, key::projectDescription);
  store.minimumCellWidth = toSingle(numberField(fileText, key::minimumCellWidth));
  store.maximumCellWidth = toSingle(numberField(fileText, key::maximumCellWidth));
  store.nameFontSize = fontSizeOf(getField(fileText, key::nameFontSize));
  store.infoFontSize = fontSizeOf(getField(fileText, key::infoFontSize));
  store.fontName = getField(fileText, key::fontName);

  if (!(store.minimumCellWidth >= 1.0f) || !(store.maximumCellWidth >= 1.0f) || store.nameFontSize < 1 ||
      store.infoFontSize < 1) {
    app.platform.ui.MsgBox("Det oppstod problemer under parsing. Dokumentet vil antakelig ikke vises riktig.",
                           MsgButtons::OK, MsgIcon::Exclamation, "Tavlero");
    loadSettings(app);
  }

  const LeftOut leftOut = readLists(store, fileText);
  std::string().swap(fileText);
  store.leftOutAtReading = leftOut.methods + leftOut.links;
  if (store.leftOutAtReading > 0) reportLeftOut(app, leftOut.methods, leftOut.links);

  store.isSaved = true;
  compressBoard(app);
  if (after == AfterReading::Draw)
    redrawBoard(app);
  else
    removeLinksToMissingCells(store);
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
  if (FileError error = saveFile(path, projectFileText(app.store)); error != FileError::None) {
    app.platform.ui.MsgBox(fileMessage(FileAction::Save, path, error), MsgButtons::OK, MsgIcon::Exclamation,
                           "Tavlero");
    return false;
  }
  app.store.isSaved = true;
  return true;
}

bool readProject(App& app, const std::string& path, AfterReading after) {
  clearProject(app.store);
  std::string fileText;
  // A path that names no file, in a folder that exists, becomes an empty file first.
  if (readWholeFile(path, fileText, IfMissing::CreateEmpty) != FileError::None) return false;
  readProjectText(app, std::move(fileText), after);
  return true;
}

void readProjectFromText(App& app, const std::string& fileText) {
  clearProject(app.store);
  readProjectText(app, std::string(fileText), AfterReading::Draw);
}

bool showSaveDialog(App& app, const std::string& filter, const std::string& defaultExt) {
  CommonDialog& dialog = app.platform.commonDialog;
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
  CommonDialog& dialog = app.platform.commonDialog;
  dialog.CancelError = true;
  dialog.DefaultExt = kProjectExt;
  dialog.Filter = kProjectFilter;
  dialog.Flags = 6146;
  if (!dialog.ShowOpen() || dialog.FileTitle.size() > dialog.FileName.size()) return;
  // The file is read before anything is dropped, so a file that cannot be read costs
  // the user nothing of the project on the board.
  std::string fileText;
  if (FileError error = readWholeFile(dialog.FileName, fileText, IfMissing::CreateEmpty);
      error != FileError::None) {
    app.platform.ui.MsgBox(fileMessage(FileAction::Open, dialog.FileName, error), MsgButtons::OK,
                           MsgIcon::Exclamation, "Tavlero");
    return;
  }
  app.store.projectFileName = dialog.FileTitle;
  app.store.projectFolder = dialog.FileName.substr(0, dialog.FileName.size() - dialog.FileTitle.size());
  clearProject(app.store);
  readProjectText(app, std::move(fileText), AfterReading::Draw);
}

}  // namespace tavlero
