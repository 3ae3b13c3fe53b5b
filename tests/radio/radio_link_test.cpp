// The link against the real rigctld and rotctld with their dummy back ends on
// 127.0.0.1: corrected frequencies and rotator positions arrive, a daemon that
// dies and comes back is picked up, and absent, silent or refusing daemons
// never hold up the caller. Skipped when the daemons are not installed.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "core/astro/sub_satellite_point.h"
#include "core/radio/radio_control.h"
#include "radio/daemon_connection.h"
#include "radio/radio_link.h"
#include "tests/analysis/analysis_fixtures.h"
#include "tests/common/child_process.h"
#include "tests/common/test_support.h"
#include "tests/common/wait_for.h"

namespace norvane {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using testing::WaitFor;

bool OnPath(const std::string& program) {
  const char* path = std::getenv("PATH");
  std::string dirs = path != nullptr ? path : "/usr/bin:/bin";
  for (std::size_t start = 0; start <= dirs.size();) {
    std::size_t end = dirs.find(':', start);
    if (end == std::string::npos) end = dirs.size();
    if (::access((dirs.substr(start, end - start) + "/" + program).c_str(), X_OK) == 0) return true;
    start = end + 1;
  }
  return false;
}

// A dummy daemon on a free port, and a query line to it from the test's side.
class Daemon {
 public:
  Daemon(const char* program, int port) : program_(program), port_(port) { start(); }
  void start() {
    process_ = std::make_unique<testing::ChildProcess>(
        std::vector<std::string>{program_, "-m", "1", "-T", "127.0.0.1", "-t", std::to_string(port_)});
    WaitFor([this] { return connectable(); }, 5s);
  }
  void kill() { process_.reset(); }
  bool connectable() {
    DaemonConnection c;
    std::string error;
    return c.connect("127.0.0.1", port_, 200, -1, error);
  }
  std::optional<std::vector<double>> query(const char* command, int values) {
    DaemonConnection c;
    std::string error;
    if (!c.connect("127.0.0.1", port_, 1000, -1, error)) return std::nullopt;
    const auto reply = c.request(command, values, 1000, -1, error);
    if (!reply || reply->status != ReplyStatus::Values) return std::nullopt;
    return reply->values;
  }
  int port() const { return port_; }

 private:
  std::string program_;
  int port_;
  std::unique_ptr<testing::ChildProcess> process_;
};

class RadioLinkTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!OnPath("rigctld") || !OnPath("rotctld")) GTEST_SKIP() << "rigctld/rotctld missing: run scripts/setup";
  }
  // Short periods and time-outs; the radio on rigPort and the rotator on
  // rotPort where these are given.
  static RadioLinkConfig fastConfig(int rigPort = 0, int rotPort = 0) {
    RadioLinkConfig c;
    if (rigPort != 0) c.rig = {true, "127.0.0.1", rigPort, 50};
    if (rotPort != 0) c.rotator = {true, "127.0.0.1", rotPort, 50};
    c.rig.periodMs = 50;
    c.rotator.periodMs = 50;
    c.rigToleranceHz = 0;
    c.rotToleranceDeg = 1.0;
    c.timeoutMs = 500;
    c.firstRetryMs = 100;
    c.maxRetryMs = 400;
    return c;
  }
};

