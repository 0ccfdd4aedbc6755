#pragma once
// The one place where files are read whole and written whole. Writing goes to a
// temporary file beside the target, which replaces the target only once every byte is
// on the disk, so a failed save never leaves a half-written file behind.

#include <string>
#include <string_view>

namespace tavlero {

// Writes bytes to path (native). On failure false, the old file untouched, no temporary
// file left, and a Norwegian reason in error.
bool saveFileAtomically(const std::string& path, std::string_view bytes, std::string& error);

// Reads the whole file at path. False when it cannot be opened or read (a folder too).
bool readWholeFile(const std::string& path, std::string& bytes);

}  // namespace tavlero
