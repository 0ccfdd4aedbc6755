// Read, save, read, save: a saved plan that the checker finds clean must come back byte
// for byte, and a clean file must stay clean once saved, so no file changes or grows at
// every open and save.
#include <cstdint>

#include "files/project_check.h"
#include "files/project_file.h"
#include "files/project_text.h"
#include "fuzz_support.h"

using namespace tavlero;

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
  if (savedIsClean) fuzzing::require(savedAgain == saved, "a clean saved plan saves to the same bytes");
  return 0;
}
