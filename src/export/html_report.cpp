#include "export/html_report.h"

#include <cctype>
#include <charconv>

#include "export/export_file.h"
#include "export/export_index.h"
#include "files/save_file.h"

namespace tavlero {

namespace {

const std::string kLineEnd = "\r\n";

// One table of a section: the other ends of the given links, htmlTableColumns to a row,
// each in the colour of the cell it names.
void appendTable(std::string& out, const ProjectStore& store, const ExportIndex& index,
                 std::span<const int16_t> links, bool showTarget) {
  const std::string& quote = store.quoteChar;
  out.append("<font face=").append(quote).append(store.fontName).append(quote).append("><table border>");
  int16_t column = 0;
  for (int16_t link : links) {
    const std::string_view other = showTarget ? index.linkTarget(link) : index.linkSource(link);
    int32_t colour = showTarget ? index.targetColour(link) : index.sourceColour(link);
    if (column == store.htmlTableColumns) {
      out += "</tr><tr>";
      column = 0;
    } else if (column == 0) {
      out += "<tr>";
    }
    ++column;
    out.append("<td bgcolor=").append(quote).append(colourText(colour)).append(quote);
    out.append(" height=").append(quote).append("110%").append(quote).append("><b>");
    out.append(other).append("</b></td>").append(store.fieldSeparator);
  }
  if (!links.empty()) out += "</tr>";
  out += "</table></font>";
  if (links.empty()) out += "Ingen";
}

}  // namespace

std::string colourText(int32_t colour) {
  // The hexadecimal digits, at least six; without printf, as a report writes one for each
  // link twice.
  char digits[8];
  char* end = std::to_chars(digits, digits + sizeof digits, static_cast<uint32_t>(colour), 16).ptr;
  const auto count = static_cast<size_t>(end - digits);
  std::string hex(count < 6 ? 6 - count : 0, '0');
  for (const char* c = digits; c != end; ++c)
    hex += static_cast<char>(std::toupper(static_cast<unsigned char>(*c)));
  std::string text = "#";
  text.append(hex, hex.size() - 2, 2).append(hex, 2, 2).append(hex, 0, 2);
  return text;
}

void appendMethodHtml(std::string& out, const ProjectStore& store, const ExportIndex& index,
                      int16_t position) {
  const std::string& separator = store.fieldSeparator;
  out.append("<h1>").append(index.methodName(position)).append("</h1>").append(separator);
  out.append("<p><pre>").append(index.shortDescription(position)).append("</pre></p>");
  out.append("<p><small><pre>").append(index.longDescription(position)).append("</pre></small></p>");
  out.append("<h4>Bruker:</h4>").append(separator);
  appendTable(out, store, index, index.linksFrom(position), true);
  out.append("<h4>Brukes av:</h4>").append(separator);
  appendTable(out, store, index, index.linksTo(position), false);
  out += "<hr />";
}

void reservePage(std::string& out, const ProjectStore& store, const ExportIndex& index) {
  reserveLarge(out, index.expectedSize(330 + 2 * store.fontName.size(), 80));
}

std::string buildHtmlReport(const ProjectStore& store) {
  ExportIndex index(store);
  std::string out;
  reservePage(out, store, index);
  out += "<html><body>" + kLineEnd;
  out += "<h1>" + store.programName + "</h1>" + kLineEnd;
  out += "<big><pre>" + store.programDescription + "</pre></big><hr />" + kLineEnd;
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i) {
    appendMethodHtml(out, store, index, i);
    out += kLineEnd;
  }
  out += "</body></html>" + kLineEnd;
  return out;
}

void saveHtmlReport(App& app) {
  if (auto path = chooseExportPath(app, "HTML-dokumenter (*.html)|*.html", "*.html"))
    writeExportFile(app, *path, buildHtmlReport(app.store));
}

}  // namespace tavlero
