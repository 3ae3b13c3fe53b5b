#pragma once
#include <optional>
#include <string>

#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "ui/app/main_state.h"
#include "ui/app/screen_request.h"

namespace norvane {

// The window's command identifiers.
enum Command : int {
  kCmdClose = 1,  // title-bar ok, Ctrl+Q
  kCmdExit = 40010,
  kCmdSettings = 40013,
  kCmdLocation = 40021,
  kCmdSatSelect = 40022,
  kCmdMapView = 40026,
  kCmdSkyView = 40027,
  kCmdOpen = 40028,
  kCmdAbout = 40032,
  kCmdTleInfo = 40033,
  kCmdPredict = 40034,
  kCmdOrbitView = 40035,
  kCmdHelp = 40036,
  kCmdTime = 40050,
  kCmdGetLast = 40052,
  kCmdGps = 40053,
  kCmdGpsView = 40054,
  kCmdRadio = 40060,  // Edit / "Radio": radio and rotator control
  kCmdPasses = 40100,  // Edit / "Passes": the pass planner's list and alarms
};

// What the commands need from the window around them.
class CommandHost {
 public:
  virtual ~CommandHost() = default;
  // The open-file dialog ("Open File", filter "All (*.tle)"); nothing when cancelled.
  virtual std::optional<std::string> chooseElementFile() = 0;
  // Runs the modal dialog of a command (or the "Tle info" box).
  virtual void runDialog(Command command) = 0;
  // Shows a document with the desktop's viewer.
  virtual void openDocument(const std::string& path) = 0;
  // Closes the window.
  virtual void closeWindow() = 0;
};

// Whether the command runs a modal dialog (after which the information page returns).
bool IsDialogCommand(int command);

// The path of a file in the program folder, or "Incorrect Norvane pragram
// path!" and nothing when there is no program folder.
std::optional<std::string> ProgramFile(const std::string& programFolder, const std::string& name,
                                       MessageSink& messages);

// Runs one command; unknown identifiers do nothing.
ScreenRequest RunCommand(MainState& state, int command, CommandHost& host, SettingsStore& store,
                         MessageSink& messages);

}  // namespace norvane
