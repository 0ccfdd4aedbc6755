// Every export of any plan: the text scheme for the file and the clipboard, the HTML report
// and the info pages never fail, and what they give is Windows-1252 with CR LF line ends
// whenever the plan itself brings neither lone line breaks nor bytes beyond ASCII.
#include <algorithm>
#include <cstdint>
#include <string_view>

#include "core/record.h"
#include "export/html_report.h"
#include "export/info_view.h"
#include "export/text_scheme.h"
#include "files/project_file.h"
#include "fuzz_support.h"

using namespace tavlero;

namespace {

bool onlyCrLf(std::string_view text) {
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')) return false;
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) return false;
  }
  return true;
}

bool ascii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// A UTF-8 sequence of two or more bytes: our own texts leaked without conversion.
bool holdsUtf8(std::string_view text) {
  for (size_t i = 0; i + 1 < text.size(); ++i) {
    auto lead = static_cast<unsigned char>(text[i]);
    auto next = static_cast<unsigned char>(text[i + 1]);
    if (lead >= 0xC2 && lead <= 0xF4 && next >= 0x80 && next <= 0xBF) return true;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzzing::StartedWorld world;
  readProjectFromText(world.app, fuzzing::textOf(data, size));
  ProjectStore& store = world.app.store;

  std::vector<std::string> outputs = {buildScheme(store, true), buildScheme(store, false),
                                      buildHtmlReport(store), infoPageFileText(store)};
  for (int16_t cell : {int16_t{0}, static_cast<int16_t>(store.itemList.ListCount() - 1)}) {
    if (cell < 0) continue;
    store.selectedCell = cell;
    outputs.push_back(infoPageFileText(store));
  }
  // The texts the plan brings, as the exports read them: a field cut from a damaged record
  // can begin with half a line end, and that is the plan's, not the export's.
  std::string planTexts = store.programName + "\r\n" + store.programDescription + "\r\n" + store.fontName;
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i) {
    const std::string& record = store.itemList.List(i);
    planTexts += "\r\n" + getField(record, "methodName") + "\r\n" + getField(record, "shortDescription") +
                 "\r\n" + store.getLongDescription(i);
  }
  for (const std::string& link : store.linkList.items())
    planTexts += "\r\n" + getField(link, "linkSource") + "\r\n" + getField(link, "linkTarget");
  bool plainLines = onlyCrLf(planTexts);
  bool plainBytes = ascii(planTexts);
  for (const std::string& output : outputs) {
    if (plainLines) fuzzing::require(onlyCrLf(output), "an export ends its lines with CR LF");
    if (plainBytes) fuzzing::require(!holdsUtf8(output), "an export is Windows-1252, not UTF-8");
  }
  return 0;
}
