#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "core/platform/settings_store.h"
#include "settings/settings.h"

namespace norvane {

// One stored value: its name, its exact byte width and how its bytes map onto
// the field of Settings that holds it.
struct SettingValue {
  std::string_view name;
  std::uint32_t width;
  SettingBytes (*encode)(const Settings& settings);  // always width bytes
  void (*decode)(Settings& settings, const std::uint8_t* bytes);  // bytes holds width bytes
};

// Width of "GPSDevices": nine paths of up to 259 bytes, each ended by a line feed, then a zero.
inline constexpr std::size_t kGpsDevicesBytes = std::size_t{9} * 260;

// Every value in the order the load reads them.
std::span<const SettingValue> settingValues();

// The value of that name, or nullptr.
const SettingValue* findSettingValue(std::string_view name);

}  // namespace norvane
