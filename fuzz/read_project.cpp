// Any bytes as a project file: the reader keeps every store invariant, stays within the
// limits, leaves no link naming a missing cell, and so does a read of what it saves. (That
// the saved plan is the same one is the round-trip and checker targets' question.)
#include <cstdint>

#include "files/project_file.h"
#include "files/project_text.h"
#include "fuzz_support.h"

using namespace tavlero;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzzing::StartedWorld world;
  readProjectFromText(world.app, fuzzing::textOf(data, size));
  const ProjectStore& store = world.app.store;
  fuzzing::requireStoreInvariants(store);
  fuzzing::requireLinksNameCells(store);
  fuzzing::require(store.isSaved, "a project just read counts as saved");

  fuzzing::StartedWorld again;
  readProjectFromText(again.app, projectFileText(store));
  fuzzing::requireStoreInvariants(again.app.store);
  fuzzing::requireLinksNameCells(again.app.store);
  return 0;
}
