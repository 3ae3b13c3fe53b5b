// Settings files of any content: whatever is read must be written so that it
// reads back the same.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "settings/settings_ini.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const norvane::StoredValues values = norvane::ParseSettingsIni(text);
  if (norvane::ParseSettingsIni(norvane::SettingsIniText(values)) != values) std::abort();
  return 0;
}
