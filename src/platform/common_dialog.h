#pragma once
// The common file dialog. FileName is the chosen full native path, FileTitle its last
// component. Filter is in the "Text (*.ext)|*.ext" form; DefaultExt may be "*.ext".

#include <cstdint>
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

}  // namespace tavlero
