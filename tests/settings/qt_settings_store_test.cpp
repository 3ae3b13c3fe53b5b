#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include "settings/qt_settings_store.h"
#include "settings/settings_io.h"
#include "tests/settings/settings_fixtures.h"

namespace norvane {
namespace {

void writeFile(const QString& path, const QByteArray& bytes) {
  QFile f(path);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
  f.write(bytes);
}

class QtSettingsStoreTest : public ::testing::Test {
 protected:
  QString iniPath() const { return dir.path() + "/config/Norvane/Norvane.ini"; }
  QTemporaryDir dir;
};

TEST_F(QtSettingsStoreTest, NoFileMeansDefaultsAndTheFirstSaveCreatesIt) {
  QtSettingsStore store(iniPath());
  Settings s;
  EXPECT_EQ(loadSettings(s, store), 0);
  EXPECT_EQ(s.gpsPort, 1);
  EXPECT_FALSE(QFile::exists(iniPath()));

  EXPECT_TRUE(saveGpsGroup(changedSettings(), store));
  ASSERT_TRUE(QFile::exists(iniPath()));
  // Nothing but the settings file is left in its folder.
  EXPECT_EQ(QDir(dir.path() + "/config/Norvane").entryList(QDir::Files), QStringList{"Norvane.ini"});
}

TEST_F(QtSettingsStoreTest, EveryGroupSurvivesARestartAndQSettingsReadsTheSameBytes) {
  const Settings saved = changedSettings();
  {
    QtSettingsStore store(iniPath());
    saveGpsGroup(saved, store);
    saveSettingsGroup(saved, store);
    Settings located = saved;
    saveLocationGroup(located, saved.city, store);
    saveLastFileGroup(saved, store);
  }
  QtSettingsStore reopened(iniPath());
  Settings loaded;
  EXPECT_EQ(loadSettings(loaded, reopened), saved.city);
  expectSame(loaded, saved);
  EXPECT_EQ(reopened.read("Last_Open")->size(), 520u);

  // Both ways with QSettings, every byte value included.
  QByteArray all;
  for (int b = 0; b < 256; ++b) all.append(static_cast<char>(b));
  all.append("0a\\\"=,;");
  {
    QSettings qt(iniPath(), QSettings::IniFormat);
    EXPECT_EQ(qt.status(), QSettings::NoError);
    EXPECT_EQ(qt.value("Software/Norvane/uplink").toByteArray(), QByteArray::fromHex("66666666663a6240"));
    qt.setValue("Software/Norvane/Everything", all);
  }
  const std::optional<SettingBytes> read = reopened.read("Everything");
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(read->data()), static_cast<qsizetype>(read->size())), all);
  EXPECT_TRUE(reopened.write(std::vector<NamedSetting>{{"Everything", *read}}));
  EXPECT_EQ(QSettings(iniPath(), QSettings::IniFormat).value("Software/Norvane/Everything").toByteArray(), all);
}

// One damaged line used to cost every setting, and the next save then wrote a
// file that disagreed with the running program.
TEST_F(QtSettingsStoreTest, DamagedLinesCostOnlyTheirOwnValueAndTheNextSaveIsConsistent) {
  QDir().mkpath(dir.path() + "/config/Norvane");
  static const char kDamaged[] = "[Software]\n"
                                  "Norvane\\GPSPort=@ByteArray(\\x4\\0\\0\\0)\n"
                                  "[bad line\n"
                                  "Norvane\\SNtoNS=@ByteArray(\\x1\\0\\0\\0)\n"  // in the wrong section now
                                  "\x01\x02garbage=@ByteArray(\\x\n\xff\xfe\0\0[]=\n"
                                  "[Software]\n"
                                  "Norvane\\Lat=@ByteArray(\\x1\\x2\n"  // cut short
                                  "Norvane\\GPSSpeed=@ByteArray(\\x5\\0\\0\\0)\n"
                                  "Norvane\\Flag_planets=@ByteArray(\\x1\\0\\0\\0)\n"  // too long
                                  "Norvane\\Stars_Mag=@ByteArray(\\x1)\n"               // short: read
                                  "Norvane\\GPSCompass=7\n"                             // not bytes
                                  "Norvane\\City=\"@ByteArray(;\\0\\0\\0)\"\n"          // quoted as QSettings does
                                  "Norvane\\uplink=@ByteArray(\\0\\0\\0\\0\\0]{@)\n";
  writeFile(iniPath(), QByteArray(kDamaged, sizeof kDamaged - 1));
  QtSettingsStore store(iniPath());
  Settings s;
  EXPECT_EQ(loadSettings(s, store), 59);
  EXPECT_EQ(s.gpsPort, 4);
  EXPECT_EQ(s.gpsSpeed, 5);
  EXPECT_EQ(s.starsMag, 1);
  EXPECT_EQ(s.uplink, 437.8125);
  EXPECT_EQ(s.snToNs, 0);
  EXPECT_EQ(s.lat, Settings{}.lat);
  EXPECT_EQ(s.flagPlanets, 0);
  EXPECT_EQ(s.gpsCompass, 1);

  s.gpsSpeed = 6;
  EXPECT_TRUE(saveGpsGroup(s, store));
  EXPECT_EQ(QSettings(iniPath(), QSettings::IniFormat).status(), QSettings::NoError);
  QtSettingsStore again(iniPath());
  Settings t;
  EXPECT_EQ(loadSettings(t, again), 59);
  expectSame(t, s);
}

TEST_F(QtSettingsStoreTest, AFileThatCannotBeWrittenIsReportedNotThrown) {
  writeFile(dir.path() + "/plain", "x");
  QtSettingsStore store(dir.path() + "/plain/Norvane.ini");
  EXPECT_FALSE(saveGpsGroup(changedSettings(), store));
  Settings s;
  loadSettings(s, store);
  EXPECT_EQ(s.gpsPort, 1);
}

}  // namespace
}  // namespace norvane
