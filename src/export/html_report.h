#pragma once
// The plan as one HTML page, and the method sections the info view shows.

#include <cstdint>
#include <string>

#include "core/app.h"

namespace tavlero {

class ExportIndex;

// One method's section, from links and names gathered once for the whole page.
std::string buildMethodHtml(const ProjectStore& store, const ExportIndex& index, int16_t position);
std::string htmlFragment(const ProjectStore& store, const std::string& text, int32_t colour,
                         bool asTableCell);
// "#RRGGBB" from a stored colour number.
std::string colourText(int32_t colour);
// The whole report file's text.
std::string buildHtmlReport(const ProjectStore& store);
void saveHtmlReport(App& app);

}  // namespace tavlero
