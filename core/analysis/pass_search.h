#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "core/astro/geodetic.h"
#include "core/astro/look_angles.h"
#include "core/elements/catalogue.h"
#include "core/propagation/model_state.h"

namespace norvane {

// One moment found by the search.
struct PredictionRow {
  double time = 0;              // Julian date, UTC
  std::int32_t satellite = 0;   // catalogue slot ("Nr in file")
  std::int32_t state = 0;       // VisibilityState code
  double magnitude = 0;
  double flareAngle = 0;        // rad
};

// At most this many rows are kept; a satellite's search ends at the next row.
inline constexpr int kMaxPredictionRows = 301;

// The rows of the last search, oldest first, and what it counted. They stay
// until the next search replaces them.
struct PredictionStore {
  std::vector<PredictionRow> rows;
  int passes = 0;
  double seconds = 0;  // elapsed, whole milliseconds / 1000
};

struct PassSearchOptions {
  double start = 0;          // Julian date, UTC
  int hours = 2;             // span; not range-checked
  bool flareMode = false;    // hunt Iridium flares ("flares")
  bool visibleOnly = false;  // record state 4 and up only ("SatPredictVisible")
  int minMagnitude = 20;     // record magnitudes below this ("SatPredictMag")
  int mode = 0;              // model family ("s4_s8")
};

// Told how far the search is: one step per loaded satellite (selected or
// not), and within a satellite's search up to ten steps of its span.
class PassSearchProgress {
 public:
  virtual ~PassSearchProgress() = default;
  virtual void begin(int /*satellites*/) {}
  virtual void satelliteStep() {}
  virtual void timeReset() {}
  virtual void timeStep() {}
};

// Searches every selected loaded satellite from options.start for options.hours
// and replaces store's rows and counts. observer and cache are the shared
// ones; models is reinitialised for each satellite.
void SearchPasses(const Catalogue& catalogue, Geodetic& observer, LookAngleCache& cache, ModelState& models,
                  const PassSearchOptions& options, PredictionStore& store, PassSearchProgress* progress);

// Start of the search from the pickers' local date and time, minus the UTC shift (days).
double PredictionStart(int year, int month, int day, int hour, int minute, int second, double utcShift);
// The span to search: hours, or 1 when the picked clock hour is above 100 or negative.
int PredictionHours(int hours, int pickedHour);

// The texts of one list row, column by column.
struct PredictionRowTexts {
  std::string sat, time, status, magnitude, flareAngle, nrInFile;
};
// freshSearch: as the search lists it ("%s  ", "%3.1f"); otherwise as the
// reopened dialog lists stored rows ("%s", "%2.1f"). Times are local: utcShift days added.
PredictionRowTexts FormatPredictionRow(const PredictionRow& row, const Catalogue& catalogue, double utcShift,
                                       bool freshSearch);

// "Number of passes %d calculated in %3.2fs", shown titled "Search result".
std::string SearchResultText(const PredictionStore& store);
inline constexpr const char* kSearchResultTitle = "Search result";

// Stored row shown at list row listRow (the list shows the newest first).
inline int StoredRowOfListRow(const PredictionStore& store, int listRow) {
  return static_cast<int>(store.rows.size()) - 1 - listRow;
}

}  // namespace norvane
