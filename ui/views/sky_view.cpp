#include "ui/views/sky_view.h"

#include <cmath>
#include <cstring>
#include <optional>

#include "core/astro/julian_date.h"
#include "core/astro/moon.h"
#include "core/astro/numeric.h"
#include "core/astro/planet_elements.h"
#include "core/astro/planets.h"
#include "core/astro/sidereal_time.h"
#include "core/astro/star_catalogue.h"
#include "core/astro/star_placement.h"
#include "core/astro/sun.h"
#include "core/astro/sun_moon_almanac.h"
#include "core/astro/vector_math.h"
#include "core/propagation/propagate.h"
#include "ui/surface/blit.h"
#include "ui/surface/color.h"
#include "ui/surface/primitives.h"
#include "ui/surface/text.h"
#include "ui/views/label.h"
#include "ui/views/moon_phase.h"
#include "ui/views/sky_projection.h"
#include "core/analysis/eclipse.h"
#include "ui/views/view_analysis.h"

namespace norvane {

namespace {

constexpr double kDegree = kPi / 180.0;

constexpr std::uint32_t kDayBackground = Rgb(0, 0, 120);
constexpr std::uint32_t kTwilightBackground = Rgb(30, 20, 30);
constexpr std::uint32_t kNightBackground = Rgb(0, 0, 16);
constexpr std::uint32_t kClockColor = Rgb(240, 240, 0);
constexpr std::uint32_t kLookColor = Rgb(0, 200, 50);
constexpr std::uint32_t kStateColor = Rgb(50, 240, 0);
constexpr std::uint32_t kMagnitudeColor = Rgb(0, 240, 40);
constexpr std::uint32_t kMoonColor = Rgb(200, 200, 200);
constexpr std::uint32_t kGpsColor = Rgb(200, 200, 0);
constexpr std::uint32_t kFlareColor = Rgb(180, 180, 230);
constexpr std::uint32_t kPlanetNameColor = Rgb(250, 250, 0);
constexpr std::uint32_t kPlanetColor = Rgb(255, 190, 120);
constexpr std::uint32_t kCompassColor = Rgb(250, 150, 0);
constexpr std::uint32_t kNorthColor = Rgb(250, 30, 35);
constexpr std::uint32_t kCardinalColor = Rgb(160, 160, 255);
constexpr std::uint32_t kRingColor = Rgb(70, 90, 150);
constexpr std::uint32_t kLinkColor = Rgb(40, 120, 20);
constexpr std::uint32_t kGpsNumberColor = Rgb(0, 250, 50);
constexpr std::uint32_t kSignalColor = Rgb(10, 80, 255);

constexpr const char* kPlanetNames[kPlanetCount] = {"Earth", "Mercury", "Venus",  "Mars", "Jupiter",
                                                    "Saturn", "Uranus", "Neptune", "Pluto"};

// What one paint works with.
struct SkyPaint {
  ViewWorld& world;
  DrawingSurface& surface;
  std::int32_t radius;
  std::int32_t cy;
  int swap;
  double jd;
  LookAngles sun;
  SatelliteReading current;
  double moonPhase = 0, moonAge = 0, moonDistance = 0, moonDiameter = 0;

