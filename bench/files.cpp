// Reading and writing project files: the cost must grow with the number of methods and
// links, not with its square (the reader cuts by offset and remembers its tag searches).
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "files/project_file.h"
#include "files/project_text.h"
#include "test_support.h"

namespace {

using tavlero::testing::FakeWorld;

// count methods on a grid with a long description each, each linked to the next one.
std::unique_ptr<FakeWorld> plan(int count) {
  auto world = std::make_unique<FakeWorld>();
  for (int i = 0; i < count; ++i) {
    float x = static_cast<float>((i % 100) * 60 + 10);
    float y = static_cast<float>((i / 100) * 30 + 10);
    world->addCell("metode" + std::to_string(i) + "()", x, y, "Gjør del " + std::to_string(i) + " av jobben.",
                   16777215, 0, "Først dette.\r\nSå det andre.");
  }
  for (int i = 0; i < count; ++i)
    world->addLinkRecord("metode" + std::to_string(i) + "()",
                         "metode" + std::to_string((i + 1) % count) + "()");
  return world;
}

void setUp(benchmark::State& state) {
  state.SetComplexityN(state.range(0));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_ProjectFileText(benchmark::State& state) {
  auto world = plan(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(tavlero::projectFileText(world->app.store));
  setUp(state);
}

void BM_WriteProject(benchmark::State& state) {
  auto world = plan(static_cast<int>(state.range(0)));
  tavlero::testing::TempDir dir;
  for (auto _ : state) benchmark::DoNotOptimize(tavlero::writeProject(world->app, "p.tvl", dir.path()));
  setUp(state);
}

// The tag scanner alone: every method and link element cut out as the reader does.
void BM_ScanElements(benchmark::State& state) {
  std::string text = tavlero::projectFileText(plan(static_cast<int>(state.range(0)))->app.store);
  for (auto _ : state) {
    size_t found = 0;
    tavlero::ElementScanner methods(text, "userMethod", tavlero::kSkipBehindMethod);
    for (auto element = methods.next(); !element.empty(); element = methods.next())
      found += tavlero::splitMethod(element).record.size();
    tavlero::ElementScanner links(text, "userLink", tavlero::kSkipBehindLink);
    for (auto element = links.next(); !element.empty(); element = links.next()) found += element.size();
    benchmark::DoNotOptimize(found);
  }
  setUp(state);
}

// The whole reader: file, scan, compression and the redraw that gives every geometry.
void BM_ReadProject(benchmark::State& state) {
  tavlero::testing::TempDir dir;
  auto source = plan(static_cast<int>(state.range(0)));
  tavlero::writeProject(source->app, "p.tvl", dir.path());
  auto world = std::make_unique<FakeWorld>();
  for (auto _ : state) benchmark::DoNotOptimize(tavlero::readProject(world->app, dir.file("p.tvl")));
  setUp(state);
}

BENCHMARK(BM_ProjectFileText)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_WriteProject)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_ScanElements)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_ReadProject)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace

BENCHMARK_MAIN();
