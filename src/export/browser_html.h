#pragma once
// The info page as a web browser reads it, for a view with a simpler HTML reader.

#include <string>
#include <string_view>

namespace tavlero {

// Parses a Windows-1252 page as an HTML5 browser does and writes the tree back as
// well-formed HTML in plain ASCII: text and attribute values escaped, every character
// beyond ASCII as a character reference. Scripts, comments and what a browser hides go;
// a text box or a list keeps its shown text, and an image its alt text, since the view
// loads nothing but the page.
std::string browserHtml(std::string_view page);

}  // namespace tavlero
