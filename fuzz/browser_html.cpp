// Any page: the writer never fails, and what it gives the view is plain ASCII HTML whose
// every tag is closed in order, with no "<" or ">" left loose in text or values.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "export/browser_html.h"

namespace {

const std::set<std::string> kVoid = {"area",  "base",     "br",      "col",   "embed",  "hr",
                                     "input", "link",     "meta",    "param", "source", "track",
                                     "wbr",   "basefont", "bgsound", "frame", "keygen"};

void check(bool ok) {
  if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string page(reinterpret_cast<const char*>(data), size);
  const std::string html = tavlero::browserHtml(page);
  check(html.starts_with("<html") && html.ends_with("</html>"));
  std::vector<std::string> open;
  for (size_t i = 0; i < html.size();) {
    check(static_cast<unsigned char>(html[i]) < 0x80);
    check(html[i] != '>');  // a loose one, outside any tag
    if (html[i] != '<') {
      ++i;
      continue;
    }
    size_t end = html.find('>', i);
    check(end != std::string::npos);
    std::string tag = html.substr(i + 1, end - i - 1);
    check(tag.find('<') == std::string::npos && std::count(tag.begin(), tag.end(), '"') % 2 == 0);
    if (tag.starts_with("/")) {
      check(!open.empty() && open.back() == tag.substr(1));
      open.pop_back();
    } else {
      std::string name = tag.substr(0, tag.find(' '));
      if (!kVoid.contains(name)) open.push_back(name);
      // Style rules are kept as written; only their "<" is escaped.
      if (name == "style") end = html.find("</style>", end) - 1;
      check(end + 1 != std::string::npos);
    }
    i = end + 1;
  }
  check(open.empty());
  return 0;
}
