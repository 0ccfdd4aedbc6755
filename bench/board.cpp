// Redraw of whole boards on the test surface: the cost must grow with the number of
// cells and links, not with its square (links find their cells through a name index).
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "board/board.h"
#include "core/record.h"
#include "test_support.h"
#include "test_surface.h"

namespace {

using tavlero::numberToText;

// count cells on a grid, each linked to the next one.
void fillBoard(tavlero::testing::FakeWorld& world, int count) {
  for (int i = 0; i < count; ++i) {
    float x = static_cast<float>((i % 100) * 60 + 10);
    float y = static_cast<float>((i / 100) * 30 + 10);
    world.addCell("metode" + std::to_string(i) + "()", x, y, "Gjør del " + std::to_string(i) + " av jobben.");
  }
  for (int i = 0; i < count; ++i)
    world.addLinkRecord("metode" + std::to_string(i) + "()",
                        "metode" + std::to_string((i + 1) % count) + "()");
}

void BM_RedrawBoard(benchmark::State& state) {
  auto world = std::make_unique<tavlero::testing::FakeWorld>();
  fillBoard(*world, static_cast<int>(state.range(0)));
  for (auto _ : state) {
    tavlero::redrawBoard(world->app);
    benchmark::DoNotOptimize(world->canvas.Image().size());
  }
  state.SetComplexityN(state.range(0));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_RedrawBoard)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Complexity();

void BM_VisibleQuery(benchmark::State& state) {
  auto world = std::make_unique<tavlero::testing::FakeWorld>();
  fillBoard(*world, static_cast<int>(state.range(0)));
  tavlero::redrawBoard(world->app);
  tavlero::BoardRect window{0, 0, 128, 87};  // the start window at zoom 2
  for (auto _ : state) benchmark::DoNotOptimize(world->canvas.Image().query(window));
}
BENCHMARK(BM_VisibleQuery)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
