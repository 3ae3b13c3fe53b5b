// The 24-hour pass summary over a 12,000-satellite catalogue spread from the
// bundled element sets (as tools/make_catalogue makes it), from 54 degrees
// north, on one and on two worker threads. Each worker keeps its searches in
// step and has their sky samples worked out in batches.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/data_file.h"
#include "core/analysis/catalogue_passes.h"
#include "tools/synthetic_catalogue.h"

namespace norvane {
namespace {

std::vector<Satellite> largeCatalogue() {
  std::vector<Satellite> templates;
  for (const char* name : {"visual_2017-04-14.txt", "iridium_2014-06-21.txt", "sources/sgp4-ver.tle"}) {
    for (const Satellite& s : readElementSets(bench::DataFileText(name))) templates.push_back(s);
  }
  return syntheticCatalogue(templates, 12000, 0.08, 20261123u);
}

void BM_PassSummary24h12000Satellites(benchmark::State& bench) {
  const std::vector<Satellite> sats = largeCatalogue();
  const Geodetic observer{0.9477, 0.1767, 0.03, 0};
  CataloguePlan plan;
  for (auto _ : bench) {
    plan = planAllPasses(sats, observer, 2457858.0, 2457859.0, {}, static_cast<int>(bench.range(0)));
    benchmark::DoNotOptimize(plan.passes.data());
  }
  bench.counters["satellites"] = static_cast<double>(sats.size());
  bench.counters["searched"] = static_cast<double>(plan.searched);
  bench.counters["passes"] = static_cast<double>(plan.passes.size());
  bench.counters["samples"] = static_cast<double>(plan.samples);
}
BENCHMARK(BM_PassSummary24h12000Satellites)
    ->ArgName("threads")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();

}  // namespace
}  // namespace norvane
