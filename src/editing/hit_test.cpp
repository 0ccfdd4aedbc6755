#include "editing/hit_test.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

#include "core/record.h"

namespace tavlero {

namespace {

struct Geometry {
  float x1, y1, x2, y2;
};

float readCoordinate(const std::string& record, const char* key) {
  return toSingle(textToNumber(getField(record, key)));
}

Geometry readGeometry(const std::string& record) {
  return {readCoordinate(record, "X1"), readCoordinate(record, "Y1"), readCoordinate(record, "X2"),
          readCoordinate(record, "Y2")};
}

bool holds(const Geometry& g, float x, float y) {
  return x > g.x1 && x < g.x2 && y > g.y1 && y < g.y2;
}

// The parsed rectangles of sizeList with a coarse grid over them, rebuilt only when the
// list has changed since. A click then costs the same on any size of board, and the
// answer stays that of a walk from index 0: the lowest cell that strictly holds the point.
class CellIndex {
 public:
  int16_t find(const StringList& sizeList, float x, float y) {
    if (sizeList.revision() != revision_ || sizeList.ListCount() != count_) rebuild(sizeList);
    int16_t found = -1;
    auto bucket = buckets_.find(key(bucketOf(x), bucketOf(y)));
    if (bucket != buckets_.end()) found = firstHolding(bucket->second, x, y);
    int16_t wide = firstHolding(wide_, x, y);
    if (wide != -1 && (found == -1 || wide < found)) found = wide;
    return found;
  }

 private:
  static constexpr double kBucket = 64;        // board units; a power of two divides exactly
  static constexpr int64_t kMostBuckets = 16;  // per axis, beyond that a box goes to wide_
  static constexpr double kLimit = 1 << 30;

  // Monotonic in v, so a box that strictly holds a point covers the point's bucket. A NaN
  // point, which no box holds, may look in any bucket.
  static int64_t bucketOf(float v) {
    double bucket = std::floor(static_cast<double>(v) / kBucket);
    return std::isnan(bucket) ? 0 : static_cast<int64_t>(std::clamp(bucket, -kLimit, kLimit));
  }
  static uint64_t key(int64_t bx, int64_t by) {
    return (static_cast<uint64_t>(bx) << 32) ^ static_cast<uint32_t>(by);
  }

  int16_t firstHolding(const std::vector<int16_t>& indices, float x, float y) const {
    for (int16_t i : indices)
      if (holds(boxes_[static_cast<size_t>(i)], x, y)) return i;
    return -1;
  }

  void rebuild(const StringList& sizeList) {
    revision_ = sizeList.revision();
    count_ = sizeList.ListCount();
    boxes_.clear();
    buckets_.clear();
    wide_.clear();
    for (int16_t i = 0; i < count_; ++i) {
      Geometry g = readGeometry(sizeList.List(i));
      boxes_.push_back(g);
      // A box without inside (a placeholder, a NaN) can hold no point.
      if (!(g.x1 < g.x2 && g.y1 < g.y2)) continue;
      int64_t left = bucketOf(g.x1), right = bucketOf(g.x2);
      int64_t top = bucketOf(g.y1), bottom = bucketOf(g.y2);
      if (right - left >= kMostBuckets || bottom - top >= kMostBuckets) {
        wide_.push_back(i);
        continue;
      }
      for (int64_t bx = left; bx <= right; ++bx)
        for (int64_t by = top; by <= bottom; ++by) buckets_[key(bx, by)].push_back(i);
    }
  }

  uint64_t revision_ = 0;
  int16_t count_ = -1;
  std::vector<Geometry> boxes_;
  std::unordered_map<uint64_t, std::vector<int16_t>> buckets_;
  std::vector<int16_t> wide_;
};

bool strictlyBetween(float value, float a, float b) {
  return a < b ? (value > a && value < b) : (value > b && value < a);
}

}  // namespace

int16_t findCellAt(const ProjectStore& store, float x, float y) {
  thread_local CellIndex index;
  return index.find(store.sizeList, x, y);
}

int16_t findLinkAt(const ProjectStore& store, float x, float y) {
  // Both marks live through the whole walk: a link that runs backwards changes how every
  // later flat or upright link is widened.
  bool reversedLink = false;
  bool risingLink = false;
  int16_t count = store.linkSizeList.ListCount();
  for (int16_t i = 0; i < count; ++i) {
    Geometry g = readGeometry(store.linkSizeList.List(i));
    if (g.x1 > g.x2 || g.y1 > g.y2) reversedLink = true;
    if (g.y1 > g.y2) risingLink = true;

    // A line without width or height gets one of 2, so that the box test and the
    // divisions below have something to work with.
    if (g.x1 == g.x2) {
      g.x1 += reversedLink ? 1.0f : -1.0f;
      g.x2 += reversedLink ? -1.0f : 1.0f;
    }
    if (g.y1 == g.y2) {
      g.y1 += risingLink ? 1.0f : -1.0f;
      g.y2 += risingLink ? -1.0f : 1.0f;
    }
    if (!strictlyBetween(x, g.x1, g.x2) || !strictlyBetween(y, g.y1, g.y2)) continue;

    float dx = g.x2 - g.x1;
    float dy = g.y2 - g.y1;
    float expectedX = x;
    float expectedY = y;
    // Signed on purpose: which axis is measured follows from the direction of the link.
    if (dy < dx) {
      float slope = dy / dx;
      expectedY = g.y1 + slope * (x - g.x1);
    } else {
      float slope = dx / dy;
      expectedX = g.x1 + slope * (y - g.y1);
    }
    if (x + 2 > expectedX && x - 2 < expectedX && y + 2 > expectedY && y - 2 < expectedY) return i;
  }
  return -1;
}

}  // namespace tavlero
