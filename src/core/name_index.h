#pragma once
// Names numbered in the order they are first seen, for the lookups of a whole plan: each
// link names two methods, and an output or a check looks both up. The names are copied side
// by side into a few large buffers and found through an open-addressing table of their
// hashes, so the lookups read a few contiguous pages, where views into the records and a
// node per name would reach all over the heap.

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tavlero {

class NameIndex {
 public:
  // expected: about how many names will come, so the table seldom grows.
  explicit NameIndex(size_t expected = 0);

  // The name's number: size() before the call when the name is new.
  int32_t add(std::string_view name);
  // The name's number, or -1 for a name never added.
  int32_t find(std::string_view name) const;

  size_t size() const { return names_.size(); }
  // The copy of a name, valid as long as this index.
  std::string_view name(int32_t number) const { return names_[static_cast<size_t>(number)]; }

 private:
  // A number with the low bits of its name's hash, so that a search compares a name only
  // where the hash matches; number -1 for an empty slot.
  struct Slot {
    uint32_t hash;
    int32_t number;
  };

  static uint32_t hashOf(std::string_view name);
  // The slot that holds the name, or the empty slot where it belongs.
  size_t slotOf(std::string_view name, uint32_t hash) const;
  void grow();
  std::string_view copy(std::string_view name);

  std::deque<std::string> buffers_;  // never grown once they hold names, so views stay
  std::vector<std::string_view> names_;
  std::vector<Slot> slots_;  // a power of two long
};

}  // namespace tavlero
