#pragma once
#include <span>
#include <string>
#include <vector>

#include "core/analysis/pass_geometry.h"
#include "core/astro/geodetic.h"
#include "core/elements/catalogue.h"
#include "core/elements/satellite.h"

namespace norvane {

// One pass of a satellite over the observer: from rising above the minimum
// elevation (AOS) through the highest point (TCA) to setting below it (LOS).
// Times are UTC Julian days rounded to the second; angles in degrees,
// azimuths in [0, 360).
struct PlannedPass {
  int slot = -1;          // catalogue slot, or the record's index when planning a whole file
  int catnr = 0;
  std::string name;       // the satellite's name, trailing blanks removed
  double aos = 0;         // start of the search span when the pass was already in progress
  double tca = 0;
  double los = 0;         // end of the search span when the pass had not ended by then
  double aosAzimuth = 0;  // deg
  double tcaAzimuth = 0;  // deg
  double tcaElevation = 0;  // deg, the pass's maximum elevation
  double losAzimuth = 0;  // deg
  bool inProgressAtStart = false;  // above the minimum elevation at the start of the span
  bool endsAfterSpan = false;      // still above it at the end of the span
  bool neverSets = false;          // above the minimum elevation for the whole span: no AOS, no LOS
  bool visible = false;            // part of the pass is sunlit with the observer in darkness
  double visibleStart = 0;         // jd, when visible
  double visibleEnd = 0;           // jd, when visible
  double minMagnitude = 0;         // brightest visual magnitude over the visible part, when visible
                                   // (100.0 when the satellite's standard magnitude is unknown)
  // The visible part is the first stretch of the pass that is sunlit under a
  // dark sky (Sun more than 0.13 rad below the horizon); long passes of high
  // orbits may have more, counted here.
  int visibleStretches = 0;

  double durationSeconds() const { return (los - aos) * 86400.0; }
};

struct PlannerOptions {
  double minElevationDeg = 0;  // a pass counts when its maximum elevation reaches this
  // Shortest step of the coarse search, s. Passes at least this long above the
  // minimum elevation are always found; shorter ones are found through their
  // culmination wherever the orbit could come that close.
  double finestStepSeconds = 20;
  // The models to propagate with (the tracker's SGP8/SDP8 setting).
  ModelFamily family = ModelFamily::Sgp4Sdp4;
};

// Every pass of one satellite between startJd and endJd (UTC days), in time order.
std::vector<PlannedPass> planPasses(const Satellite& satellite, int slot, const Geodetic& observer,
                                    double startJd, double endJd, const PlannerOptions& options);

// The same with the satellite's states taken from source; satellite supplies
// the name, catalogue number and the mean elements for the search's bounds.
std::vector<PlannedPass> planPassesFrom(StateSource& source, const Satellite& satellite, int slot,
                                        const Geodetic& observer, double startJd, double endJd,
                                        const PlannerOptions& options);

// The passes of the catalogue's satellites in slots, all sorted by AOS (then
// slot). Slots outside the loaded satellites are left out.
std::vector<PlannedPass> planCataloguePasses(const Catalogue& catalogue, std::span<const int> slots,
                                             const Geodetic& observer, double startJd, double endJd,
                                             const PlannerOptions& options);

// The slots whose selection flag is set, in file order.
std::vector<int> selectedSlots(const Catalogue& catalogue);

}  // namespace norvane
