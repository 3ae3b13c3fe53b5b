#pragma once
#include <cstdint>
#include <string>

#include "core/analysis/pass_search.h"
#include "core/elements/catalogue.h"
#include "ui/app/element_file_commands.h"
#include "gps/gps_data.h"
#include "gps/gps_settings.h"
#include "settings/settings.h"
#include "ui/views/app_state.h"
#include "ui/views/info_page.h"

namespace norvane {

// Everything the main window owns: the views' state, the catalogue, the
// settings, the latest GPS record, the timer's phase counter and what the
// dialogs keep between openings.
struct MainState {
  AppState app;
  Catalogue catalogue;
  Settings settings;
  GpsData gps;                   // the reader's record as of the last tick
  std::int16_t tickCounter = 0;  // 0..3, read by the GPS reader
  std::string programFolder;     // Select.bol, Help.htm, Cities.loc, skins/
  InfoTiming infoTiming;
  InfoOptions infoOptions;
  GpsSettings gpsSettings;          // the reader's settings; tracking in step with app.gpsTracking
  PredictionStore predictions;      // the last pass search, listed again when "Prediction" reopens
  std::uint32_t lastGpsDelayMs = 0;  // ms, what "Set GPS time" measured last
};

// The settings and the application state keep some values twice (the current
// satellite, the flares switch, the observer); these copy them one way or the other.
void SettingsToApp(MainState& state);
void AppToSettings(MainState& state);

// The element-file commands' view of the state, and back.
ElementFileState FileStateOf(const MainState& state);
void ApplyFileState(MainState& state, const ElementFileState& file);

}  // namespace norvane
