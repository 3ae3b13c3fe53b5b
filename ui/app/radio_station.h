#pragma once
#include <memory>
#include <optional>
#include <string>

#include "core/astro/geodetic.h"
#include "core/elements/satellite.h"
#include "core/propagation/propagator.h"
#include "core/radio/frequency_table.h"
#include "core/radio/radio_control.h"
#include "radio/radio_link.h"
#include "settings/radio_settings.h"

namespace norvane {

// The link's and the rotator's settings as the radio settings give them,
// with out-of-range values brought back into range.
RadioLinkConfig LinkConfigOf(const RadioSettings& settings);
RotatorConfig RotatorConfigOf(const RadioSettings& settings);

// What the station follows at one moment.
struct StationInput {
  const Satellite* satellite = nullptr;  // nothing is controlled without one (or for the placeholder)
  Geodetic observer;                     // rad, km
  double jd = 0;                         // UTC days
  double downlinkMHz = 130.0;            // the settings' frequencies, for satellites not in the file
  double uplinkMHz = 138.0;
  ModelFamily family = ModelFamily::Sgp4Sdp4;
};

// The window's radio and rotator control: the tracking loop for the current
// satellite and observer, the frequency file, and the link to the daemons.
// Qt-free; the window calls update() from its timer.
class RadioStation {
 public:
  RadioStation() = default;
  ~RadioStation();

  // Takes new settings and rereads the frequency file; restarts the link.
  void configure(const RadioSettings& settings, const std::string& frequencyFile);
  void update(const StationInput& input);
  void stop();

  bool active() const { return link_ != nullptr; }
  // The shortest update period of the enabled daemons, ms.
  int periodMs() const;
  // Two lines: the radio's and the rotator's state.
  std::string radioLine() const;
  std::string rotatorLine() const;
  const std::optional<ControlStep>& lastStep() const { return last_; }

 private:
  RadioSettings settings_;
  FrequencyTable table_;
  std::unique_ptr<RadioLink> link_;
  std::unique_ptr<RadioControl> control_;
  int controlCatnr_ = 0;
  Geodetic controlObserver_;
  Transponder controlTransponder_;
  ModelFamily controlFamily_ = ModelFamily::Sgp4Sdp4;
  std::optional<ControlStep> last_;
};

}  // namespace norvane
