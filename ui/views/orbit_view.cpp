#include "ui/views/orbit_view.h"

#include <cmath>
#include <optional>

#include "core/astro/julian_date.h"
#include "core/astro/moon.h"
#include "core/astro/numeric.h"
#include "core/astro/observer.h"
#include "core/astro/planet_elements.h"
#include "core/astro/planets.h"
#include "core/astro/sidereal_time.h"
#include "core/astro/sub_satellite_point.h"
#include "core/astro/sun.h"
#include "core/astro/vector_math.h"
#include "core/propagation/propagate.h"
#include "ui/surface/blit.h"
#include "ui/surface/color.h"
#include "ui/surface/primitives.h"
#include "ui/surface/text.h"
#include "ui/views/label.h"
#include "ui/views/pixel_cast.h"
#include "core/analysis/eclipse.h"
#include "ui/views/view_analysis.h"

namespace norvane {

namespace {

constexpr double kEarthRadius = 6378.137;  // km
constexpr double kDegree = kPi / 180.0;
constexpr double kFitPixels = 100.0;       // screen radius of the orbit at zoom 1
constexpr double kSkyPixels = 112.0;       // screen radius of the sphere of directions

constexpr std::uint32_t kBackground = Rgb(0, 0, 0);
constexpr std::uint32_t kGridFront = Rgb(60, 140, 255);
constexpr std::uint32_t kGridBack = Rgb(20, 45, 100);
constexpr std::uint32_t kEquatorFront = Rgb(80, 200, 255);
constexpr std::uint32_t kLimb = Rgb(90, 170, 255);
constexpr std::uint32_t kOrbitLit = Rgb(250, 250, 0);
constexpr std::uint32_t kOrbitShadow = Rgb(0, 90, 255);
constexpr std::uint32_t kOrbitHidden = Rgb(70, 70, 70);
constexpr std::uint32_t kVelocityColor = Rgb(255, 80, 80);
constexpr std::uint32_t kRadiusColor = Rgb(110, 110, 110);
constexpr std::uint32_t kTextColor = Rgb(0, 200, 50);
constexpr std::uint32_t kTitleColor = Rgb(240, 240, 0);
constexpr std::uint32_t kPlanetColor = Rgb(255, 190, 120);
constexpr std::uint32_t kPlanetNameColor = Rgb(250, 250, 0);

constexpr const char* kPlanetNames[kPlanetCount] = {"Earth", "Mercury", "Venus",  "Mars", "Jupiter",
                                                    "Saturn", "Uranus", "Neptune", "Pluto"};

StateVector Unit(const StateVector& v) {
  const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
  if (!(length > 0.0)) return {0, 0, 0, 0};
  return {v.x / length, v.y / length, v.z / length, 1.0};
}

// The scene turned by the view matrix and scaled to pixels.
struct Camera {
  const ViewMatrix& matrix;
  double scale;  // pixels per km
  std::int32_t cx;
  std::int32_t cy;

