// Doppler signs, transponders, rotator ranges and the pass decisions on real
// passes of the space station, the frequency file and the daemons' replies.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "core/astro/sub_satellite_point.h"
#include "core/radio/doppler.h"
#include "core/radio/frequency_table.h"
#include "core/radio/hamlib_reply.h"
#include "core/radio/pass_track.h"
#include "core/radio/radio_control.h"
#include "core/radio/radio_mode.h"
#include "core/radio/rotator.h"
#include "tests/analysis/analysis_fixtures.h"

namespace norvane {
namespace {

constexpr double kRad = std::numbers::pi / 180.0;
constexpr double kMinute = 1.0 / 1440.0;

TEST(Doppler, ApproachingRaisesReceiveAndLowersTransmit) {
  const Transponder fm{437.8e6, 145.99e6, false};
  const RadioFrequencies approaching = CorrectedFrequencies(fm, -7.0);
  EXPECT_NEAR(approaching.rxHz - 437.8e6, 437.8e6 * 7000.0 / kSpeedOfLightMS, 1e-6);
  EXPECT_LT(approaching.txHz, 145.99e6);
  const RadioFrequencies receding = CorrectedFrequencies(fm, 7.0);
  EXPECT_LT(receding.rxHz, 437.8e6);
  EXPECT_GT(receding.txHz, 145.99e6);
  // The satellite hears the nominal uplink (to second order in v/c).
  for (double v : {-7.5, -1.0, 3.0, 7.5}) {
    const double heard = CorrectedFrequencies(fm, v).txHz * (1.0 - v * 1000.0 / kSpeedOfLightMS);
    EXPECT_NEAR(heard, 145.99e6, 0.1) << v;
  }
}

TEST(Doppler, LinearTranspondersAndBeacons) {
  const Transponder inverting{435.85e6, 145.95e6, true};
  const Transponder plain{145.96e6, 435.25e6, false};
  EXPECT_DOUBLE_EQ(PairedUplink(inverting, 20e3), 145.93e6);  // downlink up, uplink down
  EXPECT_DOUBLE_EQ(PairedUplink(inverting, -20e3), 145.97e6);
  EXPECT_DOUBLE_EQ(PairedUplink(plain, 20e3), 435.27e6);
  const RadioFrequencies tuned = CorrectedFrequencies(inverting, 0.0, 20e3);
  EXPECT_DOUBLE_EQ(tuned.rxHz, 435.87e6);
  EXPECT_DOUBLE_EQ(tuned.txHz, 145.93e6);
  const Transponder beacon{145.935e6, 0, false};
  EXPECT_EQ(CorrectedFrequencies(beacon, -5.0, 1e3).txHz, 0.0);
  // Sidebands swap across an inverting transponder; unknown modes leave the radio alone.
  EXPECT_EQ(ModesFor("USB", true)->tx, "LSB");
  EXPECT_EQ(ModesFor("USB", false)->tx, "USB");
  EXPECT_EQ(ModesFor("FM", true)->tx, "FM");
  EXPECT_FALSE(ModesFor("APT", false).has_value());
  EXPECT_FALSE(ModesFor("-", false).has_value());
}

TEST(Rotator, EachAzimuthRangePicksTheTurnInsideItsTravel) {
  RotatorConfig c;
  c.azimuthRange = AzimuthRange::Zero360;
  EXPECT_DOUBLE_EQ(RotatorPosition({350, 10}, false, c, 0).azimuthDeg, 350);
  c.azimuthRange = AzimuthRange::Minus180To180;
  EXPECT_DOUBLE_EQ(RotatorPosition({350, 10}, false, c, 0).azimuthDeg, -10);
  EXPECT_DOUBLE_EQ(RotatorPosition({180, 10}, false, c, 170).azimuthDeg, 180);
  EXPECT_DOUBLE_EQ(RotatorPosition({180, 10}, false, c, -170).azimuthDeg, -180);
  c.azimuthRange = AzimuthRange::Zero450;
  EXPECT_DOUBLE_EQ(RotatorPosition({30, 10}, false, c, 350).azimuthDeg, 390);  // into the overlap
  EXPECT_DOUBLE_EQ(RotatorPosition({30, 10}, false, c, 60).azimuthDeg, 30);
  EXPECT_DOUBLE_EQ(RotatorPosition({350, 10}, false, c, 420).azimuthDeg, 350);
  // Elevation: never below the horizon; flipped only on a 0-180 rotator.
  EXPECT_DOUBLE_EQ(RotatorPosition({100, -3}, false, c, 100).elevationDeg, 0);
  const AzEl noFlip = RotatorPosition({100, 30}, true, c, 100);
  EXPECT_DOUBLE_EQ(noFlip.elevationDeg, 30);
  c.elevationRange = ElevationRange::Zero180;
  const AzEl flipped = RotatorPosition({100, 30}, true, c, 280);
  EXPECT_DOUBLE_EQ(flipped.azimuthDeg, 280);
  EXPECT_DOUBLE_EQ(flipped.elevationDeg, 150);
  EXPECT_FALSE(RotatorNeedsMove({100, 30}, {101.9, 28.1}, 2.0));
  EXPECT_TRUE(RotatorNeedsMove({100, 30}, {100, 32.5}, 2.0));
}

// Real passes of the space station (2017 elements) over observers placed
// against its ground track at a chosen moment.
class RealPasses : public ::testing::Test {
 protected:
  void SetUp() override {
    catalogue_ = test::bundled("visual_2017-04-14.txt");
    iss_ = catalogue_->satellites[test::kIssSlot];
    ASSERT_EQ(iss_.catnr, 25544);
    Propagator p(iss_);
    const OrbitState s = p.stateAt(kMoment);
    const StateVector pos{s.positionKm[0], s.positionKm[1], s.positionKm[2],
                          std::hypot(s.positionKm[0], s.positionKm[1], s.positionKm[2])};
    SubSatellitePoint(kMoment, pos, below_);
  }
  // The observer offset in latitude (deg) from the point below the station at kMoment.
  Geodetic observer(double dLatDeg) const { return {below_.lat + dLatDeg * kRad, below_.lon, 0.05, 0}; }
  PassTrack pass(double dLatDeg) {
    Propagator p(iss_);
    return SampleNextPass(p, observer(dLatDeg), kMoment - 15 * kMinute, PassSearch{});
  }
  static RotatorConfig rotator(AzimuthRange az, ElevationRange el) {
    RotatorConfig c;
    c.azimuthRange = az;
    c.elevationRange = el;
    return c;
  }
  // Largest azimuth step between consecutive targets of the pass (deg).
  static double largestStep(const PassTrack& track, const RotatorConfig& c) {
    const RotatorPassPlan plan = PlanRotatorPass(track.samples, c);
    double near = plan.start.azimuthDeg;
    double largest = 0;
    for (const TrackSample& s : track.samples) {
      const RotatorTarget t = RotatorTargetAt(s.jd, {s.azimuthDeg, s.elevationDeg}, plan, c, near);
      EXPECT_GE(t.position.azimuthDeg, AzimuthLow(c.azimuthRange) - 1e-9);
      EXPECT_LE(t.position.azimuthDeg, AzimuthHigh(c.azimuthRange) + 1e-9);
      EXPECT_LE(t.position.elevationDeg, c.elevationRange == ElevationRange::Zero90 ? 90.0 : 180.0);
      largest = std::max(largest, std::fabs(t.position.azimuthDeg - near));
      near = t.position.azimuthDeg;
    }
    return largest;
  }
  static double maxElevation(const PassTrack& t) {
    double m = -90;
    for (const TrackSample& s : t.samples) m = std::max(m, s.elevationDeg);
    return m;
  }

