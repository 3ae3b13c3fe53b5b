#include "core/analysis/next_pass_line.h"

#include <cmath>

#include "core/astro/julian_date.h"
#include "core/text/format.h"

namespace norvane {
namespace {

std::string waitText(double days) {
  const long seconds = std::lround(std::fmax(0.0, days) * 86400.0);
  if (seconds >= 3600) return format("%ld:%02ld:%02ld", seconds / 3600, seconds / 60 % 60, seconds % 60);
  return format("%ld:%02ld", seconds / 60, seconds % 60);
}

}  // namespace

std::string nextPassLine(const std::vector<PlannedPass>& passes, double nowJd, double utcOffsetDays) {
  for (const PlannedPass& p : passes) {
    if (p.los <= nowJd && !p.neverSets) continue;
    if (p.aos <= nowJd || p.neverSets) {
      if (p.neverSets) return "in view, never sets";
      // Past the end of the planned span the LOS is not known yet.
      return (p.endsAfterSpan ? "in view, LOS in over " : "in view, LOS in ") + waitText(p.los - nowJd);
    }
    int hour = 0;
    int minute = 0;
    int second = 0;
    TimeOfDay(p.aos + utcOffsetDays, hour, minute, second);
    return format("AOS %02d:%02d:%02d in %s, max %.0f°", hour % 24, minute, second, waitText(p.aos - nowJd).c_str(),
                  p.tcaElevation);
  }
  return "";
}

}  // namespace norvane
