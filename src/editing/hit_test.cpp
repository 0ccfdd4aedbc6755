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

bool holds(const Geometry& cell, float x, float y) {
  return x > cell.x1 && x < cell.x2 && y > cell.y1 && y < cell.y2;
}

bool strictlyBetween(float value, float a, float b) {
  return a < b ? (value > a && value < b) : (value > b && value < a);
}

// Both marks live through the whole walk: a link that runs backwards changes how every
// later flat or upright link is widened. A line without width or height gets one of 2,
// so that the box test and the divisions have something to work with.
std::vector<Geometry> widenedLinks(const StringList& linkSizeList) {
  std::vector<Geometry> links;
  bool reversedLink = false;
  bool risingLink = false;
  for (const std::string& record : linkSizeList.items()) {
    Geometry g = readGeometry(record);
    if (g.x1 > g.x2 || g.y1 > g.y2) reversedLink = true;
    if (g.y1 > g.y2) risingLink = true;
    if (g.x1 == g.x2) {
      g.x1 += reversedLink ? 1.0f : -1.0f;
      g.x2 += reversedLink ? -1.0f : 1.0f;
    }
    if (g.y1 == g.y2) {
      g.y1 += risingLink ? 1.0f : -1.0f;
      g.y2 += risingLink ? -1.0f : 1.0f;
    }
    links.push_back(g);
  }
  return links;
}

// Within the box of the widened line, and within 2 units of it along one axis only.
bool near(const Geometry& link, float x, float y) {
  if (!strictlyBetween(x, link.x1, link.x2) || !strictlyBetween(y, link.y1, link.y2)) return false;
  float dx = link.x2 - link.x1;
  float dy = link.y2 - link.y1;
  float expectedX = x;
  float expectedY = y;
  // Signed on purpose: which axis is measured follows from the direction of the link.
  if (dy < dx) {
    float slope = dy / dx;
    expectedY = link.y1 + slope * (x - link.x1);
  } else {
    float slope = dx / dy;
    expectedX = link.x1 + slope * (y - link.y1);
  }
  return x + 2 > expectedX && x - 2 < expectedX && y + 2 > expectedY && y - 2 < expectedY;
}

// The geometry of one list, parsed, with a coarse grid over the boxes, made again only
// when the list has changed since. A press then costs the same on any size of board, and
// the answer stays that of a walk from index 0: the lowest entry that the test accepts,
// among those whose box strictly holds the point (the only ones the test can accept).
class GeometryIndex {
 public:
  using Reader = std::vector<Geometry> (*)(const StringList&);
  using Test = bool (*)(const Geometry&, float, float);

  GeometryIndex(Reader read, Test test) : read_(read), test_(test) {}

  int16_t find(const StringList& list, float x, float y) {
    if (list.revision() != revision_ || list.ListCount() != count_) rebuild(list);
    int16_t found = -1;
    auto bucket = buckets_.find(key(bucketOf(x), bucketOf(y)));
    if (bucket != buckets_.end()) found = firstAccepted(bucket->second, x, y);
    int16_t wide = firstAccepted(wide_, x, y);
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

  int16_t firstAccepted(const std::vector<int16_t>& indices, float x, float y) const {
    for (int16_t i : indices)
      if (test_(entries_[static_cast<size_t>(i)], x, y)) return i;
    return -1;
  }

  void rebuild(const StringList& list) {
    revision_ = list.revision();
    count_ = list.ListCount();
    entries_ = read_(list);
    buckets_.clear();
    wide_.clear();
    for (int16_t i = 0; i < count_; ++i) {
      const Geometry& g = entries_[static_cast<size_t>(i)];
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
        for (int64_t by = fromY; by <= toY; ++by) buckets_[key(bx, by)].push_back(i);
    }
  }

  Reader read_;
  Test test_;
  uint64_t revision_ = 0;
  int16_t count_ = -1;
  std::vector<Geometry> entries_;
  std::unordered_map<uint64_t, std::vector<int16_t>> buckets_;
  std::vector<int16_t> wide_;
};

std::vector<Geometry> cellBoxes(const StringList& sizeList) {
  std::vector<Geometry> cells;
  cells.reserve(sizeList.items().size());
  for (const std::string& record : sizeList.items()) cells.push_back(readGeometry(record));
  return cells;
}

}  // namespace

int16_t findCellAt(const ProjectStore& store, float x, float y) {
  thread_local GeometryIndex cells(cellBoxes, holds);
  return cells.find(store.sizeList, x, y);
}

int16_t findLinkAt(const ProjectStore& store, float x, float y) {
  thread_local GeometryIndex links(widenedLinks, near);
  return links.find(store.linkSizeList, x, y);
}

}  // namespace tavlero
