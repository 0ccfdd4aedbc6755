// The board on the real Qt surface, offscreen: the whole-board redraw (text measured
// with real fonts, every operation told to the canvas widget) and the painting of the
// visible window area from the display list. Both must grow with the board, the paint
// not even that: it touches only what lies in view.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QRegion>
#include <memory>
#include <string>

#include "board/board.h"
#include "qt/desktop.h"
#include "test_support.h"

namespace {

// count cells on a grid, each linked to the next one, in the desktop's store.
void fillBoard(tavlero::App& app, int count) {
  auto world = std::make_unique<tavlero::testing::FakeWorld>();
  for (int i = 0; i < count; ++i) {
    float x = static_cast<float>((i % 100) * 60 + 10);
    float y = static_cast<float>((i / 100) * 30 + 10);
    world->addCell("metode" + std::to_string(i) + "()", x, y,
                   "Gjør del " + std::to_string(i) + " av jobben.");
  }
  for (int i = 0; i < count; ++i)
    world->addLinkRecord("metode" + std::to_string(i) + "()",
                         "metode" + std::to_string((i + 1) % count) + "()");
  tavlero::ProjectStore& store = world->app.store;
  app.store.itemList = store.itemList;
  app.store.sizeList = store.sizeList;
  app.store.linkList = store.linkList;
  app.store.linkSizeList = store.linkSizeList;
}

// The desktop as Form_Load leaves it: the canvas at the client size, the zoom at 2;
// the board drawn once unless asked not to.
std::unique_ptr<tavlero::Desktop> startDesktop(int cells, bool drawn = true) {
  auto desktop = std::make_unique<tavlero::Desktop>(96.0);
  tavlero::App& app = desktop->app();
  QSizeF client = desktop->window().clientSizeMm();
  app.canvas.setWidth(static_cast<float>(client.width()));
  app.canvas.setHeight(static_cast<float>(client.height()));
  tavlero::zoomIn(app);
  tavlero::zoomOut(app);
  fillBoard(app, cells);
  if (drawn) tavlero::redrawBoard(app);
  return desktop;
}

void BM_QtRedrawBoard(benchmark::State& state) {
  auto desktop = startDesktop(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    tavlero::redrawBoard(desktop->app());
    benchmark::DoNotOptimize(desktop->app().canvas.Image().size());
  }
  state.SetComplexityN(state.range(0));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_QtRedrawBoard)->Arg(1000)->Arg(10000)->Arg(32001)->Unit(benchmark::kMillisecond)->Complexity();

// A zoom in and back out: both levels seen before, after the first round.
void BM_QtZoomInOut(benchmark::State& state) {
  auto desktop = startDesktop(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    tavlero::zoomIn(desktop->app());
    tavlero::zoomOut(desktop->app());
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_QtZoomInOut)->Arg(1000)->Arg(10000)->Arg(32001)->Unit(benchmark::kMillisecond);

// The first redraw after a project was read: no text measured yet.
void BM_QtFirstRedraw(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto desktop = startDesktop(static_cast<int>(state.range(0)), false);
    state.ResumeTiming();
    tavlero::redrawBoard(desktop->app());
    state.PauseTiming();
    desktop.reset();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_QtFirstRedraw)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->Complexity();

void BM_QtPaintVisibleArea(benchmark::State& state) {
  auto desktop = startDesktop(static_cast<int>(state.range(0)));
  tavlero::CanvasWidget& canvas = desktop->window().canvas();
  QImage window(967, 656, QImage::Format_RGB32);
  for (auto _ : state) {
    canvas.render(&window, QPoint(), QRegion(0, 0, 967, 656));
    benchmark::DoNotOptimize(window.constBits());
  }
  // The canvas is vastly larger than what is painted; the ink shows that the view is drawn.
  state.counters["canvas_px"] = static_cast<double>(canvas.width()) * canvas.height();
  int ink = 0;
  for (int y = 0; y < window.height(); ++y)
    for (int x = 0; x < window.width(); ++x)
      if (window.pixelColor(x, y) != tavlero::boardBackground()) ++ink;
  state.counters["ink_px"] = ink;
}
BENCHMARK(BM_QtPaintVisibleArea)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
