#include <gtest/gtest.h>

#include <filesystem>

#include "core/cp1252.h"
#include "program/startup.h"
#include "test_support.h"

namespace tavlero {
namespace {

using testing::FakeWorld;
using testing::TempDir;

class FormLoad : public ::testing::Test {
 protected:
  TempDir dir;
  FakeWorld world;
  ProjectStore& store = world.app.store;
  std::string program() const { return dir.file("tavlero"); }
};

TEST_F(FormLoad, WithoutCommandLineGivesAnEmptySavedBoardAndADefaultSettingsFile) {
  EXPECT_EQ(folderOf("b.exe"), "");
  store.zoomFactor = 1.0f;
  store.setLongDescription(5, "left over");
  ASSERT_TRUE(Form_Load(world.app, program(), ""));
  EXPECT_EQ(store.settingsPath, dir.file("tavlero.cfg"));
  EXPECT_TRUE(std::filesystem::exists(store.settingsPath));
  EXPECT_FLOAT_EQ(store.zoomFactor, 2.0f);
  EXPECT_FLOAT_EQ(world.canvas.unitX(), 2.0f);
  EXPECT_FLOAT_EQ(world.canvas.Width(), world.ui.clientWidth);
  EXPECT_EQ(store.getLongDescription(5), "");
  EXPECT_TRUE(store.isSaved);
  EXPECT_EQ(store.itemList.ListCount(), 0);
  EXPECT_TRUE(world.ui.messages.empty());
  // Leaving asks nothing.
  EXPECT_TRUE(Form_QueryUnload(world.app));
  EXPECT_TRUE(world.ui.messages.empty());
}

TEST_F(FormLoad, ReadsTheCommandLineProjectWithOrWithoutQuotes) {
  std::string project = dir.file("a b.tvl");
  testing::writeFile(project, testing::readFile(testing::dataPath("files/write/kalkulator.tvl")));
  for (const std::string& line : {"\"" + project + "\"", project}) {
    FakeWorld fresh;
    ASSERT_TRUE(Form_Load(fresh.app, program(), line)) << line;
    EXPECT_EQ(fresh.app.store.itemList.ListCount(), 2);
    EXPECT_EQ(fresh.app.store.programName, "Kalkulator");
    // Read from the command line, the project has no file yet: the first save asks.
    EXPECT_EQ(fresh.app.store.projectFileName, "");
  }
}

TEST_F(FormLoad, AFailedReadShowsTheMessageAndEndsTheProgram) {
  // A lone quote leaves a path of length -1; a missing folder cannot be read.
  std::string missing = dir.file("no such folder/x.tvl");
  for (const auto& [line, shown] :
       {std::pair<std::string, std::string>{"\"", "\""}, {"\"" + missing + "\"", missing}}) {
    FakeWorld fresh;
    EXPECT_FALSE(Form_Load(fresh.app, program(), line));
    ASSERT_EQ(fresh.ui.messages.size(), 1u);
    EXPECT_EQ(fresh.ui.messages[0].prompt, "En feil oppstod under åpning av filen: '"_cp + shown + "'");
    EXPECT_EQ(fresh.ui.messages[0].title, "Gale parametre");
    EXPECT_EQ(fresh.ui.messages[0].icon, MsgIcon::Critical);
  }
}

TEST_F(FormLoad, QuoteRuleDropsTheLastCharacterWhateverItIs) {
  // "x.tvl" y: the path becomes x.tvl" (quote and blank kept), a new empty file there.
  std::string line = "\"" + dir.file("x.tvl") + "\" y";
  bool started = Form_Load(world.app, program(), line);
  EXPECT_TRUE(started);
  EXPECT_TRUE(std::filesystem::exists(dir.file("x.tvl\" ")));
}

TEST(FormQueryUnload, AsksAboutUnsavedWork) {
  struct Case {
    MsgResult answer;
    bool closes;
    int saveDialogs;
  } cases[] = {{MsgResult::Cancel, false, 0}, {MsgResult::No, true, 0}, {MsgResult::Yes, true, 1}};
  for (const auto& c : cases) {
    FakeWorld world;
    world.app.store.markChanged();
    world.ui.answers.push_back(c.answer);
    EXPECT_EQ(Form_QueryUnload(world.app), c.closes);
    ASSERT_EQ(world.ui.messages.size(), 1u);
    EXPECT_EQ(world.ui.messages[0].prompt,
              "Du har gjort endringer siden du sist lagret. Vil du lagre før du avslutter?"_cp);
    EXPECT_EQ(world.ui.messages[0].title, "Advarsel");
    EXPECT_EQ(world.ui.messages[0].buttons, MsgButtons::YesNoCancel);
    // Yes on a project without a file shows the save dialog (here cancelled) and still closes.
    EXPECT_EQ(world.dialog.saves, c.saveDialogs);
  }
}

}  // namespace
}  // namespace tavlero
