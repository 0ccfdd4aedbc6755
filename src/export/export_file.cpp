#include "export/export_file.h"

#include "files/project_file.h"
#include "files/save_file.h"

namespace tavlero {

std::optional<std::string> chooseExportPath(App& app, const std::string& filter,
                                            const std::string& defaultExt) {
  ProjectStore& store = app.store;
  const std::string keptFileName = store.projectFileName;
  const std::string keptFolder = store.projectFolder;
  std::optional<std::string> path;
  if (showSaveDialog(app, filter, defaultExt)) path = joinPath(store.projectFolder, store.projectFileName);
  store.projectFileName = keptFileName;
  store.projectFolder = keptFolder;
  return path;
}

std::string joinPath(const std::string& folder, const std::string& name) {
  if (!folder.empty() && folder.back() == '/') return folder + name;
  return folder + "/" + name;
}

bool writeExportFile(App& app, const std::string& path, std::string_view bytes) {
  std::string reason;
  if (saveFileAtomically(path, bytes, reason)) return true;
  showExportFailure(app, path, reason);
  return false;
}

void showExportFailure(App& app, const std::string& path, const std::string& reason) {
  app.platform.ui.MsgBox(fileMessage(FileAction::Save, path, reason), MsgButtons::OK, MsgIcon::Exclamation,
                         "Tavlero");
}

}  // namespace tavlero
