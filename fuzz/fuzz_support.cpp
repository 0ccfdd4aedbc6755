#include "fuzz_support.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unordered_set>

#include "core/record.h"
#include "files/project_text.h"
#include "program/startup.h"

namespace tavlero::fuzzing {

void require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "fuzz check failed: %s\n", what);
  std::abort();
}

std::string textOf(const uint8_t* data, size_t size) {
  return std::string(reinterpret_cast<const char*>(data), size);
}

const testing::TempDir& scratch() {
  static testing::TempDir dir;
  return dir;
}

InScratchFolder::InScratchFolder() : previous_(::open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  require(previous_ >= 0 && ::chdir(scratch().path().c_str()) == 0, "the scratch folder can be entered");
}

InScratchFolder::~InScratchFolder() {
  require(::fchdir(previous_) == 0, "the working folder comes back");
  ::close(previous_);
}

StartedWorld::StartedWorld() {
  Form_Load(app, scratch().file("tavlero"), "", scratch().file("tavlero.cfg"));
}

void requireStoreInvariants(const ProjectStore& store) {
  require(store.itemList.ListCount() == store.sizeList.ListCount(), "itemList and sizeList are parallel");
  require(store.linkList.ListCount() == store.linkSizeList.ListCount(),
          "linkList and linkSizeList are parallel");
  require(store.itemList.ListCount() <= ProjectStore::kMaxMethods, "no more methods than the table holds");
  require(store.selectedCell >= -1 && store.selectedCell < store.itemList.ListCount(),
          "selectedCell is valid");
  require(store.selectedLink >= -1 && store.selectedLink < store.linkList.ListCount(),
          "selectedLink is valid");
}

void requireLinksNameCells(const ProjectStore& store) {
  std::unordered_set<std::string> names;
  for (const std::string& record : store.itemList.items()) names.insert(getField(record, "methodName"));
  for (const std::string& link : store.linkList.items()) {
    std::string source = getField(link, "linkSource");
    std::string target = getField(link, "linkTarget");
    // A link without a name at one end is neither drawn nor taken away.
    if (source.empty() || target.empty()) continue;
    require(names.contains(source), "a link's source is a cell after a redraw");
    require(names.contains(target), "a link's target is a cell after a redraw");
  }
}

namespace {

// The white space round a record is the file's, not the plan's: the writer drops it.
bool sameRecords(const StringList& a, const StringList& b) {
  return std::equal(
      a.items().begin(), a.items().end(), b.items().begin(), b.items().end(),
      [](const std::string& x, const std::string& y) { return trimRecord(x) == trimRecord(y); });
}

}  // namespace

bool sameProject(const ProjectStore& a, const ProjectStore& b) {
  if (!sameRecords(a.itemList, b.itemList) || !sameRecords(a.linkList, b.linkList)) return false;
  for (int16_t i = 0; i < a.itemList.ListCount(); ++i)
    if (a.getLongDescription(i) != b.getLongDescription(i)) return false;
  return a.programName == b.programName && a.programDescription == b.programDescription &&
         a.fontName == b.fontName && a.nameFontSize == b.nameFontSize && a.infoFontSize == b.infoFontSize &&
         a.minimumCellWidth == b.minimumCellWidth && a.maximumCellWidth == b.maximumCellWidth;
}

}  // namespace tavlero::fuzzing
