#include "editing/hit_test.h"

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

bool strictlyBetween(float value, float a, float b) {
  return a < b ? (value > a && value < b) : (value > b && value < a);
}

}  // namespace

int16_t findCellAt(const ProjectStore& store, float x, float y) {
  int16_t count = store.sizeList.ListCount();
  for (int16_t i = 0; i < count; ++i) {
    Geometry g = readGeometry(store.sizeList.List(i));
    if (x > g.x1 && x < g.x2 && y > g.y1 && y < g.y2) return i;
  }
  return -1;
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
