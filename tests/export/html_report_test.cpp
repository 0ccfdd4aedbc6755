#include "export/html_report.h"

#include <gtest/gtest.h>

#include "export_fixture.h"

namespace tavlero::testing {
namespace {

size_t count(const std::string& text, const std::string& part) {
  size_t found = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++found;
  return found;
}

// The text between the n-th "<table border>" of a section and its "</font>".
std::string table(const std::string& section, int n) {
  size_t at = 0;
  for (int i = 0; i <= n; ++i) at = section.find("<table border>", i == 0 ? 0 : at + 1);
  return section.substr(at, section.find("</font>", at) - at);
}

TEST(HtmlReport, EmptyProjectIsTheFrameAlone) {
  FakeWorld world;
  EXPECT_EQ(buildHtmlReport(world.app.store),
            "<html><body>\r\n<h1></h1>\r\n<big><pre></pre></big><hr />\r\n</body></html>\r\n");
}

struct ColourCase {
  int32_t stored;
  std::string text;
};

class ColourText : public ::testing::TestWithParam<ColourCase> {};

TEST_P(ColourText, PutsTheBytesInRedGreenBlueOrder) {
  EXPECT_EQ(colourText(GetParam().stored), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Colours, ColourText,
                         ::testing::Values(ColourCase{0, "#000000"}, ColourCase{255, "#FF0000"},
                                           ColourCase{65280, "#00FF00"}, ColourCase{65535, "#FFFF00"},
                                           ColourCase{8421504, "#808080"}, ColourCase{12632256, "#C0C0C0"},
                                           ColourCase{16711680, "#0000FF"}, ColourCase{16776960, "#00FFFF"},
                                           ColourCase{16777215, "#FFFFFF"}, ColourCase{15, "#0F0000"},
                                           ColourCase{0x12345678, "#783412"}, ColourCase{-1, "#FFFFFF"},
                                           ColourCase{-16777216, "#0000FF"}));

class TableRows : public ::testing::TestWithParam<int> {};

// n used methods give full rows of five, "</tr><tr>" between rows and never an empty row.
TEST_P(TableRows, BreakAfterEveryFifthCell) {
  const int used = GetParam();
  FakeWorld world;
  world.addCell("M", 0, 0);
  for (int i = 0; i < used; ++i) world.addLinkRecord("M", "T" + std::to_string(i));
  std::string uses = table(buildMethodHtml(world.app.store, 0), 0);
  const size_t rows = static_cast<size_t>((used + 4) / 5);
  EXPECT_EQ(count(uses, "<td "), static_cast<size_t>(used));
  EXPECT_EQ(count(uses, "<tr>"), rows);
  EXPECT_EQ(count(uses, "</tr>"), rows);
  EXPECT_EQ(count(uses, "</tr><tr>"), rows - 1);
  EXPECT_EQ(count(uses, "<tr></tr>"), 0u);
  EXPECT_TRUE(uses.ends_with("</td>\r\n\t</tr></table>")) << uses;
}

INSTANTIATE_TEST_SUITE_P(Counts, TableRows, ::testing::Values(1, 5, 6, 10, 11));

TEST(HtmlReport, TheTwoTablesCountTheirColumnsApart) {
  FakeWorld world;
  world.addCell("M", 0, 0);
  for (int i = 0; i < 3; ++i) world.addLinkRecord("M", "U" + std::to_string(i));
  for (int i = 0; i < 3; ++i) world.addLinkRecord("B" + std::to_string(i), "M");
  std::string usedBy = table(buildMethodHtml(world.app.store, 0), 1);
  EXPECT_EQ(count(usedBy, "<tr>"), 1u);
  EXPECT_EQ(count(usedBy, "<td "), 3u);
}

TEST(HtmlReport, CellsTakeTheColourOfTheOtherMethod) {
  FakeWorld world;
  world.addCell("M", 0, 0, "", 255);
  world.addCell("T", 0, 0, "", 16711680);
  world.addCell("T", 0, 0, "", 65280);  // the last of equal names counts
  world.app.store.itemList.AddItem("<methodName>Blank</methodName>");
  world.app.store.itemList.AddItem("<methodName>Hex</methodName><cellColor> 305419896</cellColor>");
  world.addLinkRecord("M", "T");
  world.addLinkRecord("M", "Borte");
  world.addLinkRecord("M", "Blank");
  world.addLinkRecord("M", "Hex");
  std::string uses = table(buildMethodHtml(world.app.store, 0), 0);
  EXPECT_NE(uses.find("\"#00FF00\" height=\"110%\"><b>T</b>"), std::string::npos);
  EXPECT_NE(uses.find("\"#000000\" height=\"110%\"><b>Borte</b>"), std::string::npos);
  EXPECT_NE(uses.find("\"#000000\" height=\"110%\"><b>Blank</b>"), std::string::npos);
  EXPECT_NE(uses.find("\"#783412\" height=\"110%\"><b>Hex</b>"), std::string::npos);
  EXPECT_EQ(uses.find("#FF0000"), std::string::npos);
}

TEST(HtmlReport, FindMethodByNameKeepsTheLastHit) {
  FakeWorld world;
  world.addCell("A", 0, 0);
  world.addCell("B", 0, 0);
  world.addCell("A", 0, 0);
  EXPECT_EQ(findMethodByName(world.app.store, "A"), 2);
  EXPECT_EQ(findMethodByName(world.app.store, "B"), 1);
  EXPECT_EQ(findMethodByName(world.app.store, "a"), -1);
}

TEST(HtmlReport, SelfLinkAndMarkupGoInAsTheyStand) {
  FakeWorld world;
  world.addCell("a<b&c", 0, 0, "x < y & z", 255, 0, "<script>");
  world.addLinkRecord("a<b&c", "a<b&c");
  world.app.store.fontName = "Times New Roman";
  std::string section = buildMethodHtml(world.app.store, 0);
  EXPECT_EQ(
      section,
      "<h1>a<b&c</h1>\r\n\t<p><pre>x < y & z</pre></p><p><small><pre><script></pre></small></p>"
      "<h4>Bruker:</h4>\r\n\t<font face=\"Times New Roman\"><table border><tr><td bgcolor=\"#FF0000\" "
      "height=\"110%\"><b>a<b&c</b></td>\r\n\t</tr></table></font><h4>Brukes av:</h4>\r\n\t"
      "<font face=\"Times New Roman\"><table border><tr><td bgcolor=\"#FF0000\" height=\"110%\"><b>a<b&c</b>"
      "</td>\r\n\t</tr></table></font><hr />");
}

}  // namespace
}  // namespace tavlero::testing
