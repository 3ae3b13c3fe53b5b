#include "ui/app/start_up.h"

#include "core/elements/element_parser.h"
#include "core/elements/selection_file.h"
#include "settings/settings_io.h"

namespace norvane {

void CreateMainState(MainState& state, SettingsStore& store, MessageSink& messages, const CalendarTime& local,
                     const CalendarTime& utc) {
  AppState& app = state.app;
  app = AppState{};
  app.iridiumFile = 0;
  app.flaresEnabled = 0;
  app.simulationMode = SimulationMode::RealTime;
  loadBlankSatellite(state.catalogue);
  app.viewMode = ViewMode::LeaveFullScreen;
  state.catalogue.satelliteCount = 1;
  app.tapPicked = 0;
  state.catalogue.selected[0] = 1;
  state.settings = Settings{};
  state.settings.flares = 0;
  app.gpsTracking = 1;
  app.dragActive = 0;

  loadSettings(state.settings, store);
  ElementFileState file = FileStateOf(state);
  if (!state.settings.lastOpen.empty()) {
    StartUpElementFiles(file, state.catalogue, state.settings, messages, state.programFolder);
  } else {
    state.settings.flares = 0;
    const std::string selection = selectionFilePath(state.programFolder, messages);
    if (!selection.empty()) readSelectionFile(selection, state.catalogue);
  }
  ApplyFileState(state, file);
  SettingsToApp(state);
  app.utcOffset = UtcOffsetOf(local, utc);
  ResetViewMatrix(app.viewMatrix);
}

}  // namespace norvane
