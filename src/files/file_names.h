#pragma once
// What the file dialog's Flags forbid, decided here so the Qt dialog only asks.

#include <cstdint>
#include <filesystem>
#include <string>

namespace tavlero {

// Why the dialog must not take the chosen path under its Flags (2048: the folder must
// exist, 4096: the file too), in Windows-1252; empty when it may. The dialog then says so
// and stays open, so a name in a missing folder never reaches a save.
std::string refusedFileName(int32_t flags, const std::filesystem::path& chosen);

}  // namespace tavlero
