#pragma once
#include <string>
#include <vector>

namespace norvane {

// The serial devices present under folder (normally "/dev") that a receiver
// may sit on: ttyUSB*, ttyACM*, ttyS*, ttyAMA*, rfcomm* and the stable names
// of serial/by-id/, as full paths in natural order (ttyS2 before ttyS10).
std::vector<std::string> ListGpsDevices(const std::string& folder = "/dev");

}  // namespace norvane
