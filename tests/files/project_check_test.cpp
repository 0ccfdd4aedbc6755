#include <gtest/gtest.h>

#include "core/cp1252.h"
#include "files/project_check.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

struct CheckCase {
  const char* file;
  std::vector<std::string> found;  // one expected part of each reported line, in order
};

void PrintTo(const CheckCase& c, std::ostream* os) {
  *os << c.file;
}

class Check : public ::testing::TestWithParam<CheckCase> {};

TEST_P(Check, ReportsWhatTheReaderLoses) {
  std::vector<std::string> lines =
      checkProject(readFile(dataPath(std::string("files/read/") + GetParam().file)));
  ASSERT_EQ(lines.size(), GetParam().found.size()) << ::testing::PrintToString(lines);
  for (size_t i = 0; i < lines.size(); ++i)
    EXPECT_NE(lines[i].find(utf8ToCp1252(GetParam().found[i])), std::string::npos) << lines[i];
}

INSTANTIATE_TEST_SUITE_P(
    Files, Check,
    ::testing::Values(
        CheckCase{"../../../../examples/kalkulator.tvl", {}}, CheckCase{"glued_links.tvl", {}},
        CheckCase{"empty_method_element.tvl", {"userMethod-element avslutter lesingen; 1 metode(r)"}},
        CheckCase{"glued_methods.tvl",
                  {"Metode 1 ('a'): '</userMethod>' står rett foran '<userMethod>'",
                   "userMethod-element avslutter lesingen; 2 metode(r)",
                   "Kobling 1: linkTarget 'c' er ingen metode"}},
        CheckCase{"glued_last_method.tvl", {"Metode 2 ('b'): '</userMethod>' står rett foran"}},
        CheckCase{"no_long_description.tvl", {"Metode 1 ('a') har ingen <longDescription>"}},
        CheckCase{"unclosed_long_description.tvl", {"Metode 1 ('a') mangler '</longDescription>'"}},
        CheckCase{"text_behind_record.tvl", {"den lange beskrivelsen inneholder '</longDescription>'"}},
        CheckCase{"empty_link_element.tvl", {"userLink-element avslutter lesingen; 1 kobling(er)"}},
        CheckCase{"links_only.tvl", {"linkSource 'a' er ingen metode", "linkTarget 'b' er ingen metode"}},
        CheckCase{"small_numbers.tvl", {"maximumCellWidth mangler eller er mindre enn 1"}},
        CheckCase{"huge_font_size.tvl", {"nameFontSize mangler, er mindre enn 1 eller er for stor"}},
        CheckCase{"empty.tvl", {"minimumCellWidth", "maximumCellWidth", "nameFontSize", "infoFontSize"}},
        CheckCase{"tag_in_description.tvl", {"Prosjektbeskrivelsen inneholder taggen '<userMethod>'"}},
        CheckCase{"typed_tags.tvl", {"Metode 1 ('a'): sammendraget inneholder taggen '<cellColor>'"}},
        CheckCase{"duplicates_and_fill.tvl",
                  {"Metode 2 ('a') har fylltype 9, utenfor 0 til 7",
                   "Metode 2 ('a') har samme navn som metode 1"}}));

TEST(Check, CountsWhatLiesBeyondThePlansLimits) {
  std::string text =
      "<minimumCellWidth>1</minimumCellWidth><maximumCellWidth>1</maximumCellWidth>"
      "<nameFontSize>1</nameFontSize><infoFontSize>1</infoFontSize>";
  for (int i = 0; i < ProjectStore::kMaxMethods + 2; ++i)
    text += "<userMethod><methodName>m" + std::to_string(i) +
            "</methodName><longDescription></longDescription>"
            "</userMethod>\r\n";
  for (int i = 0; i < ProjectStore::kMaxLinks + 1; ++i)
    text += "<userLink><linkSource>m1</linkSource><linkTarget>m2</linkTarget></userLink>";
  std::vector<std::string> lines = checkProject(text);
  ASSERT_EQ(lines.size(), 2u) << ::testing::PrintToString(lines);
  EXPECT_EQ(lines[0], "Filen har 32003 metoder; en plan kan holde 32001, og resten blir ikke lest.");
  EXPECT_EQ(lines[1], "Filen har 32768 koblinger; en plan kan holde 32767, og resten blir ikke lest.");
}

}  // namespace
}  // namespace tavlero::testing
