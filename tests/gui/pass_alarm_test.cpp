#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QTest>
#include <memory>

#include "tests/gui/window_fixture.h"
#include "ui/app/start_up.h"

namespace norvane {
namespace {

constexpr double kMinute = 1.0 / 1440.0;

// A session bus of this test's own, started before anything uses the bus
// and stopped when the tests end.
class PrivateBus : public ::testing::Environment {
 public:
  void SetUp() override {
    daemon_ = std::make_unique<QProcess>();
    daemon_->start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address=1"});
    if (!daemon_->waitForStarted(5000) || !daemon_->waitForReadyRead(5000)) return;
    address = QString::fromUtf8(daemon_->readLine()).trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
  }
  void TearDown() override {
    daemon_->kill();
    daemon_->waitForFinished(2000);
  }
  static inline QString address;

 private:
  std::unique_ptr<QProcess> daemon_;
};
[[maybe_unused]] ::testing::Environment* const kBus = ::testing::AddGlobalTestEnvironment(new PrivateBus);

// The desktop's notification service as far as the tracker uses it.
class Notifications : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (message.member() == "Notify") calls.push_back(message.arguments());
    connection.send(message.member() == "Notify" ? message.createReply(QVariant::fromValue(1u))
                                                 : message.createReply(QStringList{"body", "sound"}));
    return true;
  }
  std::vector<QVariantList> calls;
};

struct AlarmWorld : testing::WindowHome {
  AlarmWorld() : address(PrivateBus::address) {
    window = std::make_unique<MainWindow>(config(testing::BundledAt({2017, 4, 14, 19, 0, 0}, SimulationMode::X60)));
  }

  // Takes the first pass rising at least a quarter of an hour from now and
  // sets an alarm five minutes before it, for its satellite alone.
  PlannedPass armFor(PassAlarms::Scope scope) {
    const double now = state().app.currentTime;
    PlannedPass next;
    for (const PlannedPass& p : state().passWatch.schedule.passes()) {
      if (p.aos > now + 15 * kMinute) {
        next = p;
        break;
      }
    }
    if (scope == PassAlarms::kCurrent) {
      state().app.currentSatellite = next.slot;
    } else {
      state().catalogue.selected.fill(0);
      state().catalogue.selected[static_cast<std::size_t>(next.slot)] = 1;
    }
    state().settings.passAlarmMinutes = 5;
    state().settings.passAlarmScope = scope;
    window->watchPasses();
    return next;
  }

  // Ticks (a minute each) while the next tick still falls before the alarm.
  void tickUntilJustBefore(double moment) {
    for (int i = 0; i < 200 && state().app.currentTime + kMinute < moment; ++i) window->tick();
  }

  QString address;
};

TEST(PassAlarm, NotifiesThroughTheSessionBusAtTheSimulatedMoment) {
  AlarmWorld w;
  ASSERT_FALSE(w.address.isEmpty()) << "dbus-daemon did not start";
  Notifications service;
  QDBusConnection connection = QDBusConnection::connectToBus(w.address, "notifications");
  ASSERT_TRUE(connection.registerVirtualObject("/org/freedesktop/Notifications", &service));
  ASSERT_TRUE(connection.registerService("org.freedesktop.Notifications"));

  const PlannedPass pass = w.armFor(PassAlarms::kCurrent);
  ASSERT_GT(pass.slot, -1);
  const QString line = w.window->nextPassLabel()->text();
  EXPECT_TRUE(line.startsWith(QString::fromStdString(pass.name) + ": AOS ")) << line.toStdString();

  w.tickUntilJustBefore(pass.aos - 5 * kMinute);
  QTest::qWait(300);
  EXPECT_TRUE(service.calls.empty()) << "announced too early";
  w.window->tick();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !service.calls.empty(); }, 5000));
  EXPECT_GE(w.state().app.currentTime, pass.aos - 5 * kMinute);
  const QVariantList& args = service.calls.front();
  ASSERT_EQ(args.size(), 8);
  EXPECT_EQ(args[3].toString(), QString::fromStdString(pass.name + " rises in 5 min"));
  EXPECT_TRUE(args[4].toString().startsWith("AOS ")) << args[4].toString().toStdString();

  // Once per pass, however many ticks lie inside the warning time.
  for (int i = 0; i < 4; ++i) w.window->tick();
  QTest::qWait(300);
  EXPECT_EQ(service.calls.size(), 1u);
  EXPECT_EQ(w.window->passNotifier().fallbackBox(), nullptr);

  QDBusConnection::disconnectFromBus("notifications");
}

TEST(PassAlarm, WithoutANotificationServiceAMessageBoxThatLeavesTheWindowFree) {
  AlarmWorld w;
  const PlannedPass pass = w.armFor(PassAlarms::kSelected);
  w.tickUntilJustBefore(pass.aos - 5 * kMinute);
  QTest::qWait(200);
  EXPECT_EQ(w.window->passNotifier().fallbackBox(), nullptr);
  w.window->tick();
  ASSERT_TRUE(QTest::qWaitFor([&] { return w.window->passNotifier().fallbackBox() != nullptr; }, 5000));
  QMessageBox* box = w.window->passNotifier().fallbackBox();
  EXPECT_TRUE(box->text().contains(QString::fromStdString(pass.name))) << box->text().toStdString();
  EXPECT_FALSE(box->isModal());
  EXPECT_TRUE(box->isVisible());
}

}  // namespace
}  // namespace norvane