  struct Placed {
    Point screen;
    double x;      // pixels, unrounded
    double y;
    double depth;  // km towards the viewer
    double off;    // pixels from the centre
  };
  Placed place(const StateVector& v, double pixelsPerUnit) const {
    const auto& m = matrix.m;
    const double sx = (m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z) * pixelsPerUnit;
    const double sy = (m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z) * pixelsPerUnit;
    const double depth = m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z;
    return {{TruncPixel(cx + sx), TruncPixel(cy - sy)}, cx + sx, cy - sy, depth, std::sqrt(sx * sx + sy * sy)};
  }
  Placed place(const StateVector& v) const { return place(v, scale); }
  // A point given by its pixel offset from the centre.
  Placed flat(double dx, double dy) const {
    return {{TruncPixel(cx + dx), TruncPixel(cy + dy)}, cx + dx, cy + dy, 0.0, std::sqrt(dx * dx + dy * dy)};
  }
  // Hidden when behind the Earth's disc.
  bool hidden(const Placed& p) const { return p.depth < 0.0 && p.off < kEarthRadius * scale; }
};

// A line between two scene points, cut to the screen first so that a large
// zoom costs no more than the pixels shown.
void SceneLine(DrawingSurface& surface, const Camera::Placed& a, const Camera::Placed& b, std::uint32_t rgb) {
  double t0 = 0.0, t1 = 1.0;
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double edges[4][2] = {{-dx, a.x + 1.0}, {dx, surface.width - a.x}, {-dy, a.y + 1.0}, {dy, surface.height - a.y}};
  for (const auto& edge : edges) {
    const double p = edge[0], q = edge[1];
    if (p == 0.0) {
      if (!(q >= 0.0)) return;
      continue;
    }
    const double r = q / p;
    if (p < 0.0) {
      if (r > t1) return;
      t0 = std::fmax(t0, r);
    } else {
      if (r < t0) return;
      t1 = std::fmin(t1, r);
    }
  }
  const Point from{TruncPixel(a.x + t0 * dx), TruncPixel(a.y + t0 * dy)};
  const Point to{TruncPixel(a.x + t1 * dx), TruncPixel(a.y + t1 * dy)};
  DrawLine(surface, from, to, rgb);
}

StateVector EarthPoint(double lat, double lon, double gmst) {
  const double c = std::cos(lat);
  return {kEarthRadius * c * std::cos(lon + gmst), kEarthRadius * c * std::sin(lon + gmst),
          kEarthRadius * std::sin(lat), kEarthRadius};
}

void GlobeCurve(DrawingSurface& surface, const Camera& camera, double gmst, bool meridian, double fixed,
                std::uint32_t front) {
  constexpr int kSegments = 48;
  std::optional<Camera::Placed> previous;
  const int last = meridian ? kSegments / 2 : kSegments;
  for (int k = 0; k <= last; ++k) {
    const double moving = meridian ? -kPi / 2 + k * kPi / (kSegments * 0.5) : k * kTwoPi / kSegments;
    const StateVector v = meridian ? EarthPoint(moving, fixed, gmst) : EarthPoint(fixed, moving, gmst);
    const Camera::Placed p = camera.place(v);
    if (previous) {
      const bool back = p.depth < 0.0 && previous->depth < 0.0;
      SceneLine(surface, *previous, p, back ? kGridBack : front);
    }
    previous = p;
  }
}

void DrawGlobe(ViewWorld& world, const Camera& camera) {
  DrawingSurface& surface = world.surface;
  const OrbitScene& scene = world.caches.orbit;
  for (int lon = 0; lon < 360; lon += 30) GlobeCurve(surface, camera, scene.gmst, true, lon * kDegree, kGridFront);
  for (int lat = -60; lat <= 60; lat += 30) {
    GlobeCurve(surface, camera, scene.gmst, false, lat * kDegree, lat == 0 ? kEquatorFront : kGridFront);
  }
  const double r = kEarthRadius * camera.scale;
  Camera::Placed previous = camera.flat(r, 0.0);
  for (int a = 1; a <= 72; ++a) {
    const Camera::Placed p = camera.flat(r * std::cos(a * 5 * kDegree), r * std::sin(a * 5 * kDegree));
    SceneLine(surface, previous, p, kLimb);
    previous = p;
  }
  const Camera::Placed observer = camera.place(scene.observer);
  if (observer.depth >= 0.0) {
    const Image& mark = world.skins.observer;
    BlitKeyed(surface, observer.screen.x - 4, observer.screen.y - 4, mark.width, mark.height, mark, world.skins.key,
              0, 0);
  }
}

void DrawOrbit(ViewWorld& world, const Camera& camera) {
  const OrbitScene& scene = world.caches.orbit;
  for (int k = 1; k < scene.count; ++k) {
    const StateVector& a = scene.points[static_cast<std::size_t>(k - 1)];
    const StateVector& b = scene.points[static_cast<std::size_t>(k)];
    const Camera::Placed pa = camera.place(a);
    const Camera::Placed pb = camera.place(b);
    std::uint32_t rgb = kOrbitHidden;
    if (!camera.hidden(pa) || !camera.hidden(pb)) rgb = b.w < 0.0 ? kOrbitShadow : kOrbitLit;
    SceneLine(world.surface, pa, pb, rgb);
  }
}

void DrawSatellite(ViewWorld& world, const Camera& camera) {
  const OrbitScene& scene = world.caches.orbit;
  const Camera::Placed sat = camera.place(scene.pos);
  const Camera::Placed centre = camera.place({0, 0, 0, 0});
  SceneLine(world.surface, centre, sat, kRadiusColor);
  // The velocity as an arrow of 4 pixels per km/s.
  const Camera::Placed tip = camera.place(scene.vel, 4.0);
  const Camera::Placed head = camera.flat(sat.x - camera.cx + tip.x - camera.cx, sat.y - camera.cy + tip.y - camera.cy);
  SceneLine(world.surface, sat, head, kVelocityColor);
  const Skins& skins = world.skins;
  BlitKeyed(world.surface, sat.screen.x - 3, sat.screen.y - 3, skins.sat.width, skins.sat.height, skins.sat, skins.key,
            0, 0);
  BlitKeyed(world.surface, sat.screen.x - 5, sat.screen.y - 5, skins.current.width, skins.current.height,
            skins.current, skins.key, 0, 0);
}

void DrawDistantBodies(ViewWorld& world, const Camera& camera) {
  const OrbitScene& scene = world.caches.orbit;
  const Skins& skins = world.skins;
  if (world.settings.flagPlanets != 0) {
    for (int body = 1; body < kPlanetCount; ++body) {
      const Camera::Placed p = camera.place(scene.planets[static_cast<std::size_t>(body)], kSkyPixels);
      FillRect(world.surface, p.screen.x - 1, p.screen.y + 2, 3, 3, kPlanetColor);
      Point at{p.screen.x + 4, p.screen.y};
      DrawText(world.surface, at, kPlanetNames[body], 8, kPlanetNameColor, false, false);
    }
  }
  const Camera::Placed moon = camera.place(scene.moon, kSkyPixels);
  BlitKeyed(world.surface, moon.screen.x - 6, moon.screen.y - 6, skins.moon.width, skins.moon.height, skins.moon,
            skins.key, 0, 0);
  const Camera::Placed sun = camera.place(scene.sun, kSkyPixels);
  BlitKeyed(world.surface, sun.screen.x - 6, sun.screen.y - 6, skins.sun.width, skins.sun.height, skins.sun, skins.key,
            0, 0);
}

void DrawReadouts(ViewWorld& world) {
  DrawingSurface& surface = world.surface;
  const OrbitScene& scene = world.caches.orbit;
  const AppState& app = world.app;
  const int index = app.currentSatellite >= 0 && app.currentSatellite < kCatalogueSlots ? app.currentSatellite : 0;
  const Satellite& sat = world.catalogue.satellites[static_cast<std::size_t>(index)];
  DrawLabel(surface, 1, 1, 25, kTitleColor, "%.25s nr.%d", sat.name.data(), sat.catnr);
  FillRect(surface, 135, 10, 10, 55, Rgb(200, 0, 0));
  DrawLabel(surface, 136, 1, 15, kTitleColor, "%s", ClockLabel(app.simulationMode));
  int hour = 0, minute = 0, second = 0;
  TimeOfDay(app.currentTime + app.utcOffset, hour, minute, second);
  DrawLabel(surface, 190, 1, 25, kTitleColor, "%2d:%2.2d:%2.2d", hour, minute, second);
  DrawLabel(surface, 1, 280, 26, kTextColor, "Radius %8.1fkm", scene.pos.w);
  DrawLabel(surface, 1, 290, 26, kTextColor, "Vel.   %8.3fkm/s", scene.vel.w);
  DrawLabel(surface, 1, 300, 26, kTextColor, "Acc.   %8.3fm/s2", scene.acceleration);
  DrawLabel(surface, 1, 310, 26, kTextColor, "Period %8.1fmin", world.caches.work.period);
  DrawLabel(surface, 170, 310, 11, kTextColor, "Zoom x%.2f", app.viewMatrix.zoom());
}

}  // namespace

void BuildOrbitScene(ViewWorld& world) {
  ViewCaches& caches = world.caches;
  OrbitScene& scene = caches.orbit;
  const double jd = world.app.currentTime;
  const int index = world.app.currentSatellite;
  const int mode = world.settings.s4s8;
  StateVector before, after, unused;
  propagate(caches.models, world.catalogue, jd - 30.0 / 86400.0, caches.work, index, before, unused, 0, mode);
  propagate(caches.models, world.catalogue, jd + 30.0 / 86400.0, caches.work, index, after, unused, 1, mode);
  propagate(caches.models, world.catalogue, jd, caches.work, index, scene.vel, scene.pos, 1, mode);
  VecMagnitude(scene.pos);
  VecMagnitude(scene.vel);
  StateVector change;
  Vec_Sub(after, before, change);
  scene.acceleration = change.w / 60.0 * 1000.0;
  const double period = std::fmin(caches.work.period, 1500.0);
  scene.count = period > 0.0 ? kOrbitPoints : 0;
  scene.radius = scene.pos.w;
  for (int k = 0; k < scene.count; ++k) {
    const double t = jd + k * period / (kOrbitPoints - 1) / 1440.0;
    StateVector pos, vel, sun;
    propagate(caches.models, world.catalogue, t, caches.work, index, vel, pos, 1, mode);
    VecMagnitude(pos);
    SunPosition(t, sun);
    double depth = 0.0;
    const bool shadow = SatEclipsed(pos, sun, depth) == 1;
    scene.radius = std::fmax(scene.radius, pos.w);
    // The length's sign carries the eclipse test for the painter.
    pos.w = shadow ? -pos.w : pos.w;
    scene.points[static_cast<std::size_t>(k)] = pos;
  }
  scene.gmst = GreenwichSiderealTime(jd);
  StateVector sun;
  SunPosition(jd, sun);
  scene.sun = Unit(sun);
  MoonHorizontal horizontal;
  MoonSubPoint sub;
  MoonPosition(jd - kMoonEpoch, world.app.observer, horizontal, sub);
  const double ra = sub.lon + scene.gmst;
  scene.moon = {std::cos(sub.lat) * std::cos(ra), std::cos(sub.lat) * std::sin(ra), std::sin(sub.lat), 1.0};
  StateVector earth;
  PlanetPosition(jd, kEarthIndex, earth, caches.planets);
  for (int body = 0; body < kPlanetCount; ++body) {
    StateVector planet, relative;
    PlanetPosition(jd, body, planet, caches.planets);
    Vec_Sub(planet, earth, relative);
    scene.planets[static_cast<std::size_t>(body)] = Unit(relative);
  }
  ObserverPosition(jd, world.app.observer, scene.observer);
}

void PaintOrbit(ViewWorld& world) {
  DrawingSurface& surface = world.surface;
  FillRect(surface, 0, surface.height, surface.height, surface.width, kBackground);
  const double extent = std::fmax(world.caches.orbit.radius, kEarthRadius) * 1.05;
  const Camera camera{world.app.viewMatrix, kFitPixels / extent * world.app.viewMatrix.zoom(), surface.centreX(),
                      surface.centreY()};
  DrawDistantBodies(world, camera);
  DrawGlobe(world, camera);
  DrawOrbit(world, camera);
  if (world.caches.orbit.count > 0) DrawSatellite(world, camera);
  DrawReadouts(world);
  PresentWorld(world);
}

}  // namespace norvane
