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
  slots_.assign(slots, {0, -1});
  names_.reserve(expected);
}

uint32_t NameIndex::hashOf(std::string_view name) {
  return static_cast<uint32_t>(std::hash<std::string_view>{}(name));
}

size_t NameIndex::slotOf(std::string_view name, uint32_t hash) const {
  const size_t mask = slots_.size() - 1;
  for (size_t slot = hash & mask;; slot = (slot + 1) & mask) {
    const Slot& at = slots_[slot];
    if (at.number < 0 || (at.hash == hash && names_[static_cast<size_t>(at.number)] == name)) return slot;
  }
}

int32_t NameIndex::find(std::string_view name) const {
  return slots_[slotOf(name, hashOf(name))].number;
}

int32_t NameIndex::add(std::string_view name) {
  const uint32_t hash = hashOf(name);
  size_t slot = slotOf(name, hash);
  if (slots_[slot].number >= 0) return slots_[slot].number;
  // At most half full, so that a search meets an empty slot soon.
  if (2 * (names_.size() + 1) > slots_.size()) {
    grow();
    slot = slotOf(name, hash);
  }
  const auto number = static_cast<int32_t>(names_.size());
  names_.push_back(copy(name));
  slots_[slot] = {hash, number};
  return number;
}

void NameIndex::grow() {
  std::vector<Slot> old(2 * slots_.size(), Slot{0, -1});
  old.swap(slots_);
  const size_t mask = slots_.size() - 1;
  for (const Slot& taken : old) {
    if (taken.number < 0) continue;
    size_t slot = taken.hash & mask;
    while (slots_[slot].number >= 0) slot = (slot + 1) & mask;
    slots_[slot] = taken;
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
