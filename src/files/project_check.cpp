#include "files/project_check.h"

#include <algorithm>
#include <initializer_list>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "core/cp1252.h"
#include "core/project_store.h"
#include "core/record.h"
#include "core/startup.h"
#include "files/project_text.h"

namespace tavlero {

namespace {

// Every tag the reader or a record looks for; typed into a text, each can move what the
// tag search finds.
constexpr std::string_view kTags[] = {
    "projectName",   "projectDescription", "minimumCellWidth", "maximumCellWidth", "nameFontSize",
    "infoFontSize",  "fontName",           "userMethod",       "longDescription",  "userLink",
    "positionX",     "positionY",          "methodName",       "shortDescription", "cellColor",
    "cellFillStyle", "linkSource",         "linkTarget"};

std::string typedTag(std::string_view text) {
  for (std::string_view key : kTags) {
    for (std::string tag : {"<" + std::string(key) + ">", "</" + std::string(key) + ">"})
      if (text.find(tag) != std::string_view::npos) return tag;
  }
  return {};
}

// The writer keeps a record from its first '<' through its last '>'; any other text
// round it is lost at the next save.
bool textOutsideTags(std::string_view record) {
  constexpr std::string_view kBlank = " \t\r\n";
  std::string_view kept = trimRecord(record);
  if (kept.empty()) return record.find_first_not_of(kBlank) != std::string_view::npos;
  size_t begin = static_cast<size_t>(kept.data() - record.data());
  return record.substr(0, begin).find_first_not_of(kBlank) != std::string_view::npos ||
         record.substr(begin + kept.size()).find_first_not_of(kBlank) != std::string_view::npos;
}

class Report {
 public:
  void add(std::string line) { lines_.push_back(std::move(line)); }
  // True when it found one.
  bool typedTags(const std::string& where, std::string_view text) {
    std::string tag = typedTag(text);
    if (!tag.empty()) add(where + " inneholder taggen '" + tag + "', som forstyrrer lesingen.");
    return !tag.empty();
  }
  std::vector<std::string> take() { return std::move(lines_); }

