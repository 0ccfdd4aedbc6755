#pragma once
// A drawn board of a few cells over the fake platform, with the points to press on.

#include <gtest/gtest.h>

#include <string>

#include "board/board.h"
#include "core/record.h"
#include "test_support.h"

namespace tavlero::testing {

struct Point {
  float x, y;
};

class BoardTest : public ::testing::Test {
 protected:
  FakeWorld world;
  App& app = world.app;
  ProjectStore& store = world.app.store;

  // Redraws as the program does after reading a file, so that every cell and link has
  // its geometry, and starts from a saved state.
  void drawBoard() {
    redrawBoard(app);
    store.isSaved = true;
  }

  float geometry(int16_t cell, const char* key) const {
    return static_cast<float>(textToNumber(getField(store.sizeList.List(cell), key)));
  }
  Point centreOf(int16_t cell) const {
    return {(geometry(cell, "X1") + geometry(cell, "X2")) / 2,
            (geometry(cell, "Y1") + geometry(cell, "Y2")) / 2};
  }
  std::string field(int16_t cell, const char* key) const { return getField(store.itemList.List(cell), key); }

  // Operations drawn on the canvas since the mark, of one kind.
  size_t drawnSince(size_t mark, DrawKind kind) const {
    size_t count = 0;
    const auto& ops = world.canvas.Image().ops();
    for (size_t i = mark; i < ops.size(); ++i)
      if (ops[i].kind == kind) ++count;
    return count;
  }
  size_t imageSize() const { return world.canvas.Image().size(); }
};

}  // namespace tavlero::testing
