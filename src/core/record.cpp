#include "core/record.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace tavlero {

namespace {

struct TagSpan {
  size_t start;     // 0-based index of the first character behind "<key>" (as if found)
  size_t closePos;  // 0-based index of "</key>", npos when absent
  bool opened;      // whether "<key>" stands in the record at all
};

// Whether text holds key and then '>' from at on; the caller has looked at the room.
bool keyAt(const char* at, std::string_view key) {
  return at[key.size()] == '>' && std::memcmp(at, key.data(), key.size()) == 0;
}

// The search has no test that the opening tag was found: without it, start counts from
// position 0, exactly as the 1-based rule "openPos + length" does with openPos = 0.
TagSpan findTags(std::string_view record, std::string_view key) {
  // Both tags start with '<', so the first of each stands at one of the record's few '<':
  // one pass from '<' to '<' finds both, where two searches would compare at every '<'.
  constexpr size_t npos = std::string_view::npos;
  size_t openPos = npos;
  size_t closePos = npos;
  const char* const begin = record.data();
  const char* const end = begin + record.size();
  for (const char* at = begin; openPos == npos || closePos == npos; ++at) {
    at = static_cast<const char*>(std::memchr(at, '<', static_cast<size_t>(end - at)));
    if (!at) break;
    const size_t room = static_cast<size_t>(end - at) - 1;  // behind the '<'
    if (openPos == npos && room > key.size() && keyAt(at + 1, key)) openPos = static_cast<size_t>(at - begin);
    if (closePos == npos && room > key.size() + 1 && at[1] == '/' && keyAt(at + 2, key))
      closePos = static_cast<size_t>(at - begin);
  }
  const size_t openSize = key.size() + 2;
  return {openPos == npos ? openSize - 1 : openPos + openSize, closePos, openPos != npos};
}

constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

std::string formatFloat(double value, int precision) {
  if (std::isnan(value)) return " 0";
  if (std::isinf(value)) return value < 0 ? "-1.#INF" : " 1.#INF";
  std::string sign = (value < 0) ? "-" : " ";
  double magnitude = std::fabs(value);
  if (magnitude == 0) return " 0";
  // A whole number of no more digits than the precision comes out as its digits: most
  // numbers of a plan are.
  if (magnitude < kPowersOfTen[precision] && magnitude == std::floor(magnitude)) {
    char digits[24];
    char* last = std::to_chars(digits, digits + sizeof digits, static_cast<int64_t>(magnitude)).ptr;
    return sign.append(digits, last);
  }

  // d.dddddde+xx, as printf's %.*e writes it, without printf's cost: geometry records
  // write four numbers per cell on every redraw.
  char buffer[64];
  char* end =
      std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific, precision - 1)
          .ptr;
  std::string_view text(buffer, static_cast<size_t>(end - buffer));
  size_t ePos = text.find('e');
  int exponent = 0;
  std::from_chars(buffer + ePos + 2, end, exponent);
  if (text[ePos + 1] == '-') exponent = -exponent;
  std::string digits;
  for (size_t i = 0; i < ePos; ++i)
    if (text[i] != '.') digits += text[i];
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();

