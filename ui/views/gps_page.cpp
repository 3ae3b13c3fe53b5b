#include "ui/views/gps_page.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "core/astro/julian_date.h"
#include "ui/surface/color.h"
#include "ui/surface/primitives.h"
#include "ui/surface/text.h"

namespace norvane {

namespace {

constexpr std::uint32_t kWhite = Rgb(255, 255, 255);
constexpr std::uint32_t kBlack = Rgb(0, 0, 0);
constexpr std::uint32_t kGrey = Rgb(140, 140, 140);
constexpr std::uint32_t kRed = Rgb(230, 0, 0);
constexpr std::uint32_t kBoxBlue = Rgb(60, 110, 250);
constexpr std::uint32_t kBoxYellow = Rgb(250, 210, 0);
constexpr std::array<double, 7> kBoxThresholds = {0.0, 1.5, 3.4, 10.0, 20.0, 30.0, 40.0};

// One text line at x = 10; the whole text is drawn.
[[gnu::format(printf, 4, 5)]] void Line(DrawingSurface& surface, std::int32_t y, std::uint32_t rgb,
                                        const char* format, ...) {
  std::array<char, 96> text{};
  std::va_list args;
  va_start(args, format);
  std::vsnprintf(text.data(), text.size(), format, args);
  va_end(args);
  const int length = static_cast<int>(std::strlen(text.data()));
  Point at{10, y};
  DrawText(surface, at, std::string_view(text.data(), static_cast<std::size_t>(length)), length, rgb, false, false);
}

void Rule(DrawingSurface& surface, std::int32_t y) { DrawLine(surface, {0, y}, {surface.width, y}, kBlack); }

void DilutionBar(DrawingSurface& surface, std::int32_t y, double value) {
  const int filled = DilutionBoxes(value);
  for (int k = 0; k < 7; ++k) {
    const std::int32_t x = 10 + 10 * k;
    if (k < filled) FillRect(surface, x + 1, y + 6, 5, 5, k < 4 ? kBoxBlue : kBoxYellow);
    DrawRect(surface, x, y + 6, 6, 6, kGrey);
  }
}

void SignalChart(DrawingSurface& surface, const GpsData& gps) {
  for (int slot = 0; slot < 12; ++slot) {
    const std::size_t i = static_cast<std::size_t>(slot);
    const std::int32_t x = 10 + 14 * slot;
    DrawRect(surface, x, 290, 80, 10, kGrey);
    Point at{x, 300};
    if (gps.prn[i] == 0) {
      DrawText(surface, at, "--", 2, kGrey, false, false);
    } else {
      char number[16];
      std::snprintf(number, sizeof number, "%2.2d", gps.prn[i]);
      const int length = static_cast<int>(std::strlen(number));
      DrawText(surface, at, number, length, kBlack, false, false);
    }
    if (gps.snr[i] > 10) {
      bool used = false;
      for (const std::int32_t prn : gps.usedPrn) used = used || prn == gps.prn[i];
      FillRect(surface, x + 1, 291, 2 * (gps.snr[i] - 10), 9, used ? kRed : kGrey);
    }
  }
}

void FixLines(DrawingSurface& surface, const GpsData& gps) {
  const bool fix = gps.fixMode >= 2;
  if (fix) {
    Line(surface, 50, kBlack, "Sat. in view:%d,   sat. in use: %d", gps.satellitesInView, gps.satellitesInUse);
  } else {
    Line(surface, 50, kBlack, "Sat. in view: --,   sat. in use: --");
  }
  Rule(surface, 60);
  Line(surface, 70, kBlack, "Position:");
  if (fix) {
    Line(surface, 80, kBlack, "lat(N): %3.5f~ lon(E): %3.5f~", gps.latitude, gps.longitude);
    Line(surface, 90, kBlack, "Horisontal precision (HDOP): %2.1fm", gps.hdop);
  } else {
    Line(surface, 80, kBlack, "lat(N):--~, lon(E):--~");
    Line(surface, 90, kBlack, "Horisontal precision: --m");
  }
  DilutionBar(surface, 100, gps.hdop);
  if (fix) {
    Line(surface, 120, kBlack, "Altitude: %3.1fm", gps.altitude);
    Line(surface, 130, kBlack, "Vertical precision (VDOP): %2.1fm", gps.vdop);
  } else {
    Line(surface, 120, kBlack, "Altitude: --m");
    Line(surface, 130, kBlack, "Vertical precision (VDOP): --m");
  }
  DilutionBar(surface, 140, gps.vdop);
  if (fix) {
    Line(surface, 160, kBlack, "Precision (PDOP): %2.1fm ", gps.pdop);
  } else {
    Line(surface, 160, kBlack, "PDOP: --m");
  }
  DilutionBar(surface, 170, gps.pdop);
  if (fix) {
    Line(surface, 180, kBlack, "Speed: %4.2fkm/h  Azymuth:%3.1f~", gps.speed, gps.course);
  } else {
    Line(surface, 180, kBlack, "Speed: --km/h");
  }
  Rule(surface, 192);
}

}  // namespace

int DilutionBoxes(double value) {
  int filled = 0;
  for (const double threshold : kBoxThresholds) filled += value > threshold ? 1 : 0;
  return filled;
}

void PaintGpsPage(ViewWorld& world, double systemTime) {
  DrawingSurface& surface = world.surface;
  const GpsData& gps = world.gps;
  FillRect(surface, 0, surface.height, surface.height, surface.width, kWhite);
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  CalendarOfJulianDate(systemTime, year, month, day);
  TimeOfDay(systemTime, hour, minute, second);
  Line(surface, 10, kBlack, "Sys. time UTC %d-%d-%d  %d:%2.2d:%2.2d", year, month, day, hour, minute, second);
  const bool tracking = world.app.gpsTracking == 1;
  if (tracking && gps.fixMode >= 1) {
    Line(surface, 20, kBlack, "GPS  time UTC %d-%d-%d  %d:%2.2d:%2.2d (%2.2d)", gps.year, gps.month, gps.day,
         gps.hour, gps.minute, gps.second, gps.hundredths);
    const char* mode = gps.fixMode == 1 ? "Position not know." : gps.fixMode == 2 ? "2D mode" : "3D mode";
    Line(surface, 30, kBlack, "%s", mode);
    FixLines(surface, gps);
  } else {
    Line(surface, 200, kRed, "GPS not activated.   ");
  }
  if (tracking) SignalChart(surface, gps);
  PresentWorld(world);
}

}  // namespace norvane
