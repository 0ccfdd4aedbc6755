#include <gtest/gtest.h>

#include <vector>

#include "board/cell_text.h"
#include "board/test_surface.h"

namespace tavlero {
namespace {

using Lines = std::vector<std::string>;

Lines piecesOf(const std::string& text) {
  Lines pieces;
  for (int16_t i = 1; i <= countTextPieces(text); ++i) pieces.push_back(textPiece(text, i));
  return pieces;
}

TEST(TextPieces, BreakAtBlankPeriodAndCommaOnlyBeforeTheLastBlank) {
  EXPECT_EQ(piecesOf("Sum, avg. and max."), (Lines{"Sum,", " ", "avg.", " ", "and ", "max."}));
  EXPECT_EQ(piecesOf("a.b c.d"), (Lines{"a.", "b ", "c.d"}));
  EXPECT_EQ(piecesOf("abc.def"), (Lines{"abc.def"}));
  EXPECT_EQ(piecesOf("a "), (Lines{"a ", ""}));
  EXPECT_EQ(piecesOf(""), (Lines{""}));
  EXPECT_EQ(piecesOf("les fil.txt"), (Lines{"les ", "fil.txt"}));
  EXPECT_EQ(piecesOf("fil.txt og mer"), (Lines{"fil.", "txt ", "og ", "mer"}));
  EXPECT_EQ(piecesOf("x-y(z)\tq\r\nw"), (Lines{"x-y(z)\tq\r\nw"}));
  EXPECT_EQ(textPiece("a b", 9), "b");
}

struct LayoutCase {
  const char* text;
  float width;
  Lines lines;
};

class LayoutCellText : public ::testing::TestWithParam<LayoutCase> {};

// One unit per character, lines 4 high, from (7, 100).
TEST_P(LayoutCellText, PrintsLineByLineAndMeasuresTheSame) {
  const auto& c = GetParam();
  TestSurface measure, print;
  measure.CurrentX = print.CurrentX = 7;
  float measured = layoutCellText(measure, c.text, c.width, 100, false);
  EXPECT_TRUE(measure.Image().ops().empty()) << "a measuring run draws nothing";
  float printed = layoutCellText(print, c.text, c.width, 100, true);
  EXPECT_FLOAT_EQ(measured, printed);
  EXPECT_FLOAT_EQ(printed, 100 + 4.0f * static_cast<float>(c.lines.size()));
  EXPECT_FLOAT_EQ(print.CurrentX, 7);
  Lines lines;
  for (const auto& op : print.Image().ops()) {
    EXPECT_FLOAT_EQ(op.x1, 7);
    EXPECT_FLOAT_EQ(op.y1, 100 + 4.0f * static_cast<float>(lines.size()));
    lines.push_back(print.Image().text(op.text));
  }
  EXPECT_EQ(lines, c.lines);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LayoutCellText,
    ::testing::Values(LayoutCase{"Sum, avg. and max.", 8, {"Sum, ", "avg. ", "and max."}},
                      LayoutCase{"a.b c.d", 3, {"a.", "b ", "c.d"}}, LayoutCase{"exactly8", 8, {"exactly8"}},
                      LayoutCase{"", 8, {""}},
                      // One blank is dropped at a break, so a run of blanks can head a line.
                      LayoutCase{"ab   cd", 3, {"ab ", " cd"}},
                      // A wide piece stands alone; as the first piece it gets no empty line above.
                      LayoutCase{"ab averyverylongword cd", 5, {"ab ", "averyverylongword ", "cd"}},
                      LayoutCase{"averyverylongword", 5, {"averyverylongword"}}));

}  // namespace
}  // namespace tavlero
