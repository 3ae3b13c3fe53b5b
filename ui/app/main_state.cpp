#include "ui/app/main_state.h"

#include <cstddef>

namespace norvane {

void SettingsToApp(MainState& state) {
  state.app.currentSatellite = state.settings.satDisplay;
  state.app.flaresEnabled = state.settings.flares;
  state.app.observer.lat = state.settings.lat;
  state.app.observer.lon = state.settings.lon;
  state.app.observer.alt = state.settings.alt;
}

void AppToSettings(MainState& state) {
  state.settings.satDisplay = state.app.currentSatellite;
  state.settings.flares = state.app.flaresEnabled;
  state.settings.lat = state.app.observer.lat;
  state.settings.lon = state.app.observer.lon;
  state.settings.alt = state.app.observer.alt;
}

ElementFileState FileStateOf(const MainState& state) {
  ElementFileState file;
  file.tapPicked = state.app.tapPicked;
  file.iridiumFile = state.app.iridiumFile;
  for (std::size_t r = 0; r < 4; ++r) {
    for (std::size_t c = 0; c < 4; ++c) file.viewMatrix[r * 4 + c] = state.app.viewMatrix.m[r][c];
  }
  return file;
}

void ApplyFileState(MainState& state, const ElementFileState& file) {
  state.app.tapPicked = file.tapPicked;
  state.app.iridiumFile = file.iridiumFile;
  for (std::size_t r = 0; r < 4; ++r) {
    for (std::size_t c = 0; c < 4; ++c) state.app.viewMatrix.m[r][c] = file.viewMatrix[r * 4 + c];
  }
}

}  // namespace norvane
