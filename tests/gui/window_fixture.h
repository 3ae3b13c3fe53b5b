#pragma once
// The real main window on the offscreen platform, for the Qt tests of this folder.
#include <QApplication>
#include <clocale>
#include <memory>
#include <string>

#include "tests/gui/gui_fixtures.h"
#include "ui/app/main_window.h"

namespace norvane::testing {

// The process's one QApplication, kept to the end of the process: destroying
// it among the other statics crashes.
inline QApplication& OffscreenApp() {
  static int argc = 1;
  static char name[] = "norvane_gui_test";
  static char* argv[] = {name, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication* app = new QApplication(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return *app;
}

// The bundled element file at a UTC moment, with the clock mode given.
inline ProgramOptions BundledAt(const CalendarTime& utc, std::optional<SimulationMode> clock = std::nullopt) {
  ProgramOptions o;
  o.tle = BundledElements();
  o.time = utc;
  o.clock = clock;
  return o;
}

// What a test window stands on: a seeded program folder of its own, an
// in-memory settings store and a sink that records the messages.
// config() leaves GPS off; the test makes `window` from it.
struct WindowHome {
  WindowHome() {
    OffscreenApp();
    SeedProgramFolder(home.path, NORVANE_DATA_DIR);
  }
  virtual ~WindowHome() { window.reset(); }  // before what it points at
  WindowHome(const WindowHome&) = delete;
  WindowHome& operator=(const WindowHome&) = delete;

  WindowConfig config(ProgramOptions options = {}) {
    WindowConfig c;
    c.programFolder = home.path;
    c.store = &store;
    c.messages = &sink;
    c.options = std::move(options);
    c.startGps = false;
    return c;
  }
  MainState& state() { return window->state(); }

  TempFolder home;
  MemorySettingsStore store;
  RecordingSink sink;
  std::unique_ptr<MainWindow> window;
};

}  // namespace norvane::testing
