#pragma once
// Texts copied side by side into a few large buffers and handed back as views. Lookups
// that hash and compare names then read a few contiguous pages, where views into the
// records would reach into records strewn over the whole heap.

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>

namespace tavlero {

class PackedTexts {
 public:
  // A view of the copy, valid as long as this object: a buffer is never grown once it
  // holds texts, a new one is started instead.
  std::string_view add(std::string_view text) {
    if (buffers_.empty() || buffers_.back().capacity() - buffers_.back().size() < text.size())
      buffers_.emplace_back().reserve(std::max(kBufferSize, text.size()));
    std::string& buffer = buffers_.back();
    buffer.append(text);
    return std::string_view(buffer).substr(buffer.size() - text.size());
  }

 private:
  static constexpr size_t kBufferSize = size_t{1} << 18;
  std::deque<std::string> buffers_;
};

}  // namespace tavlero
