#include <gtest/gtest.h>

#include "core/cp1252.h"
#include "file_world.h"
#include "files/project_commands.h"
#include "files/project_file.h"
#include "files/project_text.h"

namespace tavlero::testing {
namespace {

const std::string kNewQuestion =
    "Du har gjort endringer siden du sist lagret. Vil du lagre før du starter på nytt?"_cp;
const std::string kOpenQuestion =
    "Du har gjort endringer siden du sist lagret. Vil du lagre før du åpner en annen fil?"_cp;

struct ChangedProject : FileWorld {
  ChangedProject() {
    writeFile(app.store.settingsPath,
              "<minimumCellWidth>30</minimumCellWidth><maximumCellWidth>60"
              "</maximumCellWidth><nameFontSize>7</nameFontSize><infoFontSize>5"
              "</infoFontSize><doubleDraw>False</doubleDraw><actionKey>n</actionKey>");
    addCell("m", 10, 10, "", 16777215, 0, "long");
    addLinkRecord("m", "m");
    app.store.programName = "P";
    app.store.minimumCellWidth = 2;
    app.store.currentColor = 255;
    app.store.selectedCell = 0;
    app.store.zoomFactor = 3.0f;
    app.canvas.Move(-20, -30);
    app.store.markChanged();
  }
};

TEST(NewProject, AfterAChangeAsksAndNoDropsTheWork) {
  ChangedProject world;
  world.ui.answers.push_back(MsgResult::No);
  newproject_Click(world.app);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(world.ui.messages[0].prompt, kNewQuestion);
  EXPECT_EQ(world.ui.messages[0].title, "Advarsel");
  EXPECT_EQ(world.ui.messages[0].buttons, MsgButtons::YesNoCancel);
  EXPECT_EQ(world.ui.messages[0].icon, MsgIcon::Exclamation);
  const ProjectStore& store = world.app.store;
  EXPECT_EQ(store.itemList.ListCount() + store.sizeList.ListCount() + store.linkList.ListCount() +
                store.linkSizeList.ListCount(),
            0);
  EXPECT_EQ(store.getLongDescription(0), "");
  EXPECT_EQ(store.programName, "");
  EXPECT_TRUE(store.isSaved);
  EXPECT_EQ(store.selectedCell, -1);
  EXPECT_EQ(store.currentColor, 16777215);
  // The settings file's values, and the font name of the start where the file has none.
  EXPECT_EQ(store.minimumCellWidth, 30.0f);
  EXPECT_EQ(store.nameFontSize, 7);
  EXPECT_FALSE(store.doubleDraw);
  EXPECT_EQ(store.actionKey, "n");
  EXPECT_EQ(store.fontName, "");
  EXPECT_EQ(store.zoomFactor, 3.0f);
  EXPECT_EQ(world.canvas.Left(), 0);
  EXPECT_EQ(world.canvas.Top(), 0);
  EXPECT_EQ(world.canvas.Width(), world.ui.clientWidth);
  EXPECT_EQ(world.canvas.Height(), world.ui.clientHeight);
  EXPECT_EQ(world.ui.captionText, "Tavlero");
}

TEST(NewProject, CancelKeepsEverything) {
  ChangedProject world;
  world.ui.answers.push_back(MsgResult::Cancel);
  newproject_Click(world.app);
  EXPECT_EQ(world.app.store.itemList.ListCount(), 1);
  EXPECT_FALSE(world.app.store.isSaved);
  EXPECT_EQ(world.app.store.minimumCellWidth, 2.0f);
  EXPECT_EQ(world.canvas.Left(), -20);
}

TEST(NewProject, YesWithoutAFileSavesThroughTheDialogFirst) {
  ChangedProject world;
  std::string before = projectFileText(world.app.store);
  world.dialog.saveAnswers.push_back(world.dir.file("saved.tvl"));
  newproject_Click(world.app);
  EXPECT_EQ(readFile(world.dir.file("saved.tvl")), before);
  EXPECT_EQ(world.app.store.itemList.ListCount(), 0);
  EXPECT_EQ(world.app.store.projectFileName, "");
}

TEST(NewProject, SavedProjectAsksNothing) {
  FileWorld world;
  newproject_Click(world.app);
  EXPECT_TRUE(world.ui.messages.empty());
  EXPECT_EQ(world.dialog.saves, 0);
}

TEST(OpenProject, YesOnAProjectWithoutFileShowsSaveThenOpen) {
  ChangedProject world;
  world.dialog.saveAnswers.push_back("");  // the user cancels the save dialog
  world.dialog.openAnswers.push_back(dataPath("../../examples/kalkulator.tvl"));
  openproject_Click(world.app);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(world.ui.messages[0].prompt, kOpenQuestion);
  EXPECT_EQ(world.dialog.saves, 1);
  EXPECT_EQ(world.dialog.opens, 1);
  EXPECT_EQ(world.app.store.programName, "Kalkulator");
  EXPECT_TRUE(world.app.store.isSaved);
}

TEST(OpenProject, CancelledQuestionOpensNothing) {
  ChangedProject world;
  world.ui.answers.push_back(MsgResult::Cancel);
  openproject_Click(world.app);
  EXPECT_EQ(world.dialog.opens, 0);
  EXPECT_EQ(world.app.store.programName, "P");
}

TEST(SaveProject, WritesTheProjectFileEvenWhenSaved) {
  ChangedProject world;
  world.app.store.projectFileName = "p.tvl";
  world.app.store.projectFolder = world.dir.path();
  world.app.store.isSaved = true;
  saveProject_Click(world.app);
  EXPECT_EQ(readFile(world.dir.file("p.tvl")), projectFileText(world.app.store));
  EXPECT_EQ(world.dialog.saves, 0);
}

TEST(SaveProject, WithoutAFileIsSaveAs) {
  ChangedProject world;
  world.app.store.projectFolder = world.dir.path();  // a folder alone is no file
  saveProject_Click(world.app);
  EXPECT_EQ(world.dialog.saves, 1);
  EXPECT_FALSE(world.app.store.isSaved);  // the dialog was cancelled
  world.dialog.saveAnswers.push_back(world.dir.file("as.tvl"));
  saveProjectAs_Click(world.app);
  EXPECT_TRUE(world.app.store.isSaved);
  EXPECT_EQ(world.app.store.projectFileName, "as.tvl");
}

}  // namespace
}  // namespace tavlero::testing
