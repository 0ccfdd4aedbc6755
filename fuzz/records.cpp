// Any record text, key and value: the tag search, the field replacement and the number
// rules must never fail, and what they give must be consistent with each other.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/cp1252.h"
#include "core/record.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string input(reinterpret_cast<const char*>(data), size);
  size_t cut1 = input.find('\x01');
  size_t cut2 = cut1 == std::string::npos ? std::string::npos : input.find('\x01', cut1 + 1);
  std::string record = input.substr(0, cut1);
  std::string key = cut1 == std::string::npos ? "a" : input.substr(cut1 + 1, cut2 - cut1 - 1);
  std::string value = cut2 == std::string::npos ? "v" : input.substr(cut2 + 1);

  std::string field = tavlero::getField(record, key);
  // The one-pass tag search finds what two plain searches find.
  size_t open = record.find("<" + key + ">");
  size_t close = record.find("</" + key + ">");
  size_t start = open == std::string::npos ? key.size() + 1 : open + key.size() + 2;
  if (field != (close != std::string::npos && close > start ? record.substr(start, close - start) : ""))
    std::abort();
  std::string changed = tavlero::setField(record, key, value);
  // With its opening tag present, a field reads back as it was set, unless the value or
  // the key bring tag characters of their own.
  bool plain = key.find_first_of("<>") == std::string::npos && value.find_first_of("<>") == std::string::npos;
  if (plain && !field.empty() && record.find("<" + key + ">") != std::string::npos &&
      tavlero::getField(changed, key) != value)
    std::abort();

  double number = tavlero::textToNumber(record);
  tavlero::numberToText(tavlero::toSingle(number));
  tavlero::numberToText(number);
  tavlero::numberToText(tavlero::toLong(number));
  tavlero::numberToText(tavlero::toInteger(number));
  if (tavlero::utf8ToCp1252(tavlero::cp1252ToUtf8(record)) != record) std::abort();
  return 0;
}
