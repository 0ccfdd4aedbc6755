#include "export/text_scheme.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "core/cp1252.h"
#include "export_fixture.h"

namespace tavlero::testing {
namespace {

TEST(TextScheme, ExampleOnTheClipboardByteForByte) {
  FakeWorld world;
  loadExample(world);
  copySchemeText(world.app);
  EXPECT_EQ(world.clipboard.clears, 1);
  EXPECT_EQ(world.clipboard.text, exampleFile("clipboard.txt"));
}

TEST(TextScheme, EmptyProjectLeavesClipboardAloneButWritesAnEmptyFile) {
  FakeWorld world;
  world.clipboard.SetText("was there");
  copySchemeText(world.app);
  EXPECT_EQ(world.clipboard.clears, 0);
  EXPECT_EQ(world.clipboard.text, "was there");

  TempDir dir;
  writeFile(dir.file("old.txt"), "old content");
  world.dialog.saveAnswers.push_back(dir.file("old.txt"));
  saveSchemeText(world.app);
  EXPECT_EQ(world.dialog.saves, 1);
  EXPECT_TRUE(std::filesystem::exists(dir.file("old.txt")));
  EXPECT_EQ(readFile(dir.file("old.txt")), "");
}

struct BlockCase {
  std::string label;
  std::function<void(FakeWorld&)> build;
  int16_t index;
  std::string expected;
};

void PrintTo(const BlockCase& c, std::ostream* os) {
  *os << c.label;
}

class SchemeBlock : public ::testing::TestWithParam<BlockCase> {};

TEST_P(SchemeBlock, IsBuiltFromTheLinksAsTheyStand) {
  FakeWorld world;
  GetParam().build(world);
  EXPECT_EQ(buildSchemeText(world.app.store, GetParam().index), GetParam().expected);
}

const std::string kTail = "*************\r\n";

INSTANTIATE_TEST_SUITE_P(
    Cases, SchemeBlock,
    ::testing::Values(
        BlockCase{"SelfLinkStandsInBothLists",
                  [](FakeWorld& w) {
                    w.addCell("A", 0, 0, "s");
                    w.addLinkRecord("A", "A");
                  },
                  0,
                  "Metode: A\r\n\r\nOppsummering: s\r\n\r\n'A' benytter:\r\n\t\r\n\tA\r\n\t\r\n'A' blir "
                  "brukt av:\r\n\t\r\n"
                  "\tA\r\n\t\r\nFremgangsm\xE5te:\r\n\r\n\r\n" +
                      kTail},
        BlockCase{"TwoLinksToOneMethodListItTwiceInLinkOrder",
                  [](FakeWorld& w) {
                    w.addCell("A", 0, 0);
                    w.addLinkRecord("A", "C");
                    w.addLinkRecord("B", "A");
                    w.addLinkRecord("A", "B");
                    w.addLinkRecord("A", "C");
                  },
                  0,
                  "Metode: A\r\n\r\nOppsummering: \r\n\r\n'A' benytter:\r\n\t\r\n\tC\r\n\tB\r\n\tC\r\n\t\r\n"
                  "'A' blir brukt av:\r\n\t\r\n\tB\r\n\t\r\nFremgangsm\xE5te:\r\n\r\n\r\n" +
                      kTail},
        BlockCase{"NamesCompareWithCaseAndWholeText",
                  [](FakeWorld& w) {
                    w.addCell("Les", 0, 0, "", 0, 0, "linje 1\r\nlinje 2\r\n");
                    w.addLinkRecord("les", "X");
                    w.addLinkRecord("Les2", "Y");
                  },
                  0,
                  "Metode: Les\r\n\r\nOppsummering: \r\n\r\n'Les' benytter:\r\n\t\r\n\t\r\n'Les' blir brukt "
                  "av:\r\n\t\r\n"
                  "\t\r\nFremgangsm\xE5te:\r\nlinje 1\r\nlinje 2\r\n\r\n\r\n" +
                      kTail},
        BlockCase{
            "EqualRecordsShowTheFirstOnesLongDescription",
            [](FakeWorld& w) {
              w.addCell("D", 0, 0, "", 0, 0, "first");
              w.addCell("D", 0, 0, "", 0, 0, "second");
            },
            1,
            "Metode: D\r\n\r\nOppsummering: \r\n\r\n'D' benytter:\r\n\t\r\n\t\r\n'D' blir brukt av:\r\n\t\r\n"
            "\t\r\nFremgangsm\xE5te:\r\nfirst\r\n\r\n" +
                kTail}),
    [](const auto& info) { return info.param.label; });

TEST(TextScheme, BlocksFollowTheListNotTheBoard) {
  FakeWorld world;
  world.addCell("Nederst", 500, 500);
  world.addCell("Overst", 0, 0);
  copySchemeText(world.app);
  const std::string& text = world.clipboard.text;
  ASSERT_NE(text.find("Metode: Overst"), std::string::npos);
  EXPECT_LT(text.find("Metode: Nederst"), text.find("Metode: Overst"));
}

TEST(TextScheme, CancelWritesNothingAndKeepsTheProjectFile) {
  FakeWorld world;
  loadExample(world);
  world.app.store.projectFileName = "plan.tvl";
  world.app.store.projectFolder = "/somewhere/";
  saveSchemeText(world.app);
  EXPECT_EQ(world.dialog.saves, 1);
  EXPECT_TRUE(world.ui.messages.empty());
  EXPECT_EQ(world.app.store.projectFileName, "plan.tvl");
  EXPECT_EQ(world.app.store.projectFolder, "/somewhere/");
}

}  // namespace
}  // namespace tavlero::testing
