#pragma once
#include <atomic>
#include <memory>
#include <string>

#include "core/platform/byte_source.h"

namespace norvane {

// Longest wait for one byte: 100 ms plus 10 ms per byte asked for.
inline constexpr int kGpsByteTimeoutMs = 110;

// An open GPS device: a serial line, or a connection to gpsd (whose line
// settings are gpsd's business, so they succeed without doing anything).
class GpsPort : public ByteSource {
 public:
  // 8 data bits, no parity, one stop bit, binary, no flow control, DTR and RTS on.
  virtual bool setLineSettings(int rate) = 0;
  // Reads come back after at most kGpsByteTimeoutMs.
  virtual bool setTimeouts() = 0;
  // Changes the speed and keeps every other setting.
  virtual bool setRateOnly(int rate) = 0;
  // True once the device has hung up: reads will not succeed again.
  virtual bool broken() const = 0;
};

// Opens a device path or "gpsd://HOST:PORT" exclusively, leaving its settings
// as they are; nullptr when it cannot be opened. While *abort is true every
// read fails at once.
std::unique_ptr<GpsPort> OpenGpsDevice(const std::string& device,
                                       const std::atomic<bool>* abort = nullptr);

// Opens a port for reading NMEA: the device, then the line settings at rate,
// then the time-outs. On failure returns nullptr and puts the reason in
// message: "Could not open the %s port" (with portName), "SetCommState Error"
// or "Error setting COM times ".
std::unique_ptr<GpsPort> OpenGpsPort(const std::string& portName, const std::string& device,
                                     int rate, std::string& message,
                                     const std::atomic<bool>* abort = nullptr);

}  // namespace norvane
