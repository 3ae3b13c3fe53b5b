#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace norvane {

using SettingBytes = std::vector<std::uint8_t>;

// One value of a group being saved: its name and its raw little-endian bytes.
struct NamedSetting {
  std::string name;
  SettingBytes bytes;
};

// Where the settings are kept: binary values by name, written a group at a time.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // False when the store is there but cannot be read; loading then keeps every default.
  virtual bool readable() = 0;
  // The stored bytes of one value; nothing when it is missing or unreadable.
  virtual std::optional<SettingBytes> read(const std::string& name) = 0;
  // Stores a group of values together, replacing older ones; false when nothing was written.
  virtual bool write(std::span<const NamedSetting> values) = 0;
};

}  // namespace norvane
