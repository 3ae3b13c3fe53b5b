#include "core/analysis/catalogue_passes.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <iterator>
#include <thread>

#include "core/analysis/orbit_bounds.h"
#include "core/astro/numeric.h"
#include "core/propagation/propagate.h"

namespace norvane {
namespace {

constexpr double kDegree = kPi / 180.0;
// Room for the difference between geodetic and geocentric latitude (0.19
// degrees at most) and the models' periodic terms in the inclination.
constexpr double kLatitudeMargin = 0.5 * kDegree;
// Satellites a worker takes at a time.
constexpr std::size_t kChunk = 8;

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

  // Workers take chunks of satellites from a shared counter and keep their
  // passes apart until all have finished.
  std::atomic<std::size_t> next{0};
  std::vector<std::vector<PlannedPass>> found(static_cast<std::size_t>(plan.threads));
  auto work = [&](std::vector<PlannedPass>& out) {
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
  std::vector<std::thread> pool;
  for (std::size_t t = 1; t < found.size(); ++t) pool.emplace_back(work, std::ref(found[t]));
  work(found[0]);
  for (std::thread& t : pool) t.join();

  for (std::vector<PlannedPass>& part : found) {
    plan.passes.insert(plan.passes.end(), std::make_move_iterator(part.begin()), std::make_move_iterator(part.end()));
  }
  std::sort(plan.passes.begin(), plan.passes.end(), [](const PlannedPass& a, const PlannedPass& b) {
    return a.aos != b.aos ? a.aos < b.aos : a.slot < b.slot;
  });
  return plan;
}

}  // namespace norvane
