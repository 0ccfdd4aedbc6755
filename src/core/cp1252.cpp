#include "core/cp1252.h"

#include <cstdint>

namespace tavlero {

namespace {

// Unicode code points of the bytes 0x80..0x9F; 0 where Windows-1252 has no character.
constexpr char32_t kHigh[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

char fromCodePoint(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
  for (int i = 0; i < 32; ++i)
    if (kHigh[i] != 0 && kHigh[i] == cp) return static_cast<char>(0x80 + i);
  return '?';
}

}  // namespace

std::string cp1252ToUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  for (unsigned char c : text) {
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0xA0) {
      // The five undefined bytes pass through as the C1 controls of the same number,
      // so that no byte is lost on a round trip through Unicode.
      appendUtf8(out, kHigh[c - 0x80] ? kHigh[c - 0x80] : c);
    } else {
      appendUtf8(out, c);
    }
  }
  return out;
}

std::string utf8ToCp1252(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    auto c = static_cast<unsigned char>(text[i]);
    char32_t cp = 0;
    size_t extra = 0;
    if (c < 0x80) {
      cp = c;
    } else if ((c & 0xE0) == 0xC0) {
      cp = c & 0x1F;
      extra = 1;
    } else if ((c & 0xF0) == 0xE0) {
      cp = c & 0x0F;
      extra = 2;
    } else if ((c & 0xF8) == 0xF0) {
      cp = c & 0x07;
      extra = 3;
    } else {
      out += '?';
      ++i;
      continue;
    }
    bool valid = i + extra < text.size();
    for (size_t k = 1; valid && k <= extra; ++k) {
      auto next = static_cast<unsigned char>(text[i + k]);
      if ((next & 0xC0) != 0x80)
        valid = false;
      else
        cp = (cp << 6) | (next & 0x3F);
    }
    if (!valid) {
      out += '?';
      ++i;
      continue;
    }
    i += extra + 1;
    if (cp >= 0x80 && cp < 0xA0) {
      out += static_cast<char>(cp);  // the pass-through of undefined bytes above
    } else {
      out += fromCodePoint(cp);
    }
  }
  return out;
}

}  // namespace tavlero
