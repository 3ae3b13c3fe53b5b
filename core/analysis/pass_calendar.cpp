#include "core/analysis/pass_calendar.h"

#include <libical/ical.h>

#include <cmath>
#include <cstdlib>
#include <ctime>

#include "core/platform/atomic_file.h"
#include "core/text/format.h"

namespace norvane {
namespace {

std::time_t unixTimeOf(double jd) {
  return static_cast<std::time_t>(std::llround((jd - 2440587.5) * 86400.0));
}

icaltimetype icalTimeOf(double jd) {
  return icaltime_from_timet_with_zone(unixTimeOf(jd), 0, icaltimezone_get_utc_timezone());
}

std::string clockOf(double jd) {
  const std::time_t t = unixTimeOf(jd);
  std::tm utc{};
  gmtime_r(&t, &utc);
  return format("%02d:%02d:%02d", utc.tm_hour, utc.tm_min, utc.tm_sec);
}

std::string descriptionOf(const PlannedPass& p) {
  std::string text =
      p.neverSets ? std::string("Above the minimum elevation all the time")
                  : format("AOS %s UTC azimuth %.0f°", clockOf(p.aos).c_str(), p.aosAzimuth) +
                        (p.inProgressAtStart ? " (already up)" : "");
  text += format("\nTCA %s UTC elevation %.1f° azimuth %.0f°", clockOf(p.tca).c_str(), p.tcaElevation,
                 p.tcaAzimuth);
  if (!p.neverSets) {
    text += format("\nLOS %s UTC azimuth %.0f°", clockOf(p.los).c_str(), p.losAzimuth);
  }
  if (p.visible) {
    text += format("\nVisible %s to %s UTC", clockOf(p.visibleStart).c_str(), clockOf(p.visibleEnd).c_str());
    if (p.minMagnitude < 90.0) text += format(", magnitude %.1f", p.minMagnitude);
  }
  text += format("\nCatalogue number %d", p.catnr);
  return text;
}

}  // namespace

std::string passesToICalendar(const std::vector<PlannedPass>& passes, double stampJd) {
  icalcomponent* calendar = icalcomponent_new(ICAL_VCALENDAR_COMPONENT);
  icalcomponent_add_property(calendar, icalproperty_new_version("2.0"));
  icalcomponent_add_property(calendar, icalproperty_new_prodid("-//Norvane//Pass planner//EN"));
  icalcomponent_add_property(calendar, icalproperty_new_calscale("GREGORIAN"));
  for (const PlannedPass& p : passes) {
    icalcomponent* event = icalcomponent_new(ICAL_VEVENT_COMPONENT);
    const std::string uid = format("%d-%lld-%d@norvane", p.catnr, static_cast<long long>(unixTimeOf(p.aos)), p.slot);
    icalcomponent_add_property(event, icalproperty_new_uid(uid.c_str()));
    icalcomponent_add_property(event, icalproperty_new_dtstamp(icalTimeOf(stampJd)));
    icalcomponent_add_property(event, icalproperty_new_dtstart(icalTimeOf(p.aos)));
    icalcomponent_add_property(event, icalproperty_new_dtend(icalTimeOf(p.los)));
    const std::string summary = format("%s pass, max %.0f°", p.name.c_str(), p.tcaElevation);
    icalcomponent_add_property(event, icalproperty_new_summary(summary.c_str()));
    icalcomponent_add_property(event, icalproperty_new_description(descriptionOf(p).c_str()));
    icalcomponent_add_property(event, icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));
    icalcomponent_add_component(calendar, event);
  }
  char* text = icalcomponent_as_ical_string_r(calendar);
  std::string out = text != nullptr ? text : "";
  std::free(text);
  icalcomponent_free(calendar);
  return out;
}

bool writePassCalendar(const std::string& path, const std::vector<PlannedPass>& passes, double stampJd) {
  return writeFileAtomically(path, passesToICalendar(passes, stampJd));
}

}  // namespace norvane
