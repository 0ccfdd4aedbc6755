#pragma once
// The plan as plain text, to the clipboard and to a file.

#include <cstdint>
#include <string>

#include "core/app.h"

namespace tavlero {

class ExportIndex;

// One method's block, from links and names gathered once for the whole scheme, appended
// to out.
void appendSchemeText(std::string& out, const ProjectStore& store, const ExportIndex& index,
                      int16_t position);
// Every block in itemList order; for the file each block has one more line end behind it.
std::string buildScheme(const ProjectStore& store, bool forFile);
void copySchemeText(App& app);
void saveSchemeText(App& app);

}  // namespace tavlero
