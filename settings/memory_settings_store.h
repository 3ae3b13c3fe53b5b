#pragma once
#include <map>
#include <string>

#include "core/platform/settings_store.h"

namespace norvane {

// Settings kept in memory only: for tests and for programs that must not touch
// the user's settings file.
class MemorySettingsStore : public SettingsStore {
 public:
  bool readable() override { return isReadable; }
  std::optional<SettingBytes> read(const std::string& name) override {
    const auto it = values.find(name);
    if (it == values.end()) return std::nullopt;
    return it->second;
  }
  bool write(std::span<const NamedSetting> group) override {
    for (const NamedSetting& v : group) values[v.name] = v.bytes;
    ++writes;
    return true;
  }

  std::map<std::string, SettingBytes> values;
  bool isReadable = true;
  int writes = 0;
};

}  // namespace norvane
