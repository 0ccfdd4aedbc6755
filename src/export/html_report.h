#pragma once
// The plan as one HTML page, and the method sections the info view shows.

#include <cstdint>
#include <string>

#include "core/app.h"

namespace tavlero {

class ExportIndex;

// One method's section, from links and names gathered once for the whole page, appended
// to out: a page of every method is written in one buffer.
void appendMethodHtml(std::string& out, const ProjectStore& store, const ExportIndex& index,
                      int16_t position);
// Room in out for a page of every method's section.
void reservePage(std::string& out, const ProjectStore& store, const ExportIndex& index);
// "#RRGGBB" from a stored colour number.
std::string colourText(int32_t colour);
// The whole report file's text.
std::string buildHtmlReport(const ProjectStore& store);
void saveHtmlReport(App& app);

}  // namespace tavlero
