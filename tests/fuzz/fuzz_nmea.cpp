// Receiver bytes of any kind: whole read cycles over the stream (with the "$GN"
// talker accepted or not, from the first byte) and one sentence decoded alone.
#include <cstdint>
#include <span>

#include "gps/nmea_decoder.h"

namespace {

class BytesFeed : public norvane::ByteSource {
 public:
  explicit BytesFeed(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  bool readByte(std::uint8_t& byte) override {
    if (next_ >= bytes_.size()) return false;
    byte = bytes_[next_++];
    return true;
  }
  bool exhausted() const { return next_ >= bytes_.size(); }

 private:
  std::span<const std::uint8_t> bytes_;
  std::size_t next_ = 0;
};

class FixedClock : public norvane::Clock {
 public:
  std::uint32_t tickCount() override { return tick_ += 7; }

 private:
  std::uint32_t tick_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norvane::GpsData gps{};
  FixedClock clock;
  const norvane::NmeaOptions options{size > 0 && (data[0] & 1) != 0};
  BytesFeed feed({data, size});
  // A cycle reads at least one byte per sentence until the feed runs dry.
  for (int cycle = 0; cycle < 64 && !feed.exhausted(); ++cycle) {
    norvane::GpsReadCycle(feed, gps, norvane::kNmeaWantAll, clock, options);
  }
  norvane::DecodeNmeaSentence(reinterpret_cast<const char*>(data), size, gps, norvane::kNmeaWantAll,
                              clock, options);
  return 0;
}
