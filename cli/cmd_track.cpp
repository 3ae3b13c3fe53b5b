#include <csignal>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "cli/catalogue_args.h"
#include "cli/command.h"
#include "cli/observer_args.h"
#include "cli/output.h"
#include "core/astro/julian_date.h"
#include "core/radio/frequency_table.h"
#include "core/radio/radio_control.h"
#include "core/radio/radio_mode.h"
#include "core/text/format.h"
#include "radio/radio_link.h"

namespace norvane::cli {
namespace {

volatile std::sig_atomic_t interrupted = 0;
void onSignal(int) { interrupted = 1; }

// "HOST:PORT" (the host may be empty for 127.0.0.1).
DaemonEndpoint endpointFrom(const Args& args, const std::string& name, int periodMs) {
  DaemonEndpoint e;
  const auto text = args.value(name);
  if (!text) return e;
  const std::size_t colon = text->rfind(':');
  if (colon == std::string::npos) throw InputError{"--" + name + ": HOST:PORT wanted: " + *text};
  e.enabled = true;
  e.host = colon == 0 ? "127.0.0.1" : text->substr(0, colon);
  e.port = toInt(name, text->substr(colon + 1));
  if (e.port <= 0 || e.port > 65535) throw InputError{"--" + name + ": no such port: " + *text};
  e.periodMs = periodMs;
  return e;
}

// The frequency file's text; at most 1 MB of it is read.
std::string readFrequencyFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw InputError{"cannot open " + path};
  std::string text(1 << 20, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(in.gcount()));
  return text;
}

double startTime(const Args& args) {
  if (const auto text = args.value("time")) {
    int f[6];
    int consumed = 0;
    if (std::sscanf(text->c_str(), "%d-%d-%d %d:%d:%d%n", &f[0], &f[1], &f[2], &f[3], &f[4], &f[5], &consumed) != 6 ||
        static_cast<std::size_t>(consumed) != text->size()) {
      throw InputError{"--time: cannot read " + *text};
    }
    return JulianDateOfDate(f[0], f[1], f[2], f[3], f[4], f[5]);
  }
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return 2440587.5 + std::chrono::duration<double>(now).count() / 86400.0;
}

double clockRate(const Args& args) {
  const std::string mode = args.value("clock").value_or("x1");
  if (mode == "x1" || mode == "real") return 1;
  if (mode == "x10") return 10;
  if (mode == "x30") return 30;
  if (mode == "x60") return 60;
  throw InputError{"--clock: real, x1, x10, x30 or x60 wanted: " + mode};
}

RotatorConfig rotatorFrom(const Args& args) {
  RotatorConfig c;
  const int az = toInt("az-range", args.value("az-range").value_or("360"));
  if (az == 360) {
    c.azimuthRange = AzimuthRange::Zero360;
  } else if (az == 180) {
    c.azimuthRange = AzimuthRange::Minus180To180;
  } else if (az == 450) {
    c.azimuthRange = AzimuthRange::Zero450;
  } else {
    throw InputError{"--az-range: 360, 180 or 450 wanted"};
  }
  const int el = toInt("el-range", args.value("el-range").value_or("90"));
  if (el != 90 && el != 180) throw InputError{"--el-range: 90 or 180 wanted"};
  c.elevationRange = el == 180 ? ElevationRange::Zero180 : ElevationRange::Zero90;
  c.flip = args.flag("no-flip") ? FlipMode::Off : FlipMode::Auto;
  if (args.has("min-el")) c.minElevationDeg = toDouble("min-el", *args.value("min-el"));
  if (const auto park = args.value("park")) {
    const std::size_t comma = park->find(',');
    if (comma == std::string::npos) throw InputError{"--park: AZ,EL wanted: " + *park};
    c.parkAzimuthDeg = toDouble("park", park->substr(0, comma));
    c.parkElevationDeg = toDouble("park", park->substr(comma + 1));
  }
  if (args.has("rot-tolerance")) c.toleranceDeg = toDouble("rot-tolerance", *args.value("rot-tolerance"));
  return c;
}

std::string isoTime(double jd) {
  int y, mo, d, h, mi, s;
  CalendarOfJulianDate(jd, y, mo, d);
  TimeOfDay(jd, h, mi, s);
  return format("%04d-%02d-%02dT%02d:%02d:%02dZ", y, mo, d, h, mi, s);
}

int runTrack(const Args& args) {
  const int index = requiredInt(args, "index");
  const Geodetic observer = observerFrom(args);
  auto catalogue = catalogueFrom(args);
  if (index < 0 || index >= catalogue->satelliteCount) {
    throw InputError{"--index " + std::to_string(index) + " is not a loaded satellite"};
  }
  const Satellite& satellite = catalogue->satellites[index];
  const double period = args.has("period") ? toDouble("period", *args.value("period")) : 1.0;
  if (!(period >= 0.05 && period <= 3600)) throw InputError{"--period: 0.05 to 3600 seconds wanted"};
  const int periodMs = static_cast<int>(period * 1000);
  const double seconds = args.has("seconds") ? toDouble("seconds", *args.value("seconds")) : -1;

  RadioControlConfig control;
  FrequencyTable table;
  if (const auto path = args.value("frequencies")) {
    table = ParseFrequencyTable(readFrequencyFile(*path));
  }
  const double downlink = args.has("downlink") ? toDouble("downlink", *args.value("downlink")) : 130.0;
  const double uplink = args.has("uplink") ? toDouble("uplink", *args.value("uplink")) : 138.0;
  const FrequencyEntry* entry = FindFrequencies(table, satellite.catnr);
  control.transponder = TransponderFor(entry, downlink, uplink);
  if (args.flag("inverting")) control.transponder.inverting = true;
  std::optional<RadioModes> modes;
  if (const auto mode = args.value("mode")) {
    modes = ModesFor(*mode, control.transponder.inverting);
    if (!modes) throw InputError{"--mode: USB, LSB, CW, CWR, AM, FM, WFM, RTTY, RTTYR, PKTUSB, PKTLSB or PKTFM wanted"};
  } else if (entry != nullptr) {
    modes = ModesFor(entry->mode, entry->inverting);
  }
  if (args.has("offset")) control.tuningOffsetHz = toDouble("offset", *args.value("offset"));
  control.rotator = rotatorFrom(args);

  RadioLinkConfig linkConfig;
  linkConfig.rig = endpointFrom(args, "rig", periodMs);
  linkConfig.rotator = endpointFrom(args, "rot", periodMs);
  if (args.has("rig-tolerance")) linkConfig.rigToleranceHz = toDouble("rig-tolerance", *args.value("rig-tolerance"));
  linkConfig.rotToleranceDeg = control.rotator.toleranceDeg;
  RadioLink link(linkConfig);
  link.setModes(modes);
  link.start();

  std::signal(SIGINT, onSignal);
  std::signal(SIGTERM, onSignal);
  RadioControl loop(satellite, observer, control);
  const double startJd = startTime(args);
  const double rate = clockRate(args);
  const auto begin = std::chrono::steady_clock::now();
  for (long n = 0; interrupted == 0; ++n) {
    // One update at the start and one per period after it, up to --seconds (a fixed count, whatever the load).
    if (seconds >= 0 && static_cast<double>(n) * periodMs > seconds * 1000.0 + 1e-6) break;
    std::this_thread::sleep_until(begin + std::chrono::milliseconds(static_cast<long long>(n) * periodMs));
    const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    const ControlStep step = loop.step(startJd + elapsed * rate / 86400.0);
    link.setFrequencies(step.frequencies);
    link.setRotator(step.rotator.position);
    const RadioLinkStatus status = link.status();
    const std::vector<std::string> sent = link.takeSentCommands();
    Record r;
    r.add("time", step.jd).add("utc", isoTime(step.jd));
    r.add("azimuth", step.sky.azimuthDeg).add("elevation", step.sky.elevationDeg);
    r.add("range_rate", step.sky.rangeRateKmS);
    r.add("rx_hz", step.frequencies.rxHz).add("tx_hz", step.frequencies.txHz);
    r.add("rot_az", step.rotator.position.azimuthDeg).add("rot_el", step.rotator.position.elevationDeg);
    r.add("rot_phase", RotatorPhaseName(step.rotator.phase)).add("flip", step.flip ? 1 : 0);
    r.add("commands", sent);
    r.add("rig", linkConfig.rig.enabled ? LinkStateText(status.rig) : "off");
    r.add("rot", linkConfig.rotator.enabled ? LinkStateText(status.rotator) : "off");
    r.print(stdout, args.json);
  }
  // One more period lets the link send the last targets before it closes.
  if (interrupted == 0) std::this_thread::sleep_for(std::chrono::milliseconds(periodMs + 100));
  link.stop();
  return 0;
}

}  // namespace

Command trackCommand() {
  return {"track",
          "track --tle FILE --index N --lat DEG --lon DEG --alt KM [--time \"YYYY-MM-DD HH:MM:SS\"] "
          "[--clock real|x1|x10|x30|x60] [--rig HOST:PORT] [--rot HOST:PORT] [--seconds S] [--period S] "
          "[--frequencies FILE] [--downlink MHZ] [--uplink MHZ] [--mode MODE] [--inverting] [--offset HZ] "
          "[--az-range 360|180|450] [--el-range 90|180] [--no-flip] [--min-el DEG] [--park AZ,EL] "
          "[--rig-tolerance HZ] [--rot-tolerance DEG]",
          {"tle", "index", "lat", "lon", "alt", "time", "clock", "rig", "rot", "seconds", "period", "frequencies",
           "downlink", "uplink", "mode", "offset", "az-range", "el-range", "min-el", "park", "rig-tolerance",
           "rot-tolerance"},
          {"inverting", "no-flip"},
          runTrack,
          90};
}

NORVANE_CLI_COMMAND(trackCommand);

}  // namespace norvane::cli
