#include "platform/display_list.h"

#include <algorithm>
#include <cmath>

namespace tavlero {

void DisplayList::clear() {
  ops_.clear();
  texts_.clear();
  printed_.clear();
  shared_.clear();
  fonts_.clear();
  grid_.clear();
  huge_.clear();
  again_.clear();
  indexed_ = 0;
}

void DisplayList::add(const DrawOp& op) {
  ops_.push_back(op);
}

uint32_t DisplayList::addText(std::string text) {
  texts_.push_back(&printed_.emplace_back(std::move(text)));
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

std::shared_ptr<const DrawnOps> DisplayList::copy(size_t from, size_t to) const {
  auto drawn = std::make_shared<DrawnOps>();
  drawn->ops.assign(ops_.begin() + static_cast<ptrdiff_t>(from), ops_.begin() + static_cast<ptrdiff_t>(to));
  if (!drawn->ops.empty()) drawn->bounds = bounds(drawn->ops.front());
  for (DrawOp& op : drawn->ops) {
    drawn->bounds = unite(drawn->bounds, bounds(op));
    if (op.kind != DrawKind::Text) continue;
    drawn->texts.push_back(*texts_[op.text]);
    op.text = static_cast<uint32_t>(drawn->texts.size() - 1);
    const FontSpec& font = fonts_[op.font];
    auto known = std::find(drawn->fonts.begin(), drawn->fonts.end(), font);
    op.font = static_cast<uint32_t>(known - drawn->fonts.begin());
    if (known == drawn->fonts.end()) drawn->fonts.push_back(font);
  }
  return drawn;
}

void DisplayList::append(std::shared_ptr<const DrawnOps> drawn) {
  // Its fonts are few (a cell has two), so each is looked up once, not once a text.
  constexpr size_t kFew = 4;
  uint32_t fonts[kFew];
  for (size_t i = 0; i < drawn->fonts.size() && i < kFew; ++i) fonts[i] = addFont(drawn->fonts[i]);
  const auto firstText = static_cast<uint32_t>(texts_.size());
  for (const std::string& text : drawn->texts) texts_.push_back(&text);
  for (DrawOp op : drawn->ops) {
    if (op.kind == DrawKind::Text) {
      op.font = op.font < kFew ? fonts[op.font] : addFont(drawn->fonts[op.font]);
      op.text += firstText;
    }
    ops_.push_back(op);
  }
  shared_.push_back(std::move(drawn));
}

void DisplayList::repeat(size_t from, size_t to) {
  ops_.reserve(ops_.size() + (to - from));
  for (size_t i = from; i < to; ++i) ops_.push_back(ops_[i]);
}

BoardRect DisplayList::unite(const BoardRect& a, const BoardRect& b) {
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
          std::max(a.bottom, b.bottom)};
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
  again_.resize(ops_.size(), 0);
  for (; indexed_ < ops_.size(); ++indexed_) index(static_cast<uint32_t>(indexed_));
}

bool DisplayList::printedAgain(uint32_t opIndex) const {
  const DrawOp& op = ops_[opIndex];
  if (op.kind != DrawKind::Text) return false;
  // Once printed again, always: only that answer is kept, a later print may change a no.
  if (again_[opIndex]) return true;
  auto same = [&](uint32_t later) {
    const DrawOp& other = ops_[later];
    return later > opIndex && other.kind == DrawKind::Text && other.x1 == op.x1 && other.y1 == op.y1 &&
           (other.font == op.font || fonts_[other.font] == fonts_[op.font]) &&
           (other.text == op.text || *texts_[other.text] == *texts_[op.text]);
  };
  // A print at the same place has bounds that hold its top left corner, so it sits in the
  // corner's bucket, or among the operations too large to bucket.
  bool found = std::any_of(huge_.begin(), huge_.end(), same);
  double bx = std::floor(op.x1 / kBucket), by = std::floor(op.y1 / kBucket);
  if (!found && std::fabs(bx) <= 1e9 && std::fabs(by) <= 1e9) {
    auto bucket = grid_.find(key(static_cast<int32_t>(bx), static_cast<int32_t>(by)));
    if (bucket != grid_.end()) found = std::any_of(bucket->second.begin(), bucket->second.end(), same);
  }
  again_[opIndex] = found;
  return found;
}

std::vector<uint32_t> DisplayList::query(const BoardRect& area) const {
  rebuildIndexIfNeeded();
  std::vector<uint32_t> found;
  auto meets = [&](uint32_t i) {
    BoardRect r = bounds(ops_[i]);
    return r.right >= area.left && r.left <= area.right && r.bottom >= area.top && r.top <= area.bottom &&
           !printedAgain(i);
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
