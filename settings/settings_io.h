#pragma once
#include <cstdint>

#include "core/platform/settings_store.h"
#include "settings/settings.h"

namespace norvane {

struct SettingValue;

// Reads one value into settings. A value shorter than its width replaces the
// field's first bytes (little-endian: its low bytes); a missing value, or one
// longer than its width, keeps what the field holds.
void LoadValue(const SettingValue& value, Settings& settings, SettingsStore& store);

// Reads every value into settings through LoadValue. Returns "City", or -1
// (and reads nothing) when the store cannot be read.
std::int32_t loadSettings(Settings& settings, SettingsStore& store);

// Each save writes one group in its order and returns the store's result.
// GPS group: "GPSPort", "GPSSpeed", "GPSCompass", "GPSAcceptGN", "GPSDevices".
bool saveGpsGroup(const Settings& settings, SettingsStore& store);
// Settings group: "SNtoNS" ... "Flag_colors", "Sat_Display".
bool saveSettingsGroup(const Settings& settings, SettingsStore& store);
// Location group: "City" (taken as the argument, and kept in settings), "Lat", "Lon", "Alt".
bool saveLocationGroup(Settings& settings, std::int32_t city, SettingsStore& store);
// Last-file group: "Last_Open" (520 bytes), "Sat_Display".
bool saveLastFileGroup(const Settings& settings, SettingsStore& store);

}  // namespace norvane
