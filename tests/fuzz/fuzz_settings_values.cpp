// Stored settings of any size and content: the input is cut into one value per
// setting name (a length byte, then that many bytes), loaded, then saved again.
#include <cstdint>
#include <string>

#include "settings/memory_settings_store.h"
#include "settings/setting_values.h"
#include "settings/settings_io.h"
#include "settings/wide_path.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norvane::MemorySettingsStore store;
  std::size_t at = 0;
  for (const norvane::SettingValue& value : norvane::settingValues()) {
    if (at >= size) break;
    std::size_t length = data[at++];
    if (length == 255) length = 520;  // the wide path's full width
    if (length > size - at) length = size - at;
    store.values[std::string(value.name)] = norvane::SettingBytes(data + at, data + at + length);
    at += length;
  }
  norvane::Settings settings;
  const std::int32_t city = norvane::loadSettings(settings, store);
  norvane::saveGpsGroup(settings, store);
  norvane::saveSettingsGroup(settings, store);
  norvane::saveLocationGroup(settings, city, store);
  norvane::saveLastFileGroup(settings, store);
  norvane::decodeWidePath(data, size);
  return 0;
}