TEST_F(RadioLinkTest, SimulatedPassReachesTheDummyRadioAndRotator) {
  Daemon rig("rigctld", testing::FreeLoopbackPort());
  Daemon rot("rotctld", testing::FreeLoopbackPort());
  ASSERT_TRUE(rig.connectable() && rot.connectable());
  RadioLinkConfig config = fastConfig(rig.port(), rot.port());
  RadioLink link(config);
  link.start();

  // The space station overhead: the observer stands below it at tca.
  auto catalogue = test::bundled("visual_2017-04-14.txt");
  const Satellite& iss = catalogue->satellites[test::kIssSlot];
  const double tca = test::kVisualEpoch + 0.3;
  Propagator p(iss);
  const OrbitState s = p.stateAt(tca);
  Geodetic observer;
  SubSatellitePoint(tca, {s.positionKm[0], s.positionKm[1], s.positionKm[2],
                          std::hypot(s.positionKm[0], s.positionKm[1], s.positionKm[2])}, observer);
  observer.alt = 0.05;
  RadioControlConfig control;
  control.transponder = {437.8e6, 145.99e6, false};
  control.rotator.azimuthRange = AzimuthRange::Minus180To180;
  RadioControl loop(iss, observer, control);

  // x60 clock: 3 s of the pass every 50 ms, checked at several moments.
  int checked = 0;
  double largestShift = 0;
  for (int second = -240; second <= 240; second += 3) {
    const double jd = tca + second / 86400.0;
    const ControlStep step = loop.step(jd);
    link.setFrequencies(step.frequencies);
    link.setRotator(step.rotator.position);
    std::this_thread::sleep_for(50ms);
    if (std::fmod(std::round((jd - tca) * 86400), 60.0) != 0) continue;
    ++checked;
    EXPECT_TRUE(WaitFor([&] {
      const auto rx = rig.query("f", 1);
      const auto tx = rig.query("i", 1);
      return rx && tx && std::fabs((*rx)[0] - step.frequencies.rxHz) <= 1.0 &&
             std::fabs((*tx)[0] - step.frequencies.txHz) <= 1.0;
    }, 3s)) << "at " << (jd - tca) * 86400 << " s from the top";
    largestShift = std::max(largestShift, std::fabs(step.frequencies.rxHz - 437.8e6));
  }
  EXPECT_GE(checked, 8);
  EXPECT_GT(largestShift, 5000.0);  // Hz: the moments checked were not all near the top

  // Hold the clock: the dummy rotator (a few degrees a second) comes to rest on the target.
  const ControlStep last = loop.step(tca + 4.0 / 1440);
  ASSERT_EQ(last.rotator.phase, RotatorPhase::Track);
  link.setRotator(last.rotator.position);
  EXPECT_TRUE(WaitFor([&] {
    const auto at = rot.query("p", 2);
    return at && std::fabs((*at)[0] - last.rotator.position.azimuthDeg) <= config.rotToleranceDeg &&
           std::fabs((*at)[1] - last.rotator.position.elevationDeg) <= config.rotToleranceDeg;
  }, 60s));
  const RadioLinkStatus status = link.status();
  EXPECT_EQ(status.rig.state, LinkState::Connected);
  EXPECT_EQ(status.rotator.state, LinkState::Connected);
  ASSERT_TRUE(status.rotatorPosition.has_value());
  const auto sent = link.takeSentCommands();
  for (const char* kind : {"F ", "I ", "P "}) {
    EXPECT_TRUE(std::any_of(sent.begin(), sent.end(), [&](const std::string& c) { return c.rfind(kind, 0) == 0; }))
        << kind;
  }
}

TEST_F(RadioLinkTest, DaemonKilledMidPassIsPickedUpWhenItReturns) {
  Daemon rig("rigctld", testing::FreeLoopbackPort());
  RadioLink link(fastConfig(rig.port()));
  link.start();
  link.setFrequencies({145.8e6, 0});
  ASSERT_TRUE(WaitFor([&] { return link.status().rig.state == LinkState::Connected; }, 3s));
  rig.kill();
  link.setFrequencies({145.801e6, 0});
  ASSERT_TRUE(WaitFor([&] { return link.status().rig.state == LinkState::Error; }, 3s));
  EXPECT_NE(LinkStateText(link.status().rig).find("rigctld"), std::string::npos);
  rig.start();
  link.setFrequencies({145.802e6, 0});
  EXPECT_TRUE(WaitFor([&] {
    const auto rx = rig.query("f", 1);
    return link.status().rig.state == LinkState::Connected && rx && (*rx)[0] == 145.802e6;
  }, 5s));
}

