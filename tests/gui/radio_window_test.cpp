// The window's radio control: the "Radio" command, the status line, and a
// window that keeps ticking while the daemons are absent or silent.
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QStatusBar>
#include <chrono>
#include <memory>

#include "settings/radio_setting_values.h"
#include "tests/gui/gui_fixtures.h"
#include "ui/app/main_window.h"

namespace norvane {
namespace {

using Clock = std::chrono::steady_clock;

// A listening socket on 127.0.0.1 that never accepts or answers, or (closed at once) a port where nothing listens.
struct Listener {
  Listener() {
    fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (::bind(fd, reinterpret_cast<sockaddr*>(&address), size) == 0 && ::listen(fd, 4) == 0 &&
        ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) == 0) {
      port = ntohs(address.sin_port);
    }
  }
  ~Listener() { close(); }
  void close() {
    if (fd >= 0) ::close(fd);
    fd = -1;
  }
  int fd = -1;
  int port = 0;
};

int FreePort() {
  Listener gone;
  return gone.port;
}

QApplication& App() {
  static int argc = 1;
  static char name[] = "radio_window_test";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication* app = new QApplication(argc, argv);
  return *app;
}

struct Window {
  explicit Window(const std::string& name, const RadioSettings* radio = nullptr) : home(name) {
    App();
    SeedProgramFolder(home.path.string(), NORVANE_DATA_DIR);
    if (radio != nullptr) {
      Settings s;
      s.radio = *radio;
      saveRadioGroup(s, store);
    }
    WindowConfig config;
    config.programFolder = home.path.string();
    config.store = &store;
    config.messages = &sink;
    config.startGps = false;
    config.options.tle = testing::BundledElements();
    config.options.time = CalendarTime{2017, 4, 14, 22, 47, 0};
    window = std::make_unique<MainWindow>(config);
    window->show();
  }
  QString status() const { return window->radioStatus()->text(); }
  bool statusShown() const {
    return window->statusBar()->isVisible() && window->findChild<QLabel*>("radioStatus")->isVisibleTo(window.get());
  }

  testing::TempFolder home;
  MemorySettingsStore store;
  testing::RecordingSink sink;
  std::unique_ptr<MainWindow> window;
};

TEST(RadioWindow, CommandOpensTheDialogAndOkStartsTheLink) {
  Window w("radio-command");
  ASSERT_NE(w.window->action(kCmdRadio), nullptr);
  EXPECT_EQ(w.window->action(kCmdRadio)->text(), "Radio");
  EXPECT_FALSE(w.statusShown());
  EXPECT_FALSE(w.window->radio().active());
  w.window->dialogRunner = [&w](Command c) {
    if (c != kCmdRadio) return;
    w.window->state().settings.radio.rigEnable = 1;
    w.window->state().settings.radio.rigPort = FreePort();
  };
  w.window->runCommand(kCmdRadio);
  EXPECT_TRUE(w.window->radio().active());
  EXPECT_TRUE(w.statusShown());
  EXPECT_EQ(w.window->state().app.viewMode, ViewMode::Info);
  // Full-screen views hide the status line with the menus.
  w.window->runCommand(kCmdSkyView);
  EXPECT_FALSE(w.statusShown());
}

// Ticks until the status line gives both reasons (six seconds at most); no tick waits for the network.
void ExpectTicksStayQuick(Window& w, const char* rigReason, const char* rotReason) {
  auto slowest = Clock::duration::zero();
  const auto end = Clock::now() + std::chrono::seconds(6);
  int seconds = 0;
  while (Clock::now() < end && !(w.status().contains(rigReason) && w.status().contains(rotReason))) {
    const auto t0 = Clock::now();
    w.window->tick({2017, 4, 14, 22, 47, seconds++ % 60});
    QApplication::processEvents();
    slowest = std::max(slowest, Clock::now() - t0);
    ::usleep(50000);
  }
  EXPECT_GT(seconds, 20);
  EXPECT_LT(slowest, std::chrono::milliseconds(150));
  EXPECT_TRUE(w.status().contains(rigReason)) << w.status().toStdString();
  EXPECT_TRUE(w.status().contains(rotReason)) << w.status().toStdString();
  EXPECT_TRUE(w.status().contains("RX 130.00")) << w.status().toStdString();
}

TEST(RadioWindow, AbsentAndSilentDaemonsLeaveTheWindowTicking) {
  Listener silent;
  ASSERT_GT(silent.port, 0);
  RadioSettings radio;
  radio.rigEnable = 1;
  radio.rigPort = FreePort();
  radio.rotEnable = 1;
  radio.rotPort = silent.port;
  Window w("radio-absent", &radio);
  EXPECT_TRUE(w.statusShown());
  ExpectTicksStayQuick(w, "Radio: error: rigctld 127.0.0.1:", "Rotator: error: rotctld: no answer");
  EXPECT_TRUE(w.status().contains("connection refused")) << w.status().toStdString();
  const auto t0 = Clock::now();
  w.window->close();
  EXPECT_LT(Clock::now() - t0, std::chrono::milliseconds(500));
}

}  // namespace
}  // namespace norvane
