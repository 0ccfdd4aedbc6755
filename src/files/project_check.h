#pragma once
// What the reader would silently lose or misread in a project file: one line of
// Windows-1252 text for each problem, none for a clean file.

#include <string>
#include <string_view>
#include <vector>

namespace tavlero {

std::vector<std::string> checkProject(std::string_view fileText);

}  // namespace tavlero
