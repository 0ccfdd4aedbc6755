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

}  // namespace tavlero
