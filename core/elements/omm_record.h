#pragma once
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/elements/satellite.h"

namespace norvane {

// The Orbit Mean-Elements Message fields an element-set server sends, under
// their CSV column and JSON key names.
enum class OmmField {
  ObjectName, ObjectId, Epoch, MeanMotion, Eccentricity, Inclination, RaOfAscNode, ArgOfPericenter,
  MeanAnomaly, EphemerisType, ClassificationType, NoradCatId, ElementSetNo, RevAtEpoch, Bstar,
  MeanMotionDot, MeanMotionDdot,
};
inline constexpr std::size_t kOmmFieldCount = 17;

// The field a column or key names ("NORAD_CAT_ID"), ignoring case and
// surrounding blanks; nothing for names the reader does not use.
std::optional<OmmField> ommFieldNamed(std::string_view name);

// One record as text, as the CSV and JSON readers hand it over. A field that
// is absent, empty or null has no value.
struct OmmRecord {
  std::array<std::optional<std::string>, kOmmFieldCount> values;
  std::optional<std::string>& operator[](OmmField f) { return values[static_cast<std::size_t>(f)]; }
  const std::optional<std::string>& operator[](OmmField f) const { return values[static_cast<std::size_t>(f)]; }
};

// Largest catalogue number an OMM record may carry.
inline constexpr int kMaxOmmCatalogueNumber = 999'999'999;

// Fills sat from an OMM record the way the element-line parser fills it from
// the same element set written as text, so both propagate alike. False, with
// sat unspecified, when a required field (NORAD_CAT_ID, EPOCH, MEAN_MOTION,
// ECCENTRICITY, INCLINATION, RA_OF_ASC_NODE, ARG_OF_PERICENTER, MEAN_ANOMALY,
// BSTAR, MEAN_MOTION_DOT) is missing or unreadable.
bool satelliteFromOmm(const OmmRecord& record, Satellite& sat);

}  // namespace norvane
