#pragma once
// The method info view: a page written to TavleroTemp.html and shown in a browser form.

#include <string>

#include "core/app.h"

namespace tavlero {

// The page text: the selected method's section, or the project page.
std::string buildInfoPage(const ProjectStore& store);
// The bytes of the page file: the page and one line end.
std::string infoPageFileText(const ProjectStore& store);
void showMethodInfo(App& app);
void methodInfoForm_Command1_Click(App& app);  // OK: the form is hidden, kept for the next opening
// Closing by the frame: as OK, and the form is let go; the next opening makes it anew.
void methodInfoForm_Form_QueryUnload(App& app);
void methodInfoForm_Form_Resize(App& app);

}  // namespace tavlero
