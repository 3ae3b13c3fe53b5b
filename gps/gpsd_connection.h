#pragma once
#include <atomic>
#include <memory>
#include <string>

#include "gps/gps_port.h"

namespace norvane {

inline constexpr const char* kGpsdScheme = "gpsd://";
// gpsd on this machine at its usual port.
inline constexpr const char* kDefaultGpsdAddress = "gpsd://localhost:2947";
// Sent on connecting: gpsd then relays the receiver's sentences unchanged.
inline constexpr const char* kGpsdWatchNmea = "?WATCH={\"enable\":true,\"nmea\":true}\n";

// Splits "gpsd://HOST:PORT" (HOST may be "[v6]"); false for anything else.
bool ParseGpsdAddress(const std::string& device, std::string& host, std::string& port);

// Connects to gpsd at device ("gpsd://HOST:PORT") and asks for raw NMEA;
// nullptr when the connection fails.
std::unique_ptr<GpsPort> OpenGpsdConnection(const std::string& device,
                                            const std::atomic<bool>* abort);

}  // namespace norvane
