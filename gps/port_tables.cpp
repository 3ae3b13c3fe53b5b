#include "gps/port_tables.h"

namespace norvane {

const char* GpsPortName(int portIndex) {
  if (portIndex < 0 || portIndex >= static_cast<int>(kGpsPortTable.size())) return "";
  // cppcheck-suppress CastIntegerToAddressAtReturn ; the table holds pointers, no integer is cast
  return kGpsPortTable[static_cast<std::size_t>(portIndex)];
}

int GpsBaudRate(int baudIndex) {
  if (baudIndex < 0 || baudIndex >= static_cast<int>(kGpsBaudTable.size())) return 0;
  return kGpsBaudTable[static_cast<std::size_t>(baudIndex)].rate;
}

std::string GpsDeviceOf(const GpsPortMap& map, int portIndex) {
  if (portIndex < 1 || portIndex >= static_cast<int>(map.devices.size())) return "";
  return map.devices[static_cast<std::size_t>(portIndex)];
}

std::string GpsPortMapText(const GpsPortMap& map) {
  std::string text;
  for (std::size_t i = 1; i < map.devices.size(); ++i) text += map.devices[i] + "\n";
  return text;
}

GpsPortMap GpsPortMapFromText(const std::string& text) {
  GpsPortMap map;
  std::size_t start = 0;
  for (std::size_t i = 1; i < map.devices.size() && start < text.size(); ++i) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    map.devices[i] = text.substr(start, end - start);
    start = end + 1;
  }
  return map;
}

}  // namespace norvane
