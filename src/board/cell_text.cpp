#include "board/cell_text.h"

#include <limits>
#include <string_view>
#include <vector>

namespace tavlero {

namespace {

// The pieces of a text, joined, give the text again. A period or a comma breaks only
// ahead of the first blank of the rest, so the search for them stops there.
std::vector<std::string_view> splitPieces(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::string_view rest = text;
  for (;;) {
    size_t blank = rest.find(' ');
    if (blank == std::string_view::npos) {
      pieces.push_back(rest);
      return pieces;
    }
    size_t end = blank;
    size_t period = rest.substr(0, blank).find('.');
    if (period != std::string_view::npos) end = period;
    size_t comma = rest.substr(0, end).find(',');
    if (comma != std::string_view::npos) end = comma;
    pieces.push_back(rest.substr(0, end + 1));
    rest.remove_prefix(end + 1);
  }
}

}  // namespace

int16_t countTextPieces(const std::string& text) {
  size_t count = splitPieces(text).size();
  return static_cast<int16_t>(std::min<size_t>(count, std::numeric_limits<int16_t>::max()));
}

std::string textPiece(const std::string& text, int16_t n) {
  auto pieces = splitPieces(text);
  size_t index = n < 1 ? 0 : std::min<size_t>(static_cast<size_t>(n), pieces.size()) - 1;
  return std::string(pieces[index]);
}

float layoutCellText(Surface& canvas, const std::string& text, float width, float y, bool draw) {
  float leftMargin = canvas.CurrentX;
  canvas.CurrentY = y;
  // Measuring the whole line after every piece costs the square of its length. A line's
  // width is its known width plus the new piece's, give or take the kerning at each join,
  // which never comes near a fifth of a line height; the whole line is measured only when
  // that sum could pass the width, so every break falls where measuring would put it.
  const float joinSlack = 0.2f * canvas.TextHeight("");
  std::string line;
  size_t fitting = 0;   // length of the last fitting line, a prefix of line
  float lineWidth = 0;  // width of line, exact when joins is 0
  int joins = 0;        // pieces added since line was last measured whole
  bool first = true;
  for (std::string_view piece : splitPieces(text)) {
    line.append(piece);
    // A first piece wider than the cell has nothing to break off: it stays on the
    // first line and reaches over the right side, with no empty line above it. Later,
    // an empty fitting line (left by a double blank at a break) is printed like any other.
    if (first) {
      first = false;
      lineWidth = canvas.TextWidth(line);
      joins = 0;
    } else {
      float estimate = lineWidth + canvas.TextWidth(std::string(piece));
      ++joins;
      if (estimate + static_cast<float>(joins) * joinSlack <= width) {
        lineWidth = estimate;
      } else {
        lineWidth = canvas.TextWidth(line);
        joins = 0;
        if (lineWidth > width) {
          std::string done = line.substr(0, fitting);
          if (draw) canvas.Print(done);
          canvas.CurrentY += canvas.TextHeight(done);
          canvas.CurrentX = leftMargin;
          line.erase(0, fitting);
          if (!line.empty() && line.front() == ' ') line.erase(0, 1);
          lineWidth = canvas.TextWidth(line);
        }
      }
    }
    fitting = line.size();
  }
  if (draw) canvas.Print(line);
  canvas.CurrentY += canvas.TextHeight(line);
  canvas.CurrentX = leftMargin;
  return canvas.CurrentY;
}

}  // namespace tavlero
