#include "gps/gps_receiver.h"

namespace norvane {
namespace {

std::unique_ptr<GpsPort> OpenChosenPort(const GpsSettings& settings, const GpsPortMap& map,
                                        std::string& message) {
  return OpenGpsPort(GpsPortName(settings.portIndex), GpsDeviceOf(map, settings.portIndex),
                     GpsBaudRate(settings.baudIndex), message);
}

}  // namespace

void StartGpsReceiver(GpsThread& thread, GpsSettings& settings, const GpsPortMap& map,
                      std::string& message) {
  if (!OpenChosenPort(settings, map, message)) settings.tracking = 0;
  thread.configure(settings, map);
  if (settings.portIndex != 0) thread.start();
}

bool TestGpsPort(GpsThread& thread, const GpsSettings& settings, const GpsPortMap& map,
                 MessageSink& sink) {
  thread.configure(settings, map);
  thread.releasePort();
  std::string message;
  const bool opened = OpenChosenPort(settings, map, message) != nullptr;
  thread.resumePort();
  if (!opened) {
    sink.show(message, "", MessageIcon::Stop);
    return false;
  }
  sink.show("COM port set correctly.", "GPS", MessageIcon::Information);
  return true;
}

}  // namespace norvane
