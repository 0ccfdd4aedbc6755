#include "core/geometry_index.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace tavlero {

namespace {

constexpr double kBucket = 64;        // board units; a power of two divides exactly
constexpr int64_t kMostBuckets = 16;  // per axis, beyond that a box goes to wide_
constexpr double kLimit = 1 << 30;

// Monotonic in v, so a box that strictly holds a point covers the point's bucket. A NaN
// point, which no box holds, may look in any bucket.
int64_t bucketOf(float v) {
  double bucket = std::floor(static_cast<double>(v) / kBucket);
  return std::isnan(bucket) ? 0 : static_cast<int64_t>(std::clamp(bucket, -kLimit, kLimit));
}

uint64_t bucketKey(int64_t bx, int64_t by) {
  return (static_cast<uint64_t>(bx) << 32) ^ static_cast<uint32_t>(by);
}

}  // namespace

int16_t GeometryIndex::find(const StringList& list, Shape shape, Test test, float x, float y) {
  if (list.revision() != revision_ || list.ListCount() != count_) {
    if (!readWritten(list)) {
      std::vector<Box> boxes;
      boxes.reserve(list.items().size());
      for (const std::string& record : list.items()) boxes.push_back(readBox(record));
      adopt(list, std::move(boxes));
    }
  }
  if (!shaped_) update(shape);
  int16_t found = -1;
  auto bucket = buckets_.find(bucketKey(bucketOf(x), bucketOf(y)));
  if (bucket != buckets_.end()) found = firstAccepted(bucket->second, test, x, y);
  int16_t wide = firstAccepted(wide_, test, x, y);
  if (wide != -1 && (found == -1 || wide < found)) found = wide;
  return found;
}

// A link made with Shift and a click writes two entries: the rest need not be read again.
// A change names the index its entry had then, so the boxes are read once all are followed.
bool GeometryIndex::readWritten(const StringList& list) {
  using Kind = StringList::Change::Kind;
  std::vector<StringList::Change> changes;
  if (count_ < 0 || !list.changesSince(revision_, changes)) return false;
  std::vector<bool> written(read_.size());
  for (const StringList::Change& change : changes) {
    const auto at = static_cast<size_t>(change.index);
    if (at > read_.size() || (at == read_.size() && change.kind != Kind::Added)) return false;
    if (change.kind == Kind::Removed) {
      read_.erase(read_.begin() + static_cast<ptrdiff_t>(at));
      written.erase(written.begin() + static_cast<ptrdiff_t>(at));
      continue;
    }
    if (at == read_.size()) read_.emplace_back(), written.push_back(false);
    written[at] = true;
  }
  if (read_.size() != list.items().size()) return false;
  for (size_t i = 0; i < read_.size(); ++i)
    if (written[i]) read_[i] = readBox(list.List(static_cast<int16_t>(i)));
  revision_ = list.revision();
  count_ = list.ListCount();
  shaped_ = false;
  return true;
}

void GeometryIndex::adopt(const StringList& list, std::vector<Box> boxes) {
  revision_ = list.revision();
  count_ = list.ListCount();
  read_ = std::move(boxes);
  shaped_ = false;
}

int16_t GeometryIndex::firstAccepted(const std::vector<int16_t>& indices, Test test, float x, float y) const {
  for (int16_t i : indices)
    if (test(entries_[static_cast<size_t>(i)], x, y)) return i;
  return -1;
}

void GeometryIndex::update(Shape shape) {
  std::vector<Box> shaped = shape ? shape(read_) : read_;
  shaped_ = true;
  if (shaped.size() < entries_.size()) {
    entries_.clear();
    buckets_.clear();
    wide_.clear();
  }
  // Bitwise, so that a NaN, which no grid holds, never counts as moved.
  const size_t kept = entries_.size();
  for (size_t i = 0; i < kept; ++i) {
    if (std::memcmp(&shaped[i], &entries_[i], sizeof(Box)) == 0) continue;
    place(static_cast<int16_t>(i), false);
    entries_[i] = shaped[i];
    place(static_cast<int16_t>(i), true);
  }
  entries_.insert(entries_.end(), shaped.begin() + static_cast<ptrdiff_t>(kept), shaped.end());
  for (size_t i = kept; i < entries_.size(); ++i) place(static_cast<int16_t>(i), true);
}

// Adds the entry to, or takes it from, the buckets its box covers, keeping each in order.
void GeometryIndex::place(int16_t index, bool add) {
  const Box& g = entries_[static_cast<size_t>(index)];
  float left = std::min(g.x1, g.x2), right = std::max(g.x1, g.x2);
  float top = std::min(g.y1, g.y2), bottom = std::max(g.y1, g.y2);
  // A box without inside (a placeholder, a NaN) holds no point.
  if (!(left < right && top < bottom)) return;
  auto enter = [&](std::vector<int16_t>& indices) {
    auto at = std::lower_bound(indices.begin(), indices.end(), index);
    if (add)
      indices.insert(at, index);
    else if (at != indices.end() && *at == index)
      indices.erase(at);
  };
  int64_t fromX = bucketOf(left), toX = bucketOf(right);
  int64_t fromY = bucketOf(top), toY = bucketOf(bottom);
  if (toX - fromX >= kMostBuckets || toY - fromY >= kMostBuckets) {
    enter(wide_);
    return;
  }
  for (int64_t bx = fromX; bx <= toX; ++bx)
    for (int64_t by = fromY; by <= toY; ++by) enter(buckets_[bucketKey(bx, by)]);
}

}  // namespace tavlero
