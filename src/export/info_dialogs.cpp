#include "export/info_dialogs.h"

namespace tavlero {

void editClass_Click(App& app) {
  app.platform.ui.setMainEnabled(false);
  app.platform.forms.programInfoForm().Show(app.store.programName, app.store.programDescription);
}

void programInfoForm_programName_Change(App& app, const std::string& text) {
  app.store.programName = text;
}

void programInfoForm_programDescription_Change(App& app, const std::string& text) {
  app.store.programDescription = text;
}

// Once the description has had the focus, Enter stays a line break there and presses OK
// nowhere in the form, for as long as the form lives.
void programInfoForm_programDescription_GotFocus(App& app) {
  app.platform.forms.programInfoForm().setOkDefault(false);
}

void programInfoForm_Command1_Click(App& app) {
  app.platform.ui.setMainEnabled(true);
  app.platform.ui.focusMain();
  app.platform.forms.programInfoForm().Hide();
  app.store.markChanged();
}

void aboutmenu_Click(App& app) {
  app.platform.ui.setMainEnabled(false);
  app.aboutForm = app.platform.forms.makeAboutForm();
  app.aboutForm->Show();
}

void aboutForm_Command1_Click(App& app) {
  if (!app.aboutForm) return;
  app.platform.ui.setMainEnabled(true);
  app.platform.ui.focusMain();
  app.aboutForm->Unload();
  app.aboutForm.reset();
}

}  // namespace tavlero
