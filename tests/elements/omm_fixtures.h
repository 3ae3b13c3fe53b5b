#pragma once
#include <string>
#include <utility>
#include <vector>

namespace norvane::test {

// The ISS element set of tle_fixtures.h as OMM fields, in the server's column order.
using OmmFields = std::vector<std::pair<std::string, std::string>>;

inline OmmFields issOmm() {
  return {{"OBJECT_NAME", "ISS (ZARYA)"}, {"OBJECT_ID", "1998-067A"}, {"EPOCH", "2008-09-20T12:25:40.104192"},
          {"MEAN_MOTION", "15.72125391"}, {"ECCENTRICITY", ".0006703"}, {"INCLINATION", "51.6416"},
          {"RA_OF_ASC_NODE", "247.4627"}, {"ARG_OF_PERICENTER", "130.5360"}, {"MEAN_ANOMALY", "325.0288"},
          {"EPHEMERIS_TYPE", "0"}, {"CLASSIFICATION_TYPE", "U"}, {"NORAD_CAT_ID", "25544"},
          {"ELEMENT_SET_NO", "292"}, {"REV_AT_EPOCH", "56353"}, {"BSTAR", "-.11606E-4"},
          {"MEAN_MOTION_DOT", "-.00002182"}, {"MEAN_MOTION_DDOT", "0"}};
}

inline OmmFields with(OmmFields fields, const std::string& key, const std::string& value) {
  for (auto& [k, v] : fields) {
    if (k == key) v = value;
  }
  return fields;
}

// Header and one row per record, every field as it is (no quoting).
inline std::string ommCsv(const std::vector<OmmFields>& records, const char* eol = "\r\n") {
  std::string text;
  for (std::size_t i = 0; i < records.front().size(); ++i) text += (i ? "," : "") + records.front()[i].first;
  text += eol;
  for (const OmmFields& r : records) {
    for (std::size_t i = 0; i < r.size(); ++i) text += (i ? "," : "") + r[i].second;
    text += eol;
  }
  return text;
}

// An array of objects, every value as a JSON string except the literal null.
inline std::string ommJson(const std::vector<OmmFields>& records) {
  std::string text = "[";
  for (std::size_t n = 0; n < records.size(); ++n) {
    text += n ? ",{" : "{";
    for (std::size_t i = 0; i < records[n].size(); ++i) {
      const auto& [k, v] = records[n][i];
      text += (i ? ",\"" : "\"") + k + "\":" + (v == "null" ? v : "\"" + v + "\"");
    }
    text += "}";
  }
  return text + "]";
}

}  // namespace norvane::test
