#include "files/project_check.h"

#include <algorithm>
#include <array>
#include <future>
#include <initializer_list>
#include <utility>
#include <vector>

#include "core/cp1252.h"
#include "core/name_index.h"
#include "core/project_store.h"
#include "core/record.h"
#include "core/records.h"
#include "core/window_size.h"
#include "files/project_text.h"

namespace tavlero {

namespace {

struct Tags {
  std::string open;   // "<key>"
  std::string close;  // "</key>"
};

Tags tagsOf(std::string_view key) {
  return {"<" + std::string(key) + ">", "</" + std::string(key) + ">"};
}

// The tags of kProjectFileKeys, in its order, made once: the checks below ask for them
// for every record of a plan.
const std::array<Tags, kProjectFileKeys.size()>& fileTags() {
  static const auto tags = [] {
    std::array<Tags, kProjectFileKeys.size()> made;
    for (size_t i = 0; i < made.size(); ++i) made[i] = tagsOf(kProjectFileKeys[i]);
    return made;
  }();
  return tags;
}

std::string typedTag(std::string_view text) {
  // Every tag starts with '<'; most texts hold none.
  if (text.find('<') == std::string_view::npos) return {};
  for (const Tags& tags : fileTags()) {
    for (const std::string& tag : {tags.open, tags.close})
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
  // The line names the text as where() + what; where is asked only for a line. True when
  // it found one.
  template <typename Where>
  bool typedTags(const Where& where, std::string_view what, std::string_view text) {
    std::string tag = typedTag(text);
    if (!tag.empty())
      add(std::string(where()).append(what) + " inneholder taggen '" + tag + "', som forstyrrer lesingen.");
    return !tag.empty();
  }
  std::vector<std::string> take() { return std::move(lines_); }

 private:
  std::vector<std::string> lines_;
};

std::string methodLabel(size_t number, std::string_view name) {
  return "Metode " + std::to_string(number) + " ('" + std::string(name) + "')";
}

size_t countFrom(std::string_view text, size_t offset, std::string_view tag) {
  size_t count = 0;
  for (size_t at = findText(text, tag, offset); at != std::string_view::npos;
       at = findText(text, tag, at + tag.size()))
    ++count;
  return count;
}

// The place of a tag's name in kProjectFileKeys, or -1: only keys of the name's length are
// compared, as every tag of every record is looked up.
int keyIndex(std::string_view name) {
  static const auto byLength = [] {
    std::array<std::vector<int>, 32> table;
    for (size_t i = 0; i < kProjectFileKeys.size(); ++i)
      table[kProjectFileKeys[i].size()].push_back(static_cast<int>(i));
    return table;
  }();
  if (name.size() >= byLength.size()) return -1;
  for (int i : byLength[name.size()])
    if (kProjectFileKeys[static_cast<size_t>(i)] == name) return i;
  return -1;
}

// A record holds each of its own tags at most once, the opening before the closing, and
// none of the file's other tags; otherwise a field replacement at opening can cut, move or
// grow it at every save. Gives the first tag out of place.
std::string tagOutOfPlace(std::string_view record, std::initializer_list<std::string_view> own,
                          std::string_view ignored) {
  // One pass over the record's '<': a tag has no '<' or '>' inside, so each of its places
  // is a '<' followed by the key, or '/' and the key, up to the next '>'.
  struct Seen {
    size_t opens = 0, closes = 0;
    size_t firstOpen = std::string_view::npos, firstClose = std::string_view::npos;
  };
  std::array<Seen, kProjectFileKeys.size()> seen;
  for (size_t at = record.find('<'); at != std::string_view::npos; at = record.find('<', at + 1)) {
    size_t end = record.find('>', at);
    if (end == std::string_view::npos) break;
    std::string_view name = record.substr(at + 1, end - at - 1);
    const bool closing = name.starts_with('/');
    if (closing) name.remove_prefix(1);
    const int key = keyIndex(name);
    if (key < 0) continue;
    Seen& tag = seen[static_cast<size_t>(key)];
    size_t& first = closing ? tag.firstClose : tag.firstOpen;
    if (first == std::string_view::npos) first = at;
    ++(closing ? tag.closes : tag.opens);
  }
  std::array<bool, kProjectFileKeys.size()> owned{};
  for (std::string_view key : own)
    if (const int i = keyIndex(key); i >= 0) owned[static_cast<size_t>(i)] = true;
  const int skipped = keyIndex(ignored);
  const auto& allTags = fileTags();
  for (size_t i = 0; i < kProjectFileKeys.size(); ++i) {
    if (static_cast<int>(i) == skipped) continue;
    const Seen& tag = seen[i];
    const Tags& tags = allTags[i];
    if (!owned[i]) {
      if (tag.opens + tag.closes > 0) return tag.opens > 0 ? tags.open : tags.close;
    } else if (tag.opens > 1 || tag.closes > 1 || tag.opens != tag.closes || tag.firstClose < tag.firstOpen) {
      return tag.opens == 1 ? tags.close : tags.open;
    }
  }
  return {};
}

struct ElementKind {
  std::string key;
  const char* some;   // "metode(r)"
  const char* many;   // "metoder"
  int16_t limit;      // what a plan holds
  size_t skipBehind;  // what the reader skips behind a closing tag
};

// Elements behind the place where a loop ended: each opening tag starts one, also one whose
// first character the reader skipped, and an empty element held nothing to lose. Closing
// tags would count the rest of an element cut short by a typed closing tag once more.
size_t lostBehind(std::string_view text, size_t offset, const ElementKind& kind) {
  size_t from = offset < kind.skipBehind ? 0 : offset - kind.skipBehind;
  return countFrom(text, from, "<" + kind.key + ">") -
         countFrom(text, from, "<" + kind.key + "></" + kind.key + ">");
}

// Where a loop ended: the elements an empty or broken one cut off, and those beyond what a
// plan can hold.
void reportLoopEnd(Report& report, std::string_view text, const ElementKind& kind, size_t offset,
                   size_t count) {
  if (size_t lost = lostBehind(text, offset, kind); lost > 0)
    report.add("Et tomt eller ødelagt "_cp + kind.key + "-element avslutter lesingen; " +
               std::to_string(lost) + " " + kind.some + " bak det blir ikke lest.");
  if (count > static_cast<size_t>(kind.limit))
    report.add("Filen har " + std::to_string(count) + " " + kind.many + "; en plan kan holde " +
               std::to_string(kind.limit) + ", og resten blir ikke lest.");
}

void checkNumbers(Report& report, std::string_view text) {
  for (std::string_view field : {key::minimumCellWidth, key::maximumCellWidth}) {
    if (!(toSingle(numberField(text, field)) >= 1.0f))
      report.add(std::string(field) + " mangler eller er mindre enn 1; innstillingene brukes i stedet.");
  }
  for (std::string_view field : {key::nameFontSize, key::infoFontSize}) {
    if (fontSizeOf(getField(text, field)) < 1)
      report.add(std::string(field) +
                 " mangler, er mindre enn 1 eller er for stor; innstillingene brukes i stedet.");
  }
}

// The field in which a typed '</userMethod>' ended the element early: the one the element
// opens and does not close, when that field's closing tag still follows before the next
// method. Empty when the element ended at its own closing tag.
std::string cutField(std::string_view element, std::string_view behind) {
  constexpr size_t npos = std::string_view::npos;
  static const std::pair<std::string_view, const char*> fields[] = {
      {key::methodName, "navnet"},
      {key::shortDescription, "sammendraget"},
      {key::longDescription, "den lange beskrivelsen"}};
  // The last opening and closing tag of each field, in one pass over the element's '<': a
  // tag has no '>' inside, so each of its places is a '<' and the key up to the next '>'.
  size_t opened[std::size(fields)] = {npos, npos, npos};
  size_t closed[std::size(fields)] = {npos, npos, npos};
  for (size_t at = element.find('<'); at != npos; at = element.find('<', at + 1)) {
    size_t end = element.find('>', at);
    if (end == npos) break;
    std::string_view name = element.substr(at + 1, end - at - 1);
    const bool closing = name.starts_with('/');
    if (closing) name.remove_prefix(1);
    for (size_t f = 0; f < std::size(fields); ++f)
      if (name == fields[f].first) (closing ? closed : opened)[f] = at;
  }
  for (size_t f = 0; f < std::size(fields); ++f) {
    if (opened[f] == npos || (closed[f] != npos && closed[f] > opened[f])) continue;
    size_t closing = findText(behind, tagsOf(fields[f].first).close);
    if (closing != npos && closing < findText(behind, "<userMethod>")) return fields[f].second;
  }
  return {};
}

constexpr std::string_view kPositions[] = {key::positionX, key::positionY};

// The names of the methods of a file, each with the number of the first method of that name.
struct MethodNames {
  NameIndex index;
  std::vector<size_t> firstNumber;  // by the name's number in index
  // Whether a method of the name is read into the plan.
  bool inPlan(std::string_view name) const {
    const int32_t id = index.find(name);
    return id >= 0 && firstNumber[static_cast<size_t>(id)] <= static_cast<size_t>(ProjectStore::kMaxMethods);
  }
};

// Reads the methods as the reader does, reports what it loses and gives the names read.
// Records out of shape are reported only where no typed tag already names the cause.
void checkMethods(Report& report, std::string_view text, bool causeKnown, MethodNames& names) {
  ElementScanner scanner(text, key::userMethod, kSkipBehindMethod);
  size_t number = 0;
  size_t lacking[2] = {0, 0};
  // The compression at opening starts its search for the smallest position at the size of
  // the board at start, in millimetres; cells all beyond it do not reach the margin at once.
  const float start[2] = {twipsToMillimetres(kMainClientWidthTwips),
                          twipsToMillimetres(kMainClientHeightTwips)};
  bool reachesStart[2] = {false, false};
  const Tags positionTags[] = {tagsOf(kPositions[0]), tagsOf(kPositions[1])};
  for (std::string_view element = scanner.next(); !element.empty(); element = scanner.next()) {
    ++number;
    MethodParts parts = splitMethod(element);
    const int32_t id = names.index.add(fieldView(parts.record, key::methodName));
    const std::string_view name = names.index.name(id);
    const bool isNew = static_cast<size_t>(id) == names.firstNumber.size();
    if (isNew) names.firstNumber.push_back(number);
    // Made for the first line about the method: most methods have none.
    std::string labelText;
    auto label = [&]() -> const std::string& {
      if (labelText.empty()) labelText = methodLabel(number, name);
      return labelText;
    };
    const std::string_view behind = text.substr(scanner.offset() - kSkipBehindMethod);
    const std::string cut = cutField(element, behind);
    if (!cut.empty())
      report.add(label() + ": '</userMethod>' står i "_cp + cut + ", så resten av metoden går tapt."_cp);
    else if (!parts.hasLongDescription)
      report.add(label() + " har ingen <longDescription>; trolig står '</userMethod>' i en tekst."_cp);
    else if (!parts.closedLongDescription)
      report.add(label() + " mangler '</longDescription>'.");
    else if (parts.record.find("</longDescription>") != std::string::npos &&
             element.find("</longDescription>") > element.find("<longDescription"))
      report.add(label() +
                 ": den lange beskrivelsen inneholder '</longDescription>'; resten havner i posten.");
    // A typed closing tag that cut the method short already names the cause.
    bool typed = !cut.empty();
    typed |= report.typedTags(label, ": navnet", name);
    typed |= report.typedTags(label, ": sammendraget", fieldView(parts.record, key::shortDescription));
    typed |= report.typedTags(label, ": den lange beskrivelsen", parts.longDescription);
    if (!causeKnown && !typed) {
      if (textOutsideTags(parts.record))
        report.add(label() + ": tekst utenfor taggene går tapt ved lagring."_cp);
      if (std::string tag = tagOutOfPlace(parts.record,
                                          {key::positionX, key::positionY, key::methodName,
                                           key::shortDescription, key::cellColor, key::cellFillStyle},
                                          key::longDescription);
          !tag.empty())
        report.add(label() + ": taggen '" + tag +
                   "' står feil i posten, så posten endres ved hver lagring."_cp);
    }
    for (size_t axis = 0; axis < 2; ++axis)
      if (parts.record.find(positionTags[axis].open) == std::string::npos) ++lacking[axis];
    for (size_t axis = 0; axis < 2; ++axis)
      reachesStart[axis] |= !(toSingle(numberField(parts.record, kPositions[axis])) > start[axis]);
    int32_t fill = toLong(numberField(parts.record, key::cellFillStyle));
    if (fill < 0 || fill > 7)
      report.add(label() + " har fylltype " + std::to_string(fill) + ", utenfor 0 til 7.");
    if (!isNew)
      report.add(label() + " har samme navn som metode " +
                 std::to_string(names.firstNumber[static_cast<size_t>(id)]) + ".");
    if (behind.starts_with("<userMethod>"))
      report.add(label() + ": '</userMethod>' står rett foran '<userMethod>', så metoden bak går tapt."_cp);
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
  reportLoopEnd(
      report, text,
      {std::string(key::userMethod), "metode(r)", "metoder", ProjectStore::kMaxMethods, kSkipBehindMethod},
      scanner.offset(), number);
}

void checkLinks(Report& report, std::string_view text, const MethodNames& names, bool causeKnown) {
  ElementScanner scanner(text, key::userLink, kSkipBehindLink);
  size_t number = 0;
  for (std::string_view element = scanner.next(); !element.empty(); element = scanner.next()) {
    ++number;
    if (!causeKnown && textOutsideTags(element))
      report.add("Kobling " + std::to_string(number) + ": tekst utenfor taggene går tapt ved lagring."_cp);
    if (std::string tag = tagOutOfPlace(element, {key::linkSource, key::linkTarget}, {});
        !causeKnown && !tag.empty())
      report.add("Kobling " + std::to_string(number) + ": taggen '" + tag +
                 "' står feil i posten, så posten endres ved hver lagring."_cp);
    const std::string_view source = fieldView(element, key::linkSource);
    const std::string_view target = fieldView(element, key::linkTarget);
    // Without a name at one end the drawing leaves a link alone: never drawn, never removed.
    if (source.empty() || target.empty()) {
      report.add("Kobling " + std::to_string(number) + ": " +
                 std::string(source.empty() ? key::linkSource : key::linkTarget) +
                 " er tom, og koblingen blir verken tegnet eller fjernet.");
      continue;
    }
    for (const auto& [end, name] : {std::pair{key::linkSource, source}, std::pair{key::linkTarget, target}})
      if (!names.inPlan(name))
        report.add("Kobling " + std::to_string(number) + ": " + std::string(end) + " '" + std::string(name) +
                   "' er ingen metode, og koblingen blir fjernet.");
  }
  reportLoopEnd(
      report, text,
      {std::string(key::userLink), "kobling(er)", "koblinger", ProjectStore::kMaxLinks, kSkipBehindLink},
      scanner.offset(), number);
}

// The lists as the reader fills them from text.
ProjectStore readRecords(std::string_view text) {
  ProjectStore store;
  readLists(store, text);
  return store;
}

// Whether the reader's loops find the same elements in both texts: from the first tag of
// an element on the texts are the same, and each loop starts at its opening tag or finds
// no element at all.
bool sameElements(std::string_view a, std::string_view b) {
  static const std::string kTags[] = {"<userMethod>", "</userMethod>", "<userLink>", "</userLink>"};
  constexpr size_t npos = std::string_view::npos;
  auto firstTag = [](std::string_view text) {
    size_t first = npos;
    // Each tag only before the first one found so far: the links stand behind the methods.
    for (const std::string& tag : kTags)
      first = std::min(first, findText(text.substr(0, first == npos ? npos : first + tag.size()), tag));
    return first;
  };
  const size_t inA = firstTag(a);
  const size_t inB = firstTag(b);
  if (inA == npos || inB == npos || a.substr(inA) != b.substr(inB)) return false;
  const std::string_view tail = a.substr(inA);
  return (findText(tail, kTags[0]) != npos || findText(tail, kTags[1]) == npos) &&
         (findText(tail, kTags[2]) != npos || findText(tail, kTags[3]) == npos);
}

// The first save puts a damaged file into the writer's form; records that change again at
// the next open and save change (or grow) every time. Positions are left to the compression.
void checkSettling(Report& report, std::string_view fileText) {
  const ProjectStore once = readRecords(fileText);
  const std::string written = projectFileText(once);
  // A file whose elements the writer writes back as they stand reads back as it was read.
  if (sameElements(fileText, written)) return;
  const ProjectStore twice = readRecords(written);
  for (int16_t i = 0; i < std::max(once.itemList.ListCount(), twice.itemList.ListCount()); ++i) {
    if (trimRecord(once.itemList.List(i)) != trimRecord(twice.itemList.List(i)) ||
        once.getLongDescription(i) != twice.getLongDescription(i))
      report.add(methodLabel(i + 1, getField(once.itemList.List(i), key::methodName)) +
                 " endres hver gang planen åpnes og lagres."_cp);
  }
  for (int16_t i = 0; i < std::max(once.linkList.ListCount(), twice.linkList.ListCount()); ++i) {
    if (trimRecord(once.linkList.List(i)) != trimRecord(twice.linkList.List(i)))
      report.add("Kobling " + std::to_string(i + 1) + " endres hver gang planen åpnes og lagres."_cp);
  }
}

}  // namespace

std::vector<std::string> checkProject(std::string_view fileText) {
  Report report;
  checkNumbers(report, fileText);
  bool causeKnown = false;
  // A text opened but never closed reads as empty.
  for (std::string_view field : {key::projectName, key::projectDescription, key::fontName}) {
    size_t open = fileText.find("<" + std::string(field) + ">");
    size_t close = fileText.find("</" + std::string(field) + ">");
    if (open != std::string_view::npos && (close == std::string_view::npos || close < open)) {
      causeKnown = true;
      report.add(std::string(field) + " mangler '</" + std::string(field) + ">' bak '<" + std::string(field) +
                 ">'; teksten leses som tom.");
    }
  }
  causeKnown |= report.typedTags([] { return "Prosjektnavnet"; }, "", getField(fileText, key::projectName));
  causeKnown |= report.typedTags([] { return "Prosjektbeskrivelsen"; }, "",
                                 getField(fileText, key::projectDescription));
  causeKnown |= report.typedTags([] { return "Skriftnavnet"; }, "", getField(fileText, key::fontName));
  // The settling reads the file on its own, on a second core where there is one; its
  // lines come last.
  std::future<Report> settling = std::async(std::launch::async | std::launch::deferred, [fileText] {
    Report lines;
    checkSettling(lines, fileText);
    return lines;
  });
  MethodNames names;
  checkMethods(report, fileText, causeKnown, names);
  checkLinks(report, fileText, names, causeKnown);
  for (std::string& line : settling.get().take()) report.add(std::move(line));
  return report.take();
}

}  // namespace tavlero
