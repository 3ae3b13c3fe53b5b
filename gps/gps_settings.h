#pragma once
#include <cstdint>

namespace norvane {

// The receiver settings the user edits in "GPS settings"; the application
// stores and loads them, the reader thread takes a copy.
struct GpsSettings {
  std::int32_t portIndex = 1;    // index into kGpsPortTable, 0 "NONE"
  std::int32_t baudIndex = 0;    // index into kGpsBaudTable
  std::int32_t tracking = 1;     // 1: the thread reads the receiver
  std::int32_t autoCompass = 1;  // 1: the sky view turns with the course
  std::int32_t altReading = 0;   // 1: keep the port open, set only its speed
  std::int32_t acceptGn = 0;     // 1: also decode the "$GN" talker (not GSV)
};

}  // namespace norvane
