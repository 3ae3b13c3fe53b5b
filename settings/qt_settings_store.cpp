#include "settings/qt_settings_store.h"

#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

namespace norvane {

namespace {

const QString kGroup = QStringLiteral("Software/Norvane/");

QString keyOf(const std::string& name) { return kGroup + QString::fromStdString(name); }

}  // namespace

QtSettingsStore::QtSettingsStore(QString path) : path_(std::move(path)) {}

QString QtSettingsStore::defaultPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Norvane/Norvane.ini");
}

bool QtSettingsStore::readable() {
  const QSettings settings(path_, QSettings::IniFormat);
  return settings.status() == QSettings::NoError;
}

std::optional<SettingBytes> QtSettingsStore::read(const std::string& name) {
  const QSettings settings(path_, QSettings::IniFormat);
  if (settings.status() != QSettings::NoError) return std::nullopt;
  const QVariant value = settings.value(keyOf(name));
  // Only values written as bytes count; a text that a damaged file left is ignored.
  if (value.typeId() != QMetaType::QByteArray) return std::nullopt;
  const QByteArray bytes = value.toByteArray();
  return SettingBytes(bytes.begin(), bytes.end());
}

bool QtSettingsStore::write(std::span<const NamedSetting> values) {
  QDir().mkpath(QFileInfo(path_).absolutePath());
  QSettings settings(path_, QSettings::IniFormat);
  // A file that could not be parsed is rewritten from what was readable plus this group.
  settings.setAtomicSyncRequired(true);
  for (const NamedSetting& v : values) {
    settings.setValue(keyOf(v.name), QByteArray(reinterpret_cast<const char*>(v.bytes.data()),
                                                static_cast<qsizetype>(v.bytes.size())));
  }
  settings.sync();
  return settings.status() != QSettings::AccessError;
}

}  // namespace norvane
