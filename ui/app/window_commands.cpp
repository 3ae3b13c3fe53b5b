#include "ui/app/window_commands.h"

#include "settings/settings_io.h"

namespace norvane {
namespace {

ScreenRequest EnterView(AppState& app, ViewMode mode) {
  app.viewMode = mode;
  return ScreenRequest::full();
}

ScreenRequest Open(MainState& state, CommandHost& host, SettingsStore& store, MessageSink& messages) {
  AppToSettings(state);
  ElementFileState file = FileStateOf(state);
  BeginOpenCommand(file, state.settings);
  ApplyFileState(state, file);
  SettingsToApp(state);
  const std::optional<std::string> path = host.chooseElementFile();
  if (!path) return ScreenRequest::paintErased();
  OpenChosenFile(file, state.catalogue, state.settings, store, messages, *path);
  ApplyFileState(state, file);
  SettingsToApp(state);
  return ScreenRequest::paintErased();
}

ScreenRequest Exit(MainState& state, CommandHost& host, SettingsStore& store, MessageSink& messages) {
  AppToSettings(state);
  ExitElementFiles(state.catalogue, state.settings, store, messages, state.programFolder);
  host.closeWindow();
  return ScreenRequest::none();
}

ScreenRequest Close(MainState& state, CommandHost& host, SettingsStore& store) {
  AppToSettings(state);
  if (!state.settings.lastOpen.empty()) saveLastFileGroup(state.settings, store);
  host.closeWindow();
  return ScreenRequest::none();
}

}  // namespace

bool IsDialogCommand(int command) {
  switch (command) {
    case kCmdGetLast:
    case kCmdSettings:
    case kCmdLocation:
    case kCmdSatSelect:
    case kCmdPredict:
    case kCmdGps:
    case kCmdAbout:
    case kCmdTime:
    case kCmdPasses:
    case kCmdRadio: return true;
    default: return false;
  }
}

std::optional<std::string> ProgramFile(const std::string& programFolder, const std::string& name,
                                       MessageSink& messages) {
  if (programFolder.empty()) {
    messages.show("Incorrect Norvane pragram path!", "", MessageIcon::Stop);
    return std::nullopt;
  }
  return programFolder + (programFolder.back() == '/' ? "" : "/") + name;
}

ScreenRequest RunCommand(MainState& state, int command, CommandHost& host, SettingsStore& store,
                         MessageSink& messages) {
  AppState& app = state.app;
  if (IsDialogCommand(command)) {
    AppToSettings(state);
    host.runDialog(static_cast<Command>(command));
    SettingsToApp(state);
    app.viewMode = ViewMode::Info;
    return ScreenRequest::standard();
  }
  switch (command) {
    case kCmdOpen: return Open(state, host, store, messages);
    case kCmdExit: return Exit(state, host, store, messages);
    case kCmdClose: return Close(state, host, store);
    case kCmdTleInfo:
      AppToSettings(state);
      host.runDialog(kCmdTleInfo);
      SettingsToApp(state);
      return ScreenRequest::none();
    case kCmdHelp:
      if (const auto path = ProgramFile(state.programFolder, "Help.htm", messages)) host.openDocument(*path);
      return ScreenRequest::paintErased();
    case kCmdMapView: return EnterView(app, ViewMode::Map);
    case kCmdSkyView:
      ResetViewMatrix(app.viewMatrix);
      return EnterView(app, ViewMode::Sky);
    case kCmdOrbitView:
      ResetViewMatrix(app.viewMatrix);
      return EnterView(app, ViewMode::Orbit);
    case kCmdGpsView: return EnterView(app, ViewMode::Gps);
    default: return ScreenRequest::none();
  }
}

}  // namespace norvane
