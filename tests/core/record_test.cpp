// The tagged field rules and the number rules, over the case tables in tests/data/core/.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "core/record.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

TEST(GetField, FindsFirstOpeningAndFirstClosingTag) {
  for (const auto& c : readCases("core/get_field.txt"))
    EXPECT_EQ(getField(c.at(0), c.at(1)), c.at(2)) << c[0];
}

TEST(SetField, ReplacesOnlyTheValue) {
  for (const auto& c : readCases("core/set_field.txt"))
    EXPECT_EQ(setField(c.at(0), c.at(1), c.at(2)), c.at(3)) << c[0];
}

TEST(GetField, WorksBeyondSixteenBitPositions) {
  std::string record = std::string(70000, 'x') + "<k>far</k>";
  EXPECT_EQ(getField(record, "k"), "far");
  EXPECT_EQ(setField(record, "k", "near"), std::string(70000, 'x') + "<k>near</k>");
}

TEST(NumberToText, IntegersHaveOneBlankUnlessNegativeAndFloatsSevenOrFifteenDigits) {
  for (const auto& c : readCases("core/number_text.txt")) {
    const std::string& type = c.at(0);
    const double value = std::stod(c.at(1));
    std::string text = type == "int16"   ? numberToText(static_cast<int16_t>(value))
                       : type == "int32" ? numberToText(static_cast<int32_t>(value))
                       : type == "float" ? numberToText(static_cast<float>(value))
                                         : numberToText(value);
    EXPECT_EQ(text, c.at(2)) << type << ' ' << c[1];
    // Whatever the form, reading it back gives the number to the precision of its type.
    EXPECT_NEAR(textToNumber(text), value, std::fabs(value) * (type == "double" ? 1e-14 : 1e-6)) << c[1];
  }
}

TEST(TextToNumber, NeverFails) {
  for (const auto& c : readCases("core/text_to_number.txt"))
    EXPECT_DOUBLE_EQ(textToNumber(c.at(0)), std::stod(c.at(1))) << '"' << c[0] << '"';
}

// Narrowing rounds ties to even and saturates, so no stored text can overflow a variable.
TEST(NarrowingConversions, RoundHalfToEvenAndSaturate) {
  EXPECT_EQ(std::tuple(toInteger(6.5), toInteger(7.5), toLong(-2.5), toInteger(std::nan(""))),
            std::tuple(6, 8, -2, 0));
  EXPECT_TRUE(std::isfinite(textToNumber("1E999999999999")));
  EXPECT_EQ(std::tuple(toInteger(textToNumber("1E40")), toLong(textToNumber("-1E40")),
                       toSingle(textToNumber("1E300"))),
            std::tuple(32767, std::numeric_limits<int32_t>::min(), std::numeric_limits<float>::max()));
}

}  // namespace
}  // namespace tavlero::testing
