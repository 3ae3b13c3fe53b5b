#pragma once
#include <optional>

#include "core/astro/geodetic.h"
#include "core/elements/satellite.h"
#include "core/propagation/propagator.h"
#include "core/radio/doppler.h"
#include "core/radio/pass_track.h"
#include "core/radio/rotator.h"

namespace norvane {

struct RadioControlConfig {
  Transponder transponder;
  double tuningOffsetHz = 0;  // Hz, downlink tuned this far from the pass band centre
  RotatorConfig rotator;
  ModelFamily family = ModelFamily::Sgp4Sdp4;
};

// What the station should do at one moment.
struct ControlStep {
  double jd = 0;  // UTC days
  SkyPosition sky;
  RadioFrequencies frequencies;
  RotatorTarget rotator;
  bool flip = false;  // the current pass is taken flipped
};

// The tracking loop for one satellite and one observer: Doppler-corrected
// frequencies every step, and rotator targets from a pass plan made once for
// each pass (re-made when the pass is over or the clock jumps away from it).
class RadioControl {
 public:
  RadioControl(const Satellite& satellite, const Geodetic& observer, const RadioControlConfig& config);

  ControlStep step(double jd);
  const RotatorPassPlan& plan() const { return plan_; }

 private:
  void replan(double jd);

  Propagator propagator_;
  Geodetic observer_;
  RadioControlConfig config_;
  RotatorPassPlan plan_;
  double planFrom_ = 0;         // jd the plan was searched from
  double nextSearchJd_ = 0;     // no pass found: search again from here
  bool planned_ = false;
  std::optional<double> previousAzimuth_;
};

}  // namespace norvane
