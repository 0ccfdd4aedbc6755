#pragma once
// The project info dialog and the about box.

#include <string>

#include "core/app.h"

namespace tavlero {

void editClass_Click(App& app);
// The text boxes edit the project's name and description in place.
void programInfoForm_programName_Change(App& app, const std::string& text);
void programInfoForm_programDescription_Change(App& app, const std::string& text);
void programInfoForm_programDescription_GotFocus(App& app);
void programInfoForm_Command1_Click(App& app);  // OK; also closing by the frame

void aboutmenu_Click(App& app);
void aboutForm_Command1_Click(App& app);  // OK; also closing by the frame

}  // namespace tavlero
