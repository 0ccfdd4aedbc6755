// The HTML report and the text scheme of a large plan: one method record and one link
// per method, so the time should grow in step with the plan, not with its square.

#include <benchmark/benchmark.h>

#include <string>

#include "core/record.h"
#include "export/html_report.h"
#include "export/text_scheme.h"

namespace {

tavlero::ProjectStore planOf(int methods) {
  tavlero::ProjectStore store;
  const std::string& sep = store.fieldSeparator;
  for (int i = 0; i < methods; ++i) {
    std::string name = "metode" + std::to_string(i);
    store.itemList.AddItem(
        "<positionX> " + std::to_string(i % 200 * 60) + "</positionX>" + sep + "<positionY> " +
        std::to_string(i / 200 * 40) + "</positionY>" + sep + "<methodName>" + name + "</methodName>" + sep +
        "<shortDescription>Gjør del " + std::to_string(i) + "</shortDescription>" + sep + "<cellColor> " +
        std::to_string(i * 4099 % 16777216) + "</cellColor>" + sep + "<cellFillStyle> 0</cellFillStyle>");
    store.setLongDescription(static_cast<int16_t>(i), "Steg 1.\r\nSteg 2.\r\n");
    // Each method uses a method further on, so every table has an entry.
    std::string target = "metode" + std::to_string((i * 7 + 1) % methods);
    store.linkList.AddItem("<linkSource>" + name + "</linkSource><linkTarget>" + target + "</linkTarget>");
  }
  return store;
}

void BM_HtmlReport(benchmark::State& state) {
  tavlero::ProjectStore store = planOf(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(tavlero::buildHtmlReport(store));
  state.SetComplexityN(state.range(0));
}

void BM_SchemeText(benchmark::State& state) {
  tavlero::ProjectStore store = planOf(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(tavlero::buildScheme(store, true));
  state.SetComplexityN(state.range(0));
}

BENCHMARK(BM_HtmlReport)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(30000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(BM_SchemeText)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(30000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

}  // namespace

BENCHMARK_MAIN();
