#pragma once
#include <cstdint>
#include <cstdio>
#include <string>

#include "core/platform/byte_source.h"
#include "core/platform/clock.h"

namespace norvane::test {

// Bytes of a string, then read failures.
class StringFeed : public ByteSource {
 public:
  explicit StringFeed(std::string bytes) : bytes_(std::move(bytes)) {}
  bool readByte(std::uint8_t& byte) override {
    if (next_ >= bytes_.size()) return false;
    byte = static_cast<std::uint8_t>(bytes_[next_++]);
    return true;
  }
  std::size_t left() const { return bytes_.size() - next_; }

 private:
  std::string bytes_;
  std::size_t next_ = 0;
};

// A clock standing still, or moving on by step at every reading.
class FixedClock : public Clock {
 public:
  std::uint32_t tickCount() override { return ticks += step; }
  std::uint32_t ticks = 4242, step = 0;
};

// "$BODY*HH\r\n" with the checksum of BODY.
inline std::string Nmea(const std::string& body) {
  unsigned sum = 0;
  for (const char c : body) sum ^= static_cast<unsigned char>(c);
  char tail[8];
  std::snprintf(tail, sizeof tail, "*%02X\r\n", sum);
  return "$" + body + tail;
}

}  // namespace norvane::test
