#pragma once
#include <gtest/gtest.h>

#include "settings/setting_values.h"
#include "settings/settings.h"

namespace norvane {

// Every setting away from its default.
inline Settings changedSettings() {
  Settings s;
  s.gpsPort = 4, s.gpsSpeed = 7, s.gpsCompass = 0, s.gpsAcceptGN = 1;
  s.gpsDevices.devices[3] = "/dev/serial/by-id/usb-u-blox_GNSS_receiver-if00";
  s.snToNs = 1, s.starsMag = 3, s.satPredictMag = 11, s.satPredictVisible = 1, s.flagRefraction = 1;
  s.uplink = 145.825, s.downlink = 437.8, s.flares = 1, s.s4s8 = 1, s.flagPlanets = 1, s.flagColors = 1;
  s.satDisplay = 17, s.lastOpen = "/home/ana/Documents/iridium.txt", s.city = 42;
  s.lat = -0.5, s.lon = 2.25, s.alt = 1.5;
  return s;
}

// Every value compared through its stored bytes.
inline void expectSame(const Settings& a, const Settings& b) {
  for (const SettingValue& v : settingValues()) EXPECT_EQ(v.encode(a), v.encode(b)) << v.name;
}

}  // namespace norvane
