#include "core/name_index.h"

#include <algorithm>
#include <functional>

namespace tavlero {

namespace {
constexpr size_t kBufferSize = size_t{1} << 18;
}  // namespace

NameIndex::NameIndex(size_t expected) {
  size_t slots = 16;
  while (slots < 2 * expected) slots *= 2;
  slots_.assign(slots, -1);
  names_.reserve(expected);
  hashes_.reserve(expected);
}

size_t NameIndex::slotOf(std::string_view name, size_t hash) const {
  const size_t mask = slots_.size() - 1;
  for (size_t slot = hash & mask;; slot = (slot + 1) & mask) {
    const int32_t number = slots_[slot];
    if (number < 0) return slot;
    const auto at = static_cast<size_t>(number);
    if (hashes_[at] == hash && names_[at] == name) return slot;
  }
}

int32_t NameIndex::find(std::string_view name) const {
  return slots_[slotOf(name, std::hash<std::string_view>{}(name))];
}

int32_t NameIndex::add(std::string_view name) {
  const size_t hash = std::hash<std::string_view>{}(name);
  size_t slot = slotOf(name, hash);
  if (slots_[slot] >= 0) return slots_[slot];
  // At most half full, so that a search meets an empty slot soon.
  if (2 * (names_.size() + 1) > slots_.size()) {
    grow();
    slot = slotOf(name, hash);
  }
  const auto number = static_cast<int32_t>(names_.size());
  names_.push_back(copy(name));
  hashes_.push_back(hash);
  slots_[slot] = number;
  return number;
}

void NameIndex::grow() {
  slots_.assign(2 * slots_.size(), -1);
  const size_t mask = slots_.size() - 1;
  for (size_t at = 0; at < names_.size(); ++at) {
    size_t slot = hashes_[at] & mask;
    while (slots_[slot] >= 0) slot = (slot + 1) & mask;
    slots_[slot] = static_cast<int32_t>(at);
  }
}

std::string_view NameIndex::copy(std::string_view name) {
  if (buffers_.empty() || buffers_.back().capacity() - buffers_.back().size() < name.size())
    buffers_.emplace_back().reserve(std::max(kBufferSize, name.size()));
  std::string& buffer = buffers_.back();
  buffer.append(name);
  return std::string_view(buffer).substr(buffer.size() - name.size());
}

}  // namespace tavlero
