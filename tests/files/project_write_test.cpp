#include <gtest/gtest.h>

#include "core/cp1252.h"
#include "file_world.h"
#include "files/project_file.h"
#include "files/project_text.h"

namespace tavlero::testing {
namespace {

// The two methods and the link of the example project, as the method dialog and a later
// fill change left their records.
void buildCalculator(FileWorld& world) {
  ProjectStore& store = world.app.store;
  store.programName = "Kalkulator";
  store.programDescription = "Regner ut summer.\r\nAndre linje.";
  world.addCell("public int sum(a, b)", 40, 30, "Legger sammen a og b", 16777215, 0,
                "Hvis a < b: bytt.\r\nReturner a + b.");
  world.addCell("main()", 310.5f, 30, "Starter programmet", 65535, 0);
  store.itemList.setList(1, setField(store.itemList.List(1), "cellFillStyle", "0"));
  world.addLinkRecord("main()", "public int sum(a, b)");
}

TEST(Writer, WritesTheExampleByteForByte) {
  FileWorld world;
  buildCalculator(world);
  world.app.store.isSaved = false;
  ASSERT_TRUE(writeProject(world.app, "kalkulator.tvl", world.dir.path()));
  EXPECT_EQ(readFile(world.dir.file("kalkulator.tvl")), readFile(dataPath("../../examples/kalkulator.tvl")));
  EXPECT_TRUE(world.app.store.isSaved);
}

TEST(Writer, EmptyProjectIsTheHeadAndTwoEmptyLines) {
  FileWorld world;
  EXPECT_EQ(projectFileText(world.app.store), readFile(dataPath("files/write/empty_project.tvl")));
}

TEST(Writer, ReadingAndWritingGivesTheFileBackWithCompressedPositions) {
  FileWorld world;
  ASSERT_TRUE(readProject(world.app, dataPath("../../examples/kalkulator.tvl")));
  EXPECT_EQ(projectFileText(world.app.store), readFile(dataPath("files/write/kalkulator_read_back.tvl")));
}

TEST(Writer, WriteReadWriteKeepsEveryByte) {
  FileWorld world;
  ProjectStore& store = world.app.store;
  store.programName = "Æøå & <navn>"_cp;
  store.programDescription = "linje 1\r\nlinje 2\r\n";
  store.minimumCellWidth = 25.5f;
  store.fontName = "Liberation Sans";
  world.addCell("a<b", 10, 10, "x & y", 255, 3, "trailing line break\r\n");
  world.addCell("blåbær"_cp, 95.5f, 42, "", 16777215, 7, "");
  world.addLinkRecord("a<b", "blåbær"_cp);
  std::string first = projectFileText(store);
  ASSERT_TRUE(writeProject(world.app, "p.tvl", world.dir.path()));
  ASSERT_TRUE(readProject(world.app, world.dir.file("p.tvl")));
  EXPECT_TRUE(world.ui.messages.empty());
  EXPECT_EQ(world.methodNames(), (std::vector<std::string>{"a<b", "blåbær"_cp}));
  EXPECT_EQ(store.getLongDescription(0), "trailing line break\r\n");
  EXPECT_EQ(projectFileText(store), first);
  EXPECT_NE(first.find("<minimumCellWidth> 25.5</minimumCellWidth>"), std::string::npos);
  EXPECT_NE(first.find("trailing line break\r\n</longDescription>"), std::string::npos);
}

TEST(Writer, TrimsRecordsFromFirstOpeningToLastClosingBracket) {
  struct Case {
    std::string record, written;
  };
  for (const Case& c : std::vector<Case>{{"\r\n\t<a>x</a>\r\n\t\r\n", "<a>x</a>"},
                                         {"<a><x</a>junk behind", "<a><x</a>"},
                                         {"  plain text \r\n", "plain text"},
                                         {"\r\n\t\r\n", ""},
                                         {"", ""}})
    EXPECT_EQ(trimRecord(c.record), c.written) << c.record;
}

TEST(SaveDialog, TakesNameAndFolderOrLeavesThemOnCancel) {
  FileWorld world;
  ProjectStore& store = world.app.store;
  store.projectFileName = "old.tvl";
  store.projectFolder = "/old/";
  world.dialog.FileName = "left from before";
  EXPECT_FALSE(showSaveDialog(world.app, "F (*.x)|*.x", "*.x"));
  EXPECT_EQ(world.dialog.FileName, "");
  EXPECT_EQ(world.dialog.Flags, 2050);
  EXPECT_EQ(store.projectFileName, "old.tvl");
  EXPECT_EQ(store.projectFolder, "/old/");
  world.dialog.saveAnswers.push_back("/some/where/new.tvl");
  EXPECT_TRUE(showSaveDialog(world.app, "F (*.x)|*.x", "*.x"));
  EXPECT_EQ(store.projectFileName, "new.tvl");
  EXPECT_EQ(store.projectFolder, "/some/where/");
  EXPECT_EQ(world.dialog.DefaultExt, "*.x");
}

TEST(SaveDialog, SaveAsWritesTheChosenFile) {
  FileWorld world;
  world.addCell("m", 10, 10);
  world.app.store.isSaved = false;
  world.dialog.saveAnswers.push_back(world.dir.file("chosen.tvl"));
  saveProjectAs(world.app);
  EXPECT_EQ(world.dialog.filtersSeen.back(), "Tavlero-prosjekter (*.tvl)|*.tvl");
  EXPECT_EQ(readFile(world.dir.file("chosen.tvl")), projectFileText(world.app.store));
  EXPECT_TRUE(world.app.store.isSaved);
}

}  // namespace
}  // namespace tavlero::testing
