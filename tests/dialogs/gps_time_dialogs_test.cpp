#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimeEdit>

#include "../download/recording_sink.h"
#include "core/astro/julian_date.h"
#include "gps/linux_system_clock.h"
#include "gps/steady_clock.h"
#include "qt_fixture.h"
#include "settings/memory_settings_store.h"
#include "settings/settings_io.h"
#include "tests/gps/pty_feed.h"
#include "ui/dialogs/gps_settings_dialog.h"
#include "ui/dialogs/time_dialog.h"

namespace norvane {
namespace {

using testing::DialogTest;

struct GpsWorld {
  GpsSettings gps;
  Settings settings;
  MemorySettingsStore store;
  AppState app;
  SteadyClock clock;
  GpsThread thread{clock};
  testing::RecordingSink sink;
  GpsDialogContext context() { return {gps, settings, store, app, thread, sink}; }
};

class GpsDialogTest : public DialogTest {};

TEST_F(GpsDialogTest, OkStoresChoicesAndTheEditedPortMapAndSavesTheGroup) {
  GpsWorld w;
  GpsSettingsDialog dialog(w.context());
  auto* bauds = control<QComboBox>(dialog, "combo1056");
  EXPECT_EQ(bauds->count(), 10);  // 115200 is never offered
  auto* ports = control<QComboBox>(dialog, "combo1054");
  auto* device = control<QComboBox>(dialog, "combo1066");
  auto* resolved = control<QLabel>(dialog, "static1067");
  EXPECT_EQ(ports->itemText(0), "NONE");
  EXPECT_EQ(device->currentText(), "/dev/ttyUSB0");  // COM1:
  EXPECT_NE(device->findText("gpsd://localhost:2947"), -1);
  ports->setCurrentIndex(3);
  EXPECT_EQ(device->currentText(), "/dev/ttyACM0");
  device->setEditText("gpsd://127.0.0.1:2947");
  EXPECT_EQ(resolved->text(), "→ gpsd://127.0.0.1:2947");
  ports->setCurrentIndex(4);  // each port keeps its own edit
  EXPECT_EQ(device->currentText(), "/dev/ttyACM1");
  EXPECT_EQ(w.settings.gpsDevices.devices[3], "/dev/ttyACM0");  // nothing stored before OK
  ports->setCurrentIndex(3);
  EXPECT_EQ(device->currentText(), "gpsd://127.0.0.1:2947");
  bauds->setCurrentIndex(3);
  control<QCheckBox>(dialog, "check1059")->setChecked(false);
  control<QCheckBox>(dialog, "check1063")->setChecked(true);
  control<QCheckBox>(dialog, "check1065")->setChecked(true);
  press(dialog, QDialogButtonBox::Ok);
  EXPECT_EQ(w.gps.portIndex, 3);
  EXPECT_EQ(w.gps.baudIndex, 3);
  EXPECT_EQ(w.gps.autoCompass, 0);
  EXPECT_EQ(w.gps.altReading, 1);
  EXPECT_EQ(w.gps.acceptGn, 1);
  EXPECT_EQ(w.settings.gpsPort, 3);
  EXPECT_EQ(w.settings.gpsAcceptGN, 1);
  EXPECT_EQ(w.settings.gpsDevices.devices[3], "gpsd://127.0.0.1:2947");
  EXPECT_EQ(w.store.values.at("GPSPort"), (SettingBytes{3, 0, 0, 0}));
  EXPECT_EQ(w.store.values.at("GPSAcceptGN"), (SettingBytes{1, 0, 0, 0}));
  Settings reloaded;
  loadSettings(reloaded, w.store);
  EXPECT_EQ(reloaded.gpsDevices.devices, w.settings.gpsDevices.devices);
}

TEST_F(GpsDialogTest, TrackingFollowsAtOnceAndCancelKeepsTheRest) {
  GpsWorld w;
  GpsSettingsDialog dialog(w.context());
  control<QCheckBox>(dialog, "check1049")->click();
  EXPECT_EQ(w.gps.tracking, 0);
  EXPECT_EQ(w.app.gpsTracking, 0);
  control<QComboBox>(dialog, "combo1054")->setCurrentIndex(5);
  press(dialog, QDialogButtonBox::Cancel);
  EXPECT_EQ(w.gps.portIndex, 1);
  EXPECT_EQ(w.store.writes, 0);
}

TEST_F(GpsDialogTest, TestGpsOnAPseudoTerminalAndOnAMissingDevice) {
  test::PtyEnd pty;  // its far end stands in for a receiver's serial port
  ASSERT_TRUE(pty.ok());
  GpsWorld w;
  GpsSettingsDialog dialog(w.context());
  auto* test = control<QPushButton>(dialog, "button1043");
  auto* device = control<QComboBox>(dialog, "combo1066");
  control<QComboBox>(dialog, "combo1054")->setCurrentIndex(1);
  device->setEditText(QString::fromStdString(pty.path()));  // typed, as for /dev/rfcomm0
  EXPECT_EQ(control<QLabel>(dialog, "static1067")->text(), QString::fromStdString("→ " + pty.path()));
  test->click();
  ASSERT_EQ(w.sink.shown.size(), 1u);
  EXPECT_EQ(w.sink.shown[0].text, "COM port set correctly.");
  EXPECT_EQ(w.sink.shown[0].title, "GPS");
  control<QComboBox>(dialog, "combo1054")->setCurrentIndex(2);
  device->setEditText("/dev/null/not-a-port");
  EXPECT_EQ(control<QLabel>(dialog, "static1067")->text(), "→ /dev/null/not-a-port (not present)");
  test->click();
  ASSERT_EQ(w.sink.shown.size(), 2u);
  EXPECT_EQ(w.sink.shown[1].text, "Could not open the COM2: port");
  EXPECT_EQ(w.sink.shown[1].icon, MessageIcon::Stop);
  EXPECT_EQ(w.gps.portIndex, 2);  // taken into the settings by the test
  EXPECT_EQ(w.settings.gpsDevices.devices[1], pty.path());
}

struct FakeClock : SystemClock {
  std::uint32_t tickCount() override { return 2000; }
  LocalClockTime localTime() override { return {2024, 6, 15, 10, 0, 0, 0}; }
  bool setLocalTime(const LocalClockTime& t) override { return IsValidLocalTime(t); }
  void sleepMs(int) override {}
};

struct TimeWorld {
  AppState app;
  FakeClock clock;
  std::uint32_t delay = 0;
  GpsData gps;
  testing::RecordingSink sink;
  TimeDialogContext context() {
    return {[this] { return gps; }, clock, delay, sink};
  }
};

class TimeDialogTest : public DialogTest {};

TEST_F(TimeDialogTest, OpensOnTheLocalClockAndCalculates) {
  TimeWorld w;
  w.app.currentTime = JulianDateOfDate(2017, 4, 14, 12, 0, 0);
  w.app.utcOffset = 2.0 / 24.0;
  w.app.simulationMode = SimulationMode::X30;
  TimeDialog dialog(w.app, w.context());
  EXPECT_TRUE(control<QRadioButton>(dialog, "radio1037")->isChecked());
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1001")->text(), "2");
  EXPECT_EQ(control<QTimeEdit>(dialog, "time1020")->time(), QTime(14, 0, 0));
  EXPECT_EQ(control<QDateEdit>(dialog, "date1030")->date(), QDate(2017, 4, 14));
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1000")->text(), "JD: 2457858.000000days");
  control<QTimeEdit>(dialog, "time1020")->setTime(QTime(18, 0, 0));
  control<QPushButton>(dialog, "button1058")->click();
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1000")->text(), "JD: 2457858.16666667days");
  EXPECT_EQ(w.app.currentTime, JulianDateOfDate(2017, 4, 14, 12, 0, 0));  // Calc. changes nothing
}

TEST_F(TimeDialogTest, OkSetsModeAndTimeCancelDoesNot) {
  TimeWorld w;
  w.app.currentTime = JulianDateOfDate(2017, 4, 14, 12, 0, 0);
  // "x10" at 06:30, closed with the button given.
  const auto x10At0630 = [&w](QDialogButtonBox::StandardButton button) {
    TimeDialog dialog(w.app, w.context());
    control<QRadioButton>(dialog, "radio1036")->setChecked(true);
    control<QTimeEdit>(dialog, "time1020")->setTime(QTime(6, 30, 0));
    press(dialog, button);
  };
  x10At0630(QDialogButtonBox::Cancel);
  EXPECT_EQ(w.app.simulationMode, SimulationMode::RealTime);
  EXPECT_EQ(w.app.currentTime, JulianDateOfDate(2017, 4, 14, 12, 0, 0));
  x10At0630(QDialogButtonBox::Ok);
  EXPECT_EQ(w.app.simulationMode, SimulationMode::X10);
  EXPECT_EQ(w.app.currentTime, JulianDateOfDate(2017, 4, 14, 6, 30, 0));
  EXPECT_EQ(w.app.pausedTime, w.app.currentTime);
}

TEST_F(TimeDialogTest, SetGpsTimeShowsItsFigures) {
  TimeWorld w;
  w.app.gpsTracking = 0;
  TimeDialog dialog(w.app, w.context());
  auto* button = control<QPushButton>(dialog, "button1043");
  button->click();
  EXPECT_EQ(w.sink.shown.back().text, "Turn GPS tracking on!");
  w.app.gpsTracking = 1;
  w.gps.year = 2024, w.gps.month = 6, w.gps.day = 15, w.gps.hour = 10, w.gps.minute = 1, w.gps.second = 5;
  w.gps.timeStamp = 990;  // delay 2000 - 990 + 10 = 1020 ms
  button->click();
  EXPECT_EQ(w.sink.shown.back().text, "Clock set to GPS atomic time!!!");
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1002")->text(), "67");  // 1 min 7 s ahead of 10:00:00
  EXPECT_EQ(control<QLineEdit>(dialog, "edit1004")->text(), "1");
  EXPECT_EQ(w.delay, 1020u);
}

}  // namespace
}  // namespace norvane
