#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "gps/gps_thread.h"
#include "gps/gpsd_connection.h"
#include "gps/steady_clock.h"
#include "tests/common/test_support.h"
#include "tests/gps/pty_feed.h"

extern char** environ;

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

// gpsd in the foreground on 127.0.0.1:port, reading one device; ended by its pid.
class Gpsd {
 public:
  Gpsd(const std::string& program, int port, const std::string& device)
      : control_("/tmp/norvane-gpsd-test-" + std::to_string(::getpid()) + ".sock") {
    const std::string portText = std::to_string(port);
    std::vector<std::string> args = {program, "-N", "-n", "-b", "-S", portText, "-F", control_, device};
    std::vector<char*> argv;
    argv.reserve(args.size() + 1);
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    if (posix_spawn(&pid_, program.c_str(), &actions, nullptr, argv.data(), environ) != 0) pid_ = -1;
    posix_spawn_file_actions_destroy(&actions);
  }
  ~Gpsd() {
    if (pid_ <= 0) return;
    ::kill(pid_, SIGTERM);
    for (int i = 0; i < 100 && ::waitpid(pid_, nullptr, WNOHANG) == 0; ++i) std::this_thread::sleep_for(20ms);
    if (::waitpid(pid_, nullptr, WNOHANG) == 0) {
      ::kill(pid_, SIGKILL);
      ::waitpid(pid_, nullptr, 0);
    }
    ::unlink(control_.c_str());
  }
  bool started() const { return pid_ > 0; }

 private:
  pid_t pid_ = -1;
  std::string control_;
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
  ASSERT_TRUE(gpsd.started());
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
