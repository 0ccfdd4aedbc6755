#pragma once
// addMethodForm: adds a method, or edits the selected one.

#include "core/app.h"

namespace tavlero {

void canvas_DblClick(App& app);
// Opening without filling, as the action key does with no cell selected.
void openAddMethodForm(App& app);

// Events of the open form (ignored while it is closed). The button names are the form's
// own: here Command2 is OK and Command1 Avbryt, the other way round from the info forms.
void addMethodForm_Command2_Click(App& app);  // OK
void addMethodForm_Command1_Click(App& app);  // Avbryt; also closing by the frame
void addMethodForm_longDescription_GotFocus(App& app);

}  // namespace tavlero
