#pragma once
#include <string>

#include "core/elements/catalogue.h"
#include "core/elements/satellite.h"

namespace norvane {

// The five column texts of one row of the satellite selection list.
struct SelectionRowTexts {
  std::string name;           // "Sel./Sat": the name up to its zero, at most 25 bytes
  std::string catnr;          // "Cat #": "%d"
  std::string elementNumber;  // "Element #": revnum, "%d"
  std::string epoch;          // "Epoch": date and time of the epoch and its age
  std::string slot;           // "In file #": "%4d"
};

// Row texts of catalogue slot (0 .. kCatalogueSlots - 1); currentJd (UTC days)
// gives the epoch's age in days.
SelectionRowTexts FormatSelectionRow(const Catalogue& catalogue, int slot, double currentJd);

// The "Tle info" text of a satellite, values as the element file gives them
// (the element-set number shows 0, as the working copy never takes it).
std::string TleInfoText(const Satellite& satellite);
inline constexpr const char* kTleInfoTitle = "Tle info";

}  // namespace norvane
