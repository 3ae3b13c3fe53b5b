#include "ui/app/radio_station.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "core/radio/radio_mode.h"
#include "core/text/format.h"

namespace norvane {

namespace {

constexpr std::size_t kFrequencyFileMax = 1 << 20;

std::string ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return {};
  std::string text(kFrequencyFileMax, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(in.gcount()));
  return text;
}

DaemonEndpoint Endpoint(std::int32_t enabled, const std::string& host, std::int32_t port, std::int32_t periodMs) {
  DaemonEndpoint e;
  e.enabled = enabled == 1 && port > 0 && port <= 65535;
  e.host = host.empty() ? "127.0.0.1" : host;
  e.port = port;
  e.periodMs = std::clamp(periodMs, 100, 60000);
  return e;
}

bool SameTransponder(const Transponder& a, const Transponder& b) {
  return a.downlinkHz == b.downlinkHz && a.uplinkHz == b.uplinkHz && a.inverting == b.inverting;
}

// Within about 100 m: a GPS fix that wanders a little keeps the pass plan.
bool SamePlace(const Geodetic& a, const Geodetic& b) {
  constexpr double kRadians = 1.6e-5;
  return std::fabs(a.lat - b.lat) < kRadians && std::fabs(a.lon - b.lon) < kRadians && std::fabs(a.alt - b.alt) < 0.1;
}

}  // namespace

RadioLinkConfig LinkConfigOf(const RadioSettings& s) {
  RadioLinkConfig c;
  c.rig = Endpoint(s.rigEnable, s.rigHost, s.rigPort, s.rigPeriodMs);
  c.rotator = Endpoint(s.rotEnable, s.rotHost, s.rotPort, s.rotPeriodMs);
  c.rigToleranceHz = std::clamp(s.rigToleranceHz, 0.0, 1e6);
  c.rotToleranceDeg = std::clamp(s.rotToleranceDeg, 0.0, 90.0);
  return c;
}

RotatorConfig RotatorConfigOf(const RadioSettings& s) {
  RotatorConfig c;
  c.azimuthRange = s.rotAzRange == 1 ? AzimuthRange::Minus180To180
                   : s.rotAzRange == 2 ? AzimuthRange::Zero450
                                       : AzimuthRange::Zero360;
  c.elevationRange = s.rotElRange == 1 ? ElevationRange::Zero180 : ElevationRange::Zero90;
  c.flip = s.rotFlip == 1 ? FlipMode::Auto : FlipMode::Off;
  c.toleranceDeg = std::clamp(s.rotToleranceDeg, 0.0, 90.0);
  c.minElevationDeg = std::clamp(s.rotMinElevation, 0.0, 90.0);
  c.parkAzimuthDeg = s.rotParkAz;
  c.parkElevationDeg = std::clamp(s.rotParkEl, 0.0, 180.0);
  return c;
}

RadioStation::~RadioStation() { stop(); }

void RadioStation::configure(const RadioSettings& settings, const std::string& frequencyFile) {
  stop();
  settings_ = settings;
  table_ = ParseFrequencyTable(ReadText(frequencyFile));
  control_.reset();
  last_.reset();
  const RadioLinkConfig config = LinkConfigOf(settings);
  if (!config.rig.enabled && !config.rotator.enabled) return;
  link_ = std::make_unique<RadioLink>(config);
  link_->start();
}

void RadioStation::stop() {
  if (link_) link_->stop();
  link_.reset();
}

int RadioStation::periodMs() const {
  if (!link_) return 1000;
  const RadioLinkConfig& c = link_->config();
  int period = 60000;
  if (c.rig.enabled) period = std::min(period, c.rig.periodMs);
  if (c.rotator.enabled) period = std::min(period, c.rotator.periodMs);
  return period;
}

void RadioStation::update(const StationInput& in) {
  if (!link_) return;
  if (in.satellite == nullptr || in.satellite->catnr == 0) {
    control_.reset();
    last_.reset();
    return;
  }
  const FrequencyEntry* entry = FindFrequencies(table_, in.satellite->catnr);
  const Transponder transponder = TransponderFor(entry, in.downlinkMHz, in.uplinkMHz);
  if (!control_ || controlCatnr_ != in.satellite->catnr || !SamePlace(controlObserver_, in.observer) ||
      !SameTransponder(controlTransponder_, transponder) || controlFamily_ != in.family) {
    RadioControlConfig config;
    config.transponder = transponder;
    config.rotator = RotatorConfigOf(settings_);
    config.family = in.family;
    control_ = std::make_unique<RadioControl>(*in.satellite, in.observer, config);
    controlCatnr_ = in.satellite->catnr;
    controlObserver_ = in.observer;
    controlTransponder_ = transponder;
    controlFamily_ = in.family;
  }
  last_ = control_->step(in.jd);
  link_->setModes(entry != nullptr ? ModesFor(entry->mode, entry->inverting) : std::nullopt);
  link_->setFrequencies(last_->frequencies);
  link_->setRotator(last_->rotator.position);
  link_->takeSentCommands();  // the window shows states, not the command log
}

std::string RadioStation::radioLine() const {
  if (!link_ || !link_->config().rig.enabled) return "Radio: off";
  std::string line = "Radio: " + LinkStateText(link_->status().rig);
  if (last_) {
    line += format("  RX %.5f", last_->frequencies.rxHz / 1e6);
    if (last_->frequencies.txHz > 0) line += format("  TX %.5f", last_->frequencies.txHz / 1e6);
    line += " MHz";
  }
  return line;
}

std::string RadioStation::rotatorLine() const {
  if (!link_ || !link_->config().rotator.enabled) return "Rotator: off";
  const RadioLinkStatus status = link_->status();
  std::string line = "Rotator: " + LinkStateText(status.rotator);
  if (last_) {
    line += format("  %s %.1f %.1f", RotatorPhaseName(last_->rotator.phase), last_->rotator.position.azimuthDeg,
                   last_->rotator.position.elevationDeg);
    if (last_->flip) line += " flipped";
  }
  if (status.rotatorPosition) {
    line += format("  at %.1f %.1f", status.rotatorPosition->azimuthDeg, status.rotatorPosition->elevationDeg);
  }
  return line;
}

}  // namespace norvane
