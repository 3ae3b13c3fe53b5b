#pragma once
#include <optional>
#include <string_view>

namespace norvane {

// An OMM epoch in UTC, "YYYY-MM-DDThh:mm:ss.ffffff" or the day-of-year form
// "YYYY-DDDThh:mm:ss.ffffff" (a blank may stand for the T, the time or its
// fraction may be left out, a final Z is allowed), as the satellite record's
// YYDDD.dddddddd: two-digit year * 1000 + day of year with its fraction.
// Nothing for a malformed date or time, or a year outside 1957-2056, which
// two digits cannot tell apart.
std::optional<double> ommEpochYearDay(std::string_view text);

}  // namespace norvane
