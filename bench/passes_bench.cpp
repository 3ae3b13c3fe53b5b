// 24-hour pass searches: 181 satellites with visible-only off, and the flare
// search over the Iridium file. Counters report rows and passes found.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "core/analysis/pass_search.h"
#include "bench/data_file.h"
#include "core/elements/element_text.h"

namespace norvane {
namespace {

void search(benchmark::State& bench, const std::string& text, const PassSearchOptions& options) {
  auto catalogue = std::make_unique<Catalogue>();
  loadElementText(*catalogue, text);
  // Every slot searched, the 181st included as far as the flags reach.
  auto models = std::make_unique<ModelState>();
  PredictionStore store;
  for (auto _ : bench) {
    Geodetic observer{0.9, 0.0, 0.05, 0};
    LookAngleCache cache;
    SearchPasses(*catalogue, observer, cache, *models, options, store, nullptr);
    benchmark::DoNotOptimize(store.rows.data());
  }
  bench.counters["satellites"] = catalogue->satelliteCount;
  bench.counters["rows"] = static_cast<double>(store.rows.size());
  bench.counters["passes"] = store.passes;
}

// The bright-satellite file followed by the Iridium file fills all 181 slots.
void BM_Passes24h181Satellites(benchmark::State& bench) {
  search(bench, bench::DataFileText("visual_2017-04-14.txt") + bench::DataFileText("iridium_2014-06-21.txt"),
         {2457858.0, 24, false, false, 20, 0});
}
BENCHMARK(BM_Passes24h181Satellites)->Unit(benchmark::kMillisecond);

// Visible-only with no magnitude limit reached: rows stay below 301, so every satellite runs the full day.
void BM_Passes24h181SatellitesVisibleOnly(benchmark::State& bench) {
  search(bench, bench::DataFileText("visual_2017-04-14.txt") + bench::DataFileText("iridium_2014-06-21.txt"),
         {2457858.0, 24, false, true, 1, 0});
}
BENCHMARK(BM_Passes24h181SatellitesVisibleOnly)->Unit(benchmark::kMillisecond);

void BM_Flares24hIridium(benchmark::State& bench) {
  search(bench, bench::DataFileText("iridium_2014-06-21.txt"), {2456829.5, 24, true, false, 20, 0});
}
BENCHMARK(BM_Flares24hIridium)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace norvane
