#pragma once
#include <cstdint>
#include <string>
#include "gps/port_tables.h"

#include "settings/radio_settings.h"

namespace norvane {

// Every persisted user setting, with the value it has before anything is loaded.
// Each field is stored as its raw little-endian bytes under the name in the comment.
struct Settings {
  std::int32_t gpsPort = 1;         // "GPSPort": index into the port table (0 "NONE", 1 "COM1:" ...)
  std::int32_t gpsSpeed = 0;        // "GPSSpeed": index into the baud table (0 = 600)
  std::int32_t gpsCompass = 1;      // "GPSCompass": 1 = "Auto Compass"
  std::int32_t gpsAcceptGN = 0;     // "GPSAcceptGN": 1 = decode "$GN" sentences like "$GP" ones
  GpsPortMap gpsDevices;            // "GPSDevices": the device or gpsd address of COM1: ... COM9:
  std::int32_t snToNs = 0;          // "SNtoNS": 1 = north-south swap of the sky view
  std::int16_t starsMag = 5;        // "Stars_Mag": faintest star magnitude drawn, 0-5
  std::int32_t satPredictMag = 20;  // "SatPredictMag": magnitude limit of the pass search, 0-20
  std::int32_t satPredictVisible = 0;  // "SatPredictVisible": 1 = predict visible passes only
  std::int32_t flagRefraction = 0;  // "flag_refraction": 1 = atmospheric refraction
  double uplink = 138.0;            // "uplink": MHz
  double downlink = 130.0;          // "downlink": MHz
  std::int32_t flares = 0;          // "flares": 1 = Iridium flares
  std::int32_t s4s8 = 0;            // "s4_s8": 1 = SGP8/SDP8 instead of SGP4/SDP4
  std::uint8_t flagPlanets = 0;     // "Flag_planets": 1 = planets drawn
  std::int32_t flagColors = 0;      // "Flag_colors": 1 = colours
  std::int32_t satDisplay = 0;      // "Sat_Display": catalogue index of the satellite shown
  std::string lastOpen;             // "Last_Open": path of the last element file (UTF-8 here)
  std::int32_t city = 0;            // "City": entry of the cities list
  double lat = 0.9477539264057168;  // "Lat": observer latitude, radians (54.3023 N)
  double lon = 0.17670935077666988; // "Lon": observer longitude, radians (10.1247 E)
  double alt = 0.03;                // "Alt": observer altitude above sea level, km

  // Pass planner and pass alarms.
  double passMinElevation = 0.0;       // "PassMinElevation": deg, a pass counts when it culminates this high
  std::int32_t passAlarmMinutes = 0;   // "PassAlarmMinutes": warning this long before AOS, 0 = off
  std::int32_t passAlarmScope = 0;     // "PassAlarmScope": 0 = the selected satellites, 1 = the current one only

  RadioSettings radio;              // radio and rotator control, a group of its own
};

}  // namespace norvane
