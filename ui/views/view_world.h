#pragma once
#include <array>

#include "core/astro/look_angles.h"
#include "core/astro/planets.h"
#include "core/elements/catalogue.h"
#include "core/platform/display.h"
#include "core/propagation/model_state.h"
#include "core/propagation/working_set.h"
#include "gps/gps_data.h"
#include "settings/settings.h"
#include "ui/surface/drawing_surface.h"
#include "ui/surface/skins.h"
#include "ui/views/app_state.h"

namespace norvane {

// The current satellite's sunlight figures as the last paint left them: an
// eclipsed satellite keeps the illumination and phase angle of the last lit one.
struct SunlightFigures {
  double illumination = 0.0;  // percent
  double phaseAngle = 0.0;    // degrees
};

// One orbit of the current satellite for the orbit view, inertial km.
inline constexpr int kOrbitPoints = 120;
struct OrbitScene {
  std::array<StateVector, kOrbitPoints> points{};
  int count = 0;
  double radius = 0.0;  // km, largest distance from the Earth's centre
  double gmst = 0.0;    // rad, Greenwich sidereal angle of the paint time
  StateVector sun;      // unit vector
  StateVector moon;     // unit vector
  std::array<StateVector, 9> planets{};  // unit vectors from the Earth
  StateVector observer;  // km
  StateVector pos;       // km, the satellite now
  StateVector vel;       // km/s
  double acceleration = 0.0;  // m/s^2, from the velocity change over a minute
};

// Working storage the painters share between paints.
struct ViewCaches {
  ModelState models;
  WorkingSet work;
  LookAngleCache look;
  PlanetCache planets;
  SunlightFigures sunlight;
  OrbitScene orbit;
};

// Everything a paint reads, and the state a tap may change.
struct ViewWorld {
  AppState& app;
  const Catalogue& catalogue;
  const Settings& settings;
  const GpsData& gps;
  const Skins& skins;
  ViewCaches& caches;
  DrawingSurface& surface;
  Display* display = nullptr;  // the finished frame goes here when set
};

// Hands the frame to the world's display, if it has one.
void PresentWorld(ViewWorld& world);

}  // namespace norvane
