#pragma once
#include <string>
#include <vector>

#include "core/analysis/pass_planner.h"

namespace norvane {

// The one-line summary of a satellite's next pass at nowJd (UTC days):
// "AOS 21:34:05 in 12:31, max 67°" before it (the clock time shifted by
// utcOffsetDays, the wait as m:ss or h:mm:ss), "in view, LOS in 4:02" during
// it ("in view, never sets" when it stays up), and "" when no pass of the
// list, which holds that satellite's passes in time order, is still to end.
std::string nextPassLine(const std::vector<PlannedPass>& passes, double nowJd, double utcOffsetDays);

}  // namespace norvane
