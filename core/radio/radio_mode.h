#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace norvane {

// The receive and transmit modes of a channel, in the daemon's names ("USB", "FM" ...).
struct RadioModes {
  std::string rx;
  std::string tx;
};

// Modes for a frequency-file mode: the same both ways, except that an
// inverting transponder turns USB into LSB on the uplink and back. Nothing
// for a mode the daemon does not know ("-", "APT" ...), which leaves the
// radio's mode alone.
std::optional<RadioModes> ModesFor(std::string_view mode, bool inverting);

}  // namespace norvane
