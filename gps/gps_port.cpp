#include "gps/gps_port.h"

#include <cstdio>

#include "gps/gpsd_connection.h"
#include "gps/serial_line.h"

namespace norvane {

std::unique_ptr<GpsPort> OpenGpsDevice(const std::string& device, const std::atomic<bool>* abort) {
  if (device.empty()) return nullptr;
  if (device.rfind(kGpsdScheme, 0) == 0) return OpenGpsdConnection(device, abort);
  return OpenSerialLine(device, abort);
}

std::unique_ptr<GpsPort> OpenGpsPort(const std::string& portName, const std::string& device,
                                     int rate, std::string& message,
                                     const std::atomic<bool>* abort) {
  std::unique_ptr<GpsPort> port = OpenGpsDevice(device, abort);
  if (!port) {
    char text[128];
    std::snprintf(text, sizeof text, "Could not open the %s port", portName.c_str());
    message = text;
    return nullptr;
  }
  if (!port->setLineSettings(rate)) {
    message = "SetCommState Error";
    return nullptr;
  }
  if (!port->setTimeouts()) {
    message = "Error setting COM times ";
    return nullptr;
  }
  return port;
}

}  // namespace norvane
