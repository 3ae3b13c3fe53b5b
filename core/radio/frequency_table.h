#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/radio/doppler.h"

namespace norvane {

// One line of the frequency file: a satellite's downlink and uplink.
struct FrequencyEntry {
  int catnr = 0;
  std::string name;         // one word, at most kFrequencyNameMax characters
  double downlinkMHz = 0;   // MHz
  double uplinkMHz = 0;     // MHz, 0 for none ("-" in the file)
  std::string mode;         // "FM", "USB", "CW" ... as the radio calls it; "-" for none
  bool inverting = false;   // inverting linear transponder
};

inline constexpr std::size_t kFrequencyNameMax = 24;
inline constexpr std::size_t kFrequencyModeMax = 8;
inline constexpr std::size_t kFrequencyLineMax = 200;
inline constexpr std::size_t kFrequencyEntriesMax = 2000;

struct FrequencyTable {
  std::vector<FrequencyEntry> entries;
  int skippedLines = 0;  // malformed lines, ignored
};

// Reads "catnr name downlink uplink mode inverting" lines separated by blanks
// or tabs; "#" starts a comment, blank lines are skipped; a line that does not
// read whole is counted and skipped. Bounded by the text's length.
FrequencyTable ParseFrequencyTable(std::string_view text);

// The first entry for a catalogue number, or nullptr.
const FrequencyEntry* FindFrequencies(const FrequencyTable& table, int catnr);

// The satellite's transponder: its file entry when there is one, else the
// settings' downlink and uplink (MHz), not inverting.
Transponder TransponderFor(const FrequencyEntry* entry, double downlinkMHz, double uplinkMHz);

}  // namespace norvane
