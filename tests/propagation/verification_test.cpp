// The verification element sets: every set over its range with both model
// families, and the near-Earth sets against an independent SGP4.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <unistd.h>
#include <sstream>

#include "element_sets.h"

namespace norvane {
namespace {

constexpr int kMaxSteps = 2000;  // bound on the times tried per set

std::vector<double> timesOf(const test::VerificationCase& c) {
  std::vector<double> times;
  for (int i = 0; i < kMaxSteps; ++i) {
    const double t = c.start + i * c.step;
    if (c.step <= 0 || t > c.stop) break;
    times.push_back(t);
  }
  return times;
}

TEST(VerificationSets, EverySetRunsOverItsRangeWithBothFamilies) {
  const std::vector<test::VerificationCase> cases = test::readVerificationCases();
  ASSERT_EQ(cases.size(), 29u);
  int deepSpace = 0, finitePositions = 0;
  auto models = std::make_unique<ModelState>();
  for (const test::VerificationCase& c : cases) {
    const WorkingSet work = test::workingSetOf(c.sat);
    deepSpace += work.isDeepSpace;
    for (const int mode : {0, kSgp8Mode}) {
      auto step = test::modelSteps(*models, work, mode);
      for (const double t : timesOf(c)) {
        const test::Position p = step(t);
        finitePositions += std::isfinite(p.r.x) && std::isfinite(p.r.y) && std::isfinite(p.r.z);
      }
    }
  }
  EXPECT_GE(deepSpace, 10);
  EXPECT_GT(finitePositions, 1000);
}

// Runs the oracle on the near-Earth sets; the map holds its rows by catalogue number.
struct OracleRow {
  double t;
  int error;
  test::Position p;
};

bool runOracle(const std::vector<std::pair<WorkingSet, std::vector<double>>>& sets,
               std::map<int, std::vector<OracleRow>>& rows, std::string& why) {
  const std::string python = "/usr/bin/python3";
  if (!std::filesystem::exists(python)) {
    why = "Debian's /usr/bin/python3 is missing";
    return false;
  }
  const std::filesystem::path dir = std::filesystem::temp_directory_path();
  const std::string input = (dir / ("norvane_oracle_in_" + std::to_string(::getpid()))).string();
  const std::string output = (dir / ("norvane_oracle_out_" + std::to_string(::getpid()))).string();
  {
    std::ofstream in(input);
    char buffer[64];
    for (const auto& [w, times] : sets) {
      in << w.catnr;
      for (const double x : {epochToJulian(w.epoch) - 2433281.5, w.bstar, w.xincl, w.xnodeo, w.eo, w.omegao,
                             w.xmo, w.xno}) {
        std::snprintf(buffer, sizeof buffer, " %.17g", x);
        in << buffer;
      }
      for (const double t : times) in << ' ' << t;
      in << '\n';
    }
  }
  const std::string command = python + " " + NORVANE_TEST_DIR + "/sgp4_oracle.py " + input + " " + output;
  const int status = std::system(command.c_str());
  std::filesystem::remove(input);
  if (status != 0) {
    why = "python3-sgp4 (the oracle) is not installed for /usr/bin/python3";
    std::filesystem::remove(output);
    return false;
  }
  std::ifstream out(output);
  std::string line;
  while (std::getline(out, line)) {
    std::istringstream fields(line);
    int catnr = 0;
    OracleRow row{};
    fields >> catnr >> row.t >> row.error >> row.p.r.x >> row.p.r.y >> row.p.r.z >> row.p.v.x >> row.p.v.y >> row.p.v.z;
    rows[catnr].push_back(row);
  }
  std::filesystem::remove(output);
  return true;
}

// Position tolerance: the Kepler rule keeps an estimate whose last correction
// was up to 1e-6 rad, a few metres at these radii, and the oracle's constants
// (CK2 0.000541308, untruncated QOMS2T and S, 1.25 CK4 7.762359e-7) move
// ordinary orbits by less than a metre a day. Together 20 m and 20 mm/s.
constexpr double kToleranceM = 20.0;
constexpr double kToleranceMmS = 20.0;

// Decaying sets: their drag terms scale with (a - s)^-4, which turns the
// truncated S (2.8e-7 relative) into 1e-4 of C1, and once drag drives e below
// 0 the oracle floors it at 1e-6; they are compared over their first 2 hours.
bool decaying(int catnr) { return catnr == 22312 || catnr == 28350 || catnr == 29141; }
constexpr double kDecayingSpan = 120.0;

TEST(VerificationSets, NearEarthSetsAgreeWithAnIndependentSgp4) {
  std::vector<std::pair<WorkingSet, std::vector<double>>> sets;
  for (const test::VerificationCase& c : test::readVerificationCases()) {
    const WorkingSet work = test::workingSetOf(c.sat);
    if (work.isDeepSpace == 0) sets.emplace_back(work, timesOf(c));
  }
  std::map<int, std::vector<OracleRow>> oracle;
  std::string why;
  if (!runOracle(sets, oracle, why)) GTEST_SKIP() << "oracle comparison skipped: " << why;

  // The oracle uses the report's 6378.135 km per earth radius; put it on ours.
  const double rescale = kKilometresPerEarthRadius / 6378.135;
  auto models = std::make_unique<ModelState>();
  int compared = 0;
  for (const auto& [work, times] : sets) {
    double worstR = 0, worstV = 0;
    auto step = test::modelSteps(*models, work, 0);
    for (const OracleRow& row : oracle[work.catnr]) {
      const test::Position ours = step(row.t);
      if (row.error != 0 || !std::isfinite(ours.r.x + ours.r.y + ours.r.z)) continue;
      if (decaying(work.catnr) && row.t - times.front() > kDecayingSpan) continue;
      StateVector r = row.p.r, v = row.p.v;
      r.x *= rescale, r.y *= rescale, r.z *= rescale, v.x *= rescale, v.y *= rescale, v.z *= rescale;
      worstR = std::max(worstR, test::distance(ours.r, r) * 1000.0);
      worstV = std::max(worstV, test::distance(ours.v, v) * 1.0e6);
      ++compared;
    }
    std::printf("%05d position %9.3f m velocity %9.3f mm/s\n", work.catnr, worstR, worstV);
    EXPECT_LT(worstR, kToleranceM) << work.catnr;
    EXPECT_LT(worstV, kToleranceMmS) << work.catnr;
  }
  EXPECT_GT(compared, 100);
}

}  // namespace
}  // namespace norvane
