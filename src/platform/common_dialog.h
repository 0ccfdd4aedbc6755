#pragma once
// The common file dialog. FileName is the chosen full native path, FileTitle its last
// component. Filter is in the "Text (*.ext)|*.ext" form; DefaultExt may be "*.ext".

#include <cstdint>
#include <filesystem>
#include <string>

namespace tavlero {

class CommonDialog {
 public:
  virtual ~CommonDialog() = default;

  bool CancelError = false;
  std::string FileName;
  std::string FileTitle;
  std::string DefaultExt;
  std::string Filter;
  int32_t Flags = 0;  // 2 overwrite prompt, 2048 path must exist, 4096 file must exist

  // False when the user cancelled or the dialog failed; FileName/FileTitle set otherwise.
  virtual bool ShowOpen() = 0;
  virtual bool ShowSave() = 0;
};

// Why the dialog must not take the chosen path under its Flags (2048: the folder must
// exist, 4096: the file too), in Windows-1252; empty when it may. The dialog then says so
// and stays open, so a name in a missing folder never reaches a save.
std::string refusedFileName(int32_t flags, const std::filesystem::path& chosen);

}  // namespace tavlero
