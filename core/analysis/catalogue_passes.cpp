#include "core/analysis/catalogue_passes.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <thread>

#include "core/analysis/orbit_bounds.h"
#include "core/analysis/planner_search.h"
#include "core/astro/numeric.h"
#include "core/propagation/batch_propagator.h"
#include "core/propagation/propagate.h"

namespace norvane {
namespace {

constexpr double kDegree = kPi / 180.0;
// Room for the difference between geodetic and geocentric latitude (0.19
// degrees at most) and the models' periodic terms in the inclination.
constexpr double kLatitudeMargin = 0.5 * kDegree;
// Satellites a worker takes at a time.
constexpr std::size_t kChunk = 8;
// Searches a worker keeps in step: enough rows for the batch calls to pay,
// few enough for the searches' state to stay in cache.
constexpr std::size_t kGroup = 256;

struct Window {
  const Geodetic& observer;
  double startJd;
  double endJd;
  const PlannerOptions& options;
};

// One satellite's search while it is in the group.
struct LiveSearch {
  std::unique_ptr<PlannerSearch> search;
  SearchTask<std::vector<PlannedPass>> task;
  std::uint32_t row = 0;  // the satellite's row in the worker's batch propagator
};

// The searches of one worker's satellites (indices into sats), kept in step:
// each round every live search has asked for one sample, the samples are
// worked out together, and each search runs on to its next request. Finished
// searches leave the group and the next satellites take their places.
void planInStep(std::span<const Satellite> sats, std::span<const std::size_t> mine, const Window& window,
                std::vector<PlannedPass>& out, std::size_t& samples) {
  std::vector<Satellite> own;
  own.reserve(mine.size());
  for (const std::size_t index : mine) own.push_back(sats[index]);
  const BatchPropagator batch(own);
  SkyView view(window.observer);

  std::vector<LiveSearch> group;
  std::vector<std::uint32_t> rows;
  std::vector<double> jds;
  BatchStates states;
  std::vector<SkySample> answers;
  auto finish = [&](LiveSearch& live) {
    samples += live.search->samples();
    std::vector<PlannedPass> passes = live.task.result();
    out.insert(out.end(), std::make_move_iterator(passes.begin()), std::make_move_iterator(passes.end()));
  };
  std::size_t next = 0;
  while (next < own.size() || !group.empty()) {
    while (group.size() < kGroup && next < own.size()) {
      LiveSearch live;
      live.row = static_cast<std::uint32_t>(next);
      live.search = std::make_unique<PlannerSearch>(nullptr, own[next], static_cast<int>(mine[next]),
                                                    window.observer, window.options);
      live.task = live.search->run(window.startJd, window.endJd);
      live.task.resume();
      ++next;
      if (live.task.done()) {
        finish(live);
      } else {
        group.push_back(std::move(live));
      }
    }
    rows.clear();
    jds.clear();
    for (const LiveSearch& live : group) {
      rows.push_back(live.row);
      jds.push_back(live.search->requestedJd());
    }
    batch.statesAt(rows, jds, states);
    answers.resize(group.size());
    view.sampleMany(jds, states, answers);
    for (std::size_t k = 0; k < group.size(); ++k) group[k].search->answer(answers[k]);
    // Finished searches leave; the group's order does not matter.
    for (std::size_t k = group.size(); k-- > 0;) {
      if (!group[k].task.done()) continue;
      finish(group[k]);
      if (k + 1 != group.size()) group[k] = std::move(group.back());
      group.pop_back();
    }
  }
}

}  // namespace

bool canRise(const Satellite& satellite, const Geodetic& observer, double minElevationDeg) {
  if (!(satellite.xno > 0.0)) return false;
  const OrbitBounds bounds = orbitBoundsOf(satellite);
  if (!bounds.usable) return false;
  WorkingSet w;
  initialiseWorkingSet(w, satellite);
  if (w.isDeepSpace != 0) return true;
  // Farthest the sub-satellite point can be from the observer, measured at the
  // Earth's centre, with the satellite still at the minimum elevation: from
  // the apogee, over a spherical Earth.
  const double elevation = minElevationDeg * kDegree;
  const double observerRadius = kKilometresPerEarthRadius + observer.alt;
  const double reach = std::acos(std::clamp(observerRadius / bounds.maxRadiusKm * std::cos(elevation), -1.0, 1.0)) -
                       elevation;
  const double inclination = satellite.xincl * kDegree;
  const double highestLatitude = inclination <= kPi / 2.0 ? inclination : kPi - inclination;
  return std::fabs(observer.lat) <= highestLatitude + reach + kLatitudeMargin;
}

CataloguePlan planAllPasses(std::span<const Satellite> sats, const Geodetic& observer, double startJd,
                            double endJd, const PlannerOptions& options, int threads) {
  std::vector<std::size_t> searched;
  for (std::size_t i = 0; i < sats.size(); ++i) {
    if (canRise(sats[i], observer, options.minElevationDeg)) searched.push_back(i);
  }
  const std::size_t total = searched.size();

  CataloguePlan plan;
  plan.searched = total;
  const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
  plan.threads = static_cast<int>(std::clamp<std::size_t>(threads > 0 ? static_cast<std::size_t>(threads) : cores, 1,
                                                          std::max<std::size_t>(1, (total + kChunk - 1) / kChunk)));

  std::atomic<std::size_t> next{0};
  std::vector<std::vector<PlannedPass>> found(static_cast<std::size_t>(plan.threads));
  std::vector<std::size_t> samples(found.size(), 0);
  std::function<void(std::size_t)> work;
  std::vector<std::vector<std::size_t>> shares(found.size());
  const Window window{observer, startJd, endJd, options};
  if (options.family == ModelFamily::Sgp4Sdp4) {
    // Each worker keeps its share of the satellites in step; dealt out in
    // turn, the shares are alike in their mix of orbits.
    for (std::size_t k = 0; k < total; ++k) shares[k % shares.size()].push_back(searched[k]);
    work = [&](std::size_t worker) { planInStep(sats, shares[worker], window, found[worker], samples[worker]); };
  } else {
    // The other models are searched one satellite after another; workers take
    // chunks of satellites from a shared counter.
    work = [&](std::size_t worker) {
      std::vector<PlannedPass>& out = found[worker];
      for (;;) {
        const std::size_t first = next.fetch_add(kChunk);
        if (first >= total) return;
        for (std::size_t k = first; k < std::min(total, first + kChunk); ++k) {
          const std::size_t index = searched[k];
          std::vector<PlannedPass> passes =
              planPasses(sats[index], static_cast<int>(index), observer, startJd, endJd, options);
          out.insert(out.end(), std::make_move_iterator(passes.begin()), std::make_move_iterator(passes.end()));
        }
      }
    };
  }
  std::vector<std::thread> pool;
  for (std::size_t t = 1; t < found.size(); ++t) pool.emplace_back(work, t);
  work(0);
  for (std::thread& t : pool) t.join();
  for (const std::size_t n : samples) plan.samples += n;

  for (std::vector<PlannedPass>& part : found) {
    plan.passes.insert(plan.passes.end(), std::make_move_iterator(part.begin()), std::make_move_iterator(part.end()));
  }
  std::sort(plan.passes.begin(), plan.passes.end(), [](const PlannedPass& a, const PlannedPass& b) {
    return a.aos != b.aos ? a.aos < b.aos : a.slot < b.slot;
  });
  return plan;
}

}  // namespace norvane
