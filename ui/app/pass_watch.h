#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "core/analysis/pass_planner.h"
#include "core/astro/geodetic.h"
#include "core/elements/catalogue.h"
#include "settings/settings.h"

namespace norvane {

// The passes of the selected satellites and the current one over the coming
// two days, planned again only when what they depend on changes: the loaded
// elements, the selection, the current satellite, the observer (by more than
// about a kilometre), the minimum elevation, the model family, or the clock
// leaving the planned day.
class PassSchedule {
 public:
  // Plans again when needed; true when it did.
  bool update(const Catalogue& catalogue, int currentSatellite, const Geodetic& observer, const Settings& settings,
              double nowJd);
  // Forgets the plan, so that the next update plans again.
  void clear() { planned_ = false; }

  // All planned passes, sorted by AOS.
  const std::vector<PlannedPass>& passes() const { return passes_; }
  // The planned passes of one catalogue slot, in time order.
  std::vector<PlannedPass> passesOf(int slot) const;
  double startJd() const { return startJd_; }
  double endJd() const { return endJd_; }

 private:
  struct Entry {
    int slot;
    std::int32_t catnr;
    double epoch;
    bool operator==(const Entry&) const = default;
  };
  static std::vector<Entry> entriesOf(const Catalogue& catalogue, int currentSatellite);

  bool planned_ = false;
  std::vector<Entry> entries_;
  Geodetic observer_{};
  double minElevation_ = 0;
  std::int32_t family_ = 0;
  double startJd_ = 0;
  double endJd_ = 0;
  std::vector<PlannedPass> passes_;
};

// What a pass alarm says: a short headline and the pass in a few words.
struct AlarmText {
  std::string summary;
  std::string body;
};

// The alarm of a pass at nowJd, times in local time (UTC + utcOffsetDays).
AlarmText AlarmTextOf(const PlannedPass& pass, double nowJd, double utcOffsetDays);

// Decides when a pass alarm is due: from the given minutes before AOS until
// AOS, once per pass. It follows whatever clock it is given, so a simulated
// clock that jumps over the moment still raises the alarm on the first tick
// inside the warning time.
class PassAlarms {
 public:
  enum Scope : std::int32_t { kSelected = 0, kCurrent = 1 };

  // The passes whose alarm falls due at nowJd, each reported once.
  std::vector<PlannedPass> due(const std::vector<PlannedPass>& passes, const Catalogue& catalogue,
                               int currentSatellite, const Settings& settings, double nowJd);

 private:
  std::vector<std::pair<int, double>> raised_;  // (slot, AOS) of the passes already announced
};

// Everything the window keeps for the pass planner between ticks.
struct PassWatch {
  PassSchedule schedule;
  PassAlarms alarms;
};

}  // namespace norvane
