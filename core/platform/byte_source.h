#pragma once
#include <cstdint>

namespace norvane {

// A stream of bytes read one at a time with a time-out: a serial port, a gpsd
// connection, a test feed.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  // True only when exactly one byte arrived before the source's time-out.
  virtual bool readByte(std::uint8_t& byte) = 0;
};

}  // namespace norvane
