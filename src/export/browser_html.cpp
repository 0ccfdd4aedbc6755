#include "export/browser_html.h"

#include <gumbo.h>

#include <memory>
#include <string_view>
#include <vector>

#include "core/cp1252.h"

namespace tavlero {

namespace {

using GumboPtr = std::unique_ptr<GumboOutput, void (*)(GumboOutput*)>;

std::vector<const GumboNode*> childrenOf(const GumboNode* node) {
  const GumboVector& children =
      node->type == GUMBO_NODE_DOCUMENT ? node->v.document.children : node->v.element.children;
  std::vector<const GumboNode*> nodes;
  for (unsigned i = 0; i < children.length; ++i)
    nodes.push_back(static_cast<const GumboNode*>(children.data[i]));
  return nodes;
}

// Gumbo hands over valid UTF-8; all beyond ASCII leaves as a reference, so the result
// reads the same in any 8-bit code page.
void escape(std::string& out, std::string_view text, bool attribute) {
  for (size_t i = 0; i < text.size();) {
    auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x80) {
      ++i;
      if (byte == '&')
        out += "&amp;";
      else if (byte == '<')
        out += "&lt;";
      else if (byte == '>')
        out += "&gt;";
      else if (byte == '"' && attribute)
        out += "&quot;";
      else
        out += static_cast<char>(byte);
      continue;
    }
    size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
    char32_t code = byte & (0x3F >> (length - 1));
    for (size_t k = 1; k < length && i + k < text.size(); ++k)
      code = (code << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    i += length;
    out += "&#" + std::to_string(static_cast<uint32_t>(code)) + ";";
  }
}

// The text of a node and all below it, as a browser's textContent.
std::string textContent(const GumboNode* node) {
  if (node->type != GUMBO_NODE_ELEMENT && node->type != GUMBO_NODE_TEMPLATE) return node->v.text.text;
  std::string text;
  std::vector<const GumboNode*> pending{node};
  while (!pending.empty()) {
    const GumboNode* next = pending.back();
    pending.pop_back();
    if (next->type == GUMBO_NODE_TEXT || next->type == GUMBO_NODE_WHITESPACE ||
        next->type == GUMBO_NODE_CDATA) {
      text += next->v.text.text;
    } else if (next->type == GUMBO_NODE_ELEMENT) {
      auto children = childrenOf(next);
      pending.insert(pending.end(), children.rbegin(), children.rend());
    }
  }
  return text;
}

// A closed list shows its selected entry, or its first.
std::string shownOption(const GumboNode* select) {
  const GumboNode* shown = nullptr;
  std::vector<const GumboNode*> pending{select};
  while (!pending.empty()) {
    const GumboNode* next = pending.back();
    pending.pop_back();
    if (next->type != GUMBO_NODE_ELEMENT) continue;
    if (next->v.element.tag == GUMBO_TAG_OPTION) {
      if (!shown) shown = next;
      if (gumbo_get_attribute(&next->v.element.attributes, "selected")) return textContent(next);
    }
    auto children = childrenOf(next);
    pending.insert(pending.end(), children.rbegin(), children.rend());
  }
  return shown ? textContent(shown) : std::string();
}

bool isVoid(GumboTag tag) {
  switch (tag) {
    case GUMBO_TAG_AREA:
    case GUMBO_TAG_BASE:
    case GUMBO_TAG_BR:
    case GUMBO_TAG_COL:
    case GUMBO_TAG_EMBED:
    case GUMBO_TAG_HR:
    case GUMBO_TAG_INPUT:
    case GUMBO_TAG_LINK:
    case GUMBO_TAG_META:
    case GUMBO_TAG_PARAM:
    case GUMBO_TAG_SOURCE:
    case GUMBO_TAG_TRACK:
    case GUMBO_TAG_WBR:
    case GUMBO_TAG_BASEFONT:
    case GUMBO_TAG_BGSOUND:
    case GUMBO_TAG_FRAME:
    case GUMBO_TAG_KEYGEN:
      return true;
    default:
      return false;
  }
}

// What a browser never shows: scripts, their stand-ins, and raw text it keeps to itself.
bool isHidden(GumboTag tag) {
  switch (tag) {
    case GUMBO_TAG_SCRIPT:
    case GUMBO_TAG_NOSCRIPT:
    case GUMBO_TAG_TEMPLATE:
    case GUMBO_TAG_NOEMBED:
    case GUMBO_TAG_NOFRAMES:
    case GUMBO_TAG_IFRAME:
    case GUMBO_TAG_OBJECT:
      return true;
    default:
      return false;
  }
}

bool isNameChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == ':';
}

bool isPlainName(std::string_view name) {
  if (name.empty()) return false;
  for (char c : name)
    if (!isNameChar(c)) return false;
  return true;
}

class Writer {
 public:
  std::string take() { return std::move(out_); }

  // Depth-first with a stack of its own, so that no nesting depth can exhaust ours.
  void write(const GumboNode* root) {
    struct Frame {
      const GumboNode* node;
      std::string close;
    };
    std::vector<Frame> pending{{root, ""}};
    while (!pending.empty()) {
      Frame frame = std::move(pending.back());
      pending.pop_back();
      if (!frame.node) {
        out_ += frame.close;
        continue;
      }
      std::string close = open(frame.node);
      if (close.empty() && !opensChildren_) continue;
      pending.push_back({nullptr, close});
      auto children = childrenOf(frame.node);
      for (auto child = children.rbegin(); child != children.rend(); ++child) pending.push_back({*child, ""});
    }
  }

