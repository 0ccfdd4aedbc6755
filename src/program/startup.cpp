#include "program/startup.h"

#include <filesystem>

#include "board/board.h"
#include "core/cp1252.h"
#include "files/project_commands.h"
#include "files/project_file.h"
#include "files/settings.h"

namespace tavlero {

std::string folderOf(const std::string& path) {
  size_t separator = path.find_last_of(static_cast<char>(std::filesystem::path::preferred_separator));
  return separator == std::string::npos ? std::string() : path.substr(0, separator + 1);
}

bool Form_Load(App& app, const std::string& programPath, const std::string& commandLine,
               const std::string& settingsPath, AfterReading after) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  store.appFolder = folderOf(programPath);
  store.settingsPath = settingsPath.empty() ? store.appFolder + "tavlero.cfg" : settingsPath;
  store.commandLine = commandLine;
  store.clearLongDescriptions();
  store.zoomFactor = defaults::zoomFactor;
  store.minimumCellWidth = defaults::minimumCellWidth;
  store.maximumCellWidth = defaults::maximumCellWidth;
  store.nameFontSize = defaults::nameFontSize;
  store.infoFontSize = defaults::infoFontSize;
  canvas.setDrawWidth(1);
  store.fontName = defaults::fontName;
  store.selectedCell = -1;
  store.selectedLink = -1;
  store.currentColor = defaults::cellColor;
  store.currentFillStyle = defaults::fillStyle;
  store.doubleDraw = true;
  store.htmlTableColumns = defaults::htmlTableColumns;
  store.fieldSeparator = defaults::fieldSeparator;
  app.platform.ui.DoEvents();
  canvas.setWidth(app.platform.ui.mainScaleWidth());
  canvas.setHeight(app.platform.ui.mainScaleHeight());
  store.isSaved = true;
  store.actionKey = defaults::actionKey;
  store.quoteChar = defaults::quoteChar;
  loadSettings(app);
  // The pair sets the scale of the canvas (a unit of zoomFactor millimetres) and draws
  // the empty board; the zoom ends where it began.
  zoomIn(app);
  zoomOut(app);

  std::string path = store.commandLine;
  if (path.empty()) return true;
  // A leading quote takes the last character with it, whatever that is.
  bool ok = true;
  if (path.front() == '"') {
    if (path.size() < 2)
      ok = false;
    else
      path = path.substr(1, path.size() - 2);
  }
  if (ok) ok = readProject(app, path, after);
  if (ok) return true;
  app.platform.ui.MsgBox("En feil oppstod under åpning av filen: '"_cp + utf8ToCp1252(path) + "'",
                         MsgButtons::OK, MsgIcon::Critical, "Gale parametre");
  return false;
}

void Form_GotFocus(App& app) {
  app.canvas.SetFocus();
}

bool Form_QueryUnload(App& app) {
  if (app.store.isSaved) return true;
  MsgResult answer =
      app.platform.ui.MsgBox("Du har gjort endringer siden du sist lagret. Vil du lagre før du avslutter?"_cp,
                             MsgButtons::YesNoCancel, MsgIcon::Exclamation, "Advarsel");
  if (answer == MsgResult::Cancel) return false;
  if (answer == MsgResult::Yes) saveProject_Click(app);
  return true;
}

}  // namespace tavlero
