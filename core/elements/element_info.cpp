#include "core/elements/element_info.h"

#include <cstdio>
#include <cstring>

#include "core/astro/julian_date.h"
#include "core/propagation/propagate.h"
#include "core/propagation/working_set.h"
#include "core/text/format.h"

namespace norvane {
namespace {

// The working copy without unit conversion: every element but xndd6o and
// elset, so elset reads 0 from the fresh copy.
WorkingSet plainCopy(const Satellite& sat) {
  WorkingSet work;
  copyElements(work, sat);
  return work;
}

}  // namespace

SelectionRowTexts FormatSelectionRow(const Catalogue& catalogue, int slot, double currentJd) {
  SelectionRowTexts row;
  if (slot < 0 || slot >= kCatalogueSlots) return row;
  const WorkingSet work = plainCopy(catalogue.satellites[static_cast<std::size_t>(slot)]);
  const std::size_t length = strnlen(work.name.data(), work.name.size());
  row.name.assign(work.name.data(), length);
  row.catnr = format("%d", work.catnr);
  row.elementNumber = format("%d", work.revnum);
  const double epochJd = epochToJulian(work.epoch);
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  CalendarOfJulianDate(epochJd, year, month, day);
  TimeOfDay(epochJd, hour, minute, second);
  row.epoch = format("%d-%2d-%2d %2d:%2.2d:%2.2d (%3.1f days old)", year, month, day, hour, minute, second,
                     currentJd - epochJd);
  row.slot = format("%4d", slot);
  return row;
}

std::string TleInfoText(const Satellite& satellite) {
  const WorkingSet w = plainCopy(satellite);
  return format(
      " Norad# %d\r\n Epoch %5.8f days \r\n elset %d\r\n Inclination %3.4f\r\n Ra of A. Node %3.4f\r\n"
      " Eccentricity %3.7f\r\n Arg. of Peri. %3.4f\r\n Mean anomaly %3.4f\r\n Rot. per d. %3.8f\r\n"
      " Period (%4.4fmin)\r\n xndt2o %3.8f\r\n bstar %2.9f 1/r revnum %i\r\n",
      w.catnr, w.epoch, w.elset, w.xincl, w.xnodeo, w.eo, w.omegao, w.xmo, w.xno, 1440.0 / w.xno, w.xndt2o,
      w.bstar, w.revnum);
}

}  // namespace norvane
