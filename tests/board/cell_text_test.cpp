#include <gtest/gtest.h>

#include <vector>

#include "board/cell_text.h"
#include "board/test_surface.h"

namespace tavlero {
namespace {

std::vector<std::string> piecesOf(const std::string& text) {
  std::vector<std::string> pieces;
  for (int16_t i = 1; i <= countTextPieces(text); ++i) pieces.push_back(textPiece(text, i));
  return pieces;
}

TEST(TextPieces, BreakAtBlankPeriodAndCommaOnlyBeforeTheLastBlank) {
  using V = std::vector<std::string>;
  EXPECT_EQ(piecesOf("Sum, avg. and max."), (V{"Sum,", " ", "avg.", " ", "and ", "max."}));
  EXPECT_EQ(piecesOf("a.b c.d"), (V{"a.", "b ", "c.d"}));
  EXPECT_EQ(piecesOf("abc.def"), (V{"abc.def"}));
  EXPECT_EQ(piecesOf("a "), (V{"a ", ""}));
  EXPECT_EQ(piecesOf(""), (V{""}));
  EXPECT_EQ(piecesOf("les fil.txt"), (V{"les ", "fil.txt"}));
  EXPECT_EQ(piecesOf("fil.txt og mer"), (V{"fil.", "txt ", "og ", "mer"}));
  EXPECT_EQ(piecesOf("a  b"), (V{"a ", " ", "b"}));
  // Hyphens, brackets, tabs and line ends do not break.
  EXPECT_EQ(piecesOf("x-y(z)\tq\r\nw"), (V{"x-y(z)\tq\r\nw"}));
  // Beyond the last piece gives the last piece.
  EXPECT_EQ(textPiece("a b", 9), "b");
}

struct Printed {
  std::string text;
  float x, y;
};

std::vector<Printed> printedTexts(const Surface& canvas) {
  std::vector<Printed> out;
  for (const auto& op : canvas.Image().ops())
    if (op.kind == DrawKind::Text) out.push_back({canvas.Image().text(op.text), op.x1, op.y1});
  return out;
}

TEST(LayoutCellText, WrapsTheWorkedExample) {
  TestSurface canvas;  // one unit per character, line height 4
  canvas.CurrentX = 7;
  float below = layoutCellText(canvas, "Sum, avg. and max.", 8, 100, true);
  EXPECT_FLOAT_EQ(below, 112);
  auto lines = printedTexts(canvas);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].text, "Sum, ");
  EXPECT_EQ(lines[1].text, "avg. ");
  EXPECT_EQ(lines[2].text, "and max.");
  for (int i = 0; i < 3; ++i) {
    EXPECT_FLOAT_EQ(lines[static_cast<size_t>(i)].x, 7);
    EXPECT_FLOAT_EQ(lines[static_cast<size_t>(i)].y, 100 + 4.0f * static_cast<float>(i));
  }
  EXPECT_FLOAT_EQ(canvas.CurrentX, 7);
}

TEST(LayoutCellText, MeasuringAndPrintingAgree) {
  for (const char* text : {"a.b c.d", "", "one", "exactly8", "exactly8 x", "a  b c",
                           "averyveryverylongword and more", "first averyveryverylongword"}) {
    TestSurface measure, print;
    float measured = layoutCellText(measure, text, 3, 10, false);
    EXPECT_TRUE(measure.Image().ops().empty()) << "a measuring run draws nothing";
    float printed = layoutCellText(print, text, 3, 10, true);
    EXPECT_FLOAT_EQ(measured, printed) << text;
  }
}

TEST(LayoutCellText, LineBreakRules) {
  TestSurface canvas;
  // A line exactly as wide as the width is not broken.
  EXPECT_FLOAT_EQ(layoutCellText(canvas, "exactly8", 8, 0, false), 4);
  // The empty text is one empty line.
  EXPECT_FLOAT_EQ(layoutCellText(canvas, "", 8, 0, false), 4);
  // A break at a period puts nothing back.
  canvas.Cls();
  layoutCellText(canvas, "a.b c.d", 3, 0, true);
  auto lines = printedTexts(canvas);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].text, "a.");
  EXPECT_EQ(lines[1].text, "b ");
  EXPECT_EQ(lines[2].text, "c.d");
  // Only one leading blank is dropped at a break, so a run of blanks can head a line.
  canvas.Cls();
  layoutCellText(canvas, "ab   cd", 3, 0, true);
  lines = printedTexts(canvas);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[1].text, " cd");
}

TEST(LayoutCellText, AWidePieceStandsAloneAndReachesOver) {
  TestSurface canvas;
  layoutCellText(canvas, "ab averyverylongword cd", 5, 0, true);
  auto lines = printedTexts(canvas);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].text, "ab ");
  EXPECT_EQ(lines[1].text, "averyverylongword ");
  EXPECT_EQ(lines[2].text, "cd");
  // As the first piece it stays on the first line, with no empty line above it.
  canvas.Cls();
  EXPECT_FLOAT_EQ(layoutCellText(canvas, "averyverylongword", 5, 0, true), 4);
  EXPECT_EQ(printedTexts(canvas).size(), 1u);
}

}  // namespace
}  // namespace tavlero
