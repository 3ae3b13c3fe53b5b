#include <gtest/gtest.h>

#include <cmath>

#include "analysis_fixtures.h"
#include "core/analysis/visibility.h"

namespace norvane {
namespace {

// The ISS seen from a range of latitudes every 20 s over two days.
class IssVisibility : public ::testing::Test {
 protected:
  template <typename Check>
  void scan(bool flareMode, Check check) {
    for (double lat : {-40.0, 10.0, 35.0, 51.5}) {
      Geodetic observer{lat * kDegree, 0.3, 0.1, 0};
      LookAngleCache cache;
      VisibilityResult out;
      for (int i = 0; i < 2 * 4320; ++i) {
        const PropagationArgs args{*models, *catalogue, work, test::kIssSlot, static_cast<std::uint8_t>(i > 0), 0};
        check(EvaluateVisibility(test::kVisualEpoch + i / 4320.0, args, observer, cache, flareMode, out), out);
      }
    }
  }
  static constexpr double kDegree = 0.017453292519943295;
  std::unique_ptr<Catalogue> catalogue = test::bundled("visual_2017-04-14.txt");
  std::unique_ptr<ModelState> models = std::make_unique<ModelState>();
  WorkingSet work;
};

TEST_F(IssVisibility, StatesFollowHorizonShadowAndTwilight) {
  int counts[6] = {};
  int justLit = 0, justDark = 0;
  scan(false, [&](VisibilityState state, const VisibilityResult& out) {
    const int code = static_cast<int>(state);
    ++counts[code];
    EXPECT_EQ(state == VisibilityState::Invisible, !(out.satAngles.elevation > 0));
    if (code >= 2) {
      EXPECT_EQ(state == VisibilityState::Eclipsed, out.eclipsed == 1);
    }
    if (code >= 3) {
      EXPECT_EQ(state == VisibilityState::Visible, out.sunAngles.elevation < -0.13);
    }
    if (state == VisibilityState::Visible) {
      EXPECT_LT(out.magnitude, 6.0);
      EXPECT_GT(out.magnitude, -6.0);
    } else {
      EXPECT_EQ(out.magnitude, -20.0);
    }
    // Sun at -0.12 rad keeps "In sun"; at -0.14 rad the sky is dark enough.
    if (code >= 3 && out.sunAngles.elevation > -0.13 && out.sunAngles.elevation < -0.115) {
      ++justLit;
      EXPECT_EQ(state, VisibilityState::InSun);
    }
    if (code >= 3 && out.sunAngles.elevation > -0.145 && out.sunAngles.elevation < -0.13) {
      ++justDark;
      EXPECT_EQ(state, VisibilityState::Visible);
    }
  });
  for (const int code : {2, 3, 4}) EXPECT_GT(counts[code], 0) << code;
  EXPECT_EQ(counts[1] + counts[5], 0);
  EXPECT_GT(justLit, 0);
  EXPECT_GT(justDark, 0);
}

TEST_F(IssVisibility, FlareModeNeverReportsVisible) {
  int sunlit = 0;
  scan(true, [&](VisibilityState state, const VisibilityResult& out) {
    EXPECT_NE(state, VisibilityState::Visible);
    if (state == VisibilityState::InSun || state == VisibilityState::Flare) {
      ++sunlit;
      EXPECT_EQ(state == VisibilityState::Flare, out.flareAngle < 0.08726646259971649);
      EXPECT_EQ(out.magnitude == 100.0, out.flareAngle > 0.08726646259971649);
    }
  });
  EXPECT_GT(sunlit, 0);
}

TEST(SatelliteMagnitude, EclipsedLeavesIlluminationAlone) {
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  auto models = std::make_unique<ModelState>();
  WorkingSet work;
  Geodetic observer{0.9, 0.0, 0.0, 0};
  LookAngleCache cache;
  int eclipsed = 0, lit = 0;
  for (int i = 0; i < 200; ++i) {
    MagnitudeResult out;
    out.illumination = -1;
    const PropagationArgs args{*models, *catalogue, work, test::kIssSlot, static_cast<std::uint8_t>(i > 0), 0};
    const double m = SatelliteMagnitude(test::kVisualEpoch + i / 100.0, args, observer, cache, out);
    if (out.eclipsed) {
      ++eclipsed;
      EXPECT_EQ(m, 100.0);
      EXPECT_EQ(out.illumination, -1);
    } else {
      ++lit;
      EXPECT_GE(out.illumination, 0);
      EXPECT_NEAR(out.illumination, 50.0 * (1 + std::cos(out.phaseAngle / 57.29577951308231)), 1e-9);
    }
  }
  EXPECT_GT(eclipsed, 0);
  EXPECT_GT(lit, 0);
}

}  // namespace
}  // namespace norvane
