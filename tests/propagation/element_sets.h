#pragma once
#include <cmath>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/elements/catalogue.h"
#include "core/elements/element_parser.h"
#include "core/propagation/propagate.h"

namespace norvane::test {

inline std::string sourcePath(const std::string& name) { return std::string(NORVANE_DATA_DIR) + "/sources/" + name; }

// An element set as the program reads it: line 1 shifted by the line feed that
// follows a 24-character name line, so the standard columns apply.
inline Satellite satelliteOf(const std::string& line1, const std::string& line2) {
  auto catalogue = std::make_unique<Catalogue>();
  parseElementSet(*catalogue, "TEST", "\n" + line1, line2, 0);
  return catalogue->satellites[0];
}

// One entry of the verification file with its start, stop and step (minutes).
struct VerificationCase {
  Satellite sat;
  double start = 0, stop = 0, step = 0;
};

inline std::vector<VerificationCase> readVerificationCases() {
  std::ifstream in(sourcePath("sgp4-ver.tle"));
  std::vector<VerificationCase> cases;
  std::string line, line1;
  while (std::getline(in, line)) {
    if (line.rfind("1 ", 0) == 0) line1 = line;
    if (line.rfind("2 ", 0) != 0 || line.size() < 69) continue;
    VerificationCase c;
    c.sat = satelliteOf(line1, line);
    std::istringstream(line.substr(69)) >> c.start >> c.stop >> c.step;
    cases.push_back(c);
  }
  return cases;
}

// The report's printed cases: per model name, rows of t, x, y, z (km), vx, vy, vz (km/s).
struct ReportCase {
  Satellite sat;
  std::map<std::string, std::vector<std::vector<double>>> rows;
};

inline std::vector<ReportCase> readReportCases() {
  std::ifstream in(sourcePath("str3_test_vectors.txt"));
  std::vector<ReportCase> cases;
  std::string line, line1, model;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    if (line == "-data") cases.emplace_back();
    else if (line.rfind("1 ", 0) == 0) line1 = line;
    else if (line.rfind("2 ", 0) == 0) cases.back().sat = satelliteOf(line1, line);
    else if (line.rfind("-model ", 0) == 0) model = line.substr(7);
    else if (line[0] != '-') {
      std::istringstream row(line);
      std::vector<double> values(7);
      for (double& v : values) row >> v;
      cases.back().rows[model].push_back(values);
    }
  }
  return cases;
}

// A working set initialised from sat, as propagate prepares it.
inline WorkingSet workingSetOf(const Satellite& sat) {
  WorkingSet work;
  initialiseWorkingSet(work, sat);
  return work;
}

// A model's position and velocity in earth radii (per minute), in km and km/s.
struct Position {
  StateVector r, v;
};
inline Position inKilometres(StateVector r, StateVector v) {
  for (double* c : {&r.x, &r.y, &r.z}) *c *= kKilometresPerEarthRadius;
  for (double* c : {&v.x, &v.y, &v.z}) *c *= kKmPerSecondPerEarthRadiusPerMinute;
  return {r, v};
}

inline double distance(const StateVector& a, const StateVector& b) {
  return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) + (a.z - b.z) * (a.z - b.z));
}

// runModel over successive times, initialised at the first.
inline auto modelSteps(ModelState& models, const WorkingSet& work, int mode) {
  return [&models, &work, mode, init = std::uint8_t{0}](double t) mutable {
    StateVector r, v;
    runModel(models, t, work, r, v, init, mode);
    init = 1;
    return inKilometres(r, v);
  };
}

}  // namespace norvane::test
