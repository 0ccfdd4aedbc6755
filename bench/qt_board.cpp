// The board on the real Qt surface, offscreen, shown by the real canvas widget: every
// change that ends in a whole-board redraw (text measured with real fonts, the widget told
// of what changed), the first press after such a change, and the painting of the visible
// window area from the display list. The paint touches only what lies in view.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QRegion>
#include <QWidget>
#include <memory>
#include <string>
#include <utility>

#include "board/board.h"
#include "core/window_size.h"
#include "editing/gestures.h"
#include "editing/keys.h"
#include "editing/method_dialog.h"
#include "qt/canvas_widget.h"
#include "test_support.h"

namespace {

constexpr int16_t kKeyF5 = 116;
constexpr int16_t kKeyDelete = 46;
constexpr int16_t kKeyDigit1 = 49;

std::string cellName(int i) {
  return "metode" + std::to_string(i) + "()";
}

// Cells on a grid of 100 a row, 60 by 30 units apart, each linked to the next one.
float cellX(int i) {
  return static_cast<float>((i % 100) * 60 + 10);
}
float cellY(int i) {
  return static_cast<float>((i / 100) * 30 + 10);
}

// The canvas widget over a Qt surface in a shown window at main's start size, with the
// fake platform's answers (Yes to every question) so that no dialog waits for a user.
struct QtBoard {
  tavlero::QtSurface surface{96.0};
  tavlero::testing::FakePlatform fakes;
  tavlero::App app{surface, fakes.platform()};
  QWidget main;
  tavlero::CanvasWidget canvas{app, surface, &main};

  // count cells; the canvas at main's client size and the zoom at 2, as at start; the
  // board drawn once unless asked not to.
  explicit QtBoard(int count, bool drawn = true) {
    float width = tavlero::twipsToMillimetres(tavlero::kMainClientWidthTwips);
    float height = tavlero::twipsToMillimetres(tavlero::kMainClientHeightTwips);
    main.resize(static_cast<int>(surface.mmToPixels(width)), static_cast<int>(surface.mmToPixels(height)));
    main.show();
    app.canvas.setWidth(width);
    app.canvas.setHeight(height);
    tavlero::zoomIn(app);
    tavlero::zoomOut(app);
    tavlero::testing::FakeWorld world;
    for (int i = 0; i < count; ++i)
      world.addCell(cellName(i), cellX(i), cellY(i), "Gjør del " + std::to_string(i) + " av jobben.");
    for (int i = 0; i < count; ++i) world.addLinkRecord(cellName(i), cellName((i + 1) % count));
    tavlero::ProjectStore& store = world.app.store;
    app.store.itemList = store.itemList;
    app.store.sizeList = store.sizeList;
    app.store.linkList = store.linkList;
    app.store.linkSizeList = store.linkSizeList;
    if (drawn) tavlero::redrawBoard(app);
  }

  // The paint of main's client area, from the board's origin, into window.
  void paint(QImage& window) {
    canvas.render(&window, QPoint(), QRegion(0, 0, window.width(), window.height()));
    benchmark::DoNotOptimize(window.constBits());
  }

