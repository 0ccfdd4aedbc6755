#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <tuple>

#include "core/cp1252.h"
#include "core/record.h"
#include "file_world.h"
#include "files/project_check.h"
#include "files/project_file.h"

namespace tavlero::testing {
namespace {

// What the reader kept of a file and what the checker says of it, as each .tvl file's
// .expected file beside it has it: long descriptions quoted, CR and LF shown as \r and \n,
// links counted after the redraw swept those without cells.
std::string whatWasRead(const FileWorld& world, const std::string& fileText) {
  const ProjectStore& store = world.app.store;
  std::ostringstream out;
  out << "numbers " << store.minimumCellWidth << ' ' << store.maximumCellWidth << ' ' << store.nameFontSize
      << ' ' << store.infoFontSize << '\n';
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i) {
    out << "method " << getField(store.itemList.List(i), "methodName") << " \"";
    for (char c : store.getLongDescription(i))
      out << (c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c));
    out << "\"\n";
  }
  out << "links " << store.linkList.ListCount() << '\n';
  for (const Message& message : world.ui.messages) out << "message " << message.prompt << '\n';
  for (const std::string& line : checkProject(fileText)) out << "check " << line << '\n';
  return cp1252ToUtf8(out.str());
}

std::vector<std::string> readCases() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(dataPath("files/read")))
    if (entry.path().extension() == ".tvl") names.push_back(entry.path().stem());
  std::sort(names.begin(), names.end());
  return names;
}

class ReadAndCheck : public ::testing::TestWithParam<std::string> {};

TEST_P(ReadAndCheck, GiveWhatTheExpectedFileSays) {
  FileWorld world;
  world.app.store.selectedCell = 0;
  world.app.store.isSaved = false;
  std::string path = dataPath("files/read/" + GetParam());
  ASSERT_TRUE(readProject(world.app, path + ".tvl"));
  EXPECT_EQ(whatWasRead(world, readFile(path + ".tvl")), readFile(path + ".expected"));
  EXPECT_EQ(std::tuple(world.app.store.selectedCell, world.app.store.isSaved), std::tuple(-1, true));
}

INSTANTIATE_TEST_SUITE_P(Files, ReadAndCheck, ::testing::ValuesIn(readCases()),
                         [](const auto& test) { return test.param; });

long entriesIn(const std::string& folder) {
  return std::distance(std::filesystem::directory_iterator(folder), {});
}

// The two methods and the link of the example project, as the method dialog and a later
// fill change left their records.
TEST(Writer, WritesTheExampleByteForByteAndNothingBeside) {
  FileWorld world;
  ProjectStore& store = world.app.store;
  store.programName = "Kalkulator";
  store.programDescription = "Regner ut summer.\r\nAndre linje.";
  world.addCell("public int sum(a, b)", 40, 30, "Legger sammen a og b", 16777215, 0,
                "Hvis a < b: bytt.\r\nReturner a + b.");
  world.addCell("main()", 310.5f, 30, "Starter programmet", 65535, 0);
  store.itemList.setList(1, setField(store.itemList.List(1), "cellFillStyle", "0"));
  world.addLinkRecord("main()", "public int sum(a, b)");
  store.isSaved = false;
  ASSERT_TRUE(writeProject(world.app, "kalkulator.tvl", world.dir.path()));
  EXPECT_EQ(readFile(world.dir.file("kalkulator.tvl")), readFile(dataPath("files/write/kalkulator.tvl")));
  EXPECT_EQ(std::tuple(store.isSaved, entriesIn(world.dir.path())), std::tuple(true, 1));
}

// Positions come back compressed and records trimmed of the file's white space; the rest of
// a long description cut short stays in the record; an empty file gives the settings' numbers.
TEST(Writer, ReadAndSavedAgainGivesTheExpectedBytes) {
  for (auto [in, out] : {std::pair{"files/write/kalkulator.tvl", "files/write/kalkulator_read_back.tvl"},
                         {"files/read/text_behind_record.tvl", "files/write/text_behind_record.tvl"},
                         {"files/read/empty.tvl", "files/write/empty_project.tvl"}}) {
    FileWorld world;
    ASSERT_TRUE(readProject(world.app, dataPath(in)));
    ASSERT_TRUE(writeProject(world.app, "out.tvl", world.dir.path()));
    EXPECT_EQ(readFile(world.dir.file("out.tvl")), readFile(dataPath(out))) << in;
  }
}

