#include "files/file_names.h"

#include <system_error>

#include "core/cp1252.h"

namespace tavlero {

std::string refusedFileName(int32_t flags, const std::filesystem::path& chosen) {
  std::error_code error;
  const std::string named = "'" + utf8ToCp1252(chosen.string()) + "'\n";
  std::filesystem::path folder = chosen.parent_path();
  if ((flags & 2048) && !std::filesystem::is_directory(folder.empty() ? "." : folder, error))
    return named + "Mappen finnes ikke. Kontroller navnet og prøv igjen."_cp;
  if ((flags & 4096) && !std::filesystem::exists(chosen, error))
    return named + "Filen finnes ikke. Kontroller navnet og prøv igjen."_cp;
  return {};
}

}  // namespace tavlero