  if (exponent >= precision || exponent < -5) {
    std::string mantissa = digits.substr(0, 1);
    if (digits.size() > 1) mantissa += "." + digits.substr(1);
    char expText[16];
    std::snprintf(expText, sizeof expText, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return sign + mantissa + expText;
  }
  std::string result;
  if (exponent < 0) {
    result = "." + std::string(static_cast<size_t>(-exponent - 1), '0') + digits;
  } else {
    size_t intDigits = static_cast<size_t>(exponent) + 1;
    if (digits.size() <= intDigits) {
      result = digits + std::string(intDigits - digits.size(), '0');
    } else {
      result = digits.substr(0, intDigits) + "." + digits.substr(intDigits);
    }
  }
  return sign + result;
}

bool isSkipped(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

std::string_view fieldView(std::string_view record, std::string_view key) {
  if (record.empty()) return {};
  TagSpan span = findTags(record, key);
  if (span.closePos == std::string_view::npos) return {};
  if (span.closePos <= span.start) return {};
  return record.substr(span.start, span.closePos - span.start);
}

std::string getField(std::string_view record, std::string_view key) {
  return std::string(fieldView(record, key));
}

std::string setField(std::string_view record, std::string_view key, std::string_view value) {
  if (record.empty()) return {};
  TagSpan span = findTags(record, key);
  // A record without the field (a hand-edited file) stays as it was: the position-0 rule
  // would cut or grow it at every save.
  if (span.closePos == std::string_view::npos || !span.opened) return std::string(record);
  // The first start-1 characters (1-based rule), the value, then the record from the
  // closing tag on. When the closing tag stands before the opening one the head is cut
  // at the closing tag's start, as the 1-based arithmetic does.
  size_t head = std::min(span.start, record.size());
  std::string result;
  result.reserve(head + value.size() + record.size() - span.closePos);
  result.append(record.substr(0, head));
  result.append(value);
  result.append(record.substr(span.closePos));
  return result;
}

bool fieldHolds(std::string_view record, std::string_view key, std::string_view value) {
  if (record.empty()) return true;
  TagSpan span = findTags(record, key);
  if (span.closePos == std::string_view::npos || !span.opened) return true;
  return span.closePos > span.start && record.substr(span.start, span.closePos - span.start) == value;
}

std::string numberToText(int16_t value) {
  return numberToText(static_cast<int32_t>(value));
}

std::string numberToText(int32_t value) {
  std::string digits = std::to_string(static_cast<int64_t>(value));
  return value < 0 ? digits : " " + digits;
}

std::string numberToText(float value) {
  return formatFloat(static_cast<double>(value), 7);
}

std::string numberToText(double value) {
  return formatFloat(value, 15);
}

double textToNumber(std::string_view text) {
  std::string clean;
  size_t i = 0;
  auto skip = [&] {
    while (i < text.size() && isSkipped(text[i])) ++i;
  };
  skip();
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) clean += text[i++];
  bool sawDigit = false;
  bool sawPoint = false;
  // A whole number of up to 15 digits is exact as a double: most numbers of a plan are.
  uint64_t whole = 0;
  size_t wholeDigits = 0;
  bool scaled = false;  // by an exponent
  for (;;) {
    skip();
    if (i >= text.size()) break;
    char c = text[i];
    if (isDigit(c)) {
      clean += c;
      sawDigit = true;
      if (!sawPoint) {
        whole = whole * 10 + static_cast<uint64_t>(c - '0');
        ++wholeDigits;
      }
    } else if (c == '.' && !sawPoint) {
      clean += c;
      sawPoint = true;
    } else {
      break;
    }
    ++i;
  }
  if (!sawDigit) return 0;
  skip();
  if (i < text.size() && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
    std::string exponent = "E";
    ++i;
    skip();
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) exponent += text[i++];
    bool expDigit = false;
    std::string expDigits;
    for (;;) {
      skip();
      if (i >= text.size() || !isDigit(text[i])) break;
      // Leading zeros carry no value; six significant digits already overflow any double,
      // and more would only slow strtod down.
      if ((text[i] != '0' || !expDigits.empty()) && expDigits.size() < 6) expDigits += text[i];
      expDigit = true;
      ++i;
    }
    if (expDigit) clean += exponent + (expDigits.empty() ? "0" : expDigits);
    scaled = expDigit;
  }
  if (!sawPoint && !scaled && wholeDigits <= 15) {
    const auto value = static_cast<double>(whole);
    return clean.front() == '-' ? -value : value;
  }
  // from_chars rounds as strtod does, faster and whatever the locale; strtod still takes a
  // result out of from_chars' range.
  double result = 0;
  const char* begin = clean.data() + (clean.front() == '+' ? 1 : 0);
  const char* end = clean.data() + clean.size();
  if (auto [ptr, error] = std::from_chars(begin, end, result); error != std::errc() || ptr != end)
    result = std::strtod(clean.c_str(), nullptr);
  if (std::isinf(result))
    return result > 0 ? std::numeric_limits<double>::max() : -std::numeric_limits<double>::max();
  return result;
}

float toSingle(double value) {
  if (std::isnan(value)) return 0;
  constexpr double maxFloat = std::numeric_limits<float>::max();
  if (value > maxFloat) return std::numeric_limits<float>::max();
  if (value < -maxFloat) return -std::numeric_limits<float>::max();
  return static_cast<float>(value);
}

int32_t toLong(double value) {
  if (std::isnan(value)) return 0;
  double rounded = std::nearbyint(value);
  if (rounded >= 2147483647.0) return std::numeric_limits<int32_t>::max();
  if (rounded <= -2147483648.0) return std::numeric_limits<int32_t>::min();
  return static_cast<int32_t>(rounded);
}

int16_t toInteger(double value) {
  if (std::isnan(value)) return 0;
  double rounded = std::nearbyint(value);
  if (rounded >= 32767.0) return std::numeric_limits<int16_t>::max();
  if (rounded <= -32768.0) return std::numeric_limits<int16_t>::min();
  return static_cast<int16_t>(rounded);
}

}  // namespace tavlero
