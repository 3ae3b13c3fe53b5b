#include "ui/app/pass_watch.h"

#include <algorithm>
#include <cmath>

#include "core/astro/julian_date.h"
#include "core/text/format.h"

namespace norvane {
namespace {

constexpr double kPlanDays = 2.0;          // the span planned at once
constexpr double kLeadDays = 1.0 / 24.0;   // planned before the clock, for a pass already under way
constexpr double kObserverRadians = 1.5e-4;  // about a kilometre on the ground
constexpr double kObserverKm = 0.1;

bool Moved(const Geodetic& a, const Geodetic& b) {
  return std::fabs(a.lat - b.lat) > kObserverRadians || std::fabs(a.lon - b.lon) > kObserverRadians ||
         std::fabs(a.alt - b.alt) > kObserverKm;
}

std::string ClockText(double jd) {
  int hour = 0, minute = 0, second = 0;
  TimeOfDay(jd, hour, minute, second);
  return format("%02d:%02d:%02d", hour % 24, minute, second);
}

}  // namespace

std::vector<PassSchedule::Entry> PassSchedule::entriesOf(const Catalogue& catalogue, int currentSatellite) {
  std::vector<int> slots = selectedSlots(catalogue);
  if (currentSatellite >= 0 && currentSatellite < catalogue.satelliteCount &&
      std::find(slots.begin(), slots.end(), currentSatellite) == slots.end()) {
    slots.push_back(currentSatellite);
  }
  std::vector<Entry> entries;
  for (int slot : slots) {
    const Satellite& s = catalogue.satellites[static_cast<std::size_t>(slot)];
    // The placeholder record and empty entries have no orbit to plan.
    if (s.catnr == 0 || !(s.xno > 0)) continue;
    entries.push_back({slot, s.catnr, s.epoch});
  }
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.slot < b.slot; });
  return entries;
}

bool PassSchedule::update(const Catalogue& catalogue, int currentSatellite, const Geodetic& observer,
                          const Settings& settings, double nowJd) {
  std::vector<Entry> entries = entriesOf(catalogue, currentSatellite);
  const bool inSpan = nowJd >= startJd_ + kLeadDays / 2 && nowJd <= startJd_ + kPlanDays / 2;
  if (planned_ && inSpan && entries == entries_ && !Moved(observer, observer_) &&
      settings.passMinElevation == minElevation_ && settings.s4s8 == family_) {
    return false;
  }
  planned_ = true;
  entries_ = std::move(entries);
  observer_ = observer;
  minElevation_ = settings.passMinElevation;
  family_ = settings.s4s8;
  startJd_ = nowJd - kLeadDays;
  endJd_ = startJd_ + kPlanDays;

  PlannerOptions options;
  options.minElevationDeg = settings.passMinElevation;
  options.family = settings.s4s8 != 0 ? ModelFamily::Sgp8Sdp8 : ModelFamily::Sgp4Sdp4;
  std::vector<int> slots;
  slots.reserve(entries_.size());
  for (const Entry& e : entries_) slots.push_back(e.slot);
  passes_ = planCataloguePasses(catalogue, slots, observer, startJd_, endJd_, options);
  return true;
}

std::vector<PlannedPass> PassSchedule::passesOf(int slot) const {
  std::vector<PlannedPass> out;
  for (const PlannedPass& p : passes_) {
    if (p.slot == slot) out.push_back(p);
  }
  return out;
}

AlarmText AlarmTextOf(const PlannedPass& pass, double nowJd, double utcOffsetDays) {
  // Whole minutes, rounded up: "in 5 min" until four minutes are left.
  const long minutes = std::lround(std::ceil(std::fmax(0.0, pass.aos - nowJd) * 1440.0 - 1e-6));
  AlarmText text;
  text.summary = minutes > 0 ? format("%s rises in %ld min", pass.name.c_str(), minutes)
                             : format("%s is rising", pass.name.c_str());
  text.body = format("AOS %s at %.0f°, max %.0f° at %s, LOS %s at %.0f°", ClockText(pass.aos + utcOffsetDays).c_str(),
                     pass.aosAzimuth, pass.tcaElevation, ClockText(pass.tca + utcOffsetDays).c_str(),
                     ClockText(pass.los + utcOffsetDays).c_str(), pass.losAzimuth);
  if (pass.visible) {
    text.body += format(", visible %s to %s", ClockText(pass.visibleStart + utcOffsetDays).c_str(),
                        ClockText(pass.visibleEnd + utcOffsetDays).c_str());
    if (pass.minMagnitude < 99.0) text.body += format(", mag %.1f", pass.minMagnitude);
  }
  return text;
}

std::vector<PlannedPass> PassAlarms::due(const std::vector<PlannedPass>& passes, const Catalogue& catalogue,
                                         int currentSatellite, const Settings& settings, double nowJd) {
  std::vector<PlannedPass> out;
  if (settings.passAlarmMinutes <= 0) return out;
  const double lead = settings.passAlarmMinutes / 1440.0;
  for (const PlannedPass& p : passes) {
    // A pass under way when the plan began has no rise to announce.
    if (p.inProgressAtStart || p.neverSets) continue;
    if (nowJd < p.aos - lead || nowJd >= p.aos) continue;
    const bool wanted = settings.passAlarmScope == kCurrent
                            ? p.slot == currentSatellite
                            : p.slot >= 0 && p.slot < kSelectionFlags &&
                                  catalogue.selected[static_cast<std::size_t>(p.slot)] == 1;
    if (!wanted) continue;
    // A new plan (after a small move of the observer, say) shifts the AOS by
    // seconds: the same pass is still the same alarm.
    const bool raised = std::any_of(raised_.begin(), raised_.end(), [&p](const std::pair<int, double>& r) {
      return r.first == p.slot && std::fabs(r.second - p.aos) < 0.5 / 1440.0;
    });
    if (raised) continue;
    raised_.emplace_back(p.slot, p.aos);
    out.push_back(p);
  }
  // Announcements of passes long gone are no longer needed.
  std::erase_if(raised_, [nowJd](const std::pair<int, double>& r) { return r.second < nowJd - 1.0; });
  return out;
}

}  // namespace norvane
