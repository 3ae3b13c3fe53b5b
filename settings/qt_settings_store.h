#pragma once
#include <QString>

#include "core/platform/settings_store.h"

namespace norvane {

// SettingsStore over an INI file in the form QSettings writes: each value a
// QByteArray of its raw bytes in the group "Software/Norvane". Every value
// that can be read is read, whatever the lines around it hold. The file and
// its folder are created on the first save; every save rewrites the file
// whole and atomically.
class QtSettingsStore : public SettingsStore {
 public:
  explicit QtSettingsStore(QString path = defaultPath());

  // "<user config folder>/Norvane/Norvane.ini".
  static QString defaultPath();
  const QString& path() const { return path_; }

  // False when the file exists but cannot be read.
  bool readable() override;
  std::optional<SettingBytes> read(const std::string& name) override;
  bool write(std::span<const NamedSetting> values) override;

 private:
  QString path_;
};

}  // namespace norvane
