#include <gtest/gtest.h>

#include <cmath>

#include "core/astro/julian_date.h"
#include "core/astro/numeric.h"
#include "core/astro/sidereal_time.h"

namespace norvane {
namespace {

TEST(JulianDate, KnownDatesAndTheFebruaryQuirk) {
  EXPECT_EQ(JulianDateOfDate(2000, 1, 1, 12, 0, 0), 2451545.0);
  EXPECT_EQ(JulianDateOfDate(2008, 2, 1, 0, 0, 0), 2454498.5);  // the date of 2 February
  EXPECT_EQ(JulianDateOfDate(2008, 3, 1, 0, 0, 0), 2454526.5);  // March on is right
  EXPECT_EQ(JulianDateOfDate(2008, 1, 31, 0, 0, 0), 2454496.5);
  // Common year: 29 February is 1 March; 2100 and 1900 are not leap years, 2000 is.
  EXPECT_EQ(JulianDateOfDate(2007, 2, 29, 0, 0, 0), JulianDateOfDate(2007, 3, 1, 0, 0, 0));
  EXPECT_EQ(JulianDateOfDate(2100, 3, 1, 0, 0, 0) - JulianDateOfDate(2100, 2, 28, 0, 0, 0), 1.0);
  EXPECT_EQ(JulianDateOfDate(1900, 3, 1, 0, 0, 0) - JulianDateOfDate(1900, 2, 28, 0, 0, 0), 1.0);
  EXPECT_EQ(JulianDateOfDate(2000, 3, 1, 0, 0, 0) - JulianDateOfDate(2000, 2, 28, 0, 0, 0), 1.0);
  EXPECT_EQ(JulianDateOfDate(2000, 3, 1, 0, 0, 0) - JulianDateOfDate(2000, 1, 31, 0, 0, 0), 30.0);
  EXPECT_EQ(JulianDateOfDate(2009, 2, 31, 0, 0, 0), JulianDateOfDate(2009, 3, 3, 0, 0, 0));
}

TEST(JulianDate, YearAndDayLimits) {
  EXPECT_EQ(JulianDateOfDate(1582, 12, 31, 0, 0, 0), -1.0);
  EXPECT_EQ(JulianDateOfDate(3001, 1, 1, 0, 0, 0), -1.0);
  EXPECT_NE(JulianDateOfDate(1583, 1, 1, 0, 0, 0), -1.0);
  EXPECT_NE(JulianDateOfDate(3000, 12, 31, 0, 0, 0), -1.0);
  EXPECT_EQ(JulianDateOfDate(2000, 1, 32, 0, 0, 0), -1.0);
  EXPECT_EQ(JulianDateOfDate(2000, 1, -1, 0, 0, 0), -1.0);
  EXPECT_EQ(JulianDateOfDate(2000, 1, 0, 0, 0, 0), 2451543.5);
  EXPECT_EQ(JulianDateOfYear(2000.0), 2451543.5);  // 0h, 31 December 1999
  EXPECT_EQ(JulianDateOfYear(1583.0), 2299237.5);
}

TEST(JulianDate, CalendarAndClockOfAJulianDate) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
  CalendarOfJulianDate(2451545.0, y, mo, d);
  EXPECT_EQ(y * 10000 + mo * 100 + d, 20000101);
  CalendarOfJulianDate(2299160.0, y, mo, d);  // noon of the last Julian-calendar day
  EXPECT_EQ(y * 10000 + mo * 100 + d, 15821004);
  TimeOfDay(2451545.0 + 3723.0 / 86400.0, h, mi, s);
  EXPECT_EQ(h * 10000 + mi * 100 + s, 130203);
  TimeOfDay(2451545.5 - 0.4 / 86400.0, h, mi, s);  // within half a second of midnight
  EXPECT_EQ(h, 24);
  EXPECT_EQ(mi, 0);
  EXPECT_EQ(s, 0);
  TimeOfDay(NAN, h, mi, s);  // defined, whatever it says
}

TEST(SiderealTime, ValueContinuityAndRange) {
  EXPECT_NEAR(GreenwichSiderealTime(2451545.0), 4.894961212789, 1e-11);
  const double before = GreenwichSiderealTime(2451545.5 - 1e-7);
  const double after = GreenwichSiderealTime(2451545.5);
  EXPECT_NEAR(after - before, 1e-7 * 2 * kPi * 1.00273790934, 1e-9);
  for (int i = 0; i < 30; ++i) {
    const double jd = 2433000.5 + 1234.567 * i;
    const double g = GreenwichSiderealTime(jd);
    EXPECT_GE(g, 0.0);
    EXPECT_LT(g, 2 * kPi);
  }
  EXPECT_NEAR(DeltaET(2451545.0), 26.465 + 0.00204687748 * 18313 + 1.886913 * std::sin(0.0005212855709 * 9181.75), 1e-12);
}

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
