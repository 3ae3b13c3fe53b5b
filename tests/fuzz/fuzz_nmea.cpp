// Receiver bytes of any kind: whole read cycles over the stream (with the "$GN"
// talker accepted or not, from the first byte) and one sentence decoded alone.
#include <cstdint>
#include <string>

#include "gps/nmea_decoder.h"
#include "tests/gps/nmea_feed.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norvane::GpsData gps{};
  norvane::test::FixedClock clock;
  clock.ticks = 0;
  clock.step = 7;
  const norvane::NmeaOptions options{size > 0 && (data[0] & 1) != 0};
  norvane::test::StringFeed feed(std::string(reinterpret_cast<const char*>(data), size));
  // A cycle reads at least one byte per sentence until the feed runs dry.
  for (int cycle = 0; cycle < 64 && feed.left() > 0; ++cycle) {
    norvane::GpsReadCycle(feed, gps, norvane::kNmeaWantAll, clock, options);
  }
  norvane::DecodeNmeaSentence(reinterpret_cast<const char*>(data), size, gps, norvane::kNmeaWantAll,
                              clock, options);
  return 0;
}
