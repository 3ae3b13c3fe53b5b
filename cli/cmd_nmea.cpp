#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "cli/command.h"
#include "cli/output.h"
#include "gps/gps_port.h"
#include "gps/nmea_decoder.h"
#include "gps/steady_clock.h"

namespace norvane::cli {
namespace {

// Standard input as a byte source; knows when nothing is left.
class InputBytes : public ByteSource {
 public:
  bool readByte(std::uint8_t& byte) override {
    if (!more()) return false;
    byte = buffer_[next_++];
    return true;
  }
  bool more() {
    while (next_ == filled_ && !ended_) {
      const ssize_t got = ::read(STDIN_FILENO, buffer_.data(), buffer_.size());
      if (got < 0 && errno == EINTR) continue;
      if (got <= 0) {
        ended_ = true;
      } else {
        next_ = 0;
        filled_ = static_cast<std::size_t>(got);
      }
    }
    return next_ < filled_;
  }

 private:
  std::array<std::uint8_t, 4096> buffer_{};
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
  bool ended_ = false;
};

NmeaWanted parseWanted(const std::string& list) {
  static const char* const kNames[6] = {"RMC", "VTG", "GGA", "GSA", "GSV", "GLL"};
  NmeaWanted wanted{};
  std::size_t start = 0;
  while (start <= list.size()) {
    std::size_t end = list.find(',', start);
    if (end == std::string::npos) end = list.size();
    const std::string name = list.substr(start, end - start);
    bool known = false;
    for (std::size_t k = 0; k < 6; ++k) {
      if (name == kNames[k]) wanted[k] = known = true;
    }
    if (!known && !name.empty()) throw UsageError{"--wanted: unknown sentence kind " + name};
    start = end + 1;
  }
  return wanted;
}

template <typename T, std::size_t N>
std::vector<double> numbers(const std::array<T, N>& values) {
  return std::vector<double>(values.begin(), values.end());
}

Record gpsRecord(const GpsData& g) {
  Record r;
  r.add("valid", g.valid).add("latitude", g.latitude).add("longitude", g.longitude);
  r.add("altitude", g.altitude).add("speed", g.speed).add("magneticVariation", g.magneticVariation);
  r.add("hour", g.hour).add("minute", g.minute).add("second", g.second).add("hundredths", g.hundredths);
  r.add("day", g.day).add("month", g.month).add("year", g.year);
  r.add("course", g.course).add("course2", g.course2);
  r.add("satellitesInView", g.satellitesInView).add("satellitesInUse", g.satellitesInUse);
  r.add("fixQuality", g.fixQuality);
  r.add("pdop", g.pdop).add("hdop", g.hdop).add("vdop", g.vdop).add("fixMode", g.fixMode);
  r.add("usedPrn", numbers(g.usedPrn)).add("snr", numbers(g.snr));
  r.add("azimuth", numbers(g.azimuth)).add("elevation", numbers(g.elevation));
  r.add("prn", numbers(g.prn)).add("timeStamp", static_cast<double>(g.timeStamp));
  return r;
}

// A device that hung up (a receiver unplugged, gpsd restarted) is opened
// again as the reader thread does, as often as it takes.
std::unique_ptr<GpsPort> ReopenAfterHangUp(const std::string& device, int baud, std::unique_ptr<GpsPort> gone) {
  gone.reset();
  std::string message;
  for (;;) {
    if (std::unique_ptr<GpsPort> port = OpenGpsPort(device, device, baud, message)) return port;
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
  }
}

int runNmea(const Args& args) {
  const NmeaWanted wanted = args.has("wanted") ? parseWanted(*args.value("wanted")) : kNmeaWantAll;
  const NmeaOptions options{args.flag("accept-gn")};
  const int limit = args.has("cycles") ? requiredInt(args, "cycles") : -1;
  SteadyClock clock;
  GpsData gps;
  int cycles = 0;
  auto cycle = [&](ByteSource& source) {
    GpsReadCycle(source, gps, wanted, clock, options);
    gpsRecord(gps).print(stdout, args.json);
    ++cycles;
  };
  if (args.has("device")) {
    const std::string device = *args.value("device");
    const int baud = args.has("baud") ? requiredInt(args, "baud") : 4800;
    std::string message;
    std::unique_ptr<GpsPort> port = OpenGpsPort(device, device, baud, message);
    if (!port) throw InputError{message};
    while (cycles != limit) {
      if (port->broken()) port = ReopenAfterHangUp(device, baud, std::move(port));
      cycle(*port);
    }
  } else {
    InputBytes input;
    while (input.more() && cycles != limit) cycle(input);
  }
  return 0;
}

}  // namespace

Command nmeaCommand() {
  return {"nmea",
          "nmea [--wanted RMC,VTG,GGA,GSA,GSV,GLL] [--device PATH|gpsd://HOST:PORT --baud N] "
          "[--cycles N] [--accept-gn]",
          {"wanted", "device", "baud", "cycles"},
          {"accept-gn"},
          runNmea,
          60};
}

NORVANE_CLI_COMMAND(nmeaCommand);

}  // namespace norvane::cli
