#pragma once

namespace norvane {

inline constexpr double kSpeedOfLightMS = 299792458.0;  // m/s

// A satellite's radio channel as the satellite transmits and hears it.
struct Transponder {
  double downlinkHz = 0;   // Hz, what the satellite sends (centre of a linear pass band)
  double uplinkHz = 0;     // Hz, what the satellite listens on; 0 when it has no uplink
  bool inverting = false;  // linear transponder that mirrors its pass band
};

// Frequencies the station's radio must use at one moment.
struct RadioFrequencies {
  double rxHz = 0;  // Hz
  double txHz = 0;  // Hz, 0 when there is no uplink
};

// Receive frequency for a downlink sent at downlinkHz by a body whose distance
// changes at rangeRateKmS (km/s, positive when receding): downlink x (1 - v/c).
double ReceiveFrequency(double downlinkHz, double rangeRateKmS);

// Transmit frequency at which the satellite hears uplinkHz: uplink x (1 + v/c).
double TransmitFrequency(double uplinkHz, double rangeRateKmS);

// The uplink (Hz, in the satellite's frame) that pairs with a downlink tuned
// offsetHz above the pass band centre: it moves with the downlink, or against
// it on an inverting transponder. 0 when there is no uplink.
double PairedUplink(const Transponder& transponder, double offsetHz);

// Receive and transmit frequencies for a downlink tuned offsetHz from the
// centre of the transponder's pass band (0 for a single channel).
RadioFrequencies CorrectedFrequencies(const Transponder& transponder, double rangeRateKmS, double offsetHz = 0);

}  // namespace norvane
