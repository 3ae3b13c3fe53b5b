#include "core/radio/doppler.h"

namespace norvane {

namespace {
double Beta(double rangeRateKmS) { return rangeRateKmS * 1000.0 / kSpeedOfLightMS; }
}  // namespace

double ReceiveFrequency(double downlinkHz, double rangeRateKmS) { return downlinkHz * (1.0 - Beta(rangeRateKmS)); }

double TransmitFrequency(double uplinkHz, double rangeRateKmS) { return uplinkHz * (1.0 + Beta(rangeRateKmS)); }

double PairedUplink(const Transponder& transponder, double offsetHz) {
  if (transponder.uplinkHz <= 0) return 0;
  return transponder.inverting ? transponder.uplinkHz - offsetHz : transponder.uplinkHz + offsetHz;
}

RadioFrequencies CorrectedFrequencies(const Transponder& transponder, double rangeRateKmS, double offsetHz) {
  RadioFrequencies out;
  out.rxHz = ReceiveFrequency(transponder.downlinkHz + offsetHz, rangeRateKmS);
  const double uplink = PairedUplink(transponder, offsetHz);
  out.txHz = uplink > 0 ? TransmitFrequency(uplink, rangeRateKmS) : 0;
  return out;
}

}  // namespace norvane
