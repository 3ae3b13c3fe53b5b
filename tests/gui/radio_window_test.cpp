// The window's radio control: the "Radio" command, the status line, and a
// window that keeps ticking while the daemons are absent or silent.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <chrono>
#include <memory>

#include "settings/radio_setting_values.h"
#include "tests/common/loopback.h"
#include "tests/gui/window_fixture.h"

namespace norvane {
namespace {

using Clock = std::chrono::steady_clock;

struct Window : testing::WindowHome {
  explicit Window(const RadioSettings* radio = nullptr) {
    if (radio != nullptr) {
      Settings s;
      s.radio = *radio;
      saveRadioGroup(s, store);
    }
    window = std::make_unique<MainWindow>(config(testing::BundledAt({2017, 4, 14, 22, 47, 0})));
    window->show();
  }
  QString status() const { return window->radioStatus()->text(); }
  bool statusShown() const {
    return window->statusBar()->isVisible() && window->findChild<QLabel*>("radioStatus")->isVisibleTo(window.get());
  }
};

TEST(RadioWindow, CommandOpensTheDialogAndOkStartsTheLink) {
  Window w;
  ASSERT_NE(w.window->action(kCmdRadio), nullptr);
  EXPECT_EQ(w.window->action(kCmdRadio)->text(), "Radio");
  EXPECT_FALSE(w.statusShown());
  EXPECT_FALSE(w.window->radio().active());
  w.window->dialogRunner = [&w](Command c) {
    if (c != kCmdRadio) return;
    w.window->state().settings.radio.rigEnable = 1;
    w.window->state().settings.radio.rigPort = testing::FreeLoopbackPort();
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
  testing::SilentListener silent;
  ASSERT_GT(silent.port, 0);
  RadioSettings radio;
  radio.rigEnable = 1;
  radio.rigPort = testing::FreeLoopbackPort();
  radio.rotEnable = 1;
  radio.rotPort = silent.port;
  Window w(&radio);
  EXPECT_TRUE(w.statusShown());
  ExpectTicksStayQuick(w, "Radio: error: rigctld 127.0.0.1:", "Rotator: error: rotctld: no answer");
  EXPECT_TRUE(w.status().contains("connection refused")) << w.status().toStdString();
  const auto t0 = Clock::now();
  w.window->close();
  EXPECT_LT(Clock::now() - t0, std::chrono::milliseconds(500));
}

}  // namespace
}  // namespace norvane
