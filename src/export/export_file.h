#pragma once
// What the file exports share: the save dialog that must leave the project's own file
// name alone, and writing the export with a message when it fails.

#include <optional>
#include <string>
#include <string_view>

#include "core/app.h"

namespace tavlero {

// The full path the user chose, or nothing on cancel. projectFileName and projectFolder
// hold afterwards what they held before, so a later plain save still goes to the project.
std::optional<std::string> chooseExportPath(App& app, const std::string& filter,
                                            const std::string& defaultExt);

// folder + separator (unless folder already ends in one) + name.
std::string joinPath(const std::string& folder, const std::string& name);

// Writes the whole file or leaves the old one; on failure a message names the file.
bool writeExportFile(App& app, const std::string& path, std::string_view bytes);

// A failed export told to the user: the file's name and the reason.
void showExportFailure(App& app, const std::string& path, const std::string& reason);

}  // namespace tavlero
