#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "gps/gps_thread.h"
#include "gps/gpsd_connection.h"
#include "gps/steady_clock.h"
#include "tests/common/child_process.h"
#include "tests/common/test_support.h"
#include "tests/gps/pty_feed.h"

namespace norvane {
namespace {

using namespace std::chrono_literals;
using test::PtyEnd;
using test::Receiver;
using test::WaitFor;

std::string GpsdProgram() {
  for (const char* path : {"/usr/sbin/gpsd", "/usr/local/sbin/gpsd"}) {
    if (::access(path, X_OK) == 0) return path;
  }
  return "";
}

// gpsd in the foreground on 127.0.0.1:port, reading one device.
struct Gpsd {
  Gpsd(const std::string& program, int port, const std::string& device)
      : control("/tmp/norvane-gpsd-test-" + std::to_string(::getpid()) + ".sock"),
        child({program, "-N", "-n", "-b", "-S", std::to_string(port), "-F", control, device}) {}
  ~Gpsd() { ::unlink(control.c_str()); }
  std::string control;
  testing::ChildProcess child;
};

TEST(GpsdAddress, Forms) {
  std::string host, port;
  EXPECT_TRUE(ParseGpsdAddress("gpsd://[::1]:2947", host, port));
  EXPECT_EQ(host + " " + port, "::1 2947");
  for (const char* bad : {"gpsd://127.0.0.1", "gpsd://:2947", "gpsd://host:29x", "/dev/ttyUSB0"}) {
    EXPECT_FALSE(ParseGpsdAddress(bad, host, port)) << bad;
  }
}

TEST(Gpsd, ThreadReadsRawNmeaThroughARealGpsd) {
  const std::string program = GpsdProgram();
  if (program.empty()) GTEST_SKIP() << "gpsd is not installed (Debian package gpsd): live gpsd test skipped";
  const std::string log = testing::ReadFile(std::string(NORVANE_TEST_DIR) + "/data/kiel_drive.nmea");
  ASSERT_FALSE(log.empty());
  PtyEnd end(true);
  ASSERT_TRUE(end.ok());
  const int port = testing::FreeLoopbackPort();
  ASSERT_GT(port, 0);
  Gpsd gpsd(program, port, end.path());
  ASSERT_TRUE(gpsd.child.started());
  Receiver receiver(end, log, std::chrono::microseconds(200));

  SteadyClock clock;
  GpsThread thread(clock);
  GpsPortMap map;
  map.devices[3] = "gpsd://127.0.0.1:" + std::to_string(port);
  GpsSettings settings;
  settings.portIndex = 3;
  thread.configure(settings, map);
  thread.setView(kGpsViewGpsPage);
  thread.start();
  ASSERT_TRUE(WaitFor([&] { return thread.data().prn[5] == 31; }, 15s));
  const GpsData gps = thread.data();
  EXPECT_NEAR(gps.latitude, 54.3023, 1e-12);
  EXPECT_NEAR(gps.longitude, 10.1247, 1e-12);
  EXPECT_EQ(gps.satellitesInUse, 6);
  EXPECT_EQ(gps.fixMode, 3);
  EXPECT_EQ(gps.satellitesInView, 7);
  const auto before = std::chrono::steady_clock::now();
  thread.stop();
  EXPECT_LT(std::chrono::steady_clock::now() - before, 1s);
}

}  // namespace
}  // namespace norvane
