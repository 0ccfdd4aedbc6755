// A press on the board: a selection click must cost about the same on a small board and
// on a large one, since it repaints only the two cells that change colour. The clicks
// go to the last cells, which the hit test reaches last.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "board/board.h"
#include "core/record.h"
#include "editing/gestures.h"
#include "editing/hit_test.h"
#include "test_support.h"

namespace {

using tavlero::testing::FakeWorld;

struct Point {
  float x, y;
};

std::unique_ptr<FakeWorld> drawnBoard(int count) {
  auto world = std::make_unique<FakeWorld>();
  for (int i = 0; i < count; ++i) {
    float x = static_cast<float>((i % 100) * 60 + 10);
    float y = static_cast<float>((i / 100) * 30 + 10);
    world->addCell("metode" + std::to_string(i) + "()", x, y, "Gj\xF8r del " + std::to_string(i) + ".");
  }
  tavlero::redrawBoard(world->app);
  return world;
}

// A point just inside the top left corner of a drawn cell.
Point insideCell(const FakeWorld& world, int index) {
  const std::string& geometry = world.app.store.sizeList.List(static_cast<int16_t>(index));
  return {static_cast<float>(tavlero::textToNumber(tavlero::getField(geometry, "X1"))) + 2,
          static_cast<float>(tavlero::textToNumber(tavlero::getField(geometry, "Y1"))) + 2};
}

void BM_SelectionClick(benchmark::State& state) {
  auto world = drawnBoard(static_cast<int>(state.range(0)));
  int count = static_cast<int>(state.range(0));
  Point points[2] = {insideCell(*world, count - 1), insideCell(*world, count - 2)};
  size_t next = 0;
  for (auto _ : state) {
    Point p = points[next];
    next ^= 1;
    tavlero::canvas_MouseDown(world->app, 1, 0, p.x, p.y);
    tavlero::canvas_MouseUp(world->app, 1, 0, p.x, p.y);
    if (world->canvas.Image().size() > 200000) {
      state.PauseTiming();
      world->canvas.Cls();
      state.ResumeTiming();
    }
  }
  benchmark::DoNotOptimize(world->app.store.selectedCell);
}
BENCHMARK(BM_SelectionClick)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

void BM_FindCellAt(benchmark::State& state) {
  auto world = drawnBoard(static_cast<int>(state.range(0)));
  Point p = insideCell(*world, static_cast<int>(state.range(0)) - 1);
  for (auto _ : state) benchmark::DoNotOptimize(tavlero::findCellAt(world->app, p.x, p.y));
}
BENCHMARK(BM_FindCellAt)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

// The first hit test after sizeList changed reads every geometry record once again; it
// follows a redraw, which costs far more.
void BM_FindCellAtAfterAChange(benchmark::State& state) {
  auto world = drawnBoard(static_cast<int>(state.range(0)));
  tavlero::StringList& sizes = world->app.store.sizeList;
  Point p = insideCell(*world, static_cast<int>(state.range(0)) - 1);
  std::string geometry = sizes.List(0);
  bool moved = false;
  for (auto _ : state) {
    moved = !moved;
    sizes.setList(0, moved ? geometry + " " : geometry);
    benchmark::DoNotOptimize(tavlero::findCellAt(world->app, p.x, p.y));
  }
}
BENCHMARK(BM_FindCellAtAfterAChange)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

// A press beside every cell asks for a link; like the cells, the links are found through
// their parsed geometry, so this press too costs the same with 100 links or 10,000.
void BM_PressOnEmptyBoard(benchmark::State& state) {
  int count = static_cast<int>(state.range(0));
  auto world = drawnBoard(count);
  for (int i = 0; i < count; ++i)
    world->addLinkRecord("metode" + std::to_string(i) + "()",
                         "metode" + std::to_string((i + 1) % count) + "()");
  tavlero::redrawBoard(world->app);
  for (auto _ : state) tavlero::canvas_MouseDown(world->app, 1, 0, -50, -50);
}
BENCHMARK(BM_PressOnEmptyBoard)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

// A drag step moves only the rectangle, whatever the size of the board.
void BM_DragStep(benchmark::State& state) {
  auto world = drawnBoard(static_cast<int>(state.range(0)));
  Point p = insideCell(*world, static_cast<int>(state.range(0)) - 1);
  tavlero::canvas_MouseDown(world->app, 1, 0, p.x, p.y);
  float offset = 0;
  for (auto _ : state) {
    offset = offset > 50 ? 0 : offset + 1;
    tavlero::canvas_MouseMove(world->app, 1, 0, p.x + offset, p.y);
  }
}
BENCHMARK(BM_DragStep)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
