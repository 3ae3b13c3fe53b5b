// The radio block: its own group, stored and read back whole, defaults kept
// for values that are missing or of the wrong size.
#include <gtest/gtest.h>

#include "settings/memory_settings_store.h"
#include "settings/radio_setting_values.h"
#include "settings/settings_io.h"

namespace norvane {
namespace {

TEST(RadioSettings, GroupRoundTripsAndLeavesTheOtherGroupsAlone) {
  Settings s;
  EXPECT_EQ(s.radio.rigPort, 4532);
  EXPECT_EQ(s.radio.rotPort, 4533);
  EXPECT_EQ(s.radio.rigHost, "127.0.0.1");
  RadioSettings& r = s.radio;
  r = {1, "shack-pi.local", 14532, 250, 25.0, 1, "::1", 14533, 500, 1.5, 2, 1, 0, 5.0, 180.0, 90.0};
  s.uplink = 145.0;
  MemorySettingsStore store;
  ASSERT_TRUE(saveRadioGroup(s, store));
  EXPECT_EQ(store.values.size(), radioSettingValues().size());
  EXPECT_EQ(store.values.count("uplink"), 0u);
  EXPECT_EQ(store.values.at("RigHost").size(), kRadioHostBytes);
  EXPECT_EQ(store.values.at("RotMinEl").size(), 8u);

  Settings loaded;
  loadSettings(loaded, store);
  for (const SettingValue& v : radioSettingValues()) EXPECT_EQ(v.encode(loaded), v.encode(s)) << v.name;
  EXPECT_EQ(loaded.radio.rigHost, "shack-pi.local");
  EXPECT_EQ(loaded.radio.rotParkEl, 90.0);
  EXPECT_EQ(loaded.uplink, 138.0);
}

TEST(RadioSettings, LongHostsAreCutAndOverlongValuesIgnored) {
  Settings s;
  s.radio.rigHost = std::string(100, 'h');
  MemorySettingsStore store;
  saveRadioGroup(s, store);
  store.values["RotPort"] = {1, 2, 0, 0, 0};             // five bytes where four belong
  store.values["RotHost"] = SettingBytes(kRadioHostBytes, 'x');  // no terminating zero
  Settings loaded;
  loadSettings(loaded, store);
  EXPECT_EQ(loaded.radio.rigHost, std::string(kRadioHostBytes - 1, 'h'));
  EXPECT_EQ(loaded.radio.rotPort, 4533);
  EXPECT_EQ(loaded.radio.rotHost, std::string(kRadioHostBytes, 'x'));
}

}  // namespace
}  // namespace norvane
