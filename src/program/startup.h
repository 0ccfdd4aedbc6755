#pragma once
// Start and end of the program: Form_Load and the question about unsaved work.

#include <string>

#include "core/app.h"
#include "core/window_size.h"
#include "files/project_file.h"

namespace tavlero {

// The text up to and with the last folder separator of path; empty without one.
std::string folderOf(const std::string& path);

// programPath: the full native path of the program file. commandLine: the program's
// arguments joined by one blank each. Returns false when the program must end (the
// command line's project could not be read; the message was shown). settingsPath, when
// not empty, takes the place of tavlero.cfg beside the program (the headless tool's option).
// after: what reading the command line's project ends with.
bool Form_Load(App& app, const std::string& programPath, const std::string& commandLine,
               const std::string& settingsPath = {}, AfterReading after = AfterReading::Draw);

void Form_GotFocus(App& app);

// True when the window may close; false when the user chose Cancel.
bool Form_QueryUnload(App& app);

}  // namespace tavlero
