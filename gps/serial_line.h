#pragma once
#include <atomic>
#include <memory>
#include <string>

#include "gps/gps_port.h"

namespace norvane {

// A terminal device (serial port, USB receiver, pseudo-terminal) opened
// without changing its settings; nullptr when it cannot be opened or is
// held by another open.
std::unique_ptr<GpsPort> OpenSerialLine(const std::string& path, const std::atomic<bool>* abort);

}  // namespace norvane
