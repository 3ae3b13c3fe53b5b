// The report's printed test cases: SGP4 and SGP8 for the near-Earth set 88888,
// SDP4 and SDP8 for the deep-space set 11801 (epoch 1980).
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

#include "core/astro/julian_date.h"
#include "element_sets.h"

namespace norvane {
namespace {

struct Difference {
  double positionM = 0;    // largest position difference, m
  double velocityMmS = 0;  // largest velocity difference, mm/s
};

// Largest difference from the printed rows; step(t) gives the model's position in km.
template <typename Step>
Difference compare(const std::vector<std::vector<double>>& rows, Step step, const char* label) {
  Difference d;
  for (const std::vector<double>& row : rows) {
    const test::Position p = step(row[0]);
    const double dr = test::distance(p.r, {row[1], row[2], row[3], 0}) * 1000.0;
    const double dv = test::distance(p.v, {row[4], row[5], row[6], 0}) * 1.0e6;
    std::printf("%s t=%6.0f position %8.1f m velocity %6.2f mm/s\n", label, row[0], dr, dv);
    d.positionM = std::max(d.positionM, dr);
    d.velocityMmS = std::max(d.velocityMmS, dv);
  }
  return d;
}

// Days since 1950 January 0.0 of the 11801 epoch in 1980, as the report counts them.
double reportEpochDays() { return JulianDateOfYear(1980) + 230.29629788 - 2433281.5; }

class ReportCases : public ::testing::Test {
 protected:
  std::vector<test::ReportCase> cases = test::readReportCases();
  std::unique_ptr<ModelState> models = std::make_unique<ModelState>();
};

TEST_F(ReportCases, NearEarthModelsDifferOnlyByTheSettledConstants) {
  ASSERT_EQ(cases.size(), 2u);
  const WorkingSet work = test::workingSetOf(cases[0].sat);
  ASSERT_EQ(work.isDeepSpace, 0);
  EXPECT_NEAR(work.period, 89.624, 0.001);
  // Settled constants (6378.137 km, truncated QOMS2T, S and CK4, 11 passes)
  // move the printed positions by up to about 10 m; the report's own
  // single-precision output accounts for the growth with time.
  const Difference sgp4Diff = compare(cases[0].rows["sgp4"], test::modelSteps(*models, work, 0), "SGP4");
  EXPECT_EQ(models->flags.simpleDrag, 1);  // perigee about 198 km
  EXPECT_LT(sgp4Diff.positionM, 12.0);
  EXPECT_LT(sgp4Diff.velocityMmS, 15.0);

  const Difference sgp8Diff = compare(cases[0].rows["sgp8"], test::modelSteps(*models, work, kSgp8Mode), "SGP8");
  EXPECT_EQ(models->flags.simpleDrag, 1);  // low-drag branch
  EXPECT_LT(sgp8Diff.positionM, 8.0);
  EXPECT_LT(sgp8Diff.velocityMmS, 10.0);
}

TEST_F(ReportCases, DeepSpaceEquationsMatchTheReportAtItsOwnEpoch) {
  ASSERT_EQ(cases.size(), 2u);
  const WorkingSet work = test::workingSetOf(cases[1].sat);
  ASSERT_EQ(work.isDeepSpace, 1);
  EXPECT_NEAR(work.period, 630.138, 0.001);

  sdp4Initialise(models->sdp4, models->deep, models->flags, work, reportEpochDays());
  EXPECT_EQ(models->flags.resonance, 0);
  const Difference sdp4Diff = compare(cases[1].rows["sdp4"], [&](double t) {
    StateVector r, v;
    sdp4(models->sdp4, models->deep, models->flags, t, work, r, v, 1);
    return test::inKilometres(r, v);
  }, "SDP4@1980");
  EXPECT_LT(sdp4Diff.positionM, 25.0);
  EXPECT_LT(sdp4Diff.velocityMmS, 5.0);

  // SDP8's eta of 0.974 magnifies the truncated S through (1 - eta^2)^-3.5.
  sdp8Initialise(models->sdp8, models->deep, models->flags, work, reportEpochDays());
  const Difference sdp8Diff = compare(cases[1].rows["sdp8"], [&](double t) {
    StateVector r, v;
    sdp8(models->sdp8, models->deep, models->flags, t, work, r, v, 1);
    return test::inKilometres(r, v);
  }, "SDP8@1980");
  EXPECT_LT(sdp8Diff.positionM, 150.0);
  EXPECT_LT(sdp8Diff.velocityMmS, 50.0);
}

TEST_F(ReportCases, ProductionDeepSpacePathTakesTheYearAs2000PlusYy) {
  ASSERT_EQ(cases.size(), 2u);
  const WorkingSet work = test::workingSetOf(cases[1].sat);
  const double days2080 = JulianDateOfYear(2080) + 230.29629788 - 2433281.5;
  EXPECT_NEAR(deepSpaceEpochDays(work.epoch), days2080, 1e-7);
  EXPECT_NEAR(deepSpaceEpochDays(98001.5) - deepSpaceEpochDays(1001.5), 97 * 365 + 24, 1e-7);  // 2098, not 1998

  // The front end, however, places the epoch in 1980.
  EXPECT_NEAR(epochToJulian(work.epoch), 2444238.5 + 230.29629788, 1e-7);

  for (const int mode : {0, kSgp8Mode}) {
    const char* name = mode == kSgp8Mode ? "sdp8" : "sdp4";
    const char* label = mode == kSgp8Mode ? "SDP8@2080" : "SDP4@2080";
    const Difference production = compare(cases[1].rows[name], test::modelSteps(*models, work, mode), label);
    // The lunar-solar terms of 2080 move the satellite by kilometres.
    EXPECT_GT(production.positionM, 1500.0) << name;
    EXPECT_LT(production.positionM, 7000.0) << name;
  }
}

}  // namespace
}  // namespace norvane
