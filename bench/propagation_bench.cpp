// Warm calls (initialised != 0) and initialisation of each model on the
// report's element sets: 88888 (near Earth) and 11801 (deep space).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "bench/data_file.h"
#include "core/elements/element_parser.h"
#include "core/propagation/batch_propagator.h"
#include "core/propagation/batch_sdp4.h"
#include "core/propagation/batch_sgp4.h"
#include "core/propagation/propagate.h"
#include "core/propagation/propagator.h"
#include "tools/synthetic_catalogue.h"

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

// Near-Earth or deep-space catalogues of the given size spread from the
// bundled element sets, as the catalogue maker in tools/ makes them.
std::vector<Satellite> catalogue(std::size_t count, bool deepSpace) {
  std::vector<Satellite> templates;
  for (const char* name : {"visual_2017-04-14.txt", "iridium_2014-06-21.txt", "sources/sgp4-ver.tle"}) {
    for (const Satellite& s : readElementSets(bench::DataFileText(name))) templates.push_back(s);
  }
  return syntheticCatalogue(templates, count, deepSpace ? 1.0 : 0.0, 20261123u);
}

// Reports the time per satellite-propagation as "per_propagation".
void countPropagations(benchmark::State& state, std::size_t perIteration) {
  state.counters["per_propagation"] = benchmark::Counter(
      static_cast<double>(perIteration), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Every satellite of a catalogue at one time, a minute later each iteration.
template <class Batch>
void batchAtOneTime(benchmark::State& state, bool deepSpace) {
  const std::vector<Satellite> sats = catalogue(static_cast<std::size_t>(state.range(0)), deepSpace);
  const Batch batch(sats);
  const double start = epochToJulian(sats.front().epoch);
  BatchStates out;
  unsigned i = 0;
  for (auto _ : state) {
    batch.propagate(start + timeOf(i++) / 1440.0, out);
    benchmark::DoNotOptimize(out.column(StateField::X));
  }
  countPropagations(state, sats.size());
}

// The same catalogues through the scalar models, one warm Propagator per
// satellite: the reference for the batch at one time.
void scalarAtOneTime(benchmark::State& state, bool deepSpace) {
  const std::vector<Satellite> sats = catalogue(static_cast<std::size_t>(state.range(0)), deepSpace);
  std::vector<Propagator> propagators(sats.begin(), sats.end());
  const double start = epochToJulian(sats.front().epoch);
  unsigned i = 0;
  for (auto _ : state) {
    const double jd = start + timeOf(i++) / 1440.0;
    for (Propagator& p : propagators) benchmark::DoNotOptimize(p.stateAt(jd));
  }
  countPropagations(state, sats.size());
}

// One satellite at 1440 times a minute apart.
template <class Batch>
void batchOverADay(benchmark::State& state, const char* const lines[2]) {
  auto parsed = std::make_unique<Catalogue>();
  parseElementSet(*parsed, "BENCH", std::string("\n") + lines[0], lines[1], 0);
  const Satellite sat = parsed->satellites[0];
  const Batch batch(std::span<const Satellite>(&sat, 1));
  std::vector<double> jds(1440);
  for (std::size_t m = 0; m < jds.size(); ++m) jds[m] = epochToJulian(sat.epoch) + static_cast<double>(m) / 1440.0;
  BatchStates out;
  for (auto _ : state) {
    batch.propagateTimes(0, jds, out);
    benchmark::DoNotOptimize(out.column(StateField::X));
  }
  countPropagations(state, jds.size());
}

// One round of a lock-step search over a catalogue: every satellite once, in
// shuffled order, each at its own time within a day.
struct Round {
  std::vector<Satellite> sats;
  std::vector<std::uint32_t> which;
  std::vector<double> jds;
};

Round shuffledRound(bool deepSpace) {
  Round r{catalogue(12000, deepSpace), {}, {}};
  r.which.resize(r.sats.size());
  std::iota(r.which.begin(), r.which.end(), 0u);
  std::mt19937 random(20261123u);
  std::shuffle(r.which.begin(), r.which.end(), random);
  std::uniform_real_distribution<double> day(0.0, 1.0);
  const double start = epochToJulian(r.sats.front().epoch);
  for (std::size_t k = 0; k < r.which.size(); ++k) r.jds.push_back(start + day(random));
  return r;
}

void gatheredRound(benchmark::State& state, bool deepSpace) {
  const Round r = shuffledRound(deepSpace);
  const BatchPropagator batch(r.sats);
  BatchStates out;
  for (auto _ : state) {
    batch.statesAt(r.which, r.jds, out);
    benchmark::DoNotOptimize(out.column(StateField::X));
  }
  countPropagations(state, r.which.size());
}

// The same round through a fresh copy of each satellite's scalar model, as a
// search that wants the first call after initialisation makes it.
void scalarRound(benchmark::State& state, bool deepSpace) {
  const Round r = shuffledRound(deepSpace);
  const std::vector<Propagator> propagators(r.sats.begin(), r.sats.end());
  for (auto _ : state) {
    for (std::size_t k = 0; k < r.which.size(); ++k) {
      Propagator fresh = propagators[r.which[k]];
      benchmark::DoNotOptimize(fresh.stateAt(r.jds[k]));
    }
  }
  countPropagations(state, r.which.size());
}

const bool registered = [] {
  benchmark::AddCustomContext("batch_simd_target", batchTargetName());
  benchmark::RegisterBenchmark("BM_Batch/SGP4/satellites", batchAtOneTime<BatchSgp4>, false)->Arg(181)->Arg(12000);
  benchmark::RegisterBenchmark("BM_Batch/SDP4/satellites", batchAtOneTime<BatchSdp4>, true)->Arg(181)->Arg(12000);
  benchmark::RegisterBenchmark("BM_Scalar/SGP4/satellites", scalarAtOneTime, false)->Arg(12000);
  benchmark::RegisterBenchmark("BM_Scalar/SDP4/satellites", scalarAtOneTime, true)->Arg(12000);
  benchmark::RegisterBenchmark("BM_Gathered/SGP4/shuffled_12000", gatheredRound, false);
  benchmark::RegisterBenchmark("BM_Gathered/SDP4/shuffled_12000", gatheredRound, true);
  benchmark::RegisterBenchmark("BM_FreshScalar/SGP4/shuffled_12000", scalarRound, false);
  benchmark::RegisterBenchmark("BM_FreshScalar/SDP4/shuffled_12000", scalarRound, true);
  benchmark::RegisterBenchmark("BM_Batch/SGP4/times_1440", batchOverADay<BatchSgp4>, kNearEarth);
  benchmark::RegisterBenchmark("BM_Batch/SDP4/times_1440", batchOverADay<BatchSdp4>, kDeepSpace);
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
