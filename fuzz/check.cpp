// The checker against the reader: on a file the checker finds clean, the reader shows no
// message, keeps every method and link the file holds, and reads back what it saves.
#include <cstdint>
#include <string_view>

#include "files/project_check.h"
#include "files/project_file.h"
#include "files/project_text.h"
#include "fuzz_support.h"

using namespace tavlero;

namespace {

size_t count(std::string_view text, std::string_view what) {
  size_t n = 0;
  for (size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, at + what.size())) ++n;
  return n;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string text = fuzzing::textOf(data, size);
  if (!checkProject(text).empty()) return 0;

  fuzzing::StartedWorld world;
  readProjectFromText(world.app, text);
  const ProjectStore& store = world.app.store;
  fuzzing::require(world.ui.messages.empty(), "the reader shows no message on a clean file");
  // Each closing tag ends one element; an empty element holds nothing to keep.
  size_t methods = count(text, "</userMethod>") - count(text, "<userMethod></userMethod>");
  size_t links = count(text, "</userLink>") - count(text, "<userLink></userLink>");
  fuzzing::require(static_cast<size_t>(store.itemList.ListCount()) == methods,
                   "every method of a clean file is read");
  fuzzing::require(static_cast<size_t>(store.linkList.ListCount()) == links,
                   "every link of a clean file is kept");

  fuzzing::StartedWorld again;
  readProjectFromText(again.app, projectFileText(store));
  fuzzing::require(fuzzing::sameProject(store, again.app.store), "a clean plan reads back as it was saved");
  return 0;
}
