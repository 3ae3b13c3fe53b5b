#pragma once
#include <cstddef>
#include <span>
#include <vector>

#include "core/analysis/pass_planner.h"
#include "core/astro/geodetic.h"
#include "core/elements/satellite.h"

namespace norvane {

// Whether the satellite can ever climb to minElevationDeg for the observer:
// false when its mean motion gives no orbit, or, for near-Earth orbits, when
// the observer's latitude lies farther from the orbit's highest latitude than
// the satellite can be seen over the horizon from its apogee. Deep-space
// orbits are always kept (the Sun and Moon turn their planes).
bool canRise(const Satellite& satellite, const Geodetic& observer, double minElevationDeg);

struct CataloguePlan {
  std::vector<PlannedPass> passes;  // sorted by AOS, then by the satellite's index
  std::size_t searched = 0;         // satellites left after the pre-filter
  int threads = 0;                  // workers used
  std::size_t samples = 0;          // sky samples the searches asked for (SGP4/SDP4 only)
};

// The passes of every satellite of a catalogue of any size between startJd
// and endJd, searched by the pass planner on threads workers (0: one per
// processor) after the pre-filter canRise. A pass's slot is the satellite's
// index in sats. With the SGP4/SDP4 models each worker keeps its searches in
// step and works their samples out together; the passes equal planPasses's.
CataloguePlan planAllPasses(std::span<const Satellite> sats, const Geodetic& observer, double startJd,
                            double endJd, const PlannerOptions& options, int threads);

}  // namespace norvane