TEST_F(RadioLinkTest, SplitAndModesFollowTheChannel) {
  Daemon rig("rigctld", testing::FreeLoopbackPort());
  RadioLink link(fastConfig(rig.port()));
  std::vector<std::string> sent;
  const auto sentSoFar = [&] {
    for (std::string& c : link.takeSentCommands()) sent.push_back(c);
    return sent;
  };
  const auto wasSent = [&](const std::string& c) {
    const auto all = sentSoFar();
    return std::find(all.begin(), all.end(), c) != all.end();
  };
  link.setModes(ModesFor("USB", true));
  link.setFrequencies({435.85e6, 145.95e6});  // an inverting linear transponder
  link.start();
  EXPECT_TRUE(WaitFor([&] { return wasSent("X LSB 0"); }, 3s));
  const auto tx = rig.query("i", 1);
  ASSERT_TRUE(tx.has_value());
  EXPECT_EQ((*tx)[0], 145.95e6);
  link.setModes(ModesFor("FM", false));
  link.setFrequencies({145.8e6, 0});  // receive only: split off again
  EXPECT_TRUE(WaitFor([&] { return wasSent("M FM 0"); }, 3s));
  for (const char* c : {"F 435850000", "S 1 VFOB", "I 145950000", "M USB 0", "F 145800000", "S 0 VFOA"}) {
    EXPECT_TRUE(wasSent(c)) << c;
  }
  EXPECT_FALSE(wasSent("X FM 0"));
}

TEST_F(RadioLinkTest, RefusedCommandIsReportedAndTheNextOneGoesThrough) {
  Daemon rot("rotctld", testing::FreeLoopbackPort());
  RadioLink link(fastConfig(0, rot.port()));
  link.start();
  link.setRotator({10, 100});  // beyond the dummy's 90 degrees
  ASSERT_TRUE(WaitFor([&] { return link.status().rotator.state == LinkState::Error; }, 3s));
  EXPECT_NE(link.status().rotator.error.find("RPRT -1"), std::string::npos) << link.status().rotator.error;
  link.setRotator({10, 10});
  EXPECT_TRUE(WaitFor([&] { return link.status().rotator.state == LinkState::Connected; }, 3s));
}

// The caller's calls take microseconds and stop() returns promptly, whatever the daemon does.
void ExpectResponsive(RadioLink& link, const std::string& reason) {
  auto slowest = Clock::duration::zero();
  const auto until = Clock::now() + std::chrono::milliseconds(1500);
  while (Clock::now() < until) {
    const auto t0 = Clock::now();
    link.setFrequencies({145.8e6, 435e6});
    link.setRotator({100, 20});
    (void)link.status();
    slowest = std::max(slowest, Clock::now() - t0);
    std::this_thread::sleep_for(5ms);
  }
  EXPECT_LT(slowest, 20ms);
  const RadioLinkStatus status = link.status();
  EXPECT_EQ(status.rig.state, LinkState::Error);
  EXPECT_NE(status.rig.error.find(reason), std::string::npos) << status.rig.error;
  const auto t0 = Clock::now();
  link.stop();
  EXPECT_LT(Clock::now() - t0, 200ms);
}

TEST_F(RadioLinkTest, NothingListeningLeavesTheCallerResponsive) {
  RadioLink link(fastConfig(testing::FreeLoopbackPort()));
  link.start();
  ExpectResponsive(link, "connection refused");
}

TEST_F(RadioLinkTest, ListenerThatNeverAnswersLeavesTheCallerResponsive) {
  testing::SilentListener listener;
  ASSERT_GT(listener.port, 0);
  RadioLinkConfig config = fastConfig(listener.port);
  config.timeoutMs = 300;
  RadioLink link(config);
  link.start();
  ExpectResponsive(link, "no answer");
  // A long time-out is cut short by stop().
  config.timeoutMs = 10000;
  RadioLink patient(config);
  patient.start();
  std::this_thread::sleep_for(200ms);
  const auto t0 = Clock::now();
  patient.stop();
  EXPECT_LT(Clock::now() - t0, 200ms);
}

}  // namespace
}  // namespace norvane
