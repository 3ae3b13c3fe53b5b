#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "ui/views/view_world.h"

namespace norvane {

// Which colour a line of the information page is drawn in.
enum class InfoBlock : std::uint8_t { Plain, Doppler, Bodies };

// One line of the page: a left and a right text sharing the line, and the
// pixels added to the font height to reach the next line.
struct InfoLine {
  std::string left;   // UTF-8
  std::string right;  // UTF-8, right-aligned
  int advance = 1;
  InfoBlock block = InfoBlock::Plain;
  bool ruleBelow = false;  // a horizontal rule across the page under this line
};

// Text colours in the platform's byte order (red in the low byte).
struct InfoColours {
  std::uint32_t plain;
  std::uint32_t doppler;
  std::uint32_t bodies;
};
inline constexpr InfoColours kInfoColoured{0, 16422500, 25720};  // RGB 100,150,250 and 120,100,0
inline constexpr InfoColours kInfoBlack{0, 0, 0};

// The colours of the "Flag_colors" setting: set, all black.
const InfoColours& InfoColoursFor(const Settings& settings);
std::uint32_t InfoLineColour(const InfoColours& colours, InfoBlock block);

// The running mean of the model times the page has measured.
struct InfoTiming {
  std::uint64_t calls = 0;
  double totalMilliseconds = 0.0;
};

// What the page needs beyond the world.
struct InfoOptions {
  bool modelComparison = false;  // the settings dialog's "test" box, not saved: the
                                 // status line heads two lines comparing the model families
};

// Figures the status line is chosen from.
struct InfoStatusInputs {
  bool geo = false;
  bool canRise = false;
  double elevation = 0.0;     // rad
  bool dark = false;          // the observer's sky is dark
  bool eclipsed = false;
  double altitude = 0.0;      // km
  bool flares = false;        // the "flares" setting
  bool modelComparison = false;
};

// The status code 0..11 by the page's rules, each later rule that holds
// replacing the earlier result.
int InfoStatusCode(const InfoStatusInputs& in);

// The shape line for a catalogue number from the first 1777 records of the size table.
std::string ShapeLine(int catnr);

// The downlink (MHz) of the built-in per-satellite table, or 0 when the
// satellite is not in it.
double TableDownlink(int catnr);

// Frequency lines for a range rate (km/s) on the given link frequencies (MHz).
std::string DownlinkLine(double downlink, double rangeRate);
std::string UplinkLine(double uplink, double rangeRate);
std::string RangeLine(double range);

// The information page of the current satellite at the world's time: every
// line top to bottom. Propagates the satellite, adds its model time to timing,
// and, when the satellite is in the downlink table, overwrites the settings'
// downlink and uplink.
std::vector<InfoLine> FormatInfoPage(ViewWorld& world, Settings& settings, InfoTiming& timing,
                                     const InfoOptions& options);

}  // namespace norvane

namespace norvane {

// The page in the built-in font on a white 240-pixel-wide surface: left texts
// from the left edge, right texts to the right edge, the degree sign as the
// font's small circle. For pictures of the page without a window system.
void DrawInfoPage(DrawingSurface& surface, const std::vector<InfoLine>& lines, const InfoColours& colours);

}  // namespace norvane
