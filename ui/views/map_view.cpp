#include "ui/views/map_view.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "core/astro/moon.h"
#include "core/astro/numeric.h"
#include "core/astro/sub_satellite_point.h"
#include "core/astro/sun.h"
#include "core/astro/vector_math.h"
#include "core/propagation/propagate.h"
#include "ui/surface/blit.h"
#include "ui/surface/color.h"
#include "ui/surface/primitives.h"
#include "ui/surface/text.h"
#include "ui/views/map_projection.h"
#include "core/analysis/eclipse.h"
#include "ui/views/view_analysis.h"

namespace norvane {

namespace {

constexpr std::uint32_t kReferenceColor = Rgb(80, 120, 190);
constexpr std::uint32_t kFootprintColor = Rgb(0, 255, 0);
constexpr std::uint32_t kShadowTrackColor = Rgb(0, 0, 255);
constexpr std::uint32_t kSunlitTrackColor = Rgb(250, 250, 0);
constexpr std::uint32_t kNameColor = Rgb(225, 0, 0);
constexpr int kNameLength = 26;

void Keyed(ViewWorld& world, const Image& image, std::int32_t x, std::int32_t y) {
  BlitKeyed(world.surface, x, y, image.width, image.height, image, world.skins.key, 0, 0);
}

// Night everywhere, then the lit part of every longitude row from the Sun's
// horizon circle towards the pole the Sun lights, in half-degree bands.
void DrawDayAndNight(ViewWorld& world, const MapPoint& sun) {
  DrawingSurface& surface = world.surface;
  const Image& night = world.skins.night;
  const Image& day = world.skins.day;
  const std::int32_t width = surface.width, height = surface.height;
  Blit(surface, 0, 0, width, height, night, 0, 0);
  Point previous = CirclePoint(sun.place, 0.0, width, height);
  for (int i = -1; i <= 720; ++i) {
    const Point p = CirclePoint(sun.place, i / 2.0, width, height);
    // A band of no height is refused by the blit, so only half the circle paints.
    if (sun.place.lat <= 0.0) {
      Blit(surface, 0, p.y, p.x, previous.y - p.y + 3, day, 0, p.y);
    } else {
      Blit(surface, p.x, p.y, width - p.x, p.y - previous.y + 3, day, p.x, p.y);
    }
    previous.y = p.y;
  }
}

void DrawReferenceLines(DrawingSurface& surface) {
  const std::int32_t cx = surface.width / 2, cy = surface.height / 2;
  const std::uint16_t value = ColorOf(surface, kReferenceColor);
  for (std::int32_t y = 0; y < surface.height; ++y) PutPixel(surface, cx, y, value);
  for (std::int32_t x = 0; x < surface.width; ++x) PutPixel(surface, x, cy, value);
}

void DrawFootprint(ViewWorld& world, const MapPoint& sat) {
  const std::int32_t width = world.surface.width, height = world.surface.height;
  Point previous = CirclePoint(sat.place, 0.0, width, height);
  for (int az = 1; az <= 359; ++az) {
    const Point q = CirclePoint(sat.place, az, width, height);
    if (std::abs(previous.y - q.y) < 150 && previous.y != 0) DrawLine(world.surface, previous, q, kFootprintColor);
    previous = q;
  }
}

// The next orbit from 1 % to 99.5 % of the period, coloured by the eclipse
// test; none for a geostationary mean motion.
void DrawGroundTrack(ViewWorld& world, int index) {
  const WorkingSet& work = world.caches.work;
  if (!(std::fabs(work.xno - 0.004375) > 0.0004)) return;
  const double period = work.period;
  const double limited = period > 1500.0 ? 1500.0 : period;
  const double now = world.app.currentTime;
  const double start = period > 1500.0 ? 0.010416666666666668 : period * 6.944444444444445e-6;
  Point previous = SatellitePoint(world, index, now + start, 1).screen;
  for (int k = 3; k <= 199; ++k) {
    const double t = now + (k / 200.0) * limited / 1440.0;
    const MapPoint sat = SatellitePoint(world, index, t, 1);
    const Point q = sat.screen;
    StateVector sun;
    SunPosition(t, sun);
    double depth = 0.0;
    const std::uint32_t rgb = SatEclipsed(sat.position, sun, depth) == 1 ? kShadowTrackColor : kSunlitTrackColor;
    if (std::abs(previous.y - q.y) < 150 && previous.y != 0) DrawLine(world.surface, previous, q, rgb);
    previous = q;
  }
}

void DrawName(ViewWorld& world, const Satellite& sat, Point label) {
  std::array<char, kNameLength> buffer;
  buffer.fill(' ');
  std::size_t n = 0;
  while (n < sat.name.size() && sat.name[n] != '\0' && n + 1 < buffer.size()) {
    buffer[n] = sat.name[n];
    ++n;
  }
  buffer[n] = '\0';
  Point at{label.x - 5, label.y};
  if (at.x < 10) at.x += 10;
  if (at.x > 230) at.x -= 10;
  if (at.y > 290) at.y -= 25;
  DrawText(world.surface, at, std::string_view(buffer.data(), buffer.size()), kNameLength, kNameColor, true, false);
}

void DrawSatellites(ViewWorld& world) {
  AppState& app = world.app;
  const Catalogue& catalogue = world.catalogue;
  const int count = catalogue.satelliteCount < kSelectionFlags ? catalogue.satelliteCount : kSelectionFlags;
  for (int i = 0; i < count; ++i) {
    if (catalogue.selected[static_cast<std::size_t>(i)] != 1) continue;
    const MapPoint sat = SatellitePoint(world, i, app.currentTime, 0);
    const Point p = sat.screen;
    const std::int32_t catnr = catalogue.satellites[static_cast<std::size_t>(i)].catnr;
    // 20580 gets its own marker and the generic one over it.
    if (catnr == 20580) Keyed(world, world.skins.hst, p.x - 3, p.y - 3);
    Keyed(world, catnr != 25544 ? world.skins.notSelected : world.skins.iss, p.x - 3, p.y - 3);
    if (app.tapPoint.x > p.x - 7 && app.tapPoint.x < p.x + 7 && app.tapPoint.y > p.y - 7 && app.tapPoint.y < p.y + 7) {
      app.currentSatellite = i;
      app.tapPoint = kNoTap;  // later satellites near the same tap stay unpicked
    }
    if (i != app.currentSatellite) continue;
    Keyed(world, world.skins.sat, p.x - 3, p.y - 3);
    DrawFootprint(world, sat);
    DrawGroundTrack(world, i);
    DrawName(world, catalogue.satellites[static_cast<std::size_t>(i)], p);
  }
}

}  // namespace

MapPoint SatellitePoint(ViewWorld& world, int index, double jd, int refresh) {
  MapPoint out;
  StateVector vel;
  propagate(world.caches.models, world.catalogue, jd, world.caches.work, index, vel, out.position,
            static_cast<std::uint8_t>(refresh), world.settings.s4s8);
  VecMagnitude(out.position);
  SubSatellitePoint(jd, out.position, out.place);
  out.screen = MapProject(out.place, world.surface.width, world.surface.height);
  return out;
}

MapPoint SunPoint(const DrawingSurface& surface, double jd) {
  StateVector sun;
  SunPosition(jd, sun);
  MapPoint out;
  SubSatellitePoint(jd, sun, out.place);
  out.screen = MapProject(out.place, surface.width, surface.height);
  return out;
}

MapPoint MoonPoint(const DrawingSurface& surface, const Geodetic& observer, double jd) {
  MoonHorizontal horizontal;
  MoonSubPoint sub;
  MoonPosition(jd - kMoonEpoch, observer, horizontal, sub);
  MapPoint out;
  out.place.lat = sub.lat;
  // The sub-point's longitude runs unreduced; the projection takes off 2 pi
  // only once, so it is brought into [0, 2 pi) here.
  out.place.lon = FMod2p(sub.lon);
  out.place.alt = sub.distance;
  out.screen = MapProject(out.place, surface.width, surface.height);
  return out;
}

void PaintMap(ViewWorld& world) {
  DrawingSurface& surface = world.surface;
  const MapPoint sun = SunPoint(surface, world.app.currentTime);
  DrawDayAndNight(world, sun);
  Keyed(world, world.skins.sun, sun.screen.x - 6, sun.screen.y - 6);
  const Point observer = MapProject(world.app.observer, surface.width, surface.height);
  Keyed(world, world.skins.observer, observer.x - 4, observer.y - 4);
  DrawReferenceLines(surface);
  const MapPoint moon = MoonPoint(surface, world.app.observer, world.app.currentTime);
  Keyed(world, world.skins.moon, moon.screen.x - 6, moon.screen.y - 6);
  DrawSatellites(world);
  PresentWorld(world);
}

}  // namespace norvane
