#include "core/astro/numeric.h"

#include <gtest/gtest.h>

namespace norvane {
namespace {

TEST(Numeric, TruncationRoundingAndSign) {
  EXPECT_EQ(Int(2.7), 2.0);
  EXPECT_EQ(Int(-2.7), -2.0);
  EXPECT_DOUBLE_EQ(Frac(-2.75), -0.75);
  EXPECT_EQ(Round(-2.5), -2);
  EXPECT_EQ(Round(2.5), 3);
  EXPECT_EQ(Sign(-0.0), 0);
  EXPECT_EQ(Sign(-3.0), -1);
}

TEST(Numeric, InverseTrigonometryEdges) {
  EXPECT_EQ(ArcSin(1.5), kPi / 2);
  EXPECT_EQ(ArcSin(-1.0), -kPi / 2);
  EXPECT_NEAR(ArcSin(0.5), kPi / 6, 1e-15);
  EXPECT_NEAR(ArcCos(-1.0), kPi, 1e-15);
}

TEST(Numeric, AcTanQuadrantsIncludingTheTwoPiQuirk) {
  EXPECT_EQ(AcTan(0.0, 1.0), 2 * kPi);
  EXPECT_EQ(AcTan(1.0, 0.0), kPi / 2);
  EXPECT_EQ(AcTan(0.0, 0.0), 3 * kPi / 2);
  EXPECT_EQ(AcTan(-1.0, 0.0), 3 * kPi / 2);
  EXPECT_NEAR(AcTan(1.0, 1.0), kPi / 4, 1e-15);
  EXPECT_NEAR(AcTan(1.0, -1.0), 3 * kPi / 4, 1e-15);
  EXPECT_NEAR(AcTan(-1.0, -1.0), 5 * kPi / 4, 1e-15);
  EXPECT_NEAR(AcTan(-1.0, 1.0), 7 * kPi / 4, 1e-15);
}

TEST(Numeric, FMod2pReducesIntoRange) {
  EXPECT_EQ(FMod2p(2 * kPi), 0.0);
  EXPECT_DOUBLE_EQ(FMod2p(-0.1), 2 * kPi - 0.1);
  EXPECT_EQ(FMod2p(1.0), 1.0);
  EXPECT_NEAR(FMod2p(7 * kPi), kPi, 1e-14);
  EXPECT_NEAR(FMod2p(-7 * kPi), kPi, 1e-14);
}

}  // namespace
}  // namespace norvane
