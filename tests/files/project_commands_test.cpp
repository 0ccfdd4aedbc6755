#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <tuple>

#include "core/cp1252.h"
#include "file_world.h"
#include "files/project_commands.h"
#include "files/project_text.h"
#include "files/save_file.h"

namespace tavlero::testing {
namespace {

// A project with unsaved changes, and a settings file unlike the defaults.
struct ChangedProject : FileWorld {
  ChangedProject() {
    writeFile(app.store.settingsPath,
              "<minimumCellWidth>30</minimumCellWidth><maximumCellWidth>60</maximumCellWidth>"
              "<nameFontSize>7</nameFontSize><infoFontSize>5</infoFontSize><actionKey>n</actionKey>");
    addCell("m", 10, 10, "", 16777215, 0, "long");
    addLinkRecord("m", "m");
    app.store.programName = "P";
    app.store.minimumCellWidth = 2;
    app.store.currentColor = 255;
    app.canvas.Move(-20, -30);
    app.store.markChanged();
  }
};

TEST(NewProject, AfterAChangeAsksAndNoDropsTheWork) {
  ChangedProject world;
  world.ui.answers.push_back(MsgResult::No);
  newproject_Click(world.app);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  const ProjectStore& store = world.app.store;
  EXPECT_EQ(std::tuple(store.itemList.ListCount() + store.linkList.ListCount(), store.getLongDescription(0),
                       store.programName, store.isSaved, store.currentColor),
            std::tuple(0, "", "", true, 16777215));
  // The settings file's values; it has no font name, and that gives the empty name.
  EXPECT_EQ(std::tie(store.minimumCellWidth, store.nameFontSize, store.actionKey, store.fontName),
            std::make_tuple(30.0f, int16_t{7}, "n", ""));
  EXPECT_EQ(std::make_pair(world.canvas.Left(), world.canvas.Top()), std::make_pair(0.0f, 0.0f));
}

// Cancel on the question of either command changes nothing.
TEST(ProjectCommands, CancelKeepsEverything) {
  for (auto command : {newproject_Click, openproject_Click}) {
    ChangedProject world;
    std::string before = projectFileText(world.app.store);
    world.ui.answers.push_back(MsgResult::Cancel);
    command(world.app);
    EXPECT_EQ(std::tuple(projectFileText(world.app.store), world.app.store.isSaved, world.canvas.Left(),
                         world.dialog.opens + world.dialog.saves),
              std::tuple(before, false, -20.0f, 0));
  }
}

// Yes on a project without a file: the save dialog first, then the command goes on,
// also when that dialog was cancelled.
TEST(ProjectCommands, YesWithoutAFileSavesThroughTheDialogFirst) {
  for (bool open : {false, true}) {
    ChangedProject world;
    std::string before = projectFileText(world.app.store);
    world.dialog.saveAnswers.push_back(open ? "" : world.dir.file("saved.tvl"));
    world.dialog.openAnswers.push_back(dataPath("files/write/kalkulator.tvl"));
    (open ? openproject_Click : newproject_Click)(world.app);
    ASSERT_EQ(world.ui.messages.size(), 1u);
    EXPECT_EQ(world.ui.messages[0].prompt,
              "Du har gjort endringer siden du sist lagret. Vil du lagre før "_cp +
                  (open ? "du åpner en annen fil?"_cp : "du starter på nytt?"_cp));
    EXPECT_EQ(world.dialog.saves, 1);
    EXPECT_EQ(readFile(world.dir.file("saved.tvl")), open ? "" : before);
    EXPECT_EQ(
        std::tuple(world.app.store.programName, world.app.store.projectFileName, world.app.store.isSaved),
        open ? std::tuple("Kalkulator", "kalkulator.tvl", true) : std::tuple("", "", true));
  }
}

// A name the open dialog chose that holds no plan: a folder, a FIFO (which must not make
// the program wait), a file larger than any plan. A message names the file at once, and
// the project stays.
TEST(OpenProject, FileThatCannotBeReadKeepsTheProject) {
  FileWorld world;
  world.addCell("kept", 10, 10);
  std::filesystem::create_directory(world.dir.file("folder.tvl"));
  ASSERT_EQ(mkfifo(world.dir.file("fifo.tvl").c_str(), 0600), 0);
  writeFile(world.dir.file("huge.tvl"), "");
  std::filesystem::resize_file(world.dir.file("huge.tvl"), kMaxReadBytes + 1);
  for (auto [name, reason] : {std::pair{"folder.tvl", FileError::IsFolder},
                              {"fifo.tvl", FileError::NotRegular},
                              {"huge.tvl", FileError::TooLarge}}) {
    world.ui.messages.clear();
    world.dialog.openAnswers.push_back(world.dir.file(name));
    openproject_Click(world.app);
    EXPECT_EQ(std::tuple(world.app.store.itemList.ListCount(), world.app.store.projectFileName),
              std::tuple(1, ""));
    ASSERT_EQ(world.ui.messages.size(), 1u);
    EXPECT_EQ(world.ui.messages[0].prompt,
              "Kunne ikke åpne filen '"_cp + world.dir.file(name) + "'. " + fileErrorReason(reason));
  }
}

}  // namespace
}  // namespace tavlero::testing
