// The pass planner over 181 satellites (the bright-satellite file followed by
// the Iridium file), 24 hours and 10 days, from 54 degrees north.
#include <benchmark/benchmark.h>

#include <memory>
#include <numeric>
#include <string>

#include "core/analysis/pass_planner.h"
#include "bench/data_file.h"
#include "core/elements/element_text.h"

namespace norvane {
namespace {

void plan(benchmark::State& bench, double days) {
  auto catalogue = std::make_unique<Catalogue>();
  loadElementText(*catalogue, bench::DataFileText("visual_2017-04-14.txt") + bench::DataFileText("iridium_2014-06-21.txt"));
  std::vector<int> slots(static_cast<std::size_t>(catalogue->satelliteCount));
  std::iota(slots.begin(), slots.end(), 0);
  const Geodetic observer{0.9424777960769379, 0.17, 0.05, 0};
  std::size_t passes = 0;
  for (auto _ : bench) {
    const auto found = planCataloguePasses(*catalogue, slots, observer, 2457858.0, 2457858.0 + days, {});
    passes = found.size();
    benchmark::DoNotOptimize(found.data());
  }
  bench.counters["satellites"] = catalogue->satelliteCount;
  bench.counters["passes"] = static_cast<double>(passes);
}

void BM_Planner181Satellites24h(benchmark::State& bench) { plan(bench, 1.0); }
BENCHMARK(BM_Planner181Satellites24h)->Unit(benchmark::kMillisecond);

void BM_Planner181Satellites10Days(benchmark::State& bench) { plan(bench, 10.0); }
BENCHMARK(BM_Planner181Satellites10Days)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace
}  // namespace norvane
