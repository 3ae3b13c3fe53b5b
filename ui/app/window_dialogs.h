#pragma once
#include <functional>
#include <string>

#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "core/platform/system_clock.h"
#include "download/http_client.h"
#include "gps/gps_thread.h"
#include "ui/app/main_state.h"
#include "ui/app/window_commands.h"
#include "ui/views/view_world.h"

class QWidget;

namespace norvane {

// The long-lived objects the dialogs work on, all owned by the main window.
struct DialogServices {
  MainState& state;
  SettingsStore& store;
  MessageSink& messages;
  ViewCaches& caches;        // model constants and look-angle cache, shared with the views
  GpsThread& gps;
  SystemClock& clock;        // read and set by "Set GPS time"
  std::function<HttpClient&()> http;  // made on first use
  std::string serverBase;    // element-set server: a base URL or a URL template
  std::string documents;     // where downloads are kept; the user's documents folder when empty
};

// Runs the dialog of a command with parent as owner, or the "Tle info" box.
// The values the settings and the application state both hold are left in
// step; the caller copies the settings' side back afterwards.
void RunWindowDialog(QWidget* parent, Command command, DialogServices& services);

}  // namespace norvane
