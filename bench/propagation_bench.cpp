// Warm calls (initialised != 0) and initialisation of each model on the
// report's element sets: 88888 (near Earth) and 11801 (deep space).
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "core/elements/element_parser.h"
#include "core/propagation/propagate.h"

namespace norvane {
namespace {

constexpr const char* kNearEarth[2] = {
    "1 88888U          80275.98708465  .00073094  13844-3  66816-4 0    8",
    "2 88888  72.8435 115.9689 0086731  52.6988 110.5714 16.05824518  105"};
constexpr const char* kDeepSpace[2] = {
    "1 11801U          80230.29629788  .01431103  00000-0  14311-1      13",
    "2 11801  46.7916 230.4354 7318036  47.4722  10.4117  2.28537848    13"};

WorkingSet workingSet(const char* const lines[2]) {
  auto catalogue = std::make_unique<Catalogue>();
  parseElementSet(*catalogue, "BENCH", std::string("\n") + lines[0], lines[1], 0);
  WorkingSet work;
  initialiseWorkingSet(work, catalogue->satellites[0]);
  return work;
}

// Times of the warm calls: minutes 0 to 1439 visited in steps of 37, so that
// consecutive calls are more than 30 minutes apart and the lunar-solar terms
// are recomputed each time. bench/satellite_js_bench.js uses the same times.
double timeOf(unsigned i) { return static_cast<double>((i * 37u) % 1440u); }

void warm(benchmark::State& state, const char* const lines[2], int mode) {
  const WorkingSet work = workingSet(lines);
  auto models = std::make_unique<ModelState>();
  StateVector r, v;
  runModel(*models, 0.0, work, r, v, 0, mode);
  unsigned i = 0;
  for (auto _ : state) {
    runModel(*models, timeOf(i++), work, r, v, 1, mode);
    benchmark::DoNotOptimize(r);
    benchmark::DoNotOptimize(v);
  }
}

// Initialisation and the first update at epoch.
void init(benchmark::State& state, const char* const lines[2], int mode) {
  const WorkingSet work = workingSet(lines);
  auto models = std::make_unique<ModelState>();
  StateVector r, v;
  for (auto _ : state) {
    runModel(*models, 0.0, work, r, v, 0, mode);
    benchmark::DoNotOptimize(r);
  }
}

const bool registered = [] {
  benchmark::RegisterBenchmark("BM_Warm/SGP4", warm, kNearEarth, 0);
  benchmark::RegisterBenchmark("BM_Warm/SDP4", warm, kDeepSpace, 0);
  benchmark::RegisterBenchmark("BM_Warm/SGP8", warm, kNearEarth, kSgp8Mode);
  benchmark::RegisterBenchmark("BM_Warm/SDP8", warm, kDeepSpace, kSgp8Mode);
  benchmark::RegisterBenchmark("BM_Init/SGP4", init, kNearEarth, 0);
  benchmark::RegisterBenchmark("BM_Init/SDP4", init, kDeepSpace, 0);
  benchmark::RegisterBenchmark("BM_Init/SGP8", init, kNearEarth, kSgp8Mode);
  benchmark::RegisterBenchmark("BM_Init/SDP8", init, kDeepSpace, kSgp8Mode);
  return true;
}();

}  // namespace
}  // namespace norvane

BENCHMARK_MAIN();
