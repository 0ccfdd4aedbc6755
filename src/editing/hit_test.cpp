#include "editing/hit_test.h"

#include <vector>

#include "core/records.h"

namespace tavlero {

namespace {

bool holds(const Box& cell, float x, float y) {
  return x > cell.x1 && x < cell.x2 && y > cell.y1 && y < cell.y2;
}

bool strictlyBetween(float value, float a, float b) {
  return a < b ? (value > a && value < b) : (value > b && value < a);
}

// Both marks live through the whole walk: a link that runs backwards changes how every
// later flat or upright link is widened. A line without width or height gets one of 2,
// so that the box test and the divisions have something to work with.
std::vector<Box> widenedLinks(const std::vector<Box>& lines) {
  std::vector<Box> links;
  links.reserve(lines.size());
  bool reversedLink = false;
  bool risingLink = false;
  for (Box g : lines) {
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
bool near(const Box& link, float x, float y) {
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

}  // namespace

int16_t findCellAt(App& app, float x, float y) {
  return app.cellHits.find(app.store.sizeList, nullptr, holds, x, y);
}

int16_t findLinkAt(App& app, float x, float y) {
  return app.linkHits.find(app.store.linkSizeList, widenedLinks, near, x, y);
}

}  // namespace tavlero
