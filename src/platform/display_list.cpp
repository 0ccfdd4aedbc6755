#include "platform/display_list.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

namespace tavlero {

void DisplayList::clear() {
  // The next picture takes over this one's index for what they share.
  if (indexed_ > 0) {
    for (; indexed_ < ops_.size(); ++indexed_) loose_.push_back(static_cast<uint32_t>(indexed_));
    // As many as the zoom levels whose drawings the board keeps.
    constexpr size_t kKept = 3;
    if (last_.size() == kKept) last_.pop_back();
    last_.insert(last_.begin(), {std::move(recipe_), ops_.size(), std::move(grid_), std::move(huge_),
                                 std::move(loose_), std::move(again_), std::move(kept_)});
  }
  ops_.clear();
  texts_.clear();
  printed_.clear();
  kept_.clear();
  fonts_.clear();
  fontsOf_ = nullptr;
  keptFonts_.clear();
  grid_ = {};
  huge_.clear();
  loose_.clear();
  again_.clear();
  indexed_ = 0;
  recipe_.clear();
  fresh_ = false;
}

void DisplayList::add(const DrawOp& op) {
  ops_.push_back(op);
  fresh_ = true;
}

std::string_view TextStore::hold(std::string_view text) {
  if (text.size() > room_) {
    constexpr size_t kBlock = 64 * 1024;
    room_ = std::max(kBlock, text.size());
    next_ = blocks_.emplace_back(std::make_unique_for_overwrite<char[]>(room_)).get();
  }
  char* at = next_;
  std::copy(text.begin(), text.end(), at);
  next_ += text.size();
  room_ -= text.size();
  return {at, text.size()};
}

void TextStore::clear() {
  blocks_.clear();
  next_ = nullptr;
  room_ = 0;
}

uint32_t DisplayList::addText(std::string_view text) {
  texts_.push_back(printed_.hold(text));
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

namespace {

// Operations kept at the end of kept with their texts and fonts, as textOf and fontOf give them.
template <typename TextOf, typename FontOf>
KeptRange keepOps(const DrawOp* begin, const DrawOp* end, TextOf textOf, FontOf fontOf, KeptDrawings& kept) {
  KeptRange range{static_cast<uint32_t>(kept.ops.size()), static_cast<uint32_t>(kept.ops.size())};
  if (begin != end) range.bounds = DisplayList::bounds(*begin);
  for (const DrawOp* it = begin; it != end; ++it) {
    DrawOp op = *it;
    range.bounds = DisplayList::unite(range.bounds, DisplayList::bounds(op));
    if (op.kind == DrawKind::Text) {
      kept.texts.push_back(kept.chars.hold(textOf(op.text)));
      op.text = static_cast<uint32_t>(kept.texts.size() - 1);
      const FontSpec& font = fontOf(op.font);
      auto known = std::find(kept.fonts.begin(), kept.fonts.end(), font);
      op.font = static_cast<uint32_t>(known - kept.fonts.begin());
      if (known == kept.fonts.end()) kept.fonts.push_back(font);
    }
    kept.ops.push_back(op);
  }
  range.to = static_cast<uint32_t>(kept.ops.size());
  return range;
}

}  // namespace

KeptRange DisplayList::keep(size_t from, size_t to, KeptDrawings& kept) const {
  return keepOps(
      ops_.data() + from, ops_.data() + to, [&](uint32_t text) { return texts_[text]; },
      [&](uint32_t font) -> const FontSpec& { return fonts_[font]; }, kept);
}

KeptRange DisplayList::keepAgain(const KeptDrawings& from, const KeptRange& range, KeptDrawings& to) {
  return keepOps(
      from.ops.data() + range.from, from.ops.data() + range.to,
      [&](uint32_t text) { return from.texts[text]; },
      [&](uint32_t font) -> const FontSpec& { return from.fonts[font]; }, to);
}

uint32_t DisplayList::fontOf(const KeptDrawings& kept, uint32_t index) {
  if (fontsOf_ != &kept) {
    fontsOf_ = &kept;
    keptFonts_.clear();
  }
  if (index >= keptFonts_.size()) keptFonts_.resize(index + 1, UINT32_MAX);
  if (keptFonts_[index] == UINT32_MAX) keptFonts_[index] = addFont(kept.fonts[index]);
  return keptFonts_[index];
}

void DisplayList::madeBy(const void* source, uint32_t from, uint32_t to) {
  const auto at = static_cast<uint32_t>(ops_.size() - (to - from));
  Piece* back = recipe_.empty() ? nullptr : &recipe_.back();
  if (back && back->source == source && back->to == from && back->at + (back->to - back->from) == at)
    back->to = to;
  else
    recipe_.push_back({source, from, to, at});
}

void DisplayList::append(const std::shared_ptr<KeptDrawings>& kept, const KeptRange& range) {
  if (std::find(kept_.begin(), kept_.end(), kept) == kept_.end()) kept_.push_back(kept);
  const KeptDrawings& source = *kept;
  for (uint32_t i = range.from; i < range.to; ++i) {
    DrawOp op = source.ops[i];
    if (op.kind == DrawKind::Text) {
      texts_.push_back(source.texts[op.text]);
      op.text = static_cast<uint32_t>(texts_.size() - 1);
      op.font = fontOf(source, op.font);
    }
    ops_.push_back(op);
  }
  madeBy(&source, range.from, range.to);
}

void DisplayList::repeat(size_t from, size_t to) {
  ops_.reserve(ops_.size() + (to - from));
  for (size_t i = from; i < to; ++i) ops_.push_back(ops_[i]);
  madeBy(this, static_cast<uint32_t>(from), static_cast<uint32_t>(to));
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

namespace {

bool finite(const BoardRect& r) {
  return std::isfinite(r.left) && std::isfinite(r.top) && std::isfinite(r.right) && std::isfinite(r.bottom);
}

constexpr int64_t kMostBucketsPerOp = 64;

}  // namespace

bool DisplayList::spanOf(const BoardRect& r, Span& span) const {
  const Grid& g = grid_;
  if (std::isnan(r.left) || std::isnan(r.top) || std::isnan(r.right) || std::isnan(r.bottom)) return false;
  // Monotonic in v, so the buckets of an operation hold every point of its bounds. The
  // floor by hand: the library's is a call, and this runs twice for every operation.
  auto bucket = [&](float v, double origin, int64_t count) {
    double c = std::clamp(static_cast<double>(v) * g.inverse - origin, -1.0, static_cast<double>(count));
    auto whole = static_cast<int64_t>(c);
    return static_cast<double>(whole) > c ? whole - 1 : whole;
  };
  span = {std::max<int64_t>(bucket(r.left, g.x0, g.columns), 0),
          std::max<int64_t>(bucket(r.top, g.y0, g.rows), 0),
          std::min(bucket(r.right, g.x0, g.columns), g.columns - 1),
          std::min(bucket(r.bottom, g.y0, g.rows), g.rows - 1)};
  return span.x0 <= span.x1 && span.y0 <= span.y1;
}

void DisplayList::buildGrid() const {
  grid_ = {};
  huge_.clear();
  loose_.clear();
  double left = INFINITY, top = INFINITY, right = -INFINITY, bottom = -INFINITY;
  for (const DrawOp& op : ops_) {
    BoardRect r = bounds(op);
    if (!finite(r)) continue;
    left = std::min(left, double(r.left)), top = std::min(top, double(r.top));
    right = std::max(right, double(r.right)), bottom = std::max(bottom, double(r.bottom));
  }
  Grid& g = grid_;
  if (left <= right) {
    const double budget = std::max(4096.0, 4.0 * static_cast<double>(ops_.size()));
    double size = 64;
    while (((right - left) / size + 2) * ((bottom - top) / size + 2) > budget) size *= 2;
    g.inverse = 1 / size;  // exact: a power of two
    g.x0 = std::floor(left * g.inverse), g.y0 = std::floor(top * g.inverse);
    g.columns = static_cast<int64_t>(std::floor(right * g.inverse) - g.x0) + 1;
    g.rows = static_cast<int64_t>(std::floor(bottom * g.inverse) - g.y0) + 1;
  }
  g.starts.assign(static_cast<size_t>(g.columns * g.rows) + 1, 0);
  // Count into each bucket, then place, from spans worked out once.
  std::vector<Span> spans(ops_.size());
  for (uint32_t i = 0; i < ops_.size(); ++i) {
    Span& span = spans[i];
    BoardRect r = bounds(ops_[i]);
    if (!finite(r) || !spanOf(r, span) ||
        (span.x1 - span.x0 + 1) * (span.y1 - span.y0 + 1) > kMostBucketsPerOp) {
      huge_.push_back(i);
      span = {0, 0, -1, -1};
      continue;
    }
    for (int64_t y = span.y0; y <= span.y1; ++y)
      for (int64_t x = span.x0; x <= span.x1; ++x) ++g.starts[static_cast<size_t>(y * g.columns + x) + 1];
  }
  for (size_t b = 1; b < g.starts.size(); ++b) g.starts[b] += g.starts[b - 1];
  g.items.resize(g.starts.back());
  std::vector<uint32_t> next(g.starts.begin(), g.starts.end() - 1);
  for (uint32_t i = 0; i < ops_.size(); ++i)
    for (int64_t y = spans[i].y0; y <= spans[i].y1; ++y)
      for (int64_t x = spans[i].x0; x <= spans[i].x1; ++x)
        g.items[next[static_cast<size_t>(y * g.columns + x)]++] = i;
  indexed_ = ops_.size();
}

void DisplayList::takeOverLastIndex() const {
  // The same picture made again takes its index whole; another maps the latest that took
  // from the same keeper, and a picture of another zoom level leaves them all for later.
  auto same = std::find_if(last_.begin(), last_.end(), [&](const Indexed& picture) {
    return !fresh_ && picture.size == ops_.size() && picture.recipe == recipe_;
  });
  const bool unchanged = same != last_.end();
  auto taken = same;
  if (!unchanged)
    taken = std::find_if(last_.begin(), last_.end(), [&](const Indexed& picture) {
      return std::any_of(recipe_.begin(), recipe_.end(), [&](const Piece& piece) {
        return piece.source != this &&
               std::any_of(picture.recipe.begin(), picture.recipe.end(),
                           [&](const Piece& was) { return was.source == piece.source; });
      });
    });
  if (taken == last_.end()) return;
  Indexed last = std::move(*taken);
  last_.erase(taken);
  if (unchanged) {
    grid_ = std::move(last.grid);
    huge_ = std::move(last.huge);
    loose_ = std::move(last.loose);
    again_ = std::move(last.again);
    indexed_ = ops_.size();
    return;
  }
  // Which operation of the last picture each of this one's is, one to one.
  constexpr uint32_t kNone = UINT32_MAX;
  std::vector<uint32_t> toNew(last.size, kNone);
  std::vector<uint32_t> fromLast(ops_.size(), kNone);
  auto pair = [&](uint32_t lastAt, uint32_t newAt, uint32_t count) {
    for (uint32_t k = 0; k < count; ++k) {
      if (toNew[lastAt + k] != kNone || fromLast[newAt + k] != kNone) continue;
      toNew[lastAt + k] = newAt + k;
      fromLast[newAt + k] = lastAt + k;
    }
  };
  std::vector<Piece> kept, repeats;
  for (const Piece& piece : last.recipe) (piece.source == this ? repeats : kept).push_back(piece);
  auto before = [](const Piece& a, const Piece& b) {
    return std::less<const void*>()(a.source, b.source) || (a.source == b.source && a.from < b.from);
  };
  std::sort(kept.begin(), kept.end(), before);
  for (const Piece& piece : recipe_) {
    if (piece.source == this) {
      // A repeat's copy is the last picture's copy of the same operation.
      for (uint32_t k = 0; k < piece.to - piece.from; ++k) {
        const uint32_t was = fromLast[piece.from + k];
        for (const Piece& r : repeats)
          if (was != kNone && r.from <= was && was < r.to) pair(r.at + (was - r.from), piece.at + k, 1);
      }
      continue;
    }
    // The last picture's pieces of the same keeper whose ranges meet this one's.
    auto it = std::lower_bound(kept.begin(), kept.end(), Piece{piece.source, piece.from, 0, 0}, before);
    if (it != kept.begin() && std::prev(it)->source == piece.source) --it;
    for (; it != kept.end() && it->source == piece.source && it->from < piece.to; ++it) {
      const uint32_t from = std::max(piece.from, it->from), to = std::min(piece.to, it->to);
      if (from < to) pair(it->at + (from - it->from), piece.at + (from - piece.from), to - from);
    }
  }
  // The last index with each operation renamed, less those this picture does not hold.
  grid_ = std::move(last.grid);
  Grid& g = grid_;
  uint32_t begin = 0, write = 0;
  for (size_t b = 0; b + 1 < g.starts.size(); ++b) {
    const uint32_t end = g.starts[b + 1];
    g.starts[b] = write;
    const uint32_t first = write;
    bool ascending = true;
    for (uint32_t k = begin; k < end; ++k) {
      const uint32_t now = toNew[g.items[k]];
      if (now == kNone) continue;
      ascending = ascending && (write == first || g.items[write - 1] < now);
      g.items[write++] = now;
    }
    // Pieces taken in another order than before: the bucket keeps drawing order.
    if (!ascending) std::sort(g.items.begin() + first, g.items.begin() + write);
    begin = end;
  }
  if (!g.starts.empty()) g.starts.back() = write;
  g.items.resize(write);
  auto rename = [&](const std::vector<uint32_t>& from, std::vector<uint32_t>& to) {
    to.clear();
    for (uint32_t i : from)
      if (toNew[i] != kNone) to.push_back(toNew[i]);
  };
  rename(last.huge, huge_);
  rename(last.loose, loose_);
  for (uint32_t i = 0; i < ops_.size(); ++i)
    if (fromLast[i] == kNone) loose_.push_back(i);
  indexed_ = ops_.size();
}

void DisplayList::rebuildIndexIfNeeded() const {
  if (indexed_ == 0 && !last_.empty() && !ops_.empty()) takeOverLastIndex();
  again_.resize(ops_.size(), 0);
  // A few operations drawn over the picture wait in a list of their own; many make a new grid.
  if (indexed_ == 0 || loose_.size() + (ops_.size() - indexed_) > 1024 + ops_.size() / 8) buildGrid();
  for (; indexed_ < ops_.size(); ++indexed_) loose_.push_back(static_cast<uint32_t>(indexed_));
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
           (other.text == op.text || texts_[other.text] == texts_[op.text]);
  };
  // A print at the same place has bounds that hold its top left corner, so it sits in the
  // corner's bucket, or among the operations outside the grid.
  bool found =
      std::any_of(huge_.begin(), huge_.end(), same) || std::any_of(loose_.begin(), loose_.end(), same);
  Span corner{};
  if (!found && spanOf({op.x1, op.y1, op.x1, op.y1}, corner)) {
    const auto b = static_cast<size_t>(corner.y0 * grid_.columns + corner.x0);
    found =
        std::any_of(grid_.items.begin() + grid_.starts[b], grid_.items.begin() + grid_.starts[b + 1], same);
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
  Span span{};
  const bool inGrid = spanOf(area, span);
  if (inGrid && (span.x1 - span.x0 + 1) * (span.y1 - span.y0 + 1) * 2 > grid_.columns * grid_.rows) {
    // The area covers most of the grid: walking the operations is cheaper.
    for (uint32_t i = 0; i < ops_.size(); ++i)
      if (meets(i)) found.push_back(i);
    return found;
  }
  for (int64_t y = span.y0; inGrid && y <= span.y1; ++y) {
    for (int64_t x = span.x0; x <= span.x1; ++x) {
      const auto b = static_cast<size_t>(y * grid_.columns + x);
      for (uint32_t k = grid_.starts[b]; k < grid_.starts[b + 1]; ++k)
        if (meets(grid_.items[k])) found.push_back(grid_.items[k]);
    }
  }
  for (const auto* others : {&huge_, &loose_})
    for (uint32_t i : *others)
      if (meets(i)) found.push_back(i);
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

}  // namespace tavlero
