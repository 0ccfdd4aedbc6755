#include "export/info_view.h"

#include <filesystem>
#include <system_error>

#include "export/export_file.h"
#include "export/export_index.h"
#include "export/html_report.h"
#include "files/save_file.h"

namespace tavlero {

namespace {

const std::string kPageName = "TavleroTemp.html";

// The form's layout in twips; the resize keeps the browser's place and the button's size.
constexpr float kBrowserLeft = 120;
constexpr float kBrowserTop = 120;
constexpr float kButtonWidth = 1215;
constexpr float kButtonHeight = 615;

// Back to the closed state when the page can't be made: main must never stay disabled.
void failOpening(App& app, const std::string& path, const std::string& reason) {
  app.platform.ui.setMainEnabled(true);
  showExportFailure(app, path, reason);
  app.platform.ui.focusMain();
}

}  // namespace

std::string buildInfoPage(const ProjectStore& store) {
  ExportIndex index(store);
  std::string page = "<html><body>";
  if (store.selectedCell != -1) {
    page += store.fieldSeparator;
    appendMethodHtml(page, store, index, store.selectedCell);
  } else {
    reservePage(page, store, index);
    page.append("<h1>").append(store.programName).append("</h1><big><pre>");
    page.append(store.programDescription).append("</pre></big><hr />");
    for (int16_t i = 0; i < store.itemList.ListCount(); ++i) appendMethodHtml(page, store, index, i);
  }
  page += "</body></html>";
  return page;
}

std::string infoPageFileText(const ProjectStore& store) {
  return buildInfoPage(store) + "\r\n";
}

void showMethodInfo(App& app) {
  app.platform.ui.setMainEnabled(false);
  std::string reason;
  if (!saveFileAtomically(kPageName, infoPageFileText(app.store), reason)) {
    failOpening(app, kPageName, reason);
    return;
  }
  std::error_code error;
  std::string folder = std::filesystem::current_path(error).string();
  if (error) {
    std::filesystem::remove(kPageName, error);
    failOpening(app, kPageName, "Fant ikke gjeldende mappe.");
    return;
  }
  if (folder.empty() || folder.back() != '/') folder += '/';
  app.store.infoPageFolder = folder;

  if (!app.methodInfoForm) app.methodInfoForm = app.platform.forms.makeMethodInfoForm();
  app.methodInfoForm->Show();
  methodInfoForm_Form_Resize(app);
  app.methodInfoForm->Navigate(app.store.infoPageFolder + kPageName);
  app.methodInfoForm->SetFocus();
}

void methodInfoForm_Command1_Click(App& app) {
  if (!app.methodInfoForm) return;
  app.platform.ui.setMainEnabled(true);
  app.platform.ui.focusMain();
  app.methodInfoForm->Hide();
  app.methodInfoForm->Navigate("");
  // A page that something still holds stays behind; there is nothing the user could do.
  std::error_code ignored;
  std::filesystem::remove(app.store.infoPageFolder + kPageName, ignored);
}

void methodInfoForm_Form_QueryUnload(App& app) {
  methodInfoForm_Command1_Click(app);
  app.methodInfoForm.reset();
}

void methodInfoForm_Form_Resize(App& app) {
  if (!app.methodInfoForm) return;
  const float width = app.methodInfoForm->formWidth();
  const float height = app.methodInfoForm->formHeight();
  app.methodInfoForm->placeButton(width / 2 - kButtonWidth / 2, height - 2 * kButtonHeight);
  app.methodInfoForm->sizeBrowser(width - 4 * kBrowserLeft, height - 4 * kBrowserTop - 2 * kButtonHeight);
}

}  // namespace tavlero
