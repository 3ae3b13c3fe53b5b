#include "ui/views/info_page.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "core/analysis/flares.h"
#include "core/analysis/magnitude.h"
#include "core/analysis/pass_filters.h"
#include "core/analysis/satellite_shape.h"
#include "core/analysis/visibility.h"
#include "core/astro/julian_date.h"
#include "core/astro/moon.h"
#include "core/astro/sub_satellite_point.h"
#include "core/astro/vector_math.h"
#include "core/propagation/propagate.h"
#include "core/propagation/propagator.h"
#include "ui/surface/primitives.h"
#include "ui/surface/text.h"
#include "ui/surface/color.h"
#include "ui/surface/font.h"

namespace norvane {
namespace {

constexpr double kDeg = 57.29577951308232;  // degrees per radian
constexpr double kSpeedOfLight = 299792458.0;  // m/s
constexpr int kShapeRecordsSearched = 1777;

// One line through the page's printf format.
template <typename... Args>
std::string format(const char* fmt, Args... args) {
  char buffer[256];
  std::snprintf(buffer, sizeof buffer, fmt, args...);
  return buffer;
}

const char* ClockText(SimulationMode mode) {
  switch (mode) {
    case SimulationMode::RealTime: return "Local time";
    case SimulationMode::Pause: return "Pause at";
    case SimulationMode::X1: return "Sym time x1";
    case SimulationMode::X10: return "Sym time x10";
    case SimulationMode::X30: return "Sym time x30";
    case SimulationMode::X60: return "Sym time x60";
  }
  return "";
}

const char* ModelLine(const WorkingSet& work, int s4s8) {
  const bool sgp8 = s4s8 == kSgp8Mode;
  if (work.isDeepSpace != 0) return sgp8 ? "Deep Space sat SDP8" : "Deep Space sat SDP4";
  return sgp8 ? "Close Earth sat SGP8" : "Close Earth sat SGP4";
}

std::string FlareLine(double magnitude, double angle, int antenna) {
  static const char* const kKnown[3] = {"Ir. flare Mag.%2.1f angle %2.2f\u00b0 MMA Front",
                                        "Ir. flare Mag.%2.1f angle %2.2f\u00b0 MMA Left ",
                                        "Ir. flare Mag.%2.1f angle %2.2f\u00b0 MMA Right"};
  static const char* const kUnknown[3] = {"Ir. flare  angle %2.2f\u00b0 MMA Front",
                                          "Ir. flare  angle %2.2f\u00b0 MMA Left ",
                                          "Ir. flare  angle %2.2f\u00b0 MMA Right"};
  const int k = antenna >= 1 && antenna <= 3 ? antenna - 1 : 0;
  char buffer[96];
  if (magnitude != kNoReflection) {
    std::snprintf(buffer, sizeof buffer, kKnown[k], magnitude, angle * kDeg);
  } else {
    std::snprintf(buffer, sizeof buffer, kUnknown[k], angle * kDeg);
  }
  return buffer;
}

// Everything the page reads about the current satellite.
struct InfoReading {
  MagnitudeResult light;
  LookAngles look;
  Geodetic sub;
  double flareMagnitude = kNoReflection;
  double flareAngle = kNoReflection;
  std::int16_t antenna = 0;
};

void ReadSatellite(ViewWorld& world, InfoReading& r) {
  const double jd = world.app.currentTime;
  ViewCaches& caches = world.caches;
  const PropagationArgs args{caches.models, world.catalogue, caches.work, world.app.currentSatellite, 0,
                             world.settings.s4s8};
  SatelliteMagnitude(jd, args, world.app.observer, caches.look, r.light);
  VecMagnitude(r.light.satPos);
  VecMagnitude(r.light.satVel);
  LookAnglesOf(jd, r.light.satPos, r.light.satVel, world.app.observer, caches.look, r.look, true,
               world.settings.flagRefraction != 0);
  SubSatellitePoint(jd, r.light.satPos, r.sub);
  if (world.settings.flares == 0) return;
  double psi = 0.0;
  r.flareMagnitude =
      FlareMagnitude(r.light.sun, r.light.satPos, r.light.satVel, r.light.obsPos, psi, r.flareAngle, r.antenna);
}

std::string StatusLine(int code, const InfoReading& r, int s4s8) {
  switch (code) {
    case 0: return "Sat invisible.";
    case 1: return "Sat geostationay invisible.";
    case 2: return "Satellite always under horison.";
    case 3: return "Passing possible satellite below horison.";
    case 4: return "Passing possible satellite above horison.";
    case 5:
      if (r.light.magnitude == kUnknownMagnitude) {
        return format("Mag ? Illum. %3.0f%% Angle %3.0f\u00b0", r.light.illumination, r.light.phaseAngle);
      }
      return format("Mag %2.1f Illum. %3.2f%% Angle %3.2f\u00b0", r.light.magnitude, r.light.illumination,
                    r.light.phaseAngle);
    case 6: return format("Satellite eclipsed depth %3.0f%%", r.light.depth * 100.0);
    case 7: return "Sat geostationary visible.";
    case 8: return "Sat enter atmosphere.";
    case 9: return "Sat reached ground.";
    case 10: return FlareLine(r.flareMagnitude, r.flareAngle, r.antenna);
    case 11: return s4s8 == kSgp8Mode ? "SxP8-SxP4" : "SxP4-SxP8";
    default: return "Properties not predicted.";
  }
}

using Vec3 = std::array<double, 3>;

Vec3 Minus(const Vec3& a, const Vec3& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
double Dot(const Vec3& a, const Vec3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
double Length(const Vec3& a) { return std::sqrt(Dot(a, a)); }
Vec3 Cross(const Vec3& a, const Vec3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
Vec3 Unit(const Vec3& a) {
  const double n = Length(a);
  return n > 0.0 ? Vec3{a[0] / n, a[1] / n, a[2] / n} : Vec3{};
}

// The two lines under the comparison heading: how far the other model family
// puts the satellite from the one in use (in use minus other), as a distance
// and speed and split along the orbit of the family in use: radial (up),
// along-track (the direction of flight) and cross-track (the orbit normal).
void AddComparisonLines(const Satellite& sat, double jd, int s4s8, std::vector<InfoLine>& lines) {
  const bool sgp8 = s4s8 == kSgp8Mode;
  Propagator shown(sat, sgp8 ? ModelFamily::Sgp8Sdp8 : ModelFamily::Sgp4Sdp4);
  Propagator other(sat, sgp8 ? ModelFamily::Sgp4Sdp4 : ModelFamily::Sgp8Sdp8);
  const OrbitState a = shown.stateAt(jd);
  const OrbitState b = other.stateAt(jd);
  const Vec3 dr = Minus(a.positionKm, b.positionKm);
  const Vec3 dv = Minus(a.velocityKmS, b.velocityKmS);
  const Vec3 up = Unit(a.positionKm);
  const Vec3 normal = Unit(Cross(a.positionKm, a.velocityKmS));
  const Vec3 along = Cross(normal, up);
  lines.push_back({format("dPos %.3f km", Length(dr)), format("dVel %.2f m/s", Length(dv) * 1000.0)});
  lines.push_back({format("Radial %.2f Along %.2f Cross %.2f km", Dot(dr, up), Dot(dr, along), Dot(dr, normal)), ""});
}

void AddDateLines(const AppState& app, const Satellite& sat, std::vector<InfoLine>& lines) {
  const double local = app.currentTime + app.utcOffset;
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  CalendarOfJulianDate(local, year, month, day);
  TimeOfDay(local, hour, minute, second);
  lines.push_back({format("%s %d:%2.2d:%2.2d", ClockText(app.simulationMode), hour, minute, second),
                   format("%d.%2.2d.%2.2d", year, month, day)});
  const double age = app.currentTime - epochToJulian(sat.epoch);
  lines.push_back({format("JD %f", app.currentTime), format("TLE %d days old", static_cast<int>(age))});
  std::string name(sat.name.data(), strnlen(sat.name.data(), sat.name.size()));
  lines.push_back({name, format("Cat. nr. %d", sat.catnr)});
}

void AddBodyLines(ViewWorld& world, const InfoReading& r, std::vector<InfoLine>& lines) {
  MoonHorizontal moon;
  MoonSubPoint sub;
  MoonPosition(world.app.currentTime - kMoonEpoch, world.app.observer, moon, sub);
  lines.push_back({"Moon", format("Azm. %3.2f\u00b0", moon.azimuth * kDeg), 1, InfoBlock::Bodies});
  lines.push_back({"", format("Elv.  %3.2f\u00b0", moon.altitude * kDeg), 1, InfoBlock::Bodies});
  lines.push_back({"Sun", format("Elv. %3.2f\u00b0", r.light.sunAngles.elevation * kDeg), 1, InfoBlock::Bodies});
  const GpsData& gps = world.gps;
  const char* fix = gps.fixMode == 3 ? "3D mode" : gps.fixMode == 2 ? "2D mode" : gps.fixMode == 1 ? "pos. not fixed"
                                                                                                 : "--";
  const bool hasTime = gps.timeStamp != 0 || gps.hour != 0 || gps.minute != 0 || gps.second != 0;
  lines.push_back({fix, hasTime ? format("GPS(UTC) time %d:%2.2d:%2.2d", gps.hour, gps.minute, gps.second)
                                : std::string("Searching GPS"),
                   1, InfoBlock::Bodies});
}

}  // namespace

const InfoColours& InfoColoursFor(const Settings& settings) {
  return settings.flagColors != 0 ? kInfoBlack : kInfoColoured;
}

std::uint32_t InfoLineColour(const InfoColours& colours, InfoBlock block) {
  switch (block) {
    case InfoBlock::Doppler: return colours.doppler;
    case InfoBlock::Bodies: return colours.bodies;
    case InfoBlock::Plain: break;
  }
  return colours.plain;
}

int InfoStatusCode(const InfoStatusInputs& in) {
  int code = 0;
  if (in.geo && in.elevation < 0) code = 1;
  if (!in.canRise && !in.geo) code = 2;
  if (in.canRise && in.elevation < 0 && !in.geo) code = 3;
  if (in.canRise && in.elevation > 0 && in.geo) code = 4;  // needs the geostationary mark, as the tracker does
  if (in.dark && in.elevation > 0 && !in.geo && !in.eclipsed) code = 5;
  if (in.eclipsed && !in.geo) code = 6;
  if (in.geo && in.elevation > 0) code = 7;
  if (in.altitude < 122.0) code = 8;
  if (in.altitude <= 0) code = 9;
  if (in.flares && !in.eclipsed && in.elevation > 0) code = 10;
  if (in.modelComparison) code = 11;
  return code;
}

std::string ShapeLine(int catnr) {
  const auto table = SatelliteShapeTable();
  const SatelliteShape* shape = &table[0];
  for (int i = 0; i < kShapeRecordsSearched && i < static_cast<int>(table.size()); ++i) {
    if (table[static_cast<std::size_t>(i)].catnr == catnr) {
      shape = &table[static_cast<std::size_t>(i)];
      break;
    }
  }
  // Each later form that applies replaces the earlier one.
  std::string line = format("l.=%3.1fm w.=%3.1fm d.=%3.1fm", shape->length, shape->width, shape->depth);
  if (shape->depth == 0) line = format("Cylindrical shape l.=%2.1fm r.=%2.1fm", shape->length, shape->width);
  const bool round = shape->width == 0 && shape->depth == 0;
  if (round && shape->length != 0.2) line = format("Spherical satellite r.=%2.1fm ", shape->length);
  if (round && shape->length == 0.2) line = "Shape not know. ";
  return line;
}

double TableDownlink(int catnr) {
  switch (catnr) {
    case 21263:
    case 25338: return 137.62;
    case 27453: return 137.5;
    case 28654: return 137.9125;
    case 29499: return 137.0;
    default: return 0.0;
  }
}

std::string DownlinkLine(double downlink, double rangeRate) {
  const double factor = -1e8 * (rangeRate * 1000 / kSpeedOfLight);
  const double shifted = downlink + 1e-8 * factor * downlink;
  return format("Downlink %11.5fMHz (%3.2fHz)", shifted, (shifted - downlink) * 1e6);
}

std::string UplinkLine(double uplink, double rangeRate) {
  // Lowered like the downlink when the satellite recedes; the tracker does it this way.
  const double factor = -1e8 * (rangeRate * 1000 / kSpeedOfLight);
  const double shifted = uplink + 1e-8 * factor * uplink;
  return format("Uplink     %11.5fMHz (%3.2fHz)", shifted, (shifted - uplink) * 1e6);
}

std::string RangeLine(double range) {
  return format("Range %6.4f km Delay %6.4f ms", range, 1000 * (range * 1000 / kSpeedOfLight));
}

std::vector<InfoLine> FormatInfoPage(ViewWorld& world, Settings& settings, InfoTiming& timing,
                                     const InfoOptions& options) {
  const int index = world.app.currentSatellite >= 0 && world.app.currentSatellite < kCatalogueSlots
                        ? world.app.currentSatellite
                        : 0;
  const Satellite& sat = world.catalogue.satellites[static_cast<std::size_t>(index)];
  InfoReading r;
  ReadSatellite(world, r);
  timing.calls += 1;
  timing.totalMilliseconds += r.light.modelMilliseconds;

  std::vector<InfoLine> lines;
  AddDateLines(world.app, sat, lines);
  lines.push_back({ShapeLine(sat.catnr), "", 2});
  lines.push_back({format("lat(N) %3.4f\u00b0", r.sub.lat * kDeg), format("elv. %3.2f\u00b0", r.look.elevation * kDeg),
                   3});
  lines.push_back({format("lon(E) %3.4f\u00b0", r.sub.lon * kDeg), format("azm. %3.2f\u00b0", r.look.azimuth * kDeg)});
  lines.push_back({format("alt. %5.3fkm", r.sub.alt), format("vel. %3.3fkm/s", r.light.satVel.w)});
  lines.push_back({ModelLine(world.caches.work, settings.s4s8), format("Period %6.4f min", world.caches.work.period)});

  const InfoStatusInputs status{IsGeostationary(sat),
                                CanRise(sat, world.app.observer.lat),
                                r.look.elevation,
                                r.light.sunAngles.elevation < kDarkSkySunElevation,
                                r.light.eclipsed != 0,
                                r.sub.alt,
                                settings.flares != 0,
                                options.modelComparison};
  lines.push_back({StatusLine(InfoStatusCode(status), r, settings.s4s8), "", 1, InfoBlock::Plain, true});
  if (options.modelComparison) {
    lines.back().ruleBelow = false;
    AddComparisonLines(sat, world.app.currentTime, settings.s4s8, lines);
    lines.back().ruleBelow = true;
  }

  if (const double table = TableDownlink(sat.catnr); table != 0.0) {
    settings.downlink = table;
    settings.uplink = table + 15.0;
  }
  lines.push_back({DownlinkLine(settings.downlink, r.look.rangeRate), "", 1, InfoBlock::Doppler});
  lines.push_back({UplinkLine(settings.uplink, r.look.rangeRate), "", 3, InfoBlock::Doppler});
  lines.push_back({RangeLine(r.look.range), "", 1, InfoBlock::Doppler});
  AddBodyLines(world, r, lines);
  const double mean = timing.calls != 0 ? timing.totalMilliseconds / static_cast<double>(timing.calls) : 0.0;
  lines.push_back({format("Aver. calc. time %2.3fms", mean), "", 1, InfoBlock::Bodies});
  return lines;
}

namespace {

// UTF-8 degree signs become the font's '~'.
std::string FontText(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 2, "\u00b0") == 0) {
      out += '~';
      ++i;
    } else {
      out += text[i];
    }
  }
  return out;
}

}  // namespace

void DrawInfoPage(DrawingSurface& surface, const std::vector<InfoLine>& lines, const InfoColours& colours) {
  FillRect(surface, 0, surface.height, surface.height, surface.width, Rgb(255, 255, 255));
  std::int32_t y = 2;
  for (const InfoLine& line : lines) {
    const std::uint32_t colour = InfoLineColour(colours, line.block);
    const std::string left = FontText(line.left);
    const std::string right = FontText(line.right);
    Point at{2, y};
    DrawText(surface, at, left, static_cast<int>(left.size()), colour, false, false);
    const auto width = static_cast<std::int32_t>(right.size()) * kGlyphColumns;
    at = {surface.width - 2 - width, y};
    DrawText(surface, at, right, static_cast<int>(right.size()), colour, false, false);
    y += kGlyphRows + line.advance;
    if (line.ruleBelow) {
      DrawLine(surface, {1, y}, {surface.width - 1, y}, Rgb(0, 0, 0));
      y += 2;
    }
  }
}

}  // namespace norvane
