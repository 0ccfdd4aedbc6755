// Any bytes as a project file: reading, drawing, writing and reading again must never
// fail, and the lists must stay parallel whatever the file holds.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "board/board.h"
#include "files/project_file.h"
#include "files/project_text.h"
#include "test_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static tavlero::testing::TempDir dir;
  std::string path = dir.file("fuzz.tvl");
  tavlero::testing::writeFile(path, std::string(reinterpret_cast<const char*>(data), size));

  tavlero::testing::FakeWorld world;
  world.app.store.settingsPath = dir.file("tavlero.cfg");
  if (!tavlero::readProject(world.app, path)) std::abort();
  const auto& store = world.app.store;
  if (store.itemList.ListCount() != store.sizeList.ListCount()) std::abort();
  if (store.linkList.ListCount() != store.linkSizeList.ListCount()) std::abort();
  if (store.itemList.ListCount() > tavlero::ProjectStore::kMaxMethods) std::abort();

  tavlero::testing::FakeWorld again;
  again.app.store.settingsPath = dir.file("tavlero.cfg");
  tavlero::testing::writeFile(path, tavlero::projectFileText(store));
  if (!tavlero::readProject(again.app, path)) std::abort();
  tavlero::redrawBoard(again.app);
  return 0;
}
