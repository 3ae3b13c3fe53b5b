#pragma once
#include <coroutine>
#include <cstddef>
#include <vector>

#include "core/analysis/extremum.h"
#include "core/analysis/orbit_bounds.h"
#include "core/analysis/pass_geometry.h"
#include "core/analysis/pass_planner.h"
#include "core/analysis/satellite_shape.h"
#include "core/analysis/search_task.h"

namespace norvane {

// The pass search for one satellite: a coarse scan whose steps are as long as
// the orbit's bounds allow, then root finding for the crossings of the minimum
// elevation and a maximum search for the culmination.
//
// The search is a coroutine that asks for each sky sample it needs. Given a
// StateSource it works every sample out the moment it asks, and run()'s task
// completes on its first resume(). Without one it suspends at each request
// until answer() hands it the sample for requestedJd(), so a driver can keep
// many searches in step and compute their samples together. The object must
// outlive the task and stay where it is.
class PlannerSearch {
 public:
  PlannerSearch(StateSource* source, const Satellite& satellite, int slot, const Geodetic& observer,
                const PlannerOptions& options);
  PlannerSearch(const PlannerSearch&) = delete;
  PlannerSearch& operator=(const PlannerSearch&) = delete;

  // The passes between start and end (UTC days), in time order.
  SearchTask<std::vector<PlannedPass>> run(double start, double end);

  // The time of the sample the suspended search waits for, UTC days.
  double requestedJd() const { return requestedJd_; }
  // Gives the waiting search its sample and runs it to its next request or its end.
  void answer(const SkySample& sample);
  // Samples asked for so far.
  std::size_t samples() const { return samples_; }

 private:
  struct Look {
    PlannerSearch& search;
    double jd;
    bool await_ready();
    void await_suspend(std::coroutine_handle<> waiting);
    SkySample await_resume() const { return search.answer_; }
  };
  // One moment of the visible-part search.
  struct Moment {
    double jd = 0;
    bool visible = false;
    double magnitude = kUnknownMagnitude;
  };
  // Awaits a moment: the Sun first, and the satellite's sample only under a
  // dark sky.
  struct MomentLook {
    PlannerSearch& search;
    double jd;
    StateVector sun;
    bool dark = false;
    bool await_ready();
    void await_suspend(std::coroutine_handle<> waiting) const { Look{search, jd}.await_suspend(waiting); }
    Moment await_resume() const;
  };

  Look look(double jd) { return Look{*this, jd}; }
  bool above(const SkySample& s) const { return s.elevation >= minElevation_; }
  // How long the satellite certainly stays on its side of the minimum
  // elevation, from the separation angle and the orbit's turn rate; days.
  // Backwards in time when `backwards` is set.
  double safeSpan(const SkySample& s, bool backwards = false) const;
  double stepAfter(const SkySample& s) const;
  SearchTask<SkySample> crossing(SkySample before, SkySample after);
  // The highest point between left and right, top being the highest sample.
  SearchTask<SkySample> culmination(SkySample left, SkySample top, SkySample right);
  // The highest sample the search finds, in seconds from originJd, or best.
  SearchTask<SkySample> highest(MinimumSearch search, double originJd, SkySample best);
  // Ends the pass under way at los, rightEdge being the sample after the highest one.
  SearchTask<void> closePass(SkySample los, SkySample rightEdge);
  SearchTask<PlannedPass> makePass(SkySample aos, SkySample los, SkySample top);
  SearchTask<PlannedPass> withVisiblePart(PlannedPass pass, double from, double to);
  MomentLook moment(double jd) { return MomentLook{*this, jd, StateVector{}}; }
  // Where the visibility changes between a and b (one of each), to the tolerance.
  SearchTask<Moment> edge(Moment a, Moment b);

  StateSource* source_;
  const Satellite& satellite_;
  int slot_;
  SkyView view_;
  double minElevation_;
  double finest_;
  OrbitBounds bounds_;
  double standardMagnitude_;
  double turnRate_ = 0;  // rad/day, raised when the samples show a faster turn

  // The sample asked for and the coroutine waiting for it.
  double requestedJd_ = 0;
  SkySample answer_;
  std::coroutine_handle<> waiting_;
  std::size_t samples_ = 0;

  // The scan: the passes found and the pass under way, with its AOS and the
  // highest sample with its neighbours.
  std::vector<PlannedPass> passes_;
  bool inPass_ = false;
  bool inProgress_ = false;
  SkySample aos_;
  SkySample top_;
  SkySample topLeft_;   // the samples either side of the highest one
  SkySample topRight_;
  bool topOpen_ = false;
};

}  // namespace norvane
