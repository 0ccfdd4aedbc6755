#pragma once
// The .tvl project file: the writer, the reader, and the dialogs that choose a file.

#include <string>

#include "core/app.h"

namespace tavlero {

// Writes folder + fileName (folder ends in its separator). Saving replaces the target
// only once every byte is written; on failure the old file stays, isSaved is left as it
// was and a Norwegian message names the file. True when written.
bool writeProject(App& app, const std::string& fileName, const std::string& folder);

// What reading ends with: the board drawn, or for a caller that shows nothing only what
// the drawing does to the records (links to a missing cell go); the geometry lists then
// keep their placeholders.
enum class AfterReading { Draw, RecordsOnly };

// Replaces the project with the file's content and redraws. False when the file could
// not be opened or read; the lists are empty then, and no message was shown.
bool readProject(App& app, const std::string& path, AfterReading after = AfterReading::Draw);

// The same reader on bytes already in memory.
void readProjectFromText(App& app, const std::string& fileText);

// The save dialog; on success projectFileName and projectFolder hold the choice.
bool showSaveDialog(App& app, const std::string& filter, const std::string& defaultExt);
void saveProjectAs(App& app);
void openProjectDialog(App& app);

}  // namespace tavlero
