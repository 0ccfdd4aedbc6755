#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "board/cell_text.h"
#include "test_surface.h"

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
                      LayoutCase{"averyverylongword", 5, {"averyverylongword"}},
                      // Later, an empty fitting line left by a double blank is printed.
                      LayoutCase{"abc  defgh ij", 4, {"abc ", "", "defgh ", "ij"}}));

// Pairs across a join are kerned, so a line is not the sum of its pieces: the breaks must
// still be those of measuring every line whole.
TEST(LayoutCellText, BreaksAsMeasuringTheWholeLineWouldWithKerning) {
  struct KerningSurface : TestSurface {
    float TextWidth(const std::string& text) override {
      float kerned = 0;
      for (size_t i = 1; i < text.size(); ++i)
        kerned += (text[i - 1] == ' ' || text[i - 1] == '.') ? 0.3f : 0;
      return static_cast<float>(text.size()) + kerned;
    }
  };
  auto wholeLineBreaks = [](Surface& canvas, const std::string& text, float width) {
    Lines lines;
    std::string line, fitting;
    for (int16_t i = 1; i <= countTextPieces(text); ++i) {
      line += textPiece(text, i);
      if (i > 1 && canvas.TextWidth(line) > width) {
        lines.push_back(fitting);
        line.erase(0, fitting.size());
        if (!line.empty() && line.front() == ' ') line.erase(0, 1);
      }
      fitting = line;
    }
    lines.push_back(line);
    return lines;
  };
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (int i = 0, n = static_cast<int>(random() % 40); i < n; ++i) text += " . ,abcdef"[random() % 10];
    float width = static_cast<float>(random() % 200) / 10.0f;
    KerningSurface canvas;
    layoutCellText(canvas, text, width, 0, true);
    Lines printed;
    for (const auto& op : canvas.Image().ops()) printed.push_back(canvas.Image().text(op.text));
    EXPECT_EQ(printed, wholeLineBreaks(canvas, text, width)) << '"' << text << "\" at " << width;
  }
}

}  // namespace
}  // namespace tavlero
