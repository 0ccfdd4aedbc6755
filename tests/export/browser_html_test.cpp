// The info page as a browser reads it, written back for the view: the trees worked out by
// the HTML5 parsing rules.

#include <gtest/gtest.h>

#include "export/browser_html.h"

namespace tavlero::testing {
namespace {

std::string body(const std::string& inner) {
  return "<html><head></head><body>" + inner + "</body></html>";
}

TEST(BrowserHtml, WritesTheTreeABrowserBuildsWithItsTextEscaped) {
  const std::pair<std::string, std::string> cases[] = {
      // "<" and a blank open no tag.
      {"Hvis a < b: bytt.", body("Hvis a &lt; b: bytt.")},
      // <String> is an element unknown to HTML; its content stays as in a span.
      {"List<String> hent()", body("List hent()")},
      // Windows-1252 in, references out; &#128; is the euro sign too.
      {"\xE6\x80 &#128;", body("&#230;&#8364; &#8364;")},
      {"<script>alert(1)</script>x<!--c-->y<noscript>z</noscript>", body("xy")},
      {"<textarea>a<b>\r\nc</textarea>", body("<span style=\"white-space: pre-wrap\">a&lt;b&gt;\nc</span>")},
      {"<select><option>A<optgroup><option selected>B</select>", body("B")},
      {"<select><option>A<option>B</select>", body("A")},
      {"<img src=x.png alt='a\"b<'>", body("a\"b&lt;")},
      {"<p title='x\"&amp;y' on!click=z>t", body("<p title=\"x&quot;&amp;y\">t</p>")},
      {"<table border=''></table>", body("<table border></table>")},
      // The parser drops the line end behind <pre>; the writer gives it one back to drop.
      {"<pre>\n\nx</pre>", body("<pre>\n\nx</pre>")},
      {"<p><pre>a</pre></p><hr />", body("<p></p><pre>a</pre><p></p><hr>")},
      // Leaving the cell closes <b> and forgets it, so "d" is plain.
      {"<table><tr><td>a<b>c</table>d", body("<table><tbody><tr><td>a<b>c</b></td></tr></tbody></table>d")},
      {"<style>p<b{}</style>", "<html><head><style>p\\3C b{}</style></head><body></body></html>"}};
  for (const auto& [page, written] : cases) EXPECT_EQ(browserHtml(page), written) << page;
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