 private:
  // Writes what stands before the node's children; gives what closes it. opensChildren_
  // tells whether its children are to be written.
  std::string open(const GumboNode* node) {
    opensChildren_ = false;
    switch (node->type) {
      case GUMBO_NODE_DOCUMENT:
        opensChildren_ = true;
        return {};
      case GUMBO_NODE_TEXT:
      case GUMBO_NODE_WHITESPACE:
      case GUMBO_NODE_CDATA:
        escape(out_, node->v.text.text, false);
        return {};
      case GUMBO_NODE_ELEMENT:
        return openElement(node);
      default:
        return {};
    }
  }

  std::string openElement(const GumboNode* node) {
    const GumboElement& element = node->v.element;
    switch (element.tag) {
      case GUMBO_TAG_IMG:
        if (const GumboAttribute* alt = gumbo_get_attribute(&element.attributes, "alt"))
          escape(out_, alt->value, false);
        return {};
      case GUMBO_TAG_TEXTAREA:
        out_ += "<span style=\"white-space: pre-wrap\">";
        escape(out_, textContent(node), false);
        out_ += "</span>";
        return {};
      case GUMBO_TAG_SELECT:
        escape(out_, shownOption(node), false);
        return {};
      case GUMBO_TAG_STYLE:
        // Kept for its rules; only a closing tag inside could end it early.
        out_ += "<style>";
        for (char c : textContent(node)) out_ += c == '<' ? std::string("\\3C ") : std::string(1, c);
        out_ += "</style>";
        return {};
      default:
        break;
    }
    if (isHidden(element.tag) || node->type == GUMBO_NODE_TEMPLATE) return {};
    opensChildren_ = true;
    std::string name = element.tag == GUMBO_TAG_UNKNOWN ? "" : gumbo_normalized_tagname(element.tag);
    if (element.tag == GUMBO_TAG_XMP || element.tag == GUMBO_TAG_PLAINTEXT ||
        element.tag == GUMBO_TAG_LISTING)
      name = "pre";
    // An element unknown to HTML shows its content as a span would.
    if (!isPlainName(name)) return {};
    out_ += "<" + name;
    for (unsigned i = 0; i < element.attributes.length; ++i) {
      const auto* attribute = static_cast<const GumboAttribute*>(element.attributes.data[i]);
      if (!isPlainName(attribute->name)) continue;
      out_ += std::string(" ") + attribute->name;
      // Bare, as "<table border>": Qt's reader takes an empty value for none at all.
      if (*attribute->value == '\0') continue;
      out_ += "=\"";
      escape(out_, attribute->value, true);
      out_ += '"';
    }
    out_ += '>';
    if (isVoid(element.tag)) {
      opensChildren_ = false;
      return {};
    }
    // A reader drops one line end straight behind <pre>: give it one to drop.
    if (name == "pre" && element.children.length > 0) {
      const auto* first = static_cast<const GumboNode*>(element.children.data[0]);
      if ((first->type == GUMBO_NODE_TEXT || first->type == GUMBO_NODE_WHITESPACE) &&
          first->v.text.text[0] == '\n')
        out_ += '\n';
    }
    return "</" + name + ">";
  }

  std::string out_;
  bool opensChildren_ = false;
};

bool isAsciiLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Elements that hold no others, or whose next of a kind closes them, do not nest.
bool nests(std::string name) {
  for (char& c : name) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  static const char* const kFlat[] = {
      "area",  "base",   "br",       "col",    "embed", "hr",    "img",      "input",
      "link",  "meta",   "param",    "source", "track", "wbr",   "basefont", "bgsound",
      "frame", "keygen", "p",        "li",     "dt",    "dd",    "tr",       "td",
      "th",    "option", "optgroup", "tbody",  "thead", "tfoot", "colgroup", "image"};
  for (const char* flat : kFlat)
    if (name == flat) return false;
  return true;
}

// The parser checks the open elements at every tag, so a page nested thousands deep costs
// the square of its length. As a browser's own parser does, a few hundred levels are kept;
// a start tag deeper than that is shown as text, with everything it held.
constexpr int kMaxDepth = 512;

std::string limitNesting(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  int depth = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '<' || i + 1 >= text.size()) {
      out += text[i];
      continue;
    }
    const bool closing = text[i + 1] == '/';
    size_t from = i + (closing ? 2 : 1), to = from;
    while (to < text.size() && (isAsciiLetter(text[to]) || (to > from && text[to] >= '0' && text[to] <= '9')))
      ++to;
    if (to == from || !nests(std::string(text.substr(from, to - from)))) {
      out += text[i];
    } else if (closing) {
      depth = depth > 0 ? depth - 1 : 0;
      out += text[i];
    } else if (depth < kMaxDepth) {
      ++depth;
      out += text[i];
    } else {
      out += "&lt;";
    }
  }
  return out;
}

}  // namespace

std::string browserHtml(std::string_view page) {
  const std::string text = limitNesting(cp1252ToUtf8(page));
  GumboOptions options = kGumboDefaultOptions;
  options.max_errors = 0;  // only the tree is wanted
  GumboPtr output(gumbo_parse_with_options(&options, text.data(), text.size()),
                  [](GumboOutput* parsed) { gumbo_destroy_output(&kGumboDefaultOptions, parsed); });
  Writer writer;
  writer.write(output->document);
  return writer.take();
}

}  // namespace tavlero
