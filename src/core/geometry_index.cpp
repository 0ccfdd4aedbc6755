#include "core/geometry_index.h"

#include <algorithm>
#include <cmath>

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

int16_t GeometryIndex::find(const StringList& list, Reader read, Test test, float x, float y) {
  if (list.revision() != revision_ || list.ListCount() != count_) rebuild(list, read);
  int16_t found = -1;
  auto bucket = buckets_.find(bucketKey(bucketOf(x), bucketOf(y)));
  if (bucket != buckets_.end()) found = firstAccepted(bucket->second, test, x, y);
  int16_t wide = firstAccepted(wide_, test, x, y);
  if (wide != -1 && (found == -1 || wide < found)) found = wide;
  return found;
}

int16_t GeometryIndex::firstAccepted(const std::vector<int16_t>& indices, Test test, float x, float y) const {
  for (int16_t i : indices)
    if (test(entries_[static_cast<size_t>(i)], x, y)) return i;
  return -1;
}

void GeometryIndex::rebuild(const StringList& list, Reader read) {
  revision_ = list.revision();
  count_ = list.ListCount();
  entries_ = read(list);
  buckets_.clear();
  wide_.clear();
  for (int16_t i = 0; i < count_; ++i) {
    const Box& g = entries_[static_cast<size_t>(i)];
    float left = std::min(g.x1, g.x2), right = std::max(g.x1, g.x2);
    float top = std::min(g.y1, g.y2), bottom = std::max(g.y1, g.y2);
    // A box without inside (a placeholder, a NaN) holds no point.
    if (!(left < right && top < bottom)) continue;
    int64_t fromX = bucketOf(left), toX = bucketOf(right);
    int64_t fromY = bucketOf(top), toY = bucketOf(bottom);
    if (toX - fromX >= kMostBuckets || toY - fromY >= kMostBuckets) {
      wide_.push_back(i);
      continue;
    }
    for (int64_t bx = fromX; bx <= toX; ++bx)
      for (int64_t by = fromY; by <= toY; ++by) buckets_[bucketKey(bx, by)].push_back(i);
  }
}

}  // namespace tavlero
