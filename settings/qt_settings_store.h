#pragma once
#include <QString>

#include "core/platform/settings_store.h"

namespace norvane {

// SettingsStore over an INI file through QSettings: each value is a QByteArray
// of its raw bytes in the group "Software/Norvane". The file and its folder
// are created on the first save; every save replaces the file atomically.
class QtSettingsStore : public SettingsStore {
 public:
  explicit QtSettingsStore(QString path = defaultPath());

  // "<user config folder>/Norvane/Norvane.ini".
  static QString defaultPath();
  const QString& path() const { return path_; }

  // False when the file exists but cannot be read or parsed.
  bool readable() override;
  std::optional<SettingBytes> read(const std::string& name) override;
  bool write(std::span<const NamedSetting> values) override;

 private:
  QString path_;
};

}  // namespace norvane
