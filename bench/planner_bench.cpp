// The pass planner over 181 satellites (the bright-satellite file followed by
// the Iridium file), 24 hours and 10 days, from 54 degrees north; and the sky
// samples the searches take, one at a time and many at once.
#include <benchmark/benchmark.h>

#include <memory>
#include <numeric>
#include <random>
#include <string>

#include "core/analysis/pass_geometry.h"
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
// 12,000 states from low orbits to beyond the geostationary one in random
// directions, each at its own time within a day, as one round of a search
// over a catalogue asks for them.
struct SkyRows {
  std::vector<double> jds;
  BatchStates states;
  std::vector<OrbitState> scalar;
};

SkyRows skyRows() {
  SkyRows rows;
  constexpr std::size_t kRows = 12000;
  rows.states.resize(kRows);
  std::mt19937 random(20261123u);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  for (std::size_t k = 0; k < kRows; ++k) {
    rows.jds.push_back(2461000.5 + (unit(random) + 1.0) / 2.0);
    const double radius = 6700.0 + 36000.0 * (unit(random) + 1.0) / 2.0;
    OrbitState s;
    for (std::size_t i = 0; i < 3; ++i) {
      s.positionKm[i] = radius * unit(random) / 1.7320508;
      s.velocityKmS[i] = 4.3 * unit(random);
      rows.states.at(static_cast<StateField>(i), k) = s.positionKm[i];
      rows.states.at(static_cast<StateField>(i + 3), k) = s.velocityKmS[i];
    }
    rows.scalar.push_back(s);
  }
  return rows;
}

void perSample(benchmark::State& bench, std::size_t samples) {
  bench.counters["per_sample"] = benchmark::Counter(
      static_cast<double>(samples), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

const Geodetic kObserver{0.9424777960769379, 0.17, 0.05, 0};

void BM_SkySample12000(benchmark::State& bench) {
  const SkyRows rows = skyRows();
  SkyView view(kObserver);
  for (auto _ : bench) {
    for (std::size_t k = 0; k < rows.jds.size(); ++k) benchmark::DoNotOptimize(view.sample(rows.jds[k], rows.scalar[k]));
  }
  perSample(bench, rows.jds.size());
}

void BM_SkySampleMany12000(benchmark::State& bench) {
  const SkyRows rows = skyRows();
  SkyView view(kObserver);
  std::vector<SkySample> out(rows.jds.size());
  for (auto _ : bench) {
    view.sampleMany(rows.jds, rows.states, out);
    benchmark::DoNotOptimize(out.data());
  }
  perSample(bench, rows.jds.size());
}

BENCHMARK(BM_SkySample12000);
BENCHMARK(BM_SkySampleMany12000);
BENCHMARK(BM_Planner181Satellites24h)->Unit(benchmark::kMillisecond);

void BM_Planner181Satellites10Days(benchmark::State& bench) { plan(bench, 10.0); }
BENCHMARK(BM_Planner181Satellites10Days)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace
}  // namespace norvane
