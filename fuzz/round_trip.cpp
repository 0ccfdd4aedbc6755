// Read, save, read, save: a saved plan that the checker finds clean must come back byte
// for byte, and a clean file must stay clean once saved, so no file changes or grows at
// every open and save.
#include <algorithm>
#include <cstdint>

#include "core/record.h"
#include "core/records.h"
#include "files/project_check.h"
#include "files/project_file.h"
#include "files/project_text.h"
#include "fuzz_support.h"

using namespace tavlero;

namespace {

// Opening moves the board to the margin in one step only when some cell lies within the
// board's start size; cells that all lay beyond it (which the checker reports) arrive one
// opening later, so a plan saved on the way may still move once.
bool atMargin(const ProjectStore& store) {
  if (store.itemList.ListCount() == 0) return true;
  for (std::string_view key : {key::positionX, key::positionY}) {
    float smallest = 11;
    for (const std::string& record : store.itemList.items())
      smallest = std::min(smallest, toSingle(numberField(record, key)));
    if (!(smallest <= 10.5f)) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string original = fuzzing::textOf(data, size);
  fuzzing::StartedWorld first;
  readProjectFromText(first.app, original);
  std::string saved = projectFileText(first.app.store);

  fuzzing::StartedWorld second;
  readProjectFromText(second.app, saved);
  std::string savedAgain = projectFileText(second.app.store);

  bool savedIsClean = checkProject(saved).empty();
  if (checkProject(original).empty()) fuzzing::require(savedIsClean, "a clean file stays clean once saved");
  if (savedIsClean && atMargin(first.app.store))
    fuzzing::require(savedAgain == saved, "a clean saved plan saves to the same bytes");
  return 0;
}
