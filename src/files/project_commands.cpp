#include "files/project_commands.h"

#include "board/board.h"
#include "core/cp1252.h"
#include "files/project_file.h"
#include "files/settings.h"

namespace tavlero {

namespace {

// The question before work is dropped. False when the user chose Cancel.
bool askToSave(App& app, const std::string& question) {
  if (app.store.isSaved) return true;
  MsgResult answer =
      app.platform.ui.MsgBox(question, MsgButtons::YesNoCancel, MsgIcon::Exclamation, "Advarsel");
  if (answer == MsgResult::Cancel) return false;
  if (answer == MsgResult::Yes) saveProject_Click(app);
  return true;
}

}  // namespace

void newproject_Click(App& app) {
  if (!askToSave(app, "Du har gjort endringer siden du sist lagret. Vil du lagre før du starter på nytt?"_cp))
    return;
  ProjectStore& store = app.store;
  store.itemList.Clear();
  store.sizeList.Clear();
  store.linkList.Clear();
  store.linkSizeList.Clear();
  store.isSaved = true;
  app.canvas.setDrawWidth(1);
  store.fontName = defaults::fontName;
  store.selectedCell = -1;
  store.selectedLink = -1;
  store.currentColor = defaults::cellColor;
  store.currentFillStyle = defaults::fillStyle;
  loadSettings(app);
  app.platform.ui.setCaption("Tavlero");
  store.projectFileName.clear();
  store.projectFolder.clear();
  store.programDescription.clear();
  store.programName.clear();
  store.clearLongDescriptions();
  app.platform.ui.DoEvents();
  app.canvas.setWidth(app.platform.ui.mainScaleWidth());
  app.canvas.setHeight(app.platform.ui.mainScaleHeight());
  app.canvas.Move(0, 0);
  store.isSaved = true;
  redrawBoard(app);
}

void openproject_Click(App& app) {
  if (!askToSave(app,
                 "Du har gjort endringer siden du sist lagret. Vil du lagre før du åpner en annen fil?"_cp))
    return;
  openProjectDialog(app);
}

void saveProject_Click(App& app) {
  const ProjectStore& store = app.store;
  if (!store.projectFileName.empty() && !store.projectFolder.empty())
    writeProject(app, store.projectFileName, store.projectFolder);
  else
    saveProjectAs(app);
}

void saveProjectAs_Click(App& app) {
  saveProjectAs(app);
}

}  // namespace tavlero
