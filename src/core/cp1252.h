#pragma once
// The logic keeps every text in Windows-1252, one byte per character, exactly as the
// files hold it. These two conversions are used only where text meets the outside:
// the Qt edge, and native (UTF-8) paths that are shown inside a text.

#include <string>
#include <string_view>

namespace tavlero {

std::string cp1252ToUtf8(std::string_view text);

// Characters that Windows-1252 cannot hold, and bytes that are no valid UTF-8, become '?'.
std::string utf8ToCp1252(std::string_view text);

// The program's own texts are written in UTF-8 source files: "Fremgangsmåte:"_cp is the
// same text in Windows-1252, as the logic keeps it.
inline std::string operator""_cp(const char* text, size_t length) {
  return utf8ToCp1252(std::string_view(text, length));
}

}  // namespace tavlero