  std::optional<Point> project(double azimuth, double elevation) const {
    return SkyProject({azimuth, elevation}, radius, cy, swap, world.app.viewMatrix);
  }
  void pixel(std::int32_t x, std::int32_t y, std::uint32_t rgb) { PutPixel(surface, x, y, ColorOf(surface, rgb)); }
  void keyed(const Image& image, std::int32_t x, std::int32_t y) {
    BlitKeyed(surface, x, y, image.width, image.height, image, world.skins.key, 0, 0);
  }
};

void TapClockLabel(AppState& app) {
  if (app.viewMode != ViewMode::Sky) return;
  if (app.tapPoint.x < 136 || app.tapPoint.x >= 190 || app.tapPoint.y >= 11) return;
  switch (app.simulationMode) {
    case SimulationMode::RealTime: app.simulationMode = SimulationMode::Pause; break;
    case SimulationMode::Pause: app.simulationMode = SimulationMode::X1; break;
    default: app.simulationMode = SimulationMode::RealTime; break;
  }
  app.tapPoint = {1, 1};
}

void FillBackground(SkyPaint& s) {
  std::uint32_t rgb = kNightBackground;
  if (s.sun.elevation >= 0.06) {
    rgb = kDayBackground;
  } else if (s.sun.elevation > -0.06) {
    rgb = kTwilightBackground;
  }
  FillRect(s.surface, 0, s.surface.height, s.surface.height, s.surface.width, rgb);
}

void ComputeBodies(SkyPaint& s) {
  ReadCurrentSatellite(s.world, s.current);
  double sunDistance = 0, sunDiameter = 0;
  SunMoonAlmanac(s.jd, s.moonPhase, s.moonAge, s.moonDistance, s.moonDiameter, sunDistance, sunDiameter);
}

void DrawSatelliteTexts(SkyPaint& s) {
  DrawingSurface& sf = s.surface;
  const Satellite& sat = s.world.catalogue.satellites[static_cast<std::size_t>(
      s.world.app.currentSatellite >= 0 && s.world.app.currentSatellite < kCatalogueSlots
          ? s.world.app.currentSatellite
          : 0)];
  const LookAngles& look = s.current.look;
  DrawLabel(sf, 1, 1, 25, kClockColor, "%.25s nr.%d", sat.name.data(), sat.catnr);
  DrawLabel(sf, 1, 15, 39, kLookColor, "Azm. %3.1f~ Elv. %3.1f~ Range %6.2fkm", look.azimuth / kDegree,
            look.elevation / kDegree, look.range);
  DrawLabel(sf, 1, 25, 35, kLookColor, "vel %3.2fkm/s alt %5.2fkm", s.current.vel.w, s.current.subPoint.alt);
  const SunlightFigures& light = s.world.caches.sunlight;
  DrawLabel(sf, 1, 280, 4, kStateColor, "Sat");
  DrawLabel(sf, 1, 290, 20, kStateColor, "Obs-Sat-Sun (%3.1f~)", light.phaseAngle);
  if (s.current.eclipsed != 0) {
    DrawLabel(sf, 1, 300, 14, kStateColor, "Sat eclipsed");
    DrawLabel(sf, 1, 310, 14, kStateColor, "Depth %3.1f%%", s.current.depth * 100.0);
  } else {
    if (s.current.magnitude < 90.0) {
      DrawLabel(sf, 1, 300, 21, kMagnitudeColor, "Magnitude %2.1f", s.current.magnitude);
    } else {
      DrawLabel(sf, 1, 300, 21, kMagnitudeColor, "Magnitude not know.");
    }
    DrawLabel(sf, 1, 310, 20, kStateColor, "Illumination %3.1f%%", light.illumination);
  }
}

void DrawGpsAndFlareTexts(SkyPaint& s) {
  DrawingSurface& sf = s.surface;
  const GpsData& gps = s.world.gps;
  if (s.world.app.gpsTracking == 1 && gps.fixMode >= 1) {
    const char* format = gps.fixMode == 1 ? "GPS %d(%d) ?" : gps.fixMode == 2 ? "GPS %d(%d) 2D" : "GPS %d(%d) 3D";
    DrawLabel(sf, 1, 35, 20, kGpsColor, format, gps.satellitesInView, gps.satellitesInUse);
    if (gps.fixMode > 1) DrawLabel(sf, 1, 45, 15, kGpsColor, "%3.2fkm/h", gps.speed);
  }
  if (s.world.app.iridiumFile == 0) return;
  const double angle = s.current.flareAngle / kDegree;
  if (s.current.flareMagnitude != 100.0) {
    DrawLabel(sf, 210, 25, 6, kFlareColor, "Flare");
    DrawLabel(sf, 168, 35, 12, kFlareColor, s.current.flareMagnitude <= 0 ? "%3.1f (%2.2f~)" : "+%3.1f (%2.2f~)",
              s.current.flareMagnitude, angle);
  } else {
    DrawLabel(sf, 165, 25, 12, kFlareColor, "Min. flare");
    DrawLabel(sf, 165, 35, 15, kFlareColor, "angle %2.2f~", angle);
  }
  static constexpr const char* kAntennas[4] = {"", "Front MMA", "Left MMA", "Right MMA"};
  const int antenna = s.current.antenna >= 1 && s.current.antenna <= 3 ? s.current.antenna : 0;
  DrawLabel(sf, 185, 45, 15, kFlareColor, "%s", kAntennas[antenna]);
}

void DrawOverlays(SkyPaint& s) {
  DrawingSurface& sf = s.surface;
  const AppState& app = s.world.app;
  FillRect(sf, 135, 10, 10, 55, Rgb(200, 0, 0));
  DrawLabel(sf, 136, 1, 15, kClockColor, "%s", ClockLabel(app.simulationMode));
  int hour = 0, minute = 0, second = 0;
  TimeOfDay(app.currentTime + app.utcOffset, hour, minute, second);
  DrawLabel(sf, 190, 1, 25, kClockColor, "%2d:%2.2d:%2.2d", hour, minute, second);
  DrawSatelliteTexts(s);
  DrawLabel(sf, 210, 280, 5, kMoonColor, "Moon");
  DrawLabel(sf, 165, 290, 13, kMoonColor, "Diam. %2.3f~", s.moonDiameter);
  DrawLabel(sf, 172, 300, 12, kMoonColor, "Phase %3.1f%%", s.moonPhase * 100.0);
  DrawLabel(sf, 140, 310, 20, kMoonColor, "Dist. %7.1fkm", s.moonDistance);
  DrawGpsAndFlareTexts(s);
}

// The mark of a star by its magnitude class.
void DrawStarMark(SkyPaint& s, Point p, double magnitude) {
  const std::int32_t x = p.x, y = p.y;
  if (magnitude <= 1.0) {
    for (int dy = -2; dy <= 2; ++dy) {
      for (int dx = -2; dx <= 2; ++dx) {
        if (dx * dx + dy * dy <= 5) s.pixel(x + dx, y + dy, Rgb(50, 50, 40));
      }
    }
    const std::uint32_t white = Rgb(255, 255, 255);
    s.pixel(x, y, white), s.pixel(x - 1, y, white), s.pixel(x + 1, y, white);
    s.pixel(x, y - 1, white), s.pixel(x, y + 1, white);
    s.pixel(x - 3, y, white), s.pixel(x + 3, y, white), s.pixel(x, y - 3, white), s.pixel(x, y + 3, white);
  } else if (magnitude <= 2.0) {
    const std::uint32_t rim = Rgb(140, 140, 90);
    s.pixel(x - 2, y, rim), s.pixel(x + 2, y, rim), s.pixel(x, y - 2, rim), s.pixel(x, y + 2, rim);
    const std::uint32_t white = Rgb(255, 255, 255);
    s.pixel(x, y, white), s.pixel(x - 1, y, white), s.pixel(x + 1, y, white);
    s.pixel(x, y - 1, white), s.pixel(x, y + 1, white);
  } else if (magnitude <= 3.0) {
    const std::uint32_t bright = Rgb(250, 250, 250);
    s.pixel(x, y, bright), s.pixel(x - 1, y, bright), s.pixel(x, y - 1, bright);
    const std::uint32_t dim = Rgb(110, 110, 100);
    s.pixel(x - 1, y - 1, dim), s.pixel(x + 1, y - 1, dim), s.pixel(x - 1, y + 1, dim), s.pixel(x + 1, y + 1, dim);
  } else if (magnitude <= 4.0) {
    s.pixel(x, y, Rgb(255, 255, 255)), s.pixel(x + 1, y, Rgb(255, 255, 255));
  } else {
    s.pixel(x, y, Rgb(190, 190, 190));
  }
}

void DrawStars(SkyPaint& s) {
  const double theta = GreenwichSiderealTime(s.jd) + s.world.app.observer.lon;
  const double sinTheta = std::sin(theta), cosTheta = std::cos(theta);
  const StarObserver observer{std::sin(s.world.app.observer.lat), std::cos(s.world.app.observer.lat)};
  const int limit = s.world.settings.starsMag;
  const int count = StarScanCount(limit);
  for (int i = 0; i < count; ++i) {
    const StarRecord& star = StarCatalogue[static_cast<std::size_t>(i)];
    StarPoint place;
    if (StarHorizontal(sinTheta, cosTheta, star, observer, place) == 0 || star.magnitude >= limit) continue;
    const std::optional<Point> p = s.project(place.azimuth, place.altitude);
    if (!p) continue;
    const std::int32_t link = StarLinks[static_cast<std::size_t>(i)];
    if (link > 0 && link < kStarCount) {
      StarPoint partner;
      if (StarHorizontal(sinTheta, cosTheta, StarCatalogue[static_cast<std::size_t>(link)], observer, partner) == 1) {
        if (const std::optional<Point> q = s.project(partner.azimuth, partner.altitude)) {
          DrawLine(s.surface, *p, *q, kLinkColor);
        }
      }
    }
    DrawStarMark(s, *p, star.magnitude);
  }
}

void DrawSun(SkyPaint& s) {
  if (!(s.sun.elevation > 0.0)) return;
  if (const std::optional<Point> p = s.project(s.sun.azimuth, s.sun.elevation)) {
    s.keyed(s.world.skins.sun, p->x - 6, p->y - 6);
  }
}

void DrawPlanets(SkyPaint& s) {
  if (s.world.settings.flagPlanets == 0) return;
  for (int body = 0; body < kPlanetCount; ++body) {
    LookAngles look;
    PlanetLookAngles(s.jd, body, s.world.app.observer, s.world.caches.planets, s.world.caches.look, false, look);
    if (!(look.elevation > 0.0)) continue;
    const std::optional<Point> p = s.project(look.azimuth, look.elevation);
    if (!p) continue;
    FillRect(s.surface, p->x - 1, p->y + 2, 3, 3, kPlanetColor);
    Point at{p->x + 4, p->y};
    DrawText(s.surface, at, kPlanetNames[body], 8, kPlanetNameColor, false, false);
  }
}

// The Moon's disc with its unlit part from the dark skin, the terminator
// scaled to the disc inside the skin's box.
void DrawMoon(SkyPaint& s) {
  MoonHorizontal horizontal;
  MoonSubPoint sub;
  MoonPosition(s.jd - kMoonEpoch, s.world.app.observer, horizontal, sub);
  if (!(horizontal.altitude > 0.0)) return;
  const std::optional<Point> p = s.project(horizontal.azimuth, horizontal.altitude);
  if (!p) return;
  const Image& moon = s.world.skins.moon;
  const Image& dark = s.world.skins.moonDark;
  s.keyed(moon, p->x - 6, p->y - 6);
  if (dark.empty() || dark.width != moon.width || dark.height != moon.height) return;
  const MoonDisc disc = DiscOf(moon, s.world.skins.key);
  const bool waxing = s.moonAge < kPi;
  for (std::int32_t row = 0; row < dark.height; ++row) {
    for (std::int32_t col = 0; col < dark.width; ++col) {
      const std::uint16_t value = dark.at(col, row);
      if (value != s.world.skins.key && MoonPixelUnlit(disc, col, row, s.moonPhase, waxing)) {
        PutPixel(s.surface, p->x - 6 + col, p->y - 6 + row, value);
      }
    }
  }
}

// The current satellite's path from a quarter period before now to a quarter
// period after, in two tones: dim behind it, bright ahead, each by the
// eclipse test (blue in the Earth's shadow, yellow in sunlight).
void DrawTrack(SkyPaint& s) {
  ViewCaches& caches = s.world.caches;
  const AppState& app = s.world.app;
  const int index = app.currentSatellite;
  if (index < 0 || index >= kCatalogueSlots || s.world.catalogue.satellites[static_cast<std::size_t>(index)].catnr == 0) {
    return;
  }
  StateVector pos, vel;
  propagate(caches.models, s.world.catalogue, s.jd, caches.work, index, vel, pos, 0, s.world.settings.s4s8);
  const double period = std::fmin(caches.work.period, 1500.0);
  if (!(period > 0.0) || std::fabs(caches.work.xno - 0.004375) <= 0.0004) return;
  constexpr int kSteps = 100;
  std::optional<Point> previous;
  for (int k = 0; k <= kSteps; ++k) {
    const int fromMiddle = k - kSteps / 2;
    const double minutes = fromMiddle * (period / 2.0) / kSteps;
    const double t = s.jd + minutes / 1440.0;
    propagate(caches.models, s.world.catalogue, t, caches.work, index, vel, pos, 1, s.world.settings.s4s8);
    VecMagnitude(pos);
    LookAngles look;
    std::optional<Point> p;
    if (LookAnglesOf(t, pos, vel, s.world.app.observer, caches.look, look, false, false) == 1) {
      p = s.project(look.azimuth, look.elevation);
    }
    if (p && previous) {
      StateVector sun;
      SunPosition(t, sun);
      double depth = 0.0;
      const bool shadow = SatEclipsed(pos, sun, depth) == 1;
      const bool ahead = minutes > 0.0;
      const std::uint32_t rgb = shadow ? (ahead ? Rgb(0, 0, 120) : Rgb(0, 0, 90))
                                       : (ahead ? Rgb(240, 240, 1) : Rgb(100, 100, 20));
      DrawLine(s.surface, *previous, *p, rgb);
    }
    previous = p;
  }
  // Leave the look-angle cache at the paint's time for whoever comes next.
  LookAngles ignored;
  LookAnglesOf(s.jd, pos, vel, s.world.app.observer, caches.look, ignored, true, false);
}

void DrawSatellites(SkyPaint& s) {
  ViewCaches& caches = s.world.caches;
  AppState& app = s.world.app;
  const Catalogue& catalogue = s.world.catalogue;
  const Skins& skins = s.world.skins;
  const int count = catalogue.satelliteCount < kSelectionFlags ? catalogue.satelliteCount : kSelectionFlags;
  for (int i = 0; i < count; ++i) {
    if (catalogue.selected[static_cast<std::size_t>(i)] != 1) continue;
    StateVector pos, vel;
    propagate(caches.models, catalogue, s.jd, caches.work, i, vel, pos, 0, s.world.settings.s4s8);
    LookAngles look;
    if (LookAnglesOf(s.jd, pos, vel, app.observer, caches.look, look, false, s.world.settings.flagRefraction != 0) ==
        0) {
      continue;
    }
    const std::optional<Point> p = s.project(look.azimuth, look.elevation);
    if (!p) continue;
    const std::int32_t catnr = catalogue.satellites[static_cast<std::size_t>(i)].catnr;
    if (catnr == 20580) s.keyed(skins.hst, p->x - 3, p->y - 3);
    s.keyed(catnr == 25544 ? skins.iss : skins.notSelected, p->x - 3, p->y - 3);
    if (i == app.currentSatellite) s.keyed(skins.current, p->x - 5, p->y - 5);
    if (app.tapPicked == 0 && app.tapPoint.x > p->x - 7 && app.tapPoint.x < p->x + 7 && app.tapPoint.y > p->y - 7 &&
        app.tapPoint.y < p->y + 7) {
      app.currentSatellite = i;
      app.tapPicked = 1;
    }
  }
}

void DrawGpsSatellites(SkyPaint& s) {
  const GpsData& gps = s.world.gps;
  for (int slot = 0; slot < kGpsUsedSlots; ++slot) {
    const std::size_t i = static_cast<std::size_t>(slot);
    if (!(gps.elevation[i] > 0.0)) continue;
    const std::optional<Point> p = SkyProject({gps.azimuth[i], gps.elevation[i]}, s.surface.width / 2,
                                              s.surface.height / 2, s.swap, s.world.app.viewMatrix);
    if (!p) continue;
    bool used = false;
    for (const std::int32_t prn : gps.usedPrn) used = used || (prn == gps.prn[i]);
    s.keyed(used ? s.world.skins.gps : s.world.skins.gpsUnused, p->x - 3, p->y - 3);
    if (gps.prn[i] > 0) DrawLabel(s.surface, p->x + 4, p->y - 3, 7, kGpsNumberColor, "%d", gps.prn[i]);
    if (gps.snr[i] > 10) {
      const std::int32_t top = p->y + 4 - (gps.snr[i] - 10);
      DrawLine(s.surface, {p->x - 5, p->y + 4}, {p->x - 5, top}, kSignalColor);
      DrawLine(s.surface, {p->x - 6, p->y + 4}, {p->x - 6, top}, kSignalColor);
    }
  }
}

void DrawRingsAndCompass(SkyPaint& s) {
  const std::int32_t cx = s.surface.centreX();
  const std::uint16_t ring = ColorOf(s.surface, kRingColor);
  for (int a = 0; a < 360; ++a) {
    const double c = std::cos(a * kDegree), sn = std::sin(a * kDegree);
    for (const int r : {40, 80, 120}) {
      PutPixel(s.surface, cx + static_cast<std::int32_t>(r * c), s.cy + static_cast<std::int32_t>(r * sn), ring);
    }
  }
  const Point centre{cx, s.cy};
  const struct {
    double azimuth;
    std::uint32_t rgb;
  } kLines[4] = {{0.0, kNorthColor}, {kPi / 2, kCardinalColor}, {179.9 * kDegree, kCardinalColor},
                 {269.9 * kDegree, kCardinalColor}};
  for (const auto& line : kLines) {
    if (const std::optional<Point> end = s.project(line.azimuth, 0.01)) DrawLine(s.surface, centre, *end, line.rgb);
  }
  const struct {
    const char* letter;
    double azimuth;
  } kLetters[4] = {{"N", 0.08}, {"S", kPi + 0.08}, {"E", kPi / 2 + 0.08}, {"W", 3 * kPi / 2 + 0.08}};
  for (const auto& letter : kLetters) {
    if (std::optional<Point> at = s.project(letter.azimuth, 0.1)) {
      DrawText(s.surface, *at, letter.letter, 1, kCompassColor, false, true);
    }
  }
}

}  // namespace

void PaintSky(ViewWorld& world) {
  AppState& app = world.app;
  TapClockLabel(app);
  SkyPaint s{world, world.surface, world.surface.centreX(), world.surface.centreY(), world.settings.snToNs,
             app.currentTime, {}, {}};
  StateVector sun;
  SunPosition(s.jd, sun);
  const StateVector still{};
  LookAnglesOf(s.jd, sun, still, app.observer, world.caches.look, s.sun, true, false);
  FillBackground(s);
  ComputeBodies(s);
  DrawOverlays(s);
  DrawStars(s);
  DrawSun(s);
  DrawPlanets(s);
  DrawMoon(s);
  DrawTrack(s);
  DrawSatellites(s);
  DrawGpsSatellites(s);
  DrawRingsAndCompass(s);
  PresentWorld(world);
}

}  // namespace norvane
