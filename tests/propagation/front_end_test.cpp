// The propagation front end: epochs, units, model choice, and the entries
// that must not trap.
#include <gtest/gtest.h>

#include <cmath>

#include "core/astro/julian_date.h"
#include "core/elements/element_parser.h"
#include "core/propagation/propagator.h"
#include "element_sets.h"

namespace norvane {
namespace {

// A made-up element set: mean motion in rev/day, perigee height from e.
Satellite orbit(double revPerDay, double eccentricity, double inclination = 51.6) {
  Satellite s;
  s.epoch = 20100.5;
  s.bstar = 1.0e-4;
  s.xincl = inclination;
  s.xnodeo = 30.0;
  s.eo = eccentricity;
  s.omegao = 40.0;
  s.xmo = 50.0;
  s.xno = revPerDay;
  s.catnr = 99999;
  return s;
}

bool finite(const StateVector& v) { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); }

class FrontEnd : public ::testing::Test {
 protected:
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
  std::unique_ptr<ModelState> models = std::make_unique<ModelState>();
  WorkingSet work;
  StateVector r, v;
};

TEST(EpochToJulian, PivotsAt57AndCountsDayOneAsJanuaryFirst) {
  EXPECT_DOUBLE_EQ(epochToJulian(1.0), 2451544.5);
  EXPECT_DOUBLE_EQ(epochToJulian(57001.0), 2435839.5);
  EXPECT_DOUBLE_EQ(epochToJulian(56001.0), JulianDateOfYear(2056) + 1.0);
  EXPECT_NEAR(epochToJulian(8264.51782528), 2454730.01782528, 1e-8);
}

TEST(WorkingSetConversion, ConvertsUnitsAndKeepsWhatTheCopySkips) {
  Satellite s = orbit(16.0, 0.001);
  s.xndt2o = 1.0e-4;
  s.xndd6o = 5.0;  // never copied
  s.elset = 7;     // never copied
  WorkingSet w;
  w.xndd6o = 2.0;  // a stale value is converted again
  initialiseWorkingSet(w, s);
  EXPECT_DOUBLE_EQ(w.xndt2o, 1.0e-4 * 3.0300855069346e-6);
  EXPECT_DOUBLE_EQ(w.xndd6o, 2.0 * 6.283185307179586 / 2.985984e9);
  EXPECT_EQ(w.elset, 0);
  EXPECT_EQ(w.catnr, 99999);
  EXPECT_NEAR(w.period, 90.0, 0.5);
  EXPECT_EQ(w.isDeepSpace, 0);
}

TEST(WorkingSetConversion, DeepSpaceFromAPeriodOf225Minutes) {
  EXPECT_EQ(test::workingSetOf(orbit(2.0, 0.01)).isDeepSpace, 1);  // 12-hour orbit
  EXPECT_NEAR(test::workingSetOf(orbit(2.0, 0.01)).period, 718.0, 3.0);
  // Find the mean motion whose period is exactly 225 minutes by bisection.
  double lo = 6.3, hi = 6.5;
  for (int i = 0; i < 200 && lo < hi; ++i) {
    const double mid = 0.5 * (lo + hi);
    if (mid == lo || mid == hi) break;
    (test::workingSetOf(orbit(mid, 0.01)).period >= 225.0 ? lo : hi) = mid;
  }
  const WorkingSet atBound = test::workingSetOf(orbit(lo, 0.01));
  EXPECT_GE(atBound.period, 225.0);
  EXPECT_EQ(atBound.isDeepSpace, 1);
  EXPECT_EQ(test::workingSetOf(orbit(hi, 0.01)).isDeepSpace, 0);
}

TEST_F(FrontEnd, ChoosesTheModelByFamilyAndPeriodAndScalesToKilometres) {
  catalogue->satellites[0] = orbit(15.5, 0.001);
  catalogue->satellites[1] = orbit(2.0, 0.7, 63.4);
  const double jd = epochToJulian(20100.5) + 0.25;
  propagate(*models, *catalogue, jd, work, 0, v, r, 0, 0);
  EXPECT_STREQ(modelName(work, 0), "SGP4");
  EXPECT_STREQ(modelName(work, kSgp8Mode), "SGP8");
  EXPECT_NEAR(r.w, std::sqrt(r.x * r.x + r.y * r.y + r.z * r.z), 1e-9);
  EXPECT_GT(r.w, 6600.0);
  EXPECT_LT(r.w, 7200.0);
  EXPECT_NEAR(v.w, 7.6, 0.3);

  // The same time from the model directly, scaled by hand.
  StateVector rm, vm;
  runModel(*models, 0.25 * 1440.0, work, rm, vm, 1, 0);
  EXPECT_NEAR(r.x, rm.x * 6378.137, 1e-6);
  EXPECT_NEAR(v.z, vm.z * 106.30228333333332, 1e-9);

  // The other family gives a different position for the same set.
  StateVector r8, v8;
  propagate(*models, *catalogue, jd, work, 0, v8, r8, 0, kSgp8Mode);
  EXPECT_GT(std::fabs(r8.x - r.x) + std::fabs(r8.y - r.y), 1e-3);
  EXPECT_LT(std::fabs(r8.w - r.w), 20.0);

  propagate(*models, *catalogue, jd, work, 1, v, r, 0, 0);
  EXPECT_STREQ(modelName(work, 0), "SDP4");
  EXPECT_EQ(models->flags.resonance, 1);  // Molniya: 12-hour resonance
  EXPECT_EQ(models->flags.synchronous, 0);
  EXPECT_TRUE(finite(r));
}

TEST_F(FrontEnd, InitialisedCallsReuseTheLastInitialisedSatellite) {
  catalogue->satellites[0] = orbit(15.5, 0.001);
  catalogue->satellites[1] = orbit(14.0, 0.002);
  const double jd = epochToJulian(20100.5) - 0.1;  // before epoch
  WorkingSet work0, work1;
  StateVector fresh, stale, dummy;
  propagate(*models, *catalogue, jd, work0, 0, dummy, fresh, 0, 0);
  propagate(*models, *catalogue, jd, work1, 1, dummy, dummy, 0, 0);
  // Satellite 0 claimed initialised now computes with satellite 1's constants.
  propagate(*models, *catalogue, jd, work0, 0, dummy, stale, 1, 0);
  EXPECT_GT(std::fabs(stale.w - fresh.w), 1.0);
  StateVector again;
  propagate(*models, *catalogue, jd, work0, 0, dummy, again, 0, 0);
  EXPECT_EQ(again.x, fresh.x);
}

TEST_F(FrontEnd, BlankEntryAndZeroEccentricityDoNotTrap) {
  loadBlankSatellite(*catalogue);
  propagate(*models, *catalogue, 2460000.5, work, 0, v, r, 0, 0);
  EXPECT_EQ(work.isDeepSpace, 1);  // infinite period
  propagate(*models, *catalogue, 2460000.5, work, 0, v, r, 0, kSgp8Mode);
  propagate(*models, *catalogue, 2460000.5, work, 500, v, r, 0, 0);  // no such slot: an empty entry

  catalogue->satellites[2] = orbit(15.5, 0.0);
  propagate(*models, *catalogue, epochToJulian(20100.5) + 0.1, work, 2, v, r, 0, 0);
  EXPECT_EQ(models->flags.simpleDrag, 0);
  EXPECT_FALSE(finite(r));  // C3 and XMCOF divide by e
}

TEST_F(FrontEnd, ResonantOrbitsAtAbsurdTimesEndWithoutAHang) {
  catalogue->satellites[0] = orbit(1.0027, 0.0002, 0.05);  // geostationary
  propagate(*models, *catalogue, epochToJulian(20100.5) + 1.0, work, 0, v, r, 0, 0);
  EXPECT_EQ(models->flags.synchronous, 1);
  EXPECT_NEAR(r.w, 42164.0, 50.0);
  for (const double jd : {1.0e300, HUGE_VAL, std::nan(""), -1.0e12}) {
    propagate(*models, *catalogue, jd, work, 0, v, r, 1, 0);
    propagate(*models, *catalogue, jd, work, 0, v, r, 0, kSgp8Mode);
  }
}

TEST_F(FrontEnd, PropagatorsAgreeWithTheSharedFrontEndWhateverTheCallOrder) {
  catalogue->satellites[0] = orbit(15.5, 0.001);
  catalogue->satellites[1] = orbit(2.0, 0.7, 63.4);
  const double epoch = epochToJulian(20100.5);
  for (int index = 0; index < 2; ++index) {
    for (const ModelFamily family : {ModelFamily::Sgp4Sdp4, ModelFamily::Sgp8Sdp8}) {
      const int mode = family == ModelFamily::Sgp8Sdp8 ? kSgp8Mode : 0;
      auto own = std::make_unique<Propagator>(catalogue->satellites[static_cast<std::size_t>(index)], family);
      auto other = std::make_unique<Propagator>(catalogue->satellites[static_cast<std::size_t>(1 - index)], family);
      for (const double days : {1.5, -0.3, 0.7}) {  // out of order, a second propagator in between
        other->stateAt(epoch + days);
        const OrbitState s = own->stateAt(epoch + days);
        propagate(*models, *catalogue, epoch + days, work, index, v, r, 0, mode);
        EXPECT_NEAR(s.positionKm[0], r.x, 1e-6) << index << " " << days;
        EXPECT_NEAR(s.velocityKmS[2], v.z, 1e-9) << index << " " << days;
      }
      EXPECT_STREQ(own->modelName(), modelName(work, mode));
      EXPECT_DOUBLE_EQ(own->periodMinutes(), work.period);
    }
  }
}

}  // namespace
}  // namespace norvane
