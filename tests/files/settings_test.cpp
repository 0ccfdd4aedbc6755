#include <gtest/gtest.h>

#include <filesystem>

#include "file_world.h"
#include "files/settings.h"

namespace tavlero::testing {
namespace {

TEST(Settings, FirstStartWritesTheDefaultFileAndReadsIt) {
  FileWorld world;
  ProjectStore& store = world.app.store;
  store.minimumCellWidth = 1;
  store.fontName = "Other";
  store.actionKey = "z";
  store.doubleDraw = false;
  loadSettings(world.app);
  std::string written = readFile(store.settingsPath);
  EXPECT_EQ(written, readFile(dataPath("files/default_settings.cfg")));
  size_t lines = 0;
  for (size_t at = written.find("\r\n"); at != std::string::npos; at = written.find("\r\n", at + 2)) ++lines;
  EXPECT_EQ(lines, 8u);
  EXPECT_EQ(store.minimumCellWidth, 25.0f);
  EXPECT_EQ(store.maximumCellWidth, 50.0f);
  EXPECT_EQ(store.nameFontSize, 6);
  EXPECT_EQ(store.infoFontSize, 4);
  EXPECT_EQ(store.fontName, "Arial");
  EXPECT_TRUE(store.doubleDraw);
  EXPECT_EQ(store.actionKey, "k");
}

TEST(Settings, EmptyFileIsReplacedButOneBlankIsNotEmpty) {
  FileWorld world;
  const std::string& path = world.app.store.settingsPath;
  writeFile(path, "");
  loadSettings(world.app);
  EXPECT_EQ(readFile(path), readFile(dataPath("files/default_settings.cfg")));

  writeFile(path, " ");
  world.app.store.doubleDraw = false;
  loadSettings(world.app);
  EXPECT_EQ(readFile(path), " ");
  EXPECT_EQ(world.app.store.minimumCellWidth, 0.0f);
  EXPECT_EQ(world.app.store.nameFontSize, 0);
  EXPECT_EQ(world.app.store.fontName, "");
  EXPECT_EQ(world.app.store.actionKey, "");
  EXPECT_FALSE(world.app.store.doubleDraw);  // missing: left as it was
}

struct ValueCase {
  std::string file;
  int16_t nameFontSize;
  bool doubleDraw;
  std::string actionKey;
};

class SettingsValues : public ::testing::TestWithParam<ValueCase> {};

TEST_P(SettingsValues, AreTakenByTheirOwnRule) {
  FileWorld world;
  writeFile(world.app.store.settingsPath, GetParam().file);
  world.app.store.doubleDraw = true;
  loadSettings(world.app);
  EXPECT_EQ(world.app.store.nameFontSize, GetParam().nameFontSize);
  EXPECT_EQ(world.app.store.doubleDraw, GetParam().doubleDraw);
  EXPECT_EQ(world.app.store.actionKey, GetParam().actionKey);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, SettingsValues,
    ::testing::Values(
        ValueCase{"<nameFontSize>6.5</nameFontSize><actionKey>n</actionKey>", 6, true, "n"},
        ValueCase{"<nameFontSize>7.5</nameFontSize><doubleDraw>False</doubleDraw>", 8, false, ""},
        ValueCase{"<doubleDraw>fALSE</doubleDraw><nameFontSize> 9 </nameFontSize>", 9, false, ""},
        ValueCase{"<doubleDraw>0</doubleDraw>", 0, false, ""},
        ValueCase{"<doubleDraw>-2.5</doubleDraw><doubleDraw>0</doubleDraw>", 0, true, ""},
        ValueCase{"<doubleDraw>maybe</doubleDraw>", 0, true, ""},
        ValueCase{"<doubleDraw>1e</doubleDraw>", 0, true, ""},
        ValueCase{"<nameFontSize>99999</nameFontSize><actionKey>Kx</actionKey>", 32767, true, "Kx"}));

TEST(Settings, FileThatCannotBeMadeOrReadLeavesTheValues) {
  FileWorld world;
  ProjectStore& store = world.app.store;
  store.nameFontSize = 12;
  for (const std::string& path : {world.dir.file("no/folder/tavlero.cfg"), world.dir.path(), std::string()}) {
    store.settingsPath = path;
    loadSettings(world.app);
    EXPECT_EQ(store.nameFontSize, 12) << path;
  }
  EXPECT_TRUE(std::filesystem::is_empty(world.dir.path()));
}

}  // namespace
}  // namespace tavlero::testing
