#pragma once
#include <string_view>

namespace norvane {

// The file name after the last '/' (or '\\') of a path.
std::string_view fileNameOf(std::string_view path);

// Iridium flare files: "iridium..." at start-up; the "Open" command also
// takes "Iridium..." (only the first letter in either case).
enum class IridiumMatch { LowerCaseOnly, EitherCaseFirstLetter };
bool isIridiumFileName(std::string_view path, IridiumMatch match);

// GPS files ("gps...", lower case only) select the GPS frequencies.
bool isGpsFileName(std::string_view path);

// Downlink and uplink frequencies (MHz) that opening a file selects.
struct LinkFrequencies {
  double downlink;
  double uplink;
};
LinkFrequencies frequenciesForFile(std::string_view path);

}  // namespace norvane
