#pragma once
// A drawn board over the fake platform, with the points to press on and what was painted.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "board/board.h"
#include "core/record.h"
#include "core/records.h"
#include "test_support.h"

namespace tavlero::testing {

struct Point {
  float x, y;
};

// A row of a case table in tests/data/editing/, its name first.
using Case = std::vector<std::string>;

// Cells "les" (red), B and C (white) at 10,10, 100,10 and 10,100, linked les -> B -> C -> les,
// drawn as after reading a file and saved.
class BoardTest : public ::testing::Test {
 protected:
  // Pages the program writes (the info view) land in a folder of the test's own.
  TempDir folder;
  std::filesystem::path kept = std::filesystem::current_path();
  FakeWorld world;
  App& app = world.app;
  ProjectStore& store = world.app.store;
  int16_t a = world.addCell("les", 10, 10, "", 255, 0, "lang 0");
  int16_t b = world.addCell("B", 100, 10, "", 16777215, 0, "lang 1");

  BoardTest() { std::filesystem::current_path(folder.path()); }
  ~BoardTest() override { std::filesystem::current_path(kept); }

  void SetUp() override {
    world.addCell("C", 10, 100, "", 16777215, 0, "lang 2");
    world.addLinkRecord("les", "B");
    world.addLinkRecord("B", "C");
    world.addLinkRecord("C", "les");
    drawBoard();
  }
  // As the program does after reading a file: every cell and link gets its geometry.
  void drawBoard() {
    redrawBoard(app);
    store.isSaved = true;
  }
  // The middle of a cell's or link's box.
  static Point centreIn(const std::string& geometry) {
    Box box = readBox(geometry);
    return {(box.x1 + box.x2) / 2, (box.y1 + box.y2) / 2};
  }
  Point centreOf(int16_t cell) const { return centreIn(store.sizeList.List(cell)); }
  std::string field(int16_t cell, const char* key) const { return getField(store.itemList.List(cell), key); }
  size_t imageSize() const { return world.canvas.Image().size(); }
  size_t drawnSince(size_t mark, DrawKind kind) const {
    size_t count = 0;
    const auto& ops = world.canvas.Image().ops();
    for (size_t i = mark; i < ops.size(); ++i) count += ops[i].kind == kind;
    return count;
  }
};

}  // namespace tavlero::testing
