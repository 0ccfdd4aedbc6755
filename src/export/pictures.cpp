#include "export/pictures.h"

#include "core/cp1252.h"
#include "export/export_file.h"

namespace tavlero {

namespace {

// The platform gives the cause; the message adds what did not happen.
void showFailure(App& app, const std::string& reason, const std::string& consequence) {
  app.platform.ui.MsgBox(reason + " " + consequence, MsgButtons::OK, MsgIcon::Exclamation, "Tavlero");
}

}  // namespace

void copyBoardPicture(App& app) {
  app.platform.clipboard.Clear();
  std::string reason;
  if (!app.platform.clipboard.SetPicture(app.canvas, reason))
    showFailure(app, reason, "Bildet ble ikke lagt på utklippstavlen."_cp);
}

void saveBoardPicture(App& app) {
  auto path = chooseExportPath(app, "Punktgrafikk (*.bmp)|*.bmp", "*.bmp");
  if (!path) return;
  std::string reason;
  if (!app.platform.pictures.SavePicture(app.canvas, *path, PictureFormat::Bmp, reason))
    showExportFailure(app, *path, reason);
}

void printproject_Click(App& app) {
  std::string reason;
  if (!app.platform.printer.PrintForm(reason)) showFailure(app, reason, "Utskriften ble ikke laget.");
}

}  // namespace tavlero