 private:
  std::vector<std::string> lines_;
};

std::string methodLabel(size_t number, const std::string& name) {
  return "Metode " + std::to_string(number) + " ('" + name + "')";
}

size_t countFrom(std::string_view text, size_t offset, std::string_view tag) {
  size_t count = 0;
  for (size_t at = text.find(tag, offset); at != std::string_view::npos; at = text.find(tag, at + tag.size()))
    ++count;
  return count;
}

// A record holds each of its own tags at most once, the opening before the closing, and
// none of the file's other tags; otherwise a field replacement at opening can cut, move or
// grow it at every save. Gives the first tag out of place.
std::string tagOutOfPlace(std::string_view record, std::initializer_list<std::string_view> own,
                          std::string_view ignored) {
  for (std::string_view key : kTags) {
    if (key == ignored) continue;
    std::string open = "<" + std::string(key) + ">";
    std::string close = "</" + std::string(key) + ">";
    size_t opens = countFrom(record, 0, open);
    size_t closes = countFrom(record, 0, close);
    if (std::find(own.begin(), own.end(), key) == own.end()) {
      if (opens + closes > 0) return opens > 0 ? open : close;
    } else if (opens > 1 || closes > 1 || opens != closes || record.find(close) < record.find(open)) {
      return opens == 1 ? close : open;
    }
  }
  return {};
}

// Elements behind the place where a loop ended: each closing tag ends one, and an empty
// element held nothing to lose.
size_t lostBehind(std::string_view text, size_t offset, const std::string& key) {
  return countFrom(text, offset, "</" + key + ">") - countFrom(text, offset, "<" + key + "></" + key + ">");
}

struct ElementKind {
  std::string key;
  const char* some;  // "metode(r)"
  const char* many;  // "metoder"
  int16_t limit;     // what a plan holds
};

// Where a loop ended: the elements an empty or broken one cut off, and those beyond what a
// plan can hold.
void reportLoopEnd(Report& report, std::string_view text, const ElementKind& kind, size_t offset,
                   size_t count) {
  if (size_t lost = lostBehind(text, offset, kind.key); lost > 0)
    report.add("Et tomt eller ødelagt "_cp + kind.key + "-element avslutter lesingen; " +
               std::to_string(lost) + " " + kind.some + " bak det blir ikke lest.");
  if (count > static_cast<size_t>(kind.limit))
    report.add("Filen har " + std::to_string(count) + " " + kind.many + "; en plan kan holde " +
               std::to_string(kind.limit) + ", og resten blir ikke lest.");
}

void checkNumbers(Report& report, std::string_view text) {
  for (std::string_view key : {"minimumCellWidth", "maximumCellWidth"}) {
    if (!(toSingle(textToNumber(getField(text, key))) >= 1.0f))
      report.add(std::string(key) + " mangler eller er mindre enn 1; innstillingene brukes i stedet.");
  }
  for (std::string_view key : {"nameFontSize", "infoFontSize"}) {
    if (fontSizeOf(getField(text, key)) < 1)
      report.add(std::string(key) +
                 " mangler, er mindre enn 1 eller er for stor; innstillingene brukes i stedet.");
  }
}

constexpr std::string_view kPositions[] = {"positionX", "positionY"};

// Reads the methods as the reader does and reports what it loses; gives the names read.
// Records out of shape are reported only where no typed tag already names the cause.
std::unordered_set<std::string> checkMethods(Report& report, std::string_view text, bool causeKnown) {
  ElementScanner scanner(text, "userMethod", kSkipBehindMethod);
  std::unordered_map<std::string, size_t> firstNumber;
  std::unordered_set<std::string> names;
  size_t number = 0;
  size_t lacking[2] = {0, 0};
  // The compression at opening starts its search for the smallest position at the size of
  // the board at start, in millimetres; cells all beyond it do not reach the margin at once.
  const float start[2] = {twipsToMillimetres(kMainClientWidthTwips),
                          twipsToMillimetres(kMainClientHeightTwips)};
  bool reachesStart[2] = {false, false};
  for (std::string_view element = scanner.next(); !element.empty(); element = scanner.next()) {
    ++number;
    MethodParts parts = splitMethod(element);
    std::string name = getField(parts.record, "methodName");
    std::string label = methodLabel(number, name);
    if (!parts.hasLongDescription)
      report.add(label + " har ingen <longDescription>; trolig står '</userMethod>' i en tekst."_cp);
    else if (!parts.closedLongDescription)
      report.add(label + " mangler '</longDescription>'.");
    else if (parts.record.find("</longDescription>") != std::string::npos)
      report.add(label + ": den lange beskrivelsen inneholder '</longDescription>'; resten havner i posten.");
    bool typed = report.typedTags(label + ": navnet", name);
    typed |= report.typedTags(label + ": sammendraget", getField(parts.record, "shortDescription"));
    typed |= report.typedTags(label + ": den lange beskrivelsen", parts.longDescription);
    if (!causeKnown && !typed) {
      if (textOutsideTags(parts.record))
        report.add(label + ": tekst utenfor taggene går tapt ved lagring."_cp);
      if (std::string tag = tagOutOfPlace(
              parts.record,
              {"positionX", "positionY", "methodName", "shortDescription", "cellColor", "cellFillStyle"},
              "longDescription");
          !tag.empty())
        report.add(label + ": taggen '" + tag +
                   "' står feil i posten, så posten endres ved hver lagring."_cp);
    }
    for (size_t axis = 0; axis < 2; ++axis)
      if (parts.record.find("<" + std::string(kPositions[axis]) + ">") == std::string::npos) ++lacking[axis];
    for (size_t axis = 0; axis < 2; ++axis)
      reachesStart[axis] |= !(toSingle(textToNumber(getField(parts.record, kPositions[axis]))) > start[axis]);
    int32_t fill = toLong(textToNumber(getField(parts.record, "cellFillStyle")));
    if (fill < 0 || fill > 7)
      report.add(label + " har fylltype " + std::to_string(fill) + ", utenfor 0 til 7.");
    auto [first, isNew] = firstNumber.emplace(name, number);
    if (!isNew) report.add(label + " har samme navn som metode " + std::to_string(first->second) + ".");
    if (text.substr(scanner.offset() - kSkipBehindMethod).starts_with("<userMethod>"))
      report.add(label + ": '</userMethod>' står rett foran '<userMethod>', så metoden bak går tapt."_cp);
    if (number <= static_cast<size_t>(ProjectStore::kMaxMethods)) names.insert(name);
  }
  // A position without its tag reads as 0 and stays without it, so beside cells that have
  // theirs, every compression at opening moves those once more.
  for (size_t axis = 0; axis < 2; ++axis)
    if (lacking[axis] > 0 && lacking[axis] < number)
      report.add(std::to_string(lacking[axis]) + " av " + std::to_string(number) + " metoder mangler <" +
                 std::string(kPositions[axis]) + ">; de andre flyttes ved hver lagring.");
  for (size_t axis = 0; axis < 2; ++axis)
    if (number > 0 && !reachesStart[axis])
      report.add("Alle metodene har " + std::string(kPositions[axis]) + " over" + numberToText(start[axis]) +
                 "; de flyttes på nytt ved hver åpning til de når margen."_cp);
  reportLoopEnd(report, text, {"userMethod", "metode(r)", "metoder", ProjectStore::kMaxMethods},
                scanner.offset(), number);
  return names;
}

void checkLinks(Report& report, std::string_view text, const std::unordered_set<std::string>& names,
                bool causeKnown) {
  ElementScanner scanner(text, "userLink", kSkipBehindLink);
  size_t number = 0;
  for (std::string_view element = scanner.next(); !element.empty(); element = scanner.next()) {
    ++number;
    if (!causeKnown && textOutsideTags(element))
      report.add("Kobling " + std::to_string(number) + ": tekst utenfor taggene går tapt ved lagring."_cp);
    if (std::string tag = tagOutOfPlace(element, {"linkSource", "linkTarget"}, {});
        !causeKnown && !tag.empty())
      report.add("Kobling " + std::to_string(number) + ": taggen '" + tag +
                 "' står feil i posten, så posten endres ved hver lagring."_cp);
    std::string source = getField(element, "linkSource");
    std::string target = getField(element, "linkTarget");
    // Without a name at one end the drawing leaves a link alone: never drawn, never removed.
    if (source.empty() || target.empty()) {
      report.add("Kobling " + std::to_string(number) + ": " + (source.empty() ? "linkSource" : "linkTarget") +
                 " er tom, og koblingen blir verken tegnet eller fjernet.");
      continue;
    }
    for (const auto& [key, name] : {std::pair{"linkSource", source}, std::pair{"linkTarget", target}})
      if (!names.contains(name))
        report.add("Kobling " + std::to_string(number) + ": " + key + " '" + name +
                   "' er ingen metode, og koblingen blir fjernet.");
  }
  reportLoopEnd(report, text, {"userLink", "kobling(er)", "koblinger", ProjectStore::kMaxLinks},
                scanner.offset(), number);
}

}  // namespace

std::vector<std::string> checkProject(std::string_view fileText) {
  Report report;
  checkNumbers(report, fileText);
  bool causeKnown = false;
  // A text opened but never closed reads as empty.
  for (std::string key : {"projectName", "projectDescription", "fontName"}) {
    size_t open = fileText.find("<" + key + ">");
    size_t close = fileText.find("</" + key + ">");
    if (open != std::string_view::npos && (close == std::string_view::npos || close < open)) {
      causeKnown = true;
      report.add(key + " mangler '</" + key + ">' bak '<" + key + ">'; teksten leses som tom.");
    }
  }
  causeKnown |= report.typedTags("Prosjektnavnet", getField(fileText, "projectName"));
  causeKnown |= report.typedTags("Prosjektbeskrivelsen", getField(fileText, "projectDescription"));
  causeKnown |= report.typedTags("Skriftnavnet", getField(fileText, "fontName"));
  checkLinks(report, fileText, checkMethods(report, fileText, causeKnown), causeKnown);
  return report.take();
}

}  // namespace tavlero
