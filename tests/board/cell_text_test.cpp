// The cell text's pieces and lines, over the case tables in tests/data/board/.
#include <gtest/gtest.h>

#include <random>
#include <tuple>
#include <vector>

#include "board/cell_text.h"
#include "test_support.h"

namespace tavlero {
namespace {

using Lines = std::vector<std::string>;

// The lines of a case table's field, apart by "|".
Lines linesOf(const std::string& field) {
  Lines lines(1);
  for (char c : field) {
    if (c == '|')
      lines.emplace_back();
    else
      lines.back() += c;
  }
  return lines;
}

TEST(TextPieces, BreakAtBlankPeriodAndCommaOnlyBeforeTheLastBlank) {
  for (const auto& c : testing::readCases("board/text_pieces.txt")) {
    Lines pieces;
    for (int16_t i = 1; i <= countTextPieces(c.at(0)); ++i) pieces.push_back(textPiece(c.at(0), i));
    EXPECT_EQ(pieces, linesOf(c.at(1))) << c[0];
  }
  EXPECT_EQ(textPiece("a b", 9), "b");
}

// One unit per character, lines 4 high, from (7, 100).
TEST(LayoutCellText, PrintsLineByLineAndMeasuresTheSame) {
  for (const auto& c : testing::readCases("board/cell_text_layout.txt")) {
    SCOPED_TRACE(c.at(0));
    const Lines expected = linesOf(c.at(2));
    TestSurface measure, print;
    measure.CurrentX = print.CurrentX = 7;
    float measured = layoutCellText(measure, c[0], std::stof(c.at(1)), 100, false);
    EXPECT_TRUE(measure.Image().ops().empty()) << "a measuring run draws nothing";
    float printed = layoutCellText(print, c[0], std::stof(c[1]), 100, true);
    EXPECT_EQ(std::tuple(measured, printed, print.CurrentX),
              std::tuple(printed, 100 + 4.0f * static_cast<float>(expected.size()), 7.0f));
    Lines lines;
    for (const auto& op : print.Image().ops()) {
      EXPECT_EQ(std::tuple(op.x1, op.y1), std::tuple(7.0f, 100 + 4.0f * static_cast<float>(lines.size())));
      lines.emplace_back(print.Image().text(op.text));
    }
    EXPECT_EQ(lines, expected);
  }
}

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
    for (const auto& op : canvas.Image().ops()) printed.emplace_back(canvas.Image().text(op.text));
    EXPECT_EQ(printed, wholeLineBreaks(canvas, text, width)) << '"' << text << "\" at " << width;
  }
}

}  // namespace
}  // namespace tavlero
