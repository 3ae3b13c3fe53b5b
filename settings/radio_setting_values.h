#pragma once
#include <span>

#include "core/platform/settings_store.h"
#include "settings/setting_values.h"
#include "settings/settings.h"

namespace norvane {

// The radio block's values, in the order they are loaded and saved.
std::span<const SettingValue> radioSettingValues();

// Writes the radio group ("RigEnable" ... "RotParkEl"); the store's result.
bool saveRadioGroup(const Settings& settings, SettingsStore& store);

}  // namespace norvane
