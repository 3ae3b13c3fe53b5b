// Decoding speed of the NMEA reader: one sentence, and a whole read cycle.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "gps/nmea_decoder.h"

namespace {

using namespace norvane;

const std::string kSecond =
    "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n"
    "$GPVTG,054.7,T,034.4,M,005.5,N,010.2,K*48\r\n"
    "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n"
    "$GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1*39\r\n"
    "$GPGSV,2,1,08,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45*75\r\n"
    "$GPGSV,2,2,08,15,40,083,46,16,17,308,41,17,07,344,39,18,22,228,45*74\r\n";

class Feed : public ByteSource {
 public:
  explicit Feed(const std::string& bytes) : bytes_(bytes) {}
  bool readByte(std::uint8_t& byte) override {
    if (next_ >= bytes_.size()) return false;
    byte = static_cast<std::uint8_t>(bytes_[next_++]);
    return true;
  }

 private:
  const std::string& bytes_;
  std::size_t next_ = 0;
};

class ZeroClock : public Clock {
 public:
  std::uint32_t tickCount() override { return 0; }
};

void DecodeRmc(benchmark::State& state) {
  const std::string rmc = kSecond.substr(0, kSecond.find('\r')) + std::string("\r\n");
  GpsData gps;
  ZeroClock clock;
  for (auto _ : state) {
    benchmark::DoNotOptimize(DecodeNmeaSentence(rmc.data(), rmc.size(), gps, kNmeaWantAll, clock));
  }
}
BENCHMARK(DecodeRmc);

void ReadCycle(benchmark::State& state) {
  GpsData gps;
  ZeroClock clock;
  for (auto _ : state) {
    Feed feed(kSecond);
    benchmark::DoNotOptimize(GpsReadCycle(feed, gps, kNmeaWantAll, clock));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kSecond.size()));
}
BENCHMARK(ReadCycle);

}  // namespace
