#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

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
  EXPECT_EQ(std::tuple(store.settingsPath, std::filesystem::exists(store.settingsPath), store.zoomFactor,
                       world.canvas.unitX(), world.canvas.Width(), store.getLongDescription(5), store.isSaved,
                       store.itemList.ListCount()),
            std::tuple(dir.file("tavlero.cfg"), true, 2.0f, 2.0f, world.ui.clientWidth, "", true, 0));
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
    // Read from the command line, the project has no file yet: the first save asks.
    const ProjectStore& read = fresh.app.store;
    EXPECT_EQ(std::tuple(read.itemList.ListCount(), read.programName, read.projectFileName),
              std::tuple(2, "Kalkulator", ""));
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
    const testing::Message& told = fresh.ui.messages[0];
    EXPECT_EQ(std::tuple(told.prompt, told.title, told.icon),
              std::tuple("En feil oppstod under åpning av filen: '"_cp + shown + "'", "Gale parametre",
                         MsgIcon::Critical));
  }
}

TEST_F(FormLoad, QuoteRuleDropsTheLastCharacterWhateverItIs) {
  // "x.tvl" y: the path becomes x.tvl" (quote and blank kept), a new empty file there.
  std::string line = "\"" + dir.file("x.tvl") + "\" y";
  EXPECT_TRUE(Form_Load(world.app, program(), line));
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
    const testing::Message& asked = world.ui.messages[0];
    // Yes on a project without a file shows the save dialog (here cancelled) and still closes.
    EXPECT_EQ(std::tuple(asked.prompt, asked.title, asked.buttons, world.dialog.saves),
              std::tuple("Du har gjort endringer siden du sist lagret. Vil du lagre før du avslutter?"_cp,
                         "Advarsel", MsgButtons::YesNoCancel, c.saveDialogs));
  }
}

}  // namespace
}  // namespace tavlero
