// The text scheme and the HTML report beyond the worked example.

#include <gtest/gtest.h>

#include "export/html_report.h"
#include "export/text_scheme.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

// One plan with the edge cases of both: a self link, a link given twice, names that differ
// only in case or length, markup in names and texts, texts of several lines, two equal
// records, colours of eight hex digits and below zero, the last of two cells of one name,
// links to methods that are not there, tables of 5, 6 and 10 cells beside tables of 0 and
// 5, and the first method lowest on the board.
TEST(Reports, EdgeCasesByteForByte) {
  FakeWorld world;
  ProjectStore& store = world.app.store;
  store.programName = "Plan <1> & mer";
  store.programDescription = "linje 1\r\nlinje 2";
  store.fontName = "Times New Roman";
  world.addCell("a<b&c", 0, 500, "x < y & z", 255, 0, "<script>\r\nlinje 2");
  world.addCell("T", 0, 0, "", 16711680);
  world.addCell("T", 0, 0, "", 65280);
  world.addCell("Hex", 0, 0, "", 0x12345678);
  world.addCell("Negativ", 0, 0, "", -16777216);
  world.addCell("D", 0, 0, "", 0, 0, "first");
  world.addCell("D", 0, 0, "", 0, 0, "second");
  world.addCell("Fem", 0, 0);
  world.addCell("Ti", 0, 0);
  const char* links[][2] = {{"a<b&c", "a<b&c"}, {"a<b&c", "T"},  {"B0", "a<b&c"},      {"a<b&c", "Hex"},
                            {"a<b&c", "T"},     {"B1", "a<b&c"}, {"a<b&c", "Negativ"}, {"a<b&c", "Borte"},
                            {"B2", "a<b&c"},    {"B3", "a<b&c"}, {"A<b&c", "X"},       {"a<b&c2", "Y"}};
  for (auto [source, target] : links) world.addLinkRecord(source, target);
  for (int i = 0; i < 10; ++i) world.addLinkRecord("Ti", "U" + std::to_string(i));
  for (int i = 0; i < 5; ++i) world.addLinkRecord("Fem", "F" + std::to_string(i));

  copySchemeText(world.app);
  EXPECT_EQ(world.clipboard.text, readFile(dataPath("export/edges_clipboard.txt")));
  EXPECT_EQ(buildHtmlReport(store), readFile(dataPath("export/edges_report.html")));
}

}  // namespace
}  // namespace tavlero::testing
