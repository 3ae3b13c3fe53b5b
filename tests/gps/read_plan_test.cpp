#include "gps/read_plan.h"

#include <gtest/gtest.h>

#include "gps/port_tables.h"

namespace norvane {
namespace {

TEST(GpsReadPlan, ByViewAndPhase) {
  const NmeaWanted motion = {false, true, true, false, false, false};
  const NmeaWanted status = {true, false, false, true, true, false};
  for (int phase = 0; phase < 4; ++phase) {
    EXPECT_EQ(GpsReadPlan(kGpsViewInfo, phase), phase == 3 ? status : motion) << phase;
    EXPECT_EQ(GpsReadPlan(kGpsViewMap, phase), NmeaWanted{}) << phase;  // one sentence, dropped
    EXPECT_EQ(GpsReadPlan(kGpsViewGpsPage, phase), (NmeaWanted{true, true, true, true, true, false}));
    EXPECT_FALSE(GpsReadPlan(kGpsViewOrbit, phase).has_value());
    EXPECT_FALSE(GpsReadPlan(kGpsViewLeaveFullScreen, phase).has_value());
  }
  EXPECT_FALSE(GpsReadPlan(kGpsViewSky, 0).has_value());
  EXPECT_EQ(GpsReadPlan(kGpsViewSky, 1), motion);
  EXPECT_EQ(GpsReadPlan(kGpsViewSky, 2), (NmeaWanted{false, false, false, true, true, false}));
  EXPECT_FALSE(GpsReadPlan(kGpsViewSky, 3).has_value());
}

TEST(GpsPositionUpdate, ZeroMeansUnknown) {
  GpsData gps;
  gps.latitude = 48.1173;
  gps.longitude = 0.0;
  gps.altitude = 545.4;
  EXPECT_FALSE(GpsPositionUpdate(gps).position);
  gps.longitude = -11.5;
  gps.altitude = 0.0;
  GpsObserverUpdate update = GpsPositionUpdate(gps);
  EXPECT_TRUE(update.position);
  EXPECT_FALSE(update.altitude);
  EXPECT_DOUBLE_EQ(update.latitude, 48.1173 * 0.0174532925199433);
  EXPECT_DOUBLE_EQ(update.longitude, -11.5 * 0.0174532925199433);
  gps.altitude = 545.4;
  update = GpsPositionUpdate(gps);
  EXPECT_TRUE(update.altitude);
  EXPECT_DOUBLE_EQ(update.altitudeKm, 0.5454);
}

TEST(GpsPortTables, DevicesAndTheBaudLimit) {
  EXPECT_EQ(GpsBaudRate(kGpsBaudChoices - 1), 57600);  // 115200 is never offered
  GpsPortMap map;
  EXPECT_EQ(GpsDeviceOf(map, 0), "");
  EXPECT_EQ(GpsDeviceOf(map, 5), "/dev/ttyS0");
  map.devices[2] = "gpsd://127.0.0.1:2947";
  EXPECT_EQ(GpsPortMapFromText(GpsPortMapText(map)).devices, map.devices);
  EXPECT_EQ(GpsPortMapFromText("/dev/pts/3").devices[2], "/dev/ttyUSB1");  // missing lines keep defaults
}

}  // namespace
}  // namespace norvane
