#include "core/project_store.h"

#include "core/record.h"

#include <algorithm>

namespace tavlero {

namespace {
const std::string kEmpty;
}  // namespace

void StringList::changed(Change change) {
  // A redraw follows a change or two; one that sees more compares, so few are kept.
  constexpr size_t kKept = 64;
  if (log_.size() == kKept) {
    knownFrom_ = log_[kKept / 2 - 1].first;
    log_.erase(log_.begin(), log_.begin() + kKept / 2);
  }
  log_.emplace_back(++revision_, change);
}

void StringList::changedWholly() {
  knownFrom_ = ++revision_;
  log_.clear();
}

bool StringList::changesSince(uint64_t revision, std::vector<Change>& changes) const {
  changes.clear();
  if (revision < knownFrom_ || revision > revision_) return false;
  for (const auto& [made, change] : log_)
    if (made > revision) changes.push_back(change);
  return true;
}

const std::string& StringList::List(int16_t index) const {
  if (index < 0 || index >= ListCount()) return kEmpty;
  return items_[static_cast<size_t>(index)];
}

void StringList::setList(int16_t index, std::string_view text) {
  if (index < 0 || index >= ListCount()) return;
  std::string& item = items_[static_cast<size_t>(index)];
  if (item == text) return;
  item.assign(text);
  changed({Change::Kind::Written, index});
}

bool StringList::AddItem(std::string text) {
  if (items_.size() >= static_cast<size_t>(kMaxCount)) return false;
  items_.push_back(std::move(text));
  changed({Change::Kind::Added, static_cast<int16_t>(items_.size() - 1)});
  return true;
}

void StringList::RemoveItem(int16_t index) {
  if (index < 0 || index >= ListCount()) return;
  items_.erase(items_.begin() + index);
  changed({Change::Kind::Removed, index});
}

void StringList::RemoveItems(const std::vector<int16_t>& ascendingIndices) {
  size_t next = 0;
  size_t kept = 0;
  for (size_t i = 0; i < items_.size(); ++i) {
    if (next < ascendingIndices.size() && static_cast<size_t>(ascendingIndices[next]) == i) {
      ++next;
      continue;
    }
    if (kept != i) items_[kept] = std::move(items_[i]);
    ++kept;
  }
  items_.resize(kept);
  changedWholly();
}

StringList& StringList::operator=(const StringList& other) {
  if (this != &other) {
    items_ = other.items_;
    changedWholly();
  }
  return *this;
}

void StringList::Clear() {
  items_.clear();
  changedWholly();
}

ProjectStore::ProjectStore() : longDescriptions_(kLongDescriptionSlots) {}

const std::string& ProjectStore::getLongDescription(int16_t index) const {
  if (index < 0 || index >= kLongDescriptionSlots) return kEmpty;
  return longDescriptions_[static_cast<size_t>(index)];
}

void ProjectStore::setLongDescription(int16_t index, std::string text) {
  if (index < 0 || index >= kLongDescriptionSlots) return;
  longDescriptions_[static_cast<size_t>(index)] = std::move(text);
}

void ProjectStore::removeLongDescription(int16_t index) {
  if (index < 0) return;
  // Slot i takes slot i + 1 for i up to and with the new count; the last source keeps its
  // text. The table's own last slot has no successor and stays as it is.
  int last = std::min<int>(itemList.ListCount(), kLongDescriptionSlots - 2);
  for (int i = index; i < last; ++i)
    longDescriptions_[static_cast<size_t>(i)] = std::move(longDescriptions_[static_cast<size_t>(i) + 1]);
  if (index <= last)
    longDescriptions_[static_cast<size_t>(last)] = longDescriptions_[static_cast<size_t>(last) + 1];
}

void ProjectStore::clearLongDescriptions() {
  for (auto& text : longDescriptions_) text.clear();
}

std::string ProjectStore::getField(std::string_view record, std::string_view key) const {
  if (record.empty()) return {};
  if (key == "longDescription") {
    const auto& items = itemList.items();
    for (size_t i = 0; i < items.size(); ++i)
      if (items[i] == record) return getLongDescription(static_cast<int16_t>(i));
  }
  return tavlero::getField(record, key);
}

}  // namespace tavlero
