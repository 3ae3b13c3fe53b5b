#pragma once
#include <string>
#include <vector>

#include "core/analysis/pass_planner.h"

namespace norvane {

// The passes as an iCalendar (RFC 5545) calendar: one event per pass from
// AOS to LOS, summarised as "<satellite> pass, max 67°", with the azimuths
// and the visible part in the description. stampJd (UTC days) is the
// calendar's creation time (DTSTAMP).
std::string passesToICalendar(const std::vector<PlannedPass>& passes, double stampJd);

// Writes that calendar to path, replacing any file there whole; false when it
// cannot be written.
bool writePassCalendar(const std::string& path, const std::vector<PlannedPass>& passes, double stampJd);

}  // namespace norvane
