#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/record.h"

namespace tavlero {
namespace {

struct FieldCase {
  const char* record;
  const char* key;
  const char* expected;
};

class GetFieldTest : public ::testing::TestWithParam<FieldCase> {};

TEST_P(GetFieldTest, FindsFirstOpeningAndFirstClosingTag) {
  const auto& c = GetParam();
  EXPECT_EQ(getField(c.record, c.key), c.expected) << c.record;
}

INSTANTIATE_TEST_SUITE_P(
    EdgeCases, GetFieldTest,
    ::testing::Values(
        FieldCase{"", "a", ""}, FieldCase{"", "longDescription", ""}, FieldCase{"nothing", "a", ""},
        FieldCase{"<a>x", "a", ""}, FieldCase{"<a></a>", "a", ""},
        // The first closing tag stands before the opening tag: nothing, although a pair follows.
        FieldCase{"</a>x<a>y</a>", "a", ""},
        // No opening tag: start counts from position 0 plus the tag's length.
        FieldCase{"x</a>", "a", ""}, FieldCase{"xxxxxx</a>", "a", "xxxx"},
        FieldCase{"<a><a>x</a></a>", "a", "<a>x"}, FieldCase{"<A>x</A>", "a", ""},
        FieldCase{"<a> x </a>", "a", " x "}, FieldCase{"<a>p<b>q</a>", "a", "p<b>q"},
        FieldCase{"<X12>5</X12><X1>7</X1>", "X1", "7"},
        FieldCase{"<methodName><cellColor></methodName><cellColor> 5</cellColor>", "cellColor",
                  "</methodName><cellColor> 5"},
        FieldCase{"X1: 0 Y1: 0 X2: 0 Y2: 0", "X1", ""}));

TEST(GetField, WorksBeyondSixteenBitPositions) {
  std::string record = std::string(70000, 'x') + "<k>far</k>";
  EXPECT_EQ(getField(record, "k"), "far");
  EXPECT_EQ(setField(record, "k", "near"), std::string(70000, 'x') + "<k>near</k>");
}

TEST(SetField, ReplacesOnlyTheValue) {
  EXPECT_EQ(setField("<a>x</a><b>y</b>", "a", "zz"), "<a>zz</a><b>y</b>");
  EXPECT_EQ(setField("<a>x</a><b>y</b>", "a", ""), "<a></a><b>y</b>");
  EXPECT_EQ(setField("\r\n\t<a> 1</a>\r\n", "a", " 2"), "\r\n\t<a> 2</a>\r\n");
  EXPECT_EQ(setField("", "a", "v"), "");
  // A field the record lacks leaves the record as it was.
  EXPECT_EQ(setField("<b>y</b>", "a", "v"), "<b>y</b>");
  EXPECT_EQ(setField("xxxxxx</a>", "a", "v"), "xxxxxx</a>");
}

TEST(NumberToText, IntegersHaveOneBlankUnlessNegative) {
  EXPECT_EQ(numberToText(int32_t{1200}), " 1200");
  EXPECT_EQ(numberToText(int32_t{-3}), "-3");
  EXPECT_EQ(numberToText(int32_t{0}), " 0");
  EXPECT_EQ(numberToText(int16_t{-32768}), "-32768");
  EXPECT_EQ(numberToText(std::numeric_limits<int32_t>::min()), "-2147483648");
}

struct FloatCase {
  double value;
  bool isDouble;
  const char* expected;
};

class FloatTextTest : public ::testing::TestWithParam<FloatCase> {};

TEST_P(FloatTextTest, SevenOrFifteenSignificantDigits) {
  const auto& c = GetParam();
  std::string text = c.isDouble ? numberToText(c.value) : numberToText(static_cast<float>(c.value));
  EXPECT_EQ(text, c.expected);
  // Whatever the form, reading it back gives the number to the precision of its type.
  double back = textToNumber(text);
  EXPECT_NEAR(back, c.value, std::fabs(c.value) * (c.isDouble ? 1e-14 : 1e-6));
}

INSTANTIATE_TEST_SUITE_P(
    Examples, FloatTextTest,
    ::testing::Values(FloatCase{0.5, false, " .5"}, FloatCase{-0.25, false, "-.25"},
                      FloatCase{25, false, " 25"}, FloatCase{1024.5, false, " 1024.5"},
                      FloatCase{0, false, " 0"}, FloatCase{310.5, false, " 310.5"},
                      FloatCase{12345678, false, " 1.234568E+07"}, FloatCase{1234567, false, " 1234567"},
                      FloatCase{31.3, false, " 31.3"}, FloatCase{-30, false, "-30"},
                      // A 32-bit width carried into 64 bits shows its binary digits.
                      FloatCase{10.0 + static_cast<double>(31.3f) + 1, true, " 42.2999992370605"},
                      FloatCase{42.25, true, " 42.25"}, FloatCase{0.001, false, " .001"},
                      FloatCase{1e20, true, " 1E+20"},
                      FloatCase{123456789012345.0, true, " 123456789012345"}));

// An exponent's leading zeros do not count towards its digits ("1E00000002" is 100).
TEST(TextToNumber, NeverFails) {
  struct Case {
    const char* text;
    double expected;
  } cases[] = {{" 25", 25},         {"25abc", 25},  {"1,5", 1},      {"abc", 0},
               {"X1: 0", 0},        {"", 0},        {"-.25", -0.25}, {"1 2 3", 123},
               {"\t\n 4\t2", 42},   {"1.5.5", 1.5}, {"2E3", 2000},   {"2d-2", 0.02},
               {"1e", 1},           {"-", 0},       {".", 0},        {" 1.234568E+07", 12345680},
               {"+7", 7},           {"5 e 1", 50},  {"\r5", 0},      {"1E00000002", 100},
               {"5d-00000001", .5}, {"3e000", 3}};
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(textToNumber(c.text), c.expected) << '"' << c.text << '"';
}

// Narrowing rounds ties to even and saturates, so no stored text can overflow a variable.
TEST(NarrowingConversions, RoundHalfToEvenAndSaturate) {
  EXPECT_EQ(toInteger(6.5), 6);
  EXPECT_EQ(toInteger(7.5), 8);
  EXPECT_EQ(toLong(-2.5), -2);
  EXPECT_EQ(toInteger(std::nan("")), 0);
  EXPECT_TRUE(std::isfinite(textToNumber("1E999999999999")));
  EXPECT_EQ(toInteger(textToNumber("1E40")), 32767);
  EXPECT_EQ(toLong(textToNumber("-1E40")), std::numeric_limits<int32_t>::min());
  EXPECT_EQ(toSingle(textToNumber("1E300")), std::numeric_limits<float>::max());
}

}  // namespace
}  // namespace tavlero
