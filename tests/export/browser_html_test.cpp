// The info page as a browser reads it, written back for the view: the trees worked out by
// the HTML5 parsing rules, in tests/data/export/browser_html.txt.

#include <gtest/gtest.h>

#include "export/browser_html.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

std::string body(const std::string& inner) {
  return "<html><head></head><body>" + inner + "</body></html>";
}

TEST(BrowserHtml, WritesTheTreeABrowserBuildsWithItsTextEscaped) {
  for (const auto& c : readCases("export/browser_html.txt")) EXPECT_EQ(browserHtml(c.at(0)), c.at(1)) << c[0];
}

// Nesting is kept to 512 levels, as a browser's parser does, so that no page costs the
// square of its length; the start tags below that show as text.
TEST(BrowserHtml, DeepNestingAndBinaryBytes) {
  std::string deep, kept, shown;
  for (int i = 0; i < 100000; ++i) deep += "<div>x";
  for (int i = 0; i < 512; ++i) kept += "<div>x";
  for (int i = 512; i < 100000; ++i) shown += "&lt;div&gt;x";
  for (int i = 0; i < 512; ++i) shown += "</div>";
  EXPECT_EQ(browserHtml(deep), body(kept + shown));
  EXPECT_EQ(browserHtml(std::string("a\0b", 3)), body("ab"));
}

}  // namespace
}  // namespace tavlero::testing
