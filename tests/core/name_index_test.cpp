#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "core/name_index.h"

namespace tavlero {
namespace {

// Numbers in first-seen order that stay right through the table's growth, with the empty
// name and one larger than a buffer of copies among them.
TEST(NameIndex, NumbersEachNameOnceInTheOrderFirstSeen) {
  NameIndex index;
  std::vector<std::string> names = {"", std::string(300000, 'x')};
  for (int i = 0; i < 5000; ++i) names.push_back("m" + std::to_string(i % 3000) + "()");
  std::vector<int32_t> numbers;
  for (const std::string& name : names) numbers.push_back(index.add(name));
  size_t wrong = 0;
  for (size_t i = 0; i < names.size(); ++i) {
    const size_t first = i < 3002 ? i : i - 3000;
    wrong += numbers[i] != static_cast<int32_t>(first) || index.find(names[i]) != numbers[i] ||
             index.name(numbers[i]) != names[i];
  }
  EXPECT_EQ(std::tuple(wrong, index.size(), index.find("m3000()")), std::tuple(size_t{0}, size_t{3002}, -1));
}

}  // namespace
}  // namespace tavlero
