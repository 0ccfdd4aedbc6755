#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <tuple>

#include "file_world.h"
#include "files/settings.h"

namespace tavlero::testing {
namespace {

TEST(Settings, MissingOrEmptyFileIsMadeWithDefaults) {
  FileWorld world;
  ProjectStore& store = world.app.store;
  for (bool missing : {true, false}) {
    if (!missing) writeFile(store.settingsPath, "");
    store.minimumCellWidth = 1;
    store.fontName = "Other";
    store.doubleDraw = false;
    loadSettings(world.app);
    EXPECT_EQ(readFile(store.settingsPath), readFile(dataPath("files/default_settings.cfg")));
    EXPECT_EQ(
        std::tie(store.minimumCellWidth, store.maximumCellWidth, store.nameFontSize, store.infoFontSize,
                 store.fontName, store.doubleDraw, store.actionKey),
        std::make_tuple(25.0f, 50.0f, int16_t{6}, int16_t{4}, std::string("Arial"), true, std::string("k")));
  }
}

// The cases of tests/data/files/settings_values.txt, each over both earlier doubleDraw values.
TEST(Settings, ValuesAreTakenByTheirOwnRule) {
  for (const auto& v : readCases("files/settings_values.txt"))
    for (bool before : {false, true}) {
      FileWorld world;
      writeFile(world.app.store.settingsPath, v.at(0));
      world.app.store.doubleDraw = before;
      loadSettings(world.app);
      const ProjectStore& store = world.app.store;
      const int doubleDraw = std::stoi(v.at(2));
      EXPECT_EQ(
          std::tuple(readFile(store.settingsPath), store.nameFontSize, store.doubleDraw, store.actionKey),
          std::tuple(v[0], std::stoi(v.at(1)), doubleDraw < 0 ? before : doubleDraw == 1, v.at(3)))
          << '"' << v[0] << '"';
    }
}

// A settings file that cannot be made or read leaves the values as they were. A missing
// folder goes by in silence (an installed program's folder is not the user's); a name that
// holds a folder or a FIFO is told, and the FIFO does not make the start wait.
TEST(Settings, FileThatCannotBeMadeOrReadLeavesTheValues) {
  FileWorld world;
  world.app.store.nameFontSize = 12;
  ASSERT_EQ(mkfifo(world.dir.file("fifo.cfg").c_str(), 0600), 0);
  for (auto [path, told] : {std::pair{world.dir.file("no/folder/tavlero.cfg"), false},
                            {world.dir.path(), true},
                            {world.dir.file("fifo.cfg"), true},
                            {std::string(), false}}) {
    world.ui.messages.clear();
    world.app.store.settingsPath = path;
    loadSettings(world.app);
    EXPECT_EQ(std::tuple(world.app.store.nameFontSize, world.ui.messages.size()),
              std::tuple(12, told ? 1u : 0u))
        << path;
  }
}

}  // namespace
}  // namespace tavlero::testing
