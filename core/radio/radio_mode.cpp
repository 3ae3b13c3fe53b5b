#include "core/radio/radio_mode.h"

#include <array>

namespace norvane {

std::optional<RadioModes> ModesFor(std::string_view mode, bool inverting) {
  static constexpr std::array<std::string_view, 12> kKnown = {"USB", "LSB", "CW",  "CWR",   "AM",     "FM",
                                                              "WFM", "RTTY", "RTTYR", "PKTUSB", "PKTLSB", "PKTFM"};
  bool known = false;
  for (std::string_view k : kKnown) known = known || k == mode;
  if (!known) return std::nullopt;
  RadioModes modes{std::string(mode), std::string(mode)};
  if (inverting) {
    if (mode == "USB") modes.tx = "LSB";
    if (mode == "LSB") modes.tx = "USB";
    if (mode == "PKTUSB") modes.tx = "PKTLSB";
    if (mode == "PKTLSB") modes.tx = "PKTUSB";
  }
  return modes;
}

}  // namespace norvane
