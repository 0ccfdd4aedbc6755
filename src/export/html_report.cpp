#include "export/html_report.h"

#include <cstdio>

#include "export/export_file.h"
#include "export/export_index.h"

namespace tavlero {

namespace {

const std::string kLineEnd = "\r\n";

// One table of a section: the other ends of the given links, htmlTableColumns to a row,
// each in the colour of the cell it names.
void appendTable(std::string& out, const ProjectStore& store, const ExportIndex& index,
                 std::span<const int16_t> links, bool showTarget) {
  const std::string& quote = store.quoteChar;
  out += "<font face=" + quote + store.fontName + quote + "><table border>";
  int16_t column = 0;
  for (int16_t link : links) {
    const std::string& other = showTarget ? index.linkTarget(link) : index.linkSource(link);
    int32_t colour = showTarget ? index.targetColour(link) : index.sourceColour(link);
    if (column == store.htmlTableColumns) {
      out += "</tr><tr>";
      column = 0;
    } else if (column == 0) {
      out += "<tr>";
    }
    ++column;
    out += htmlFragment(store, other, colour, true);
  }
  if (!links.empty()) out += "</tr>";
  out += "</table></font>";
  if (links.empty()) out += "Ingen";
}

}  // namespace

std::string colourText(int32_t colour) {
  char hex[9];
  std::snprintf(hex, sizeof hex, "%X", static_cast<uint32_t>(colour));
  std::string digits = hex;
  if (digits.size() < 6) digits.insert(0, 6 - digits.size(), '0');
  return "#" + digits.substr(digits.size() - 2) + digits.substr(2, 2) + digits.substr(0, 2);
}

std::string htmlFragment(const ProjectStore& store, const std::string& text, int32_t colour,
                         bool asTableCell) {
  if (!asTableCell) return text + store.fieldSeparator;
  const std::string& quote = store.quoteChar;
  return "<td bgcolor=" + quote + colourText(colour) + quote + " height=" + quote + "110%" + quote + "><b>" +
         text + "</b></td>" + store.fieldSeparator;
}

std::string buildMethodHtml(const ProjectStore& store, const ExportIndex& index, int16_t position) {
  const std::string& name = index.methodName(position);
  std::string out;
  out += htmlFragment(store, "<h1>" + name + "</h1>", 0, false);
  out += "<p><pre>" + index.shortDescription(position) + "</pre></p>";
  out += "<p><small><pre>" + index.longDescription(position) + "</pre></small></p>";
  out += htmlFragment(store, "<h4>Bruker:</h4>", 0, false);
  appendTable(out, store, index, index.linksFrom(position), true);
  out += htmlFragment(store, "<h4>Brukes av:</h4>", 0, false);
  appendTable(out, store, index, index.linksTo(position), false);
  out += "<hr />";
  return out;
}

std::string buildHtmlReport(const ProjectStore& store) {
  ExportIndex index(store);
  std::string out;
  out.reserve(index.expectedSize(330 + 2 * store.fontName.size(), 80));
  out += "<html><body>" + kLineEnd;
  out += "<h1>" + store.programName + "</h1>" + kLineEnd;
  out += "<big><pre>" + store.programDescription + "</pre></big><hr />" + kLineEnd;
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i) out += buildMethodHtml(store, index, i) + kLineEnd;
  out += "</body></html>" + kLineEnd;
  return out;
}

void saveHtmlReport(App& app) {
  if (auto path = chooseExportPath(app, "HTML-dokumenter (*.html)|*.html", "*.html"))
    writeExportFile(app, *path, buildHtmlReport(app.store));
}

}  // namespace tavlero
