#include "settings/settings_io.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "settings/radio_setting_values.h"
#include "settings/setting_values.h"

namespace norvane {

namespace {

constexpr std::array<std::string_view, 5> kGpsGroup = {"GPSPort", "GPSSpeed", "GPSCompass", "GPSAcceptGN",
                                                       "GPSDevices"};
constexpr std::array<std::string_view, 12> kSettingsGroup = {
    "SNtoNS",  "Stars_Mag", "SatPredictMag", "SatPredictVisible", "flag_refraction", "uplink",
    "downlink", "flares",   "s4_s8",         "Flag_planets",      "Flag_colors",     "Sat_Display"};
constexpr std::array<std::string_view, 4> kLocationGroup = {"City", "Lat", "Lon", "Alt"};
constexpr std::array<std::string_view, 2> kLastFileGroup = {"Last_Open", "Sat_Display"};
constexpr std::array<std::string_view, 3> kPassesGroup = {"PassMinElevation", "PassAlarmMinutes", "PassAlarmScope"};

template <std::size_t N>
bool saveGroup(const Settings& settings, SettingsStore& store, const std::array<std::string_view, N>& names) {
  std::vector<NamedSetting> group;
  group.reserve(N);
  for (std::string_view name : names) {
    const SettingValue* value = findSettingValue(name);
    group.push_back({std::string(name), value->encode(settings)});
  }
  return store.write(group);
}

}  // namespace

void LoadValue(const SettingValue& value, Settings& settings, SettingsStore& store) {
  const auto bytes = store.read(std::string(value.name));
  if (!bytes || bytes->empty() || bytes->size() > value.width) return;
  // A shorter value fills the field's first bytes; the rest keep what they held.
  SettingBytes field = value.encode(settings);
  std::copy(bytes->begin(), bytes->end(), field.begin());
  value.decode(settings, field.data());
}

std::int32_t loadSettings(Settings& settings, SettingsStore& store) {
  if (!store.readable()) return -1;
  for (const SettingValue& value : settingValues()) LoadValue(value, settings, store);
  for (const SettingValue& value : radioSettingValues()) LoadValue(value, settings, store);
  return settings.city;
}

bool saveGpsGroup(const Settings& settings, SettingsStore& store) {
  return saveGroup(settings, store, kGpsGroup);
}

bool saveSettingsGroup(const Settings& settings, SettingsStore& store) {
  return saveGroup(settings, store, kSettingsGroup);
}

bool saveLocationGroup(Settings& settings, std::int32_t city, SettingsStore& store) {
  settings.city = city;
  return saveGroup(settings, store, kLocationGroup);
}

bool saveLastFileGroup(const Settings& settings, SettingsStore& store) {
  return saveGroup(settings, store, kLastFileGroup);
}

bool savePassesGroup(const Settings& settings, SettingsStore& store) {
  return saveGroup(settings, store, kPassesGroup);
}

}  // namespace norvane
