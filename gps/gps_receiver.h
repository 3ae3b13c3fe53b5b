#pragma once
#include <string>

#include "core/platform/message_sink.h"
#include "gps/gps_settings.h"
#include "gps/gps_thread.h"
#include "gps/port_tables.h"

namespace norvane {

// Program start: tries the chosen port with its line settings and turns
// tracking off when that fails (the reason stays in message); closes it
// again, then starts the reader unless the port is "NONE".
void StartGpsReceiver(GpsThread& thread, GpsSettings& settings, const GpsPortMap& map,
                      std::string& message);

// "Test GPS": takes the port from the reader and opens it with the chosen
// speed; shows "COM port set correctly." (title "GPS") or the failure text
// (no title, stop icon). True when the port opened.
bool TestGpsPort(GpsThread& thread, const GpsSettings& settings, const GpsPortMap& map,
                 MessageSink& sink);

}  // namespace norvane
