#pragma once
#include <array>
#include <cstddef>

#include "core/platform/byte_source.h"
#include "core/platform/clock.h"
#include "gps/gps_data.h"

namespace norvane {

// What one sentence read gave: 0 nothing usable, else the kind decoded
// (GSV only for the last message of its group).
enum NmeaSentenceKind : int {
  kNmeaNothing = 0,
  kNmeaRmc = 1,
  kNmeaVtg = 2,
  kNmeaGga = 3,
  kNmeaGsa = 4,
  kNmeaGsv = 5,
  kNmeaGll = 6,
};

// Wanted sentence kinds, in the order RMC, VTG, GGA, GSA, GSV, GLL.
using NmeaWanted = std::array<bool, 6>;
inline constexpr NmeaWanted kNmeaWantAll = {true, true, true, true, true, true};

// Bytes searched for the "$" that starts a sentence.
inline constexpr int kNmeaHuntLimit = 101;
// Bytes of a line kept ("$" included), before CR, LF and a zero are added.
inline constexpr std::size_t kNmeaMaxStored = 101;

// The line buffer of a sentence read.
struct NmeaLine {
  std::array<char, kNmeaMaxStored + 3> text{};
  std::size_t length = 0;  // stored bytes plus CR, LF and the zero
};

// How sentences are recognised; acceptGn also takes the "$GN" talker for
// every kind but GSV.
struct NmeaOptions {
  bool acceptGn = false;
};

// Decodes one stored sentence (CR, LF, zero included in length) into gps
// when its kind is wanted and its checksum matches.
int DecodeNmeaSentence(const char* text, std::size_t length, GpsData& gps,
                       const NmeaWanted& wanted, Clock& clock, NmeaOptions options = {});

// Hunts for "$" within huntLimit bytes, collects the line up to CR or LF and
// decodes it. A line longer than the buffer is skipped to its end and gives 0.
int ReadNmeaSentence(ByteSource& source, NmeaLine& line, int huntLimit, GpsData& gps,
                     const NmeaWanted& wanted, Clock& clock, NmeaOptions options = {});

// Reads sentences until each wanted kind among RMC, VTG, GGA, GSA and GSV has
// arrived once, at most 24; GLL takes part in reading but not in the stop
// test. Returns 1.
int GpsReadCycle(ByteSource& source, GpsData& gps, const NmeaWanted& wanted, Clock& clock,
                 NmeaOptions options = {});

}  // namespace norvane
