#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "core/cp1252.h"
#include "file_world.h"
#include "files/project_file.h"

namespace tavlero::testing {
namespace {

struct ReadCase {
  const char* file;
  bool parsingMessage;
  std::vector<std::string> names;
  std::vector<std::string> longDescriptions;  // empty vector: not checked
  int16_t links;                              // after the redraw swept links without cells
};

void PrintTo(const ReadCase& c, std::ostream* os) {
  *os << c.file;
}

class DamagedFiles : public ::testing::TestWithParam<ReadCase> {};

TEST_P(DamagedFiles, GiveWhatTheTagSearchGives) {
  const ReadCase& c = GetParam();
  FileWorld world;
  world.app.store.selectedCell = 0;
  world.app.store.isSaved = false;
  ASSERT_TRUE(readProject(world.app, dataPath(std::string("files/read/") + c.file)));
  const ProjectStore& store = world.app.store;
  EXPECT_EQ(world.methodNames(), c.names);
  if (!c.longDescriptions.empty()) {
    EXPECT_EQ(world.longDescriptions(), c.longDescriptions);
  }
  EXPECT_EQ(store.linkList.ListCount(), c.links);
  EXPECT_EQ(store.sizeList.ListCount(), store.itemList.ListCount());
  EXPECT_EQ(store.linkSizeList.ListCount(), store.linkList.ListCount());
  EXPECT_EQ(store.selectedCell, -1);
  EXPECT_TRUE(store.isSaved);
  ASSERT_EQ(world.ui.messages.size(), c.parsingMessage ? 1u : 0u);
  if (c.parsingMessage) {
    EXPECT_EQ(world.ui.messages[0].prompt, kParsingProblem);
    EXPECT_EQ(world.ui.messages[0].title, "Tavlero");
    EXPECT_EQ(world.ui.messages[0].icon, MsgIcon::Exclamation);
    // The settings file took the place of all four numbers.
    EXPECT_EQ(store.minimumCellWidth, 25.0f);
    EXPECT_EQ(store.maximumCellWidth, 50.0f);
    EXPECT_EQ(store.nameFontSize, 6);
    EXPECT_EQ(store.infoFontSize, 4);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Reader, DamagedFiles,
    ::testing::Values(ReadCase{"empty_method_element.tvl", false, {"a"}, {""}, 1},
                      ReadCase{"glued_methods.tvl", false, {"a"}, {}, 0},
                      // With no opening tag left, the search counts from the skipped '<' and finds c.
                      ReadCase{"glued_last_method.tvl", false, {"a", "b", "c"}, {}, 0},
                      ReadCase{"no_long_description.tvl", false, {"a", "b"}, {"", "x"}, 0},
                      ReadCase{"unclosed_long_description.tvl", false, {"a", "b"}, {"rest of it\r\n", ""}, 0},
                      ReadCase{"empty_link_element.tvl", false, {"a", "b"}, {}, 1},
                      ReadCase{"glued_links.tvl", false, {"a", "b"}, {}, 2},
                      ReadCase{"links_before_methods.tvl", false, {"a", "b"}, {}, 1},
                      ReadCase{"links_only.tvl", false, {}, {}, 0}, ReadCase{"no_tags.tvl", true, {}, {}, 0},
                      ReadCase{"empty.tvl", true, {}, {}, 0},
                      ReadCase{"small_numbers.tvl", true, {"a"}, {""}, 0},
                      ReadCase{"huge_font_size.tvl", true, {"a"}, {""}, 0},
                      ReadCase{"text_behind_record.tvl", false, {"a"}, {"one"}, 0},
                      ReadCase{"tag_in_description.tvl", false, {"a"}, {""}, 0}));

TEST(Reader, KeepsRecordsAsTheyStandAndCompresses) {
  FileWorld world;
  ASSERT_TRUE(readProject(world.app, dataPath("../../examples/kalkulator.tvl")));
  const ProjectStore& store = world.app.store;
  EXPECT_EQ(store.programName, "Kalkulator");
  EXPECT_EQ(store.programDescription, "Regner ut summer.\r\nAndre linje.");
  EXPECT_EQ(store.fontName, "Arial");
  EXPECT_EQ(world.longDescriptions(), (std::vector<std::string>{"Hvis a < b: bytt.\r\nReturner a + b.", ""}));
  // The white space of the file stays round the record, and positions are compressed.
  const std::string& first = store.itemList.List(0);
  EXPECT_EQ(first.substr(0, 16), "\r\n\t<positionX> 1");
  EXPECT_EQ(first.substr(first.size() - 5), "\r\n\t\r\n");
  EXPECT_EQ(getField(store.itemList.List(1), "positionX"), " 280.5");
  EXPECT_EQ(getField(store.itemList.List(1), "cellFillStyle"), "0");
  EXPECT_EQ(store.linkList.List(0),
            "\r\n\t<linkSource>main()</linkSource><linkTarget>public int sum(a, b)</linkTarget>\r\n");
}

TEST(Reader, TextTypedIntoTheRecordSurvivesTheNextSave) {
  FileWorld world;
  ASSERT_TRUE(readProject(world.app, dataPath("files/read/text_behind_record.tvl")));
  ASSERT_TRUE(writeProject(world.app, "out.tvl", world.dir.path()));
  std::string written = readFile(world.dir.file("out.tvl"));
  EXPECT_NE(
      written.find("</cellFillStyle>\r\n\ttwo</longDescription>\r\n\t<longDescription>one</longDescription>"),
      std::string::npos);
}

// The long description is looked up by record first: an element equal to an earlier
// cell's record gets that cell's long description, not its own.
TEST(Reader, ElementEqualToAnEarlierRecordTakesItsLongDescription) {
  FileWorld world;
  std::string path = world.dir.file("equal.tvl");
  writeFile(path,
            "<userMethod>X<longDescription>L1</longDescription>Y<longDescription>Q</longDescription></"
            "userMethod>\r\n"
            "<userMethod>XY<longDescription>Q</longDescription></userMethod>\r\n");
  ASSERT_TRUE(readProject(world.app, path));
  ASSERT_EQ(world.app.store.itemList.ListCount(), 2);
  EXPECT_EQ(world.app.store.itemList.List(0), "XY<longDescription>Q</longDescription>");
  EXPECT_EQ(world.longDescriptions(), (std::vector<std::string>{"L1", "L1"}));
}

TEST(Reader, NonexistentFileInAnExistingFolderIsCreatedEmpty) {
  FileWorld world;
  std::string path = world.dir.file("new.tvl");
  ASSERT_TRUE(readProject(world.app, path));
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(readFile(path), "");
  EXPECT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(world.app.store.itemList.ListCount(), 0);
}

TEST(Reader, UnreadablePathFailsWithEmptyLists) {
  FileWorld world;
  world.addCell("old", 10, 10);
  EXPECT_FALSE(readProject(world.app, world.dir.file("no/such/folder.tvl")));
  EXPECT_FALSE(readProject(world.app, world.dir.path()));
  EXPECT_EQ(world.app.store.itemList.ListCount(), 0);
  EXPECT_TRUE(world.ui.messages.empty());
}

std::string manyElements(int methods, int links) {
  std::string text =
      "<minimumCellWidth>25</minimumCellWidth><maximumCellWidth>50</maximumCellWidth>"
      "<nameFontSize>6</nameFontSize><infoFontSize>4</infoFontSize>";
  for (int i = 0; i < methods; ++i)
    text += "<userMethod><positionX>" + std::to_string(i % 500) + "</positionX><methodName>m" +
            std::to_string(i) + "</methodName><longDescription>d</longDescription></userMethod>\r\n";
  for (int i = 0; i < links; ++i)
    text += "<userLink><linkSource>m" + std::to_string(i % 1000) +
            "</linkSource><linkTarget>m0</linkTarget></userLink>";
  return text;
}

TEST(Reader, ReadsUpToTheLimitsAndSaysHowManyWereLeftOut) {
  FileWorld world;
  std::string path = world.dir.file("big.tvl");
  writeFile(path, manyElements(ProjectStore::kMaxMethods + 3, ProjectStore::kMaxLinks + 1));
  ASSERT_TRUE(readProject(world.app, path));
  EXPECT_EQ(world.app.store.itemList.ListCount(), ProjectStore::kMaxMethods);
  EXPECT_EQ(world.app.store.linkList.ListCount(), ProjectStore::kMaxLinks);
  EXPECT_EQ(world.app.store.getLongDescription(ProjectStore::kMaxMethods - 1), "d");
  ASSERT_EQ(world.ui.messages.size(), 1u);
  const std::string& prompt = world.ui.messages[0].prompt;
  EXPECT_NE(prompt.find("3 metoder og 1 kobling ble ikke lest inn."), std::string::npos) << prompt;
}

TEST(OpenDialog, ReadsTheChosenFileAndKeepsItsName) {
  FileWorld world;
  world.dialog.FileName = "last used";
  world.dialog.openAnswers.push_back(dataPath("files/read/glued_links.tvl"));
  openProjectDialog(world.app);
  EXPECT_EQ(world.dialog.Flags, 6146);
  EXPECT_EQ(world.dialog.DefaultExt, "*.tvl");
  EXPECT_EQ(world.dialog.filtersSeen.back(), "Tavlero-prosjekter (*.tvl)|*.tvl");
  EXPECT_TRUE(world.dialog.CancelError);
  EXPECT_EQ(world.app.store.projectFileName, "glued_links.tvl");
  EXPECT_EQ(world.app.store.projectFolder + "glued_links.tvl", dataPath("files/read/glued_links.tvl"));
  EXPECT_EQ(world.app.store.itemList.ListCount(), 2);
}

TEST(OpenDialog, CancelAndUnreadableFileKeepTheProject) {
  FileWorld world;
  world.addCell("kept", 10, 10);
  world.app.store.isSaved = false;
  openProjectDialog(world.app);  // cancelled
  world.dialog.openAnswers.push_back(world.dir.path() + "folder.tvl");
  std::filesystem::create_directory(world.dir.file("folder.tvl"));
  openProjectDialog(world.app);
  EXPECT_EQ(world.methodNames(), std::vector<std::string>{"kept"});
  EXPECT_FALSE(world.app.store.isSaved);
  EXPECT_TRUE(world.app.store.projectFileName.empty());
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(world.ui.messages[0].prompt, "Kunne ikke åpne filen '"_cp + world.dir.file("folder.tvl") + "'.");
}

}  // namespace
}  // namespace tavlero::testing
