#include "platform/display_list.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string_view>

namespace tavlero {

void DisplayList::clear() {
  ops_.clear();
  replaced_.clear();
  lastPrint_.clear();
  texts_.clear();
  fonts_.clear();
  grid_.clear();
  huge_.clear();
  indexed_ = 0;
}

void DisplayList::add(const DrawOp& op) {
  const auto index = static_cast<uint32_t>(ops_.size());
  ops_.push_back(op);
  replaced_.push_back(0);
  if (op.kind != DrawKind::Text) return;
  // Keyed by a hash of place, font and text; a print whose hash meets a different one
  // only takes the key over, which at worst leaves an earlier print in place.
  const FontSpec& font = fonts_[op.font];
  size_t key = std::hash<std::string_view>()(texts_[op.text]);
  for (size_t part : {std::hash<float>()(op.x1), std::hash<float>()(op.y1), std::hash<float>()(font.Size),
                      std::hash<std::string_view>()(font.Name), size_t{font.Bold}})
    key = key * 1000003 ^ part;
  auto [earlier, isNew] = lastPrint_.try_emplace(key, index);
  if (isNew) return;
  const DrawOp& before = ops_[earlier->second];
  if (before.x1 == op.x1 && before.y1 == op.y1 && fonts_[before.font] == font &&
      texts_[before.text] == texts_[op.text])
    replaced_[earlier->second] = 1;
  earlier->second = index;
}

uint32_t DisplayList::addText(std::string text) {
  texts_.push_back(std::move(text));
  return static_cast<uint32_t>(texts_.size() - 1);
}

uint32_t DisplayList::addFont(const FontSpec& font) {
  // Cells switch between two fonts, so a short look back finds nearly every font.
  size_t from = fonts_.size() > 4 ? fonts_.size() - 4 : 0;
  for (size_t i = fonts_.size(); i-- > from;)
    if (fonts_[i] == font) return static_cast<uint32_t>(i);
  fonts_.push_back(font);
  return static_cast<uint32_t>(fonts_.size() - 1);
}

BoardRect DisplayList::bounds(const DrawOp& op) {
  BoardRect r{};
  switch (op.kind) {
    case DrawKind::Line:
    case DrawKind::Box:
    case DrawKind::Text:
      r = {std::min(op.x1, op.x2), std::min(op.y1, op.y2), std::max(op.x1, op.x2), std::max(op.y1, op.y2)};
      break;
    case DrawKind::Circle:
      r = {op.x1 - op.x2, op.y1 - op.x2, op.x1 + op.x2, op.y1 + op.x2};
      break;
  }
  // A pen is a few pixels wide; one board unit is at least about 4 pixels, so a margin
  // of two units covers any pen and the anti-aliasing round it.
  constexpr float margin = 2.0f;
  return {r.left - margin, r.top - margin, r.right + margin, r.bottom + margin};
}

void DisplayList::index(uint32_t opIndex) const {
  BoardRect r = bounds(ops_[opIndex]);
  if (!(std::isfinite(r.left) && std::isfinite(r.top) && std::isfinite(r.right) && std::isfinite(r.bottom))) {
    huge_.push_back(opIndex);
    return;
  }
  double bx0 = std::floor(r.left / kBucket), bx1 = std::floor(r.right / kBucket);
  double by0 = std::floor(r.top / kBucket), by1 = std::floor(r.bottom / kBucket);
  if ((bx1 - bx0 + 1) * (by1 - by0 + 1) > 64 || std::fabs(bx0) > 1e9 || std::fabs(by0) > 1e9 ||
      std::fabs(bx1) > 1e9 || std::fabs(by1) > 1e9) {
    huge_.push_back(opIndex);
    return;
  }
  for (auto bx = static_cast<int32_t>(bx0); bx <= static_cast<int32_t>(bx1); ++bx)
    for (auto by = static_cast<int32_t>(by0); by <= static_cast<int32_t>(by1); ++by)
      grid_[key(bx, by)].push_back(opIndex);
}

void DisplayList::rebuildIndexIfNeeded() const {
  for (; indexed_ < ops_.size(); ++indexed_) index(static_cast<uint32_t>(indexed_));
}

std::vector<uint32_t> DisplayList::query(const BoardRect& area) const {
  rebuildIndexIfNeeded();
  std::vector<uint32_t> found;
  auto meets = [&](uint32_t i) {
    if (replaced_[i]) return false;
    BoardRect r = bounds(ops_[i]);
    return r.right >= area.left && r.left <= area.right && r.bottom >= area.top && r.top <= area.bottom;
  };
  double bx0 = std::floor(area.left / kBucket), bx1 = std::floor(area.right / kBucket);
  double by0 = std::floor(area.top / kBucket), by1 = std::floor(area.bottom / kBucket);
  double buckets = (bx1 - bx0 + 1) * (by1 - by0 + 1);
  if (!(buckets <= static_cast<double>(grid_.size()) && buckets < 1e6)) {
    // The area covers more buckets than exist: walking the operations is cheaper.
    for (uint32_t i = 0; i < ops_.size(); ++i)
      if (meets(i)) found.push_back(i);
    return found;
  }
  for (auto bx = static_cast<int32_t>(bx0); bx <= static_cast<int32_t>(bx1); ++bx) {
    for (auto by = static_cast<int32_t>(by0); by <= static_cast<int32_t>(by1); ++by) {
      auto it = grid_.find(key(bx, by));
      if (it == grid_.end()) continue;
      for (uint32_t i : it->second)
        if (meets(i)) found.push_back(i);
    }
  }
  for (uint32_t i : huge_)
    if (meets(i)) found.push_back(i);
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

}  // namespace tavlero
