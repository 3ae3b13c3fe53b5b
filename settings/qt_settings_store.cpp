#include "settings/qt_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "core/platform/atomic_file.h"
#include "settings/settings_ini.h"

namespace norvane {

namespace {

// The file's values; nothing when it exists but cannot be read. A missing file holds no values.
std::optional<StoredValues> ReadValues(const QString& path) {
  QFile file(path);
  if (!file.exists()) return StoredValues{};
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray text = file.readAll();
  if (file.error() != QFileDevice::NoError) return std::nullopt;
  return ParseSettingsIni(std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
}

}  // namespace

QtSettingsStore::QtSettingsStore(QString path) : path_(std::move(path)) {}

QString QtSettingsStore::defaultPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Norvane/Norvane.ini");
}

bool QtSettingsStore::readable() { return ReadValues(path_).has_value(); }

std::optional<SettingBytes> QtSettingsStore::read(const std::string& name) {
  const std::optional<StoredValues> values = ReadValues(path_);
  if (!values) return std::nullopt;
  const auto it = values->find(name);
  if (it == values->end()) return std::nullopt;
  return it->second;
}

bool QtSettingsStore::write(std::span<const NamedSetting> values) {
  // The file is written whole from the values that could be read plus this
  // group, so damaged lines do not survive a save.
  std::optional<StoredValues> stored = ReadValues(path_);
  if (!stored) return false;
  for (const NamedSetting& v : values) (*stored)[v.name] = v.bytes;
  if (!QDir().mkpath(QFileInfo(path_).absolutePath())) return false;
  return writeFileAtomically(QFile::encodeName(path_).toStdString(), SettingsIniText(*stored));
}

}  // namespace norvane
