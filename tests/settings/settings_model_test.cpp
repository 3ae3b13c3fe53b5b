#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "settings/memory_settings_store.h"
#include "settings/settings_io.h"
#include "settings/wide_path.h"
#include "tests/settings/settings_fixtures.h"

namespace norvane {
namespace {

// Remembers the names of every saved group in the order they were written.
class RecordingStore : public MemorySettingsStore {
 public:
  bool write(std::span<const NamedSetting> group) override {
    std::vector<std::string> names;
    for (const NamedSetting& v : group) names.push_back(v.name);
    groups.push_back(names);
    return MemorySettingsStore::write(group);
  }
  std::vector<std::vector<std::string>> groups;
};

TEST(SettingsModel, LoadOrderAndWidths) {
  const std::vector<std::pair<std::string, std::uint32_t>> expected = {
      {"Lat", 8},        {"Lon", 8},         {"Alt", 8},
      {"City", 4},       {"GPSPort", 4},     {"GPSSpeed", 4},
      {"GPSCompass", 4}, {"GPSAcceptGN", 4}, {"GPSDevices", 2340}, {"SNtoNS", 4},
      {"Stars_Mag", 2},  {"SatPredictMag", 4}, {"SatPredictVisible", 4},
      {"flag_refraction", 4}, {"uplink", 8}, {"downlink", 8},
      {"flares", 4},     {"s4_s8", 4},       {"Flag_planets", 1},
      {"Flag_colors", 4}, {"Sat_Display", 4}, {"Last_Open", 520}};
  std::vector<std::pair<std::string, std::uint32_t>> actual;
  for (const SettingValue& v : settingValues()) actual.emplace_back(std::string(v.name), v.width);
  EXPECT_EQ(actual, expected);
}

TEST(SettingsModel, DefaultsStandWithoutStoredValues) {
  MemorySettingsStore empty;
  Settings s;
  EXPECT_EQ(loadSettings(s, empty), 0);
  expectSame(s, Settings{});
  EXPECT_EQ(s.gpsPort, 1);
  EXPECT_EQ(s.gpsCompass, 1);
  EXPECT_EQ(s.starsMag, 5);
  EXPECT_EQ(s.satPredictMag, 20);
  EXPECT_EQ(s.uplink, 138.0);
  EXPECT_EQ(s.downlink, 130.0);
  EXPECT_EQ(s.lat, 0.9477539264057168);
  EXPECT_EQ(s.lon, 0.17670935077666988);
  EXPECT_EQ(s.alt, 0.03);
  EXPECT_EQ(s.lastOpen, "");

  MemorySettingsStore unreadable;
  unreadable.isReadable = false;
  saveGpsGroup(changedSettings(), unreadable);
  Settings t;
  EXPECT_EQ(loadSettings(t, unreadable), -1);
  expectSame(t, Settings{});
}

TEST(SettingsModel, EveryGroupWritesItsValuesInOrderAndReadsBack) {
  const Settings changed = changedSettings();
  RecordingStore store;
  saveGpsGroup(changed, store);
  saveSettingsGroup(changed, store);
  Settings located = changed;
  saveLocationGroup(located, 42, store);
  saveLastFileGroup(changed, store);
  const std::vector<std::vector<std::string>> groups = {
      {"GPSPort", "GPSSpeed", "GPSCompass", "GPSAcceptGN", "GPSDevices"},
      {"SNtoNS", "Stars_Mag", "SatPredictMag", "SatPredictVisible", "flag_refraction", "uplink", "downlink",
       "flares", "s4_s8", "Flag_planets", "Flag_colors", "Sat_Display"},
      {"City", "Lat", "Lon", "Alt"},
      {"Last_Open", "Sat_Display"}};
  EXPECT_EQ(store.groups, groups);

  Settings loaded;
  EXPECT_EQ(loadSettings(loaded, store), 42);
  expectSame(loaded, changed);
}

TEST(SettingsModel, ValuesAreRawLittleEndianBytes) {
  Settings s;
  s.gpsPort = 0x01020304, s.starsMag = 3, s.flagPlanets = 1, s.uplink = 1.0;
  MemorySettingsStore store;
  saveGpsGroup(s, store);
  saveSettingsGroup(s, store);
  EXPECT_EQ(store.values["GPSPort"], (SettingBytes{4, 3, 2, 1}));
  EXPECT_EQ(store.values["Stars_Mag"], (SettingBytes{3, 0}));
  EXPECT_EQ(store.values["Flag_planets"], (SettingBytes{1}));
  EXPECT_EQ(store.values["uplink"], (SettingBytes{0, 0, 0, 0, 0, 0, 0xF0, 0x3F}));

  // The port map: its lines, then zeros; lines that do not fit whole are left to their defaults.
  s.gpsDevices.devices[2] = "gpsd://localhost:2947";
  for (std::size_t i = 4; i < 10; ++i) s.gpsDevices.devices[i] = std::string(400, static_cast<char>('a' + i));
  saveGpsGroup(s, store);
  const SettingBytes& map = store.values["GPSDevices"];
  ASSERT_EQ(map.size(), 2340u);
  const std::string text(map.begin(), map.end());
  EXPECT_EQ(text.substr(0, 48), "/dev/ttyUSB0\ngpsd://localhost:2947\n/dev/ttyACM0\n");
  EXPECT_EQ(text.back(), '\0');
  Settings loaded;
  loadSettings(loaded, store);
  EXPECT_EQ(loaded.gpsDevices.devices[2], "gpsd://localhost:2947");
  EXPECT_EQ(loaded.gpsDevices.devices[8], s.gpsDevices.devices[8]);
  EXPECT_EQ(loaded.gpsDevices.devices[9], "/dev/ttyS4");
}

TEST(SettingsModel, ShorterValuesFillTheLowBytesLongerOnesKeepTheDefault) {
  MemorySettingsStore store;
  store.values["Flag_planets"] = {1, 0, 0, 0};
  store.values["Stars_Mag"] = {2, 0, 0, 0};
  store.values["City"] = {};
  store.values["GPSSpeed"] = {6};              // over the default 0
  store.values["SatPredictMag"] = {7};         // over the default 20
  store.values["Lat"] = {0x11, 0x22, 0x33};    // the low bytes of the default's double
  store.values["Last_Open"] = {'/', 0, 'a', 0};  // the rest of the buffer stays zero
  Settings s;
  EXPECT_EQ(loadSettings(s, store), 0);
  EXPECT_EQ(s.flagPlanets, 0);
  EXPECT_EQ(s.starsMag, 5);
  EXPECT_EQ(s.gpsSpeed, 6);
  EXPECT_EQ(s.satPredictMag, 7);
  const auto lat = (std::bit_cast<std::uint64_t>(Settings{}.lat) & ~0xFFFFFFull) | 0x332211u;
  EXPECT_EQ(s.lat, std::bit_cast<double>(lat));
  EXPECT_EQ(s.lastOpen, "/a");
}

TEST(WidePath, LastOpenIs520BytesOfUtf16WithZerosAfterTheText) {
  const auto bytes = encodeWidePath("/tmp/é€😀.txt");
  const std::vector<std::uint8_t> head(bytes.begin(), bytes.begin() + 26);
  const std::vector<std::uint8_t> expected = {'/', 0, 't', 0, 'm', 0, 'p', 0, '/', 0, 0xE9, 0, 0xAC, 0x20,
                                              0x3D, 0xD8, 0x00, 0xDE, '.', 0, 't', 0, 'x', 0, 't', 0};
  EXPECT_EQ(head, expected);
  for (std::size_t i = 26; i < bytes.size(); ++i) EXPECT_EQ(bytes[i], 0) << i;
  EXPECT_EQ(decodeWidePath(bytes.data(), bytes.size()), "/tmp/é€😀.txt");
}

TEST(WidePath, LongPathsAreCutAndBadInputSurvives) {
  const std::string longPath(400, 'x');
  const auto bytes = encodeWidePath(longPath);
  EXPECT_EQ(decodeWidePath(bytes.data(), bytes.size()), std::string(259, 'x'));
  // A character that does not fit whole is left out rather than split.
  const auto cut = encodeWidePath(std::string(258, 'x') + "😀");
  EXPECT_EQ(decodeWidePath(cut.data(), cut.size()), std::string(258, 'x'));

  EXPECT_EQ(decodeWidePath(encodeWidePath("a\xff\xc3").data(), kWidePathBytes), "a\xEF\xBF\xBD\xEF\xBF\xBD");
  // No terminator, a lone high surrogate at the end and a lone low one inside.
  const std::uint8_t odd[] = {'a', 0, 0x00, 0xDC, 'b', 0, 0x00, 0xD8, 'c'};
  EXPECT_EQ(decodeWidePath(odd, sizeof odd), "a\xEF\xBF\xBD" "b\xEF\xBF\xBD");
}

}  // namespace
}  // namespace norvane
