#include "core/elements/omm_record.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "core/elements/element_parser.h"
#include "core/elements/omm_epoch.h"

namespace norvane {
namespace {

constexpr std::array<std::string_view, kOmmFieldCount> kFieldNames = {
    "OBJECT_NAME", "OBJECT_ID", "EPOCH", "MEAN_MOTION", "ECCENTRICITY", "INCLINATION", "RA_OF_ASC_NODE",
    "ARG_OF_PERICENTER", "MEAN_ANOMALY", "EPHEMERIS_TYPE", "CLASSIFICATION_TYPE", "NORAD_CAT_ID",
    "ELEMENT_SET_NO", "REV_AT_EPOCH", "BSTAR", "MEAN_MOTION_DOT", "MEAN_MOTION_DDOT",
};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && isBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && isBlank(s.back())) s.remove_suffix(1);
  return s;
}

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool sameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (upper(a[i]) != b[i]) return false;
  }
  return true;
}

// A finite decimal number, the whole field (blanks around it allowed).
template <typename Real>
std::optional<Real> numberAs(const std::optional<std::string>& field) {
  if (!field) return std::nullopt;
  std::string_view s = trimmed(*field);
  if (!s.empty() && s.front() == '+') s.remove_prefix(1);
  Real value = 0;
  const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), value);
  if (s.empty() || error != std::errc() || end != s.data() + s.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

std::optional<double> number(const std::optional<std::string>& field) { return numberAs<double>(field); }

std::optional<double> numberWithin(const std::optional<std::string>& field, double low, double high) {
  const auto value = number(field);
  if (!value || *value < low || *value > high) return std::nullopt;
  return value;
}

// A whole number in [low, high], also when written as 25544.0 or sent as a
// JSON float.
std::optional<int> wholeNumber(const std::optional<std::string>& field, int low, int high) {
  const auto value = numberWithin(field, low, high);
  if (!value || std::floor(*value) != *value) return std::nullopt;
  return static_cast<int>(*value);
}

// Plain digits, or the letter-and-four-digits form that element lines use
// for numbers from 100000 to 339999.
std::optional<int> catalogueNumber(const std::optional<std::string>& field) {
  if (!field) return std::nullopt;
  if (const int alpha5 = alpha5CatalogueNumber(trimmed(*field)); alpha5 != 0) return alpha5;
  return wholeNumber(field, 1, kMaxOmmCatalogueNumber);
}

// 10 to the number of decimal digits of value (10 for 0 to 9, 100 for 10 to 99, ...).
int digitScale(int value) {
  int scale = 10;
  while (value >= 10) value /= 10, scale *= 10;
  return scale;
}

// The name cut to the record's 24 characters, never inside a UTF-8 sequence;
// without a name the catalogue number stands in.
void copyName(Satellite& sat, const std::optional<std::string>& field) {
  std::string_view name = field ? trimmed(*field) : std::string_view{};
  std::string number;
  if (name.empty()) {
    number = std::to_string(sat.catnr);
    name = number;
  }
  std::size_t length = std::min(name.size(), sat.name.size() - 1);
  if (length < name.size()) {
    while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) --length;
  }
  sat.name.fill('\0');
  name.copy(sat.name.data(), length);
}

}  // namespace

std::optional<OmmField> ommFieldNamed(std::string_view name) {
  name = trimmed(name);
  for (std::size_t i = 0; i < kFieldNames.size(); ++i) {
    if (sameName(name, kFieldNames[i])) return static_cast<OmmField>(i);
  }
  return std::nullopt;
}

bool satelliteFromOmm(const OmmRecord& record, Satellite& sat) {
  const auto catnr = catalogueNumber(record[OmmField::NoradCatId]);
  const auto epoch = record[OmmField::Epoch] ? ommEpochYearDay(*record[OmmField::Epoch]) : std::nullopt;
  const auto meanMotion = number(record[OmmField::MeanMotion]);
  const auto eccentricity = numberWithin(record[OmmField::Eccentricity], 0.0, 1.0);
  const auto inclination = numberWithin(record[OmmField::Inclination], 0.0, 180.0);
  const auto node = numberWithin(record[OmmField::RaOfAscNode], -360.0, 360.0);
  const auto perigee = numberWithin(record[OmmField::ArgOfPericenter], -360.0, 360.0);
  const auto meanAnomaly = numberWithin(record[OmmField::MeanAnomaly], -360.0, 360.0);
  const auto bstar = number(record[OmmField::Bstar]);
  const auto meanMotionDot = number(record[OmmField::MeanMotionDot]);
  if (!catnr || !epoch || !meanMotion || !eccentricity || !inclination || !node || !perigee || !meanAnomaly ||
      !bstar || !meanMotionDot) {
    return false;
  }
  // Element lines cannot carry a mean motion of 100 rev/day or an eccentricity of 1.
  if (*meanMotion <= 0.0 || *meanMotion >= 100.0 || *eccentricity >= 1.0) return false;

  sat = Satellite{};
  sat.catnr = *catnr;
  sat.epoch = *epoch;
  sat.xincl = *inclination;
  sat.xnodeo = *node;
  sat.eo = *eccentricity;
  sat.omegao = *perigee;
  sat.xno = *meanMotion;
  // What the element-line parser makes of the same set, so that both forms
  // propagate alike: the derivative and the drag term lose their signs, the
  // second derivative is not read, the mean anomaly passes through a float.
  sat.xndt2o = std::fabs(*meanMotionDot);
  sat.bstar = std::fabs(*bstar);
  // Converted from the text straight to single precision, as the parser does.
  sat.xmo = static_cast<double>(numberAs<float>(record[OmmField::MeanAnomaly]).value_or(0.0f));
  // The parser reads the element number without its last digit, and as
  // "revnum" the ephemeris type digit followed by the element number.
  const int elementNumber = wholeNumber(record[OmmField::ElementSetNo], 0, 99'999).value_or(0);
  const int ephemerisType = wholeNumber(record[OmmField::EphemerisType], 0, 9).value_or(0);
  sat.elset = elementNumber / 10;
  sat.revnum = ephemerisType * digitScale(elementNumber) + elementNumber;
  copyName(sat, record[OmmField::ObjectName]);
  return true;
}

}  // namespace norvane