  static constexpr double kMoment = test::kVisualEpoch + 0.3;
  std::unique_ptr<Catalogue> catalogue_;
  Satellite iss_;
  Geodetic below_;
};

TEST_F(RealPasses, OverheadPassReachesTheZenithAndSpansAosToLos) {
  const PassTrack t = pass(0.0);
  ASSERT_TRUE(t.found);
  EXPECT_GT(maxElevation(t), 80.0);
  EXPECT_LT(t.aosJd, kMoment);
  EXPECT_GT(t.losJd, kMoment);
  EXPECT_GT(t.losJd - t.aosJd, 5 * kMinute);
  EXPECT_LT(t.losJd - t.aosJd, 12 * kMinute);
  EXPECT_NEAR(t.samples.front().elevationDeg, 0.0, 0.1);
  EXPECT_NEAR(t.samples.back().elevationDeg, 0.0, 0.1);
  // A 0-90 rotator keeps every target inside its travel.
  largestStep(t, rotator(AzimuthRange::Zero360, ElevationRange::Zero90));
}

TEST_F(RealPasses, NorthCrossingIsFlippedOrTakenThroughTheOverlap) {
  const PassTrack t = pass(-8.0);
  ASSERT_TRUE(t.found);
  const auto crossesNorth = std::any_of(t.samples.begin(), t.samples.end(), [](auto& s) { return s.azimuthDeg < 20; }) &&
                            std::any_of(t.samples.begin(), t.samples.end(), [](auto& s) { return s.azimuthDeg > 340; });
  ASSERT_TRUE(crossesNorth);

  const auto plain = rotator(AzimuthRange::Zero360, ElevationRange::Zero90);
  EXPECT_FALSE(PlanRotatorPass(t.samples, plain).fits);
  EXPECT_GT(largestStep(t, plain), 300.0);  // the unavoidable swing at the stop

  const auto flipping = rotator(AzimuthRange::Zero360, ElevationRange::Zero180);
  const RotatorPassPlan flipped = PlanRotatorPass(t.samples, flipping);
  EXPECT_TRUE(flipped.flip);
  EXPECT_TRUE(flipped.fits);
  EXPECT_GT(flipped.start.elevationDeg, 90.0);
  EXPECT_LT(largestStep(t, flipping), 10.0);

  auto noFlip = flipping;
  noFlip.flip = FlipMode::Off;
  EXPECT_FALSE(PlanRotatorPass(t.samples, noFlip).flip);

  const auto southStop = rotator(AzimuthRange::Minus180To180, ElevationRange::Zero90);
  EXPECT_TRUE(PlanRotatorPass(t.samples, southStop).fits);
  EXPECT_LT(largestStep(t, southStop), 10.0);
  // The pass sweeps more azimuth than the overlap holds: a 0-450 rotator
  // follows it only flipped.
  EXPECT_FALSE(PlanRotatorPass(t.samples, rotator(AzimuthRange::Zero450, ElevationRange::Zero90)).fits);
  const auto overlap = rotator(AzimuthRange::Zero450, ElevationRange::Zero180);
  EXPECT_TRUE(PlanRotatorPass(t.samples, overlap).flip);
  EXPECT_LT(largestStep(t, overlap), 10.0);
}

TEST_F(RealPasses, LowSouthernPassCrossesTheStopOfAMinus180Rotator) {
  const PassTrack t = pass(+14.0);
  ASSERT_TRUE(t.found);
  EXPECT_LT(maxElevation(t), 15.0);
  for (AzimuthRange range : {AzimuthRange::Zero360, AzimuthRange::Zero450}) {
    const auto c = rotator(range, ElevationRange::Zero180);
    EXPECT_FALSE(PlanRotatorPass(t.samples, c).flip);
    EXPECT_LT(largestStep(t, c), 10.0);
  }
  EXPECT_FALSE(PlanRotatorPass(t.samples, rotator(AzimuthRange::Minus180To180, ElevationRange::Zero90)).fits);
  const auto c = rotator(AzimuthRange::Minus180To180, ElevationRange::Zero180);
  EXPECT_TRUE(PlanRotatorPass(t.samples, c).flip);
  EXPECT_LT(largestStep(t, c), 10.0);
}

TEST_F(RealPasses, ControlParksPrePositionsTracksAndParksAgain) {
  RadioControlConfig config;
  config.transponder = {437.8e6, 145.99e6, false};
  config.rotator = rotator(AzimuthRange::Minus180To180, ElevationRange::Zero90);
  config.rotator.parkAzimuthDeg = 180;
  config.rotator.parkElevationDeg = 90;
  config.rotator.minElevationDeg = 5;
  const PassTrack t = pass(-8.0);
  RadioControl control(iss_, observer(-8.0), config);
  const ControlStep early = control.step(kMoment - 15 * kMinute);
  EXPECT_EQ(early.rotator.phase, RotatorPhase::Park);
  EXPECT_DOUBLE_EQ(early.rotator.position.azimuthDeg, 180);
  const RotatorPassPlan plan = control.plan();
  ASSERT_TRUE(plan.valid);
  EXPECT_GT(plan.aosJd, t.aosJd);  // the minimum elevation shortens the pass
  const ControlStep waiting = control.step(plan.aosJd - 1 * kMinute);
  EXPECT_EQ(waiting.rotator.phase, RotatorPhase::PrePosition);
  EXPECT_NEAR(waiting.rotator.position.azimuthDeg, plan.start.azimuthDeg, 1e-9);
  double previous = plan.start.azimuthDeg;
  for (int step = 0; plan.aosJd + step * (5.0 / 86400) <= plan.losJd; ++step) {
    const double jd = plan.aosJd + step * (5.0 / 86400);
    const ControlStep s = control.step(jd);
    ASSERT_EQ(s.rotator.phase, RotatorPhase::Track);
    EXPECT_LT(std::fabs(s.rotator.position.azimuthDeg - previous), 5.0);
    previous = s.rotator.position.azimuthDeg;
    EXPECT_NEAR(s.frequencies.rxHz, ReceiveFrequency(437.8e6, s.sky.rangeRateKmS), 1e-6);
  }
  EXPECT_EQ(control.step(plan.losJd + kMinute).rotator.phase, RotatorPhase::Park);
}

TEST(FrequencyFile, ReadsEntriesSkipsCommentsAndRejectsMalformedLines) {
  const FrequencyTable t = ParseFrequencyTable(
      "# comment\n\n25544 ISS 437.800 145.990 FM 0 # repeater\r\n"
      "7530\tAO-7\t145.950\t432.150\tUSB\t1\n"
      "39444 AO-73 145.935 - USB 0\n"
      "25544 ISS-APRS 145.825 145.825 FM 0\n"
      "1 short 145.0 - FM\n"                // five fields
      "2 long 145.0 - FM 0 extra\n"         // seven
      "3 bad 14x.0 - FM 0\n"                // not a number
      "4 zero 0 - FM 0\n"                   // no downlink
      "5 flag 145.0 - FM 2\n"               // flag neither 0 nor 1
      "-6 neg 145.0 - FM 0\n"               // catalogue number
      "7 huge 2e7 - FM 0\n"                 // beyond 1e7 MHz
      "8 NameLongerThanTwentyFourX 145.0 - FM 0\n"
      "9 last 146.0 - FM 0");               // no final line feed
  ASSERT_EQ(t.entries.size(), 5u);
  EXPECT_EQ(t.skippedLines, 8);
  const FrequencyEntry* iss = FindFrequencies(t, 25544);
  ASSERT_NE(iss, nullptr);
  EXPECT_EQ(iss->name, "ISS");  // the first line of a satellite wins
  EXPECT_DOUBLE_EQ(iss->uplinkMHz, 145.99);
  const Transponder ao7 = TransponderFor(FindFrequencies(t, 7530), 130, 138);
  EXPECT_TRUE(ao7.inverting);
  EXPECT_DOUBLE_EQ(ao7.uplinkHz, 432.15e6);
  EXPECT_EQ(FindFrequencies(t, 39444)->uplinkMHz, 0.0);
  EXPECT_EQ(FindFrequencies(t, 9)->downlinkMHz, 146.0);
  const Transponder fallback = TransponderFor(FindFrequencies(t, 99999), 130, 138);
  EXPECT_DOUBLE_EQ(fallback.downlinkHz, 130e6);
  EXPECT_DOUBLE_EQ(fallback.uplinkHz, 138e6);
}

TEST(FrequencyFile, ShippedFileReadsWhole) {
  const FrequencyTable t = ParseFrequencyTable(testing::ReadFile(std::string(NORVANE_DATA_DIR) + "/Frequencies.txt"));
  EXPECT_EQ(t.skippedLines, 0);
  EXPECT_GE(t.entries.size(), 8u);
  ASSERT_NE(FindFrequencies(t, 25544), nullptr);
}

TEST(HamlibReply, ReportsValuesPartsAndNonsense) {
  EXPECT_EQ(ParseHamlibReply("RPRT 0\n", 0).status, ReplyStatus::Report);
  const HamlibReply refused = ParseHamlibReply("RPRT -1\nextra", 2);
  EXPECT_EQ(refused.status, ReplyStatus::Report);
  EXPECT_EQ(refused.code, -1);
  EXPECT_EQ(refused.consumed, 8u);
  const HamlibReply position = ParseHamlibReply("23.10\n-4.5\n", 2);
  ASSERT_EQ(position.status, ReplyStatus::Values);
  EXPECT_DOUBLE_EQ(position.values[1], -4.5);
  EXPECT_EQ(ParseHamlibReply("23.10\n-4.", 2).status, ReplyStatus::Incomplete);
  EXPECT_EQ(ParseHamlibReply("RPRT", 0).status, ReplyStatus::Incomplete);
  EXPECT_EQ(ParseHamlibReply("145000000\n", 0).status, ReplyStatus::Malformed);  // a value where none is due
  EXPECT_EQ(ParseHamlibReply("VFOA\n", 1).status, ReplyStatus::Malformed);
  EXPECT_EQ(ParseHamlibReply("RPRT x\n", 0).status, ReplyStatus::Malformed);
  EXPECT_EQ(ParseHamlibReply(std::string(300, '1'), 1).status, ReplyStatus::Malformed);
  EXPECT_EQ(HamlibErrorText(-9), "command rejected");
}

}  // namespace
}  // namespace norvane