// Reading what was written loses nothing: names, texts, numbers and the link come back.
TEST(Writer, WriteReadWriteKeepsEveryByte) {
  FileWorld world;
  ProjectStore& store = world.app.store;
  store.programName = "Æøå & <navn>"_cp;
  store.programDescription = "linje 1\r\nlinje 2\r\n";
  store.minimumCellWidth = 25.5f;
  world.addCell("a<b", 10, 10, "x & y", 255, 3, "trailing line break\r\n");
  world.addCell("blåbær"_cp, 95.5f, 42, "", 16777215, 7, "");
  world.addLinkRecord("a<b", "blåbær"_cp);
  ASSERT_TRUE(writeProject(world.app, "p.tvl", world.dir.path()));
  std::string first = readFile(world.dir.file("p.tvl"));
  ASSERT_TRUE(readProject(world.app, world.dir.file("p.tvl")));
  ASSERT_TRUE(writeProject(world.app, "p.tvl", world.dir.path()));
  EXPECT_EQ(readFile(world.dir.file("p.tvl")), first);
}

// Each failed save leaves the old files, no temporary file, isSaved as it was, and a
// message that names the file.
TEST(Writer, FailedSaveLeavesTheOldStateAlone) {
  FileWorld world;
  world.app.store.isSaved = false;
  writeFile(world.dir.file("file"), "old bytes");
  std::filesystem::create_directory(world.dir.file("folder"));
  for (const std::string& target :
       {world.dir.file("folder"), world.dir.file("file/inside.tvl"), world.dir.file("none/x.tvl")}) {
    EXPECT_FALSE(writeProject(world.app, target, "")) << target;
    const std::string told = "Kunne ikke lagre filen '" + target + "'. ";
    EXPECT_EQ(std::tuple(world.app.store.isSaved, world.ui.messages.back().prompt.substr(0, told.size()),
                         readFile(world.dir.file("file")), entriesIn(world.dir.path()),
                         std::filesystem::is_empty(world.dir.file("folder"))),
              std::tuple(false, told, "old bytes", 2, true));
  }
}

// Beyond the user's file size limit the save is refused before a byte is written, with a
// message and no SIGXFSZ.
TEST(Writer, SaveBeyondTheFileSizeLimitKeepsTheOldFile) {
  FileWorld world;
  world.app.store.programDescription = std::string(100000, 'x');
  world.app.store.isSaved = false;
  std::string target = world.dir.file("p.tvl");
  writeFile(target, "old");
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  rlimit limit{100, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  bool saved = writeProject(world.app, "p.tvl", world.dir.path());
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(std::tuple(saved, world.app.store.isSaved, readFile(target), entriesIn(world.dir.path())),
            std::tuple(false, false, "old", 1));
  EXPECT_EQ(world.ui.messages.at(0).prompt, "Kunne ikke lagre filen '" + target + "'. Filen ble for stor.");
}

// Files beyond what a plan can hold are read up to the limit, and the user is told.
TEST(Reader, ReadsUpToTheLimitsAndSaysHowManyWereLeftOut) {
  std::string text =
      "<minimumCellWidth>25</minimumCellWidth><maximumCellWidth>50</maximumCellWidth>"
      "<nameFontSize>6</nameFontSize><infoFontSize>4</infoFontSize>";
  for (int i = 0; i < ProjectStore::kMaxMethods + 3; ++i)
    text += "<userMethod><positionX>" + std::to_string(i % 500) + "</positionX><methodName>m" +
            std::to_string(i) + "</methodName><longDescription>d</longDescription></userMethod>\r\n";
  for (int i = 0; i < ProjectStore::kMaxLinks + 1; ++i)
    text += "<userLink><linkSource>m" + std::to_string(i % 1000) +
            "</linkSource><linkTarget>m0</linkTarget></userLink>";
  FileWorld world;
  writeFile(world.dir.file("big.tvl"), text);
  ASSERT_TRUE(readProject(world.app, world.dir.file("big.tvl")));
  EXPECT_EQ(world.app.store.itemList.ListCount(), ProjectStore::kMaxMethods);
  EXPECT_EQ(world.app.store.linkList.ListCount(), ProjectStore::kMaxLinks);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_NE(world.ui.messages[0].prompt.find("3 metoder og 1 kobling ble ikke lest inn."), std::string::npos);
  EXPECT_EQ(checkProject(text).size(), 2u);
}

// A name that is new in an existing folder becomes an empty file; a missing folder fails.
TEST(Reader, MissingFileIsCreatedEmptyOnlyInAnExistingFolder) {
  FileWorld world;
  EXPECT_FALSE(readProject(world.app, world.dir.file("no/such.tvl")));
  ASSERT_TRUE(readProject(world.app, world.dir.file("new.tvl")));
  EXPECT_TRUE(std::filesystem::is_empty(world.dir.file("new.tvl")));
}

}  // namespace
}  // namespace tavlero::testing
