#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
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

TEST_F(QtSettingsStoreTest, EveryGroupSurvivesARestart) {
  const Settings saved = changedSettings();
  {
    QtSettingsStore store(iniPath());
    saveGpsGroup(saved, store);
    saveSettingsGroup(saved, store);
    Settings located = saved;
    saveLocationGroup(located, saved.city, store);
    saveLastFileGroup(saved, store);
    savePassesGroup(saved, store);
  }
  QtSettingsStore reopened(iniPath());
  Settings loaded;
  EXPECT_EQ(loadSettings(loaded, reopened), saved.city);
  expectSame(loaded, saved);
  EXPECT_EQ(reopened.read("Last_Open")->size(), 520u);
}

TEST_F(QtSettingsStoreTest, ValuesOfAnotherSizeOrKindAreIgnored) {
  QDir().mkpath(dir.path() + "/config/Norvane");
  writeFile(iniPath(),
            "[Software]\n"
            "Norvane\\Flag_planets=@ByteArray(\\x1\\0\\0\\0)\n"
            "Norvane\\Stars_Mag=@ByteArray(\\x1)\n"
            "Norvane\\GPSPort=7\n"
            "Norvane\\GPSSpeed=@ByteArray(\\x5\\0\\0\\0)\n");
  QtSettingsStore store(iniPath());
  Settings s;
  EXPECT_EQ(loadSettings(s, store), 0);
  EXPECT_EQ(s.flagPlanets, 0);
  EXPECT_EQ(s.starsMag, 5);
  EXPECT_EQ(s.gpsPort, 1);
  EXPECT_EQ(s.gpsSpeed, 5);
}

TEST_F(QtSettingsStoreTest, DamagedFilesKeepTheDefaultsAndTheNextSaveRepairsThem) {
  QDir().mkpath(dir.path() + "/config/Norvane");
  const QByteArray damaged[] = {
      QByteArray("[Software\n\x01\x02garbage=@ByteArray(\\x\n\xff\xfe", 27),
      QByteArray("[Software]\nNorvane\\Lat=@ByteArray(\\x1\\x2"),  // cut short
      QByteArray("\0\0\0\0[]=\n=@Variant(\\0\\0\\0\x7f)\n", 28),
  };
  for (const QByteArray& bytes : damaged) {
    writeFile(iniPath(), bytes);
    QtSettingsStore store(iniPath());
    Settings s;
    loadSettings(s, store);
    EXPECT_EQ(s.lat, Settings{}.lat);
    EXPECT_EQ(s.gpsPort, 1);

    EXPECT_TRUE(saveGpsGroup(changedSettings(), store));
    QtSettingsStore again(iniPath());
    Settings t;
    EXPECT_GE(loadSettings(t, again), 0);
    EXPECT_EQ(t.gpsPort, 4);
  }
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
