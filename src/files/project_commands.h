#pragma once
// New, open, save and save as, with the question about unsaved work.

#include "core/app.h"

namespace tavlero {

void newproject_Click(App& app);
void openproject_Click(App& app);
void saveProject_Click(App& app);
void saveProjectAs_Click(App& app);

}  // namespace tavlero