  // A press inside cell i and the release, without moving: the cell is selected.
  void select(int i) {
    tavlero::canvas_MouseDown(app, 1, 0, cellX(i) + 2, cellY(i) + 2);
    tavlero::canvas_MouseUp(app, 1, 0, cellX(i) + 2, cellY(i) + 2);
  }
};

// The four lists as they stand, to be put back, untimed, after a change that is measured.
struct Lists {
  explicit Lists(const tavlero::ProjectStore& store)
      : items(store.itemList), sizes(store.sizeList), links(store.linkList), linkSizes(store.linkSizeList) {}
  void restore(tavlero::App& app, benchmark::State& state) const {
    state.PauseTiming();
    app.store.itemList = items;
    app.store.sizeList = sizes;
    app.store.linkList = links;
    app.store.linkSizeList = linkSizes;
    app.store.selectedCell = -1;
    tavlero::redrawBoard(app);
    state.ResumeTiming();
  }
  tavlero::StringList items, sizes, links, linkSizes;
};

void finish(benchmark::State& state) {
  state.SetComplexityN(state.range(0));
}

// At 1,000, 10,000 and 32,001 methods, in milliseconds.
void atEachSize(benchmark::internal::Benchmark* bench) {
  bench->Arg(1000)->Arg(10000)->Arg(32001)->Unit(benchmark::kMillisecond);
}

void BM_QtRedrawBoard(benchmark::State& state) {
  QtBoard board(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    tavlero::canvas_KeyDown(board.app, kKeyF5, 0);
    benchmark::DoNotOptimize(board.app.canvas.Image().size());
  }
  finish(state);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_QtRedrawBoard)->Apply(atEachSize)->Complexity();

// F5 and the paint of the window that shows it, which indexes the new picture: one frame.
void BM_QtRedrawAndPaint(benchmark::State& state) {
  QtBoard board(static_cast<int>(state.range(0)));
  QImage window(967, 656, QImage::Format_RGB32);
  for (auto _ : state) {
    tavlero::canvas_KeyDown(board.app, kKeyF5, 0);
    board.paint(window);
  }
  finish(state);
}
BENCHMARK(BM_QtRedrawAndPaint)->Apply(atEachSize);

// A cell in the middle of the board dragged 7 units right and 3 down, or back: the press,
// one move with the button held and the release that drops it; and the paint after it.
void dropCell(benchmark::State& state, bool painted) {
  auto count = static_cast<int>(state.range(0));
  QtBoard board(count);
  QImage window(967, 656, QImage::Format_RGB32);
  int cell = count / 2;
  float step = 1;
  for (auto _ : state) {
    float x = cellX(cell) + 2 + (step < 0 ? 7.0f : 0.0f), y = cellY(cell) + 2 + (step < 0 ? 3.0f : 0.0f);
    tavlero::canvas_MouseDown(board.app, 1, 0, x, y);
    tavlero::canvas_MouseMove(board.app, 1, 0, x + 7 * step, y + 3 * step);
    tavlero::canvas_MouseUp(board.app, 1, 0, x + 7 * step, y + 3 * step);
    if (painted) board.paint(window);
    step = -step;
  }
  finish(state);
}

void BM_QtDropCell(benchmark::State& state) {
  dropCell(state, false);
}
BENCHMARK(BM_QtDropCell)->Apply(atEachSize);

// The drop and the paint of the window that shows it, which indexes the new picture: one frame.
void BM_QtDropAndPaint(benchmark::State& state) {
  dropCell(state, true);
}
BENCHMARK(BM_QtDropAndPaint)->Apply(atEachSize);

// One zoom step, in and out by turns: both levels seen before, after the first round.
void BM_QtZoomSeenLevel(benchmark::State& state) {
  QtBoard board(static_cast<int>(state.range(0)));
  tavlero::zoomIn(board.app);
  tavlero::zoomOut(board.app);
  bool in = true;
  for (auto _ : state) {
    (in ? tavlero::zoomIn : tavlero::zoomOut)(board.app);
    in = !in;
  }
  finish(state);
}
BENCHMARK(BM_QtZoomSeenLevel)->Apply(atEachSize);

// change timed on a board made anew for each run, drawn or not, and taken down untimed.
void onNewBoard(benchmark::State& state, bool drawn, void (*change)(tavlero::App&)) {
  for (auto _ : state) {
    state.PauseTiming();
    auto board = std::make_unique<QtBoard>(static_cast<int>(state.range(0)), drawn);
    state.ResumeTiming();
    change(board->app);
    state.PauseTiming();
    board.reset();
    state.ResumeTiming();
  }
  finish(state);
}

// One zoom step to a level this board has never been drawn at.
void BM_QtZoomNewLevel(benchmark::State& state) {
  onNewBoard(state, true, tavlero::zoomIn);
}
BENCHMARK(BM_QtZoomNewLevel)->Apply(atEachSize)->Iterations(3);

// A new method through the method dialog's OK, as the last of range(0) methods.
void BM_QtAddMethod(benchmark::State& state) {
  QtBoard board(static_cast<int>(state.range(0)) - 1);
  const Lists before(board.app.store);
  for (auto _ : state) {
    board.app.store.selectedCell = -1;
    board.app.store.lastMouseX = 20;
    board.app.store.lastMouseY = 20;
    auto form = std::make_unique<tavlero::testing::FakeMethodForm>();
    form->name = "ny()";
    form->summary = "Den nye metoden.";
    board.app.addMethodForm = std::move(form);
    tavlero::addMethodForm_Command2_Click(board.app);
    before.restore(board.app, state);
  }
  finish(state);
}
BENCHMARK(BM_QtAddMethod)->Apply(atEachSize)->Iterations(10);

// The summary, or the name, of a selected method changed through the method dialog's OK,
// by turns; a new name is followed by the links that use it.
void editByTurns(benchmark::State& state, bool renaming) {
  auto count = static_cast<int>(state.range(0));
  QtBoard board(count);
  board.select(count / 2);
  bool changed = true;
  for (auto _ : state) {
    auto form = std::make_unique<tavlero::testing::FakeMethodForm>();
    form->name = renaming && changed ? "nyttNavn()" : cellName(count / 2);
    form->summary =
        !renaming && changed ? "Gjør en lengre del av jobben, over flere linjer enn før." : "Kort.";
    board.app.addMethodForm = std::move(form);
    tavlero::addMethodForm_Command2_Click(board.app);
    changed = !changed;
  }
  finish(state);
}
void BM_QtEditMethod(benchmark::State& state) {
  editByTurns(state, false);
}
BENCHMARK(BM_QtEditMethod)->Apply(atEachSize);
void BM_QtRenameMethod(benchmark::State& state) {
  editByTurns(state, true);
}
BENCHMARK(BM_QtRenameMethod)->Apply(atEachSize);

// Delete on a selected method in the middle, confirmed; its two links go with it.
void BM_QtDeleteMethod(benchmark::State& state) {
  auto count = static_cast<int>(state.range(0));
  QtBoard board(count);
  const Lists before(board.app.store);
  for (auto _ : state) {
    state.PauseTiming();
    board.select(count / 2);
    state.ResumeTiming();
    tavlero::canvas_KeyDown(board.app, kKeyDelete, 0);
    before.restore(board.app, state);
  }
  finish(state);
}
BENCHMARK(BM_QtDeleteMethod)->Apply(atEachSize)->Iterations(10);

// The colour keys 1 to 9 in turn on a selected method.
void BM_QtColourKey(benchmark::State& state) {
  auto count = static_cast<int>(state.range(0));
  QtBoard board(count);
  board.select(count / 2);
  int16_t key = 0;
  for (auto _ : state) {
    tavlero::canvas_KeyDown(board.app, static_cast<int16_t>(kKeyDigit1 + key), 0);
    key = static_cast<int16_t>((key + 1) % 9);
  }
  finish(state);
}
BENCHMARK(BM_QtColourKey)->Apply(atEachSize);

// The first press after a change that hit testing has not been handed: untimed, change
// runs at step 0, 1, ...; then a press at (x, y) of the step.
template <typename Change, typename At>
void firstPressAfter(benchmark::State& state, Change change, At at) {
  auto count = static_cast<int>(state.range(0));
  QtBoard board(count);
  int step = 0;
  for (auto _ : state) {
    state.PauseTiming();
    change(board.app, count, step);
    auto [x, y] = at(count, step++);
    state.ResumeTiming();
    tavlero::canvas_MouseDown(board.app, 1, 0, x, y);
    benchmark::DoNotOptimize(board.app.store.selectedCell);
  }
  finish(state);
}

void press(tavlero::App& app, int16_t shift, float x, float y) {
  tavlero::canvas_MouseDown(app, 1, shift, x, y);
  tavlero::canvas_MouseUp(app, 1, shift, x, y);
}

// The first press on a cell after a drop elsewhere moved another cell: hit testing must
// take the new geometry first.
void BM_QtFirstPressAfterChange(benchmark::State& state) {
  firstPressAfter(
      state,
      [](tavlero::App& app, int count, int step) {
        const float back = step % 2 ? 7.0f : 0.0f, x = cellX(count / 2) + 2 + back, y = cellY(count / 2) + 2;
        tavlero::canvas_MouseDown(app, 1, 0, x, y);
        tavlero::canvas_MouseMove(app, 1, 0, x + 7 - 2 * back, y);
        tavlero::canvas_MouseUp(app, 1, 0, x + 7 - 2 * back, y);
      },
      [](int count, int) { return std::pair(cellX(count / 3) + 2, cellY(count / 3) + 2); });
}
BENCHMARK(BM_QtFirstPressAfterChange)->Apply(atEachSize)->Iterations(10);

// The first press off the cells after a cell was linked to another by Shift and a click,
// which draws the new link alone: hit testing of the links must take its box first.
void BM_QtFirstPressAfterLink(benchmark::State& state) {
  firstPressAfter(
      state,
      [](tavlero::App& app, int count, int step) {
        const int from = count / 3 + 3 * step;
        press(app, 0, cellX(from) + 2, cellY(from) + 2);
        press(app, 1, cellX(from + 3) + 2, cellY(from + 3) + 2);
      },
      [](int count, int step) {
        const int at = count / 3 + 3 * step + 3;
        return std::pair(cellX(at) + 55, cellY(at) + 25);
      });
}
BENCHMARK(BM_QtFirstPressAfterLink)->Apply(atEachSize)->Iterations(10);

// The first redraw after a project was read: no text measured yet.
void BM_QtFirstRedraw(benchmark::State& state) {
  onNewBoard(state, false, tavlero::redrawBoard);
}
BENCHMARK(BM_QtFirstRedraw)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->Complexity();

void BM_QtPaintVisibleArea(benchmark::State& state) {
  QtBoard board(static_cast<int>(state.range(0)));
  tavlero::CanvasWidget& canvas = board.canvas;
  QImage window(967, 656, QImage::Format_RGB32);
  for (auto _ : state) board.paint(window);
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
