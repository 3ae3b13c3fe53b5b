#pragma once
#include <cstdint>

#include "core/platform/message_sink.h"
#include "core/platform/system_clock.h"
#include "gps/gps_data.h"

namespace norvane {

enum class GpsClockOutcome { TrackingOff, NotSet, Set };

// What "Set GPS time" did and the two figures it shows when it set the clock.
struct GpsClockResult {
  GpsClockOutcome outcome = GpsClockOutcome::TrackingOff;
  int correctionSeconds = 0;   // "Delay [s]": new minute and second minus the old ones
  std::uint32_t delayMs = 0;   // tick count now - the record's time stamp + 10
  LocalClockTime written;      // the time handed to the clock
};

// Sets the local clock from the receiver's UTC time plus the whole hours of
// utcOffset (days), waiting for the start of the named second. Shows "Turn
// GPS tracking on!" ("Warning") when tracking is not 1, "Clock set to GPS
// atomic time!!!" ("Time") or "Clock not set!!". lastDelayMs keeps the delay.
GpsClockResult SetClockFromGps(const GpsData& gps, std::int32_t tracking, double utcOffset, SystemClock& clock,
                               std::uint32_t& lastDelayMs, MessageSink& messages);

}  // namespace norvane
