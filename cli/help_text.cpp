#include "cli/help_text.h"

namespace norvane::cli {
namespace {

// One text: a subcommand's summary (option empty), an option shared by every
// subcommand (command empty), or an option whose meaning depends on the subcommand.
struct HelpText {
  std::string_view command;
  std::string_view option;
  std::string_view text;
};

constexpr HelpText kTexts[] = {
    {"time", "", "Converts a calendar date to a Julian date and Greenwich sidereal time (radians), or a Julian date "
                 "back to the calendar."},
    {"elements", "", "Loads an element file as the tracker does and prints every satellite's elements, then the "
                     "count and the load message."},
    {"propagate", "", "Propagates one satellite of an element file to a time and prints its inertial position (km) "
                      "and velocity (km/s), the model used and the period."},
    {"look", "", "Prints azimuth, elevation, range, range rate and the sub-satellite point of a satellite or an "
                 "inertial state for an observer; for a catalogue satellite also its visibility and magnitude."},
    {"passes", "", "Searches passes and flares over a span of hours, one row per event; with --summary, one line "
                   "per pass with rise, culmination and set."},
    {"sun", "", "Prints the Sun's geocentric position (km) and its azimuth and elevation for an observer."},
    {"moon", "", "Prints the Moon's azimuth and altitude, sub-lunar point, distance, phase, age and apparent "
                 "diameter."},
    {"planets", "", "Prints the heliocentric positions of the Earth and the planets (km) and each planet's azimuth "
                    "and elevation for an observer."},
    {"nmea", "", "Decodes NMEA 0183 sentences from standard input, a serial device or gpsd, and prints the whole "
                 "GPS record after each read cycle."},
    {"download", "", "Downloads one category of element sets from an element-set server into a folder and reports "
                     "what came."},
    {"track", "", "Runs the radio and rotator control for one satellite without a window: Doppler-corrected "
                  "frequencies and antenna directions per update."},
    {"render", "", "Draws one screen of the tracker (sky, map, GPS page, orbit or information page) at a given time "
                   "and writes it as a 240 x 320 PNG picture."},
    {"info", "", "Prints the lines of the information page for one satellite."},

    {"", "json", "Print one JSON object per line, numbers with full precision."},
    {"", "help", "Print the usage and the options, then exit."},
    {"", "version", "Print the version, then exit."},
    {"", "tle", "The element file: two- or three-line element sets, OMM CSV or OMM JSON."},
    {"", "index", "The satellite's 0-based slot in the element file."},
    {"", "jd", "The time as a Julian date (UTC days)."},
    {"", "tsince", "The time in minutes since the element set's epoch."},
    {"", "date", "The calendar date, YYYY-MM-DD."},
    {"time", "time", "The time of day, HH:MM:SS (default 00:00:00)."},
    {"", "time", "The start of the clock, \"YYYY-MM-DD HH:MM:SS\" UTC (default now)."},
    {"", "lat", "The observer's latitude in degrees, north positive."},
    {"", "lon", "The observer's longitude in degrees, east positive."},
    {"", "alt", "The observer's altitude in km."},
    {"", "state", "An inertial state X,Y,Z,VX,VY,VZ in km and km/s instead of a catalogue satellite."},
    {"", "sgp8", "Use the SGP8/SDP8 models instead of SGP4/SDP4."},
    {"", "refraction", "Correct elevations for atmospheric refraction."},
    {"", "flares", "Predict Iridium flares, whatever the element file is called."},
    {"", "start", "The start of the search, \"YYYY-MM-DD HH:MM:SS\" local time."},
    {"", "hours", "The length of the search in hours."},
    {"", "utc-shift", "Local time minus UTC in hours (default 0)."},
    {"", "visible", "Only rows where the satellite can be seen."},
    {"", "min-mag", "The faintest magnitude listed (default 20)."},
    {"", "select", "A comma-separated list of slots to use instead of every satellite."},
    {"", "summary", "One line per pass (rise, culmination, set, visibility) instead of the event rows."},
    {"", "min-el", "The lowest culmination elevation in degrees of a pass listed (default 0)."},
    {"", "ics", "Also write the passes as an iCalendar file."},
    {"", "all", "Read every satellite of the file, beyond the 181 of the catalogue."},
    {"", "threads", "The number of worker threads (default: every core)."},
    {"", "wanted", "The sentence kinds to decode, comma-separated (default all)."},
    {"", "device", "Read from a serial device, or from gpsd at gpsd://HOST:PORT, instead of standard input."},
    {"", "baud", "The serial speed in baud."},
    {"", "cycles", "Stop after this many read cycles."},
    {"", "accept-gn", "Decode the $GN talker of multi-constellation receivers like $GP."},
    {"", "server", "The element-set server: a base URL, or a URL template holding {group} (http:// or https://)."},
    {"", "category", "The category to fetch, e.g. visual, iridium, stations."},
    {"download", "out", "The folder the copy is saved in (default the documents folder)."},
    {"", "out", "The PNG file to write."},
    {"", "current", "The slot of the current satellite."},
    {"", "settings", "A settings file of NAME=VALUE lines applied before drawing."},
    {"", "gps", "A file of NMEA sentences fed to the GPS record before drawing."},
    {"", "tap", "A stylus tap at X,Y on the 240 x 320 screen before drawing."},
    {"", "clock", "The clock mode: real time, paused, or simulated at 1, 10, 30 or 60 seconds per tick."},
    {"", "skins", "The folder of skin bitmaps (default the program folder's, else the installed ones)."},
    {"", "test", "Compare the models on the page, as the settings dialog's \"test\" box does."},
    {"", "downlink", "The downlink frequency in MHz shown with its Doppler shift."},
    {"", "uplink", "The uplink frequency in MHz shown with its Doppler shift."},
    {"", "rig", "The radio's rigctld at HOST:PORT."},
    {"", "rot", "The rotator's rotctld at HOST:PORT."},
    {"", "seconds", "Stop after this many seconds."},
    {"track", "clock", "The clock: real time, or simulated at 1, 10, 30 or 60 seconds per tick."},
    {"track", "downlink", "The downlink in MHz for a satellite the frequency file does not list (default 130)."},
    {"track", "uplink", "The uplink in MHz for a satellite the frequency file does not list (default 138)."},
    {"track", "min-el", "The lowest elevation in degrees of a pass the rotator follows."},
    {"", "period", "The seconds between two updates (default 1)."},
    {"", "frequencies", "A frequency file: catalogue number, name, downlink and uplink (MHz), mode and inverting "
                        "flag per line."},
    {"track", "mode",
     "The radio mode for a satellite the frequency file does not list: FM, USB, LSB, CW or another Hamlib mode."},
    {"", "inverting", "The transponder inverts: its uplink moves against its downlink."},
    {"", "offset", "A tuning offset in Hz within a linear transponder's pass band."},
    {"", "az-range", "The rotator's azimuth travel: 0 to 360, -180 to 180 or 0 to 450 degrees."},
    {"", "el-range", "The rotator's elevation travel: 0 to 90 or 0 to 180 degrees."},
    {"", "no-flip", "Never turn a pass over on a rotator with 180 degrees of elevation."},
    {"", "park", "Where the rotator waits between passes: azimuth and elevation in degrees."},
    {"", "rig-tolerance", "The change in Hz that sends the radio a new frequency (default 10)."},
    {"", "rot-tolerance", "The move in degrees that sends the rotator a new target (default 2)."},
};

std::string_view Find(std::string_view command, std::string_view option) {
  for (const HelpText& t : kTexts) {
    if (t.command == command && t.option == option) return t.text;
  }
  return {};
}

}  // namespace

std::string_view CommandSummary(std::string_view command) { return Find(command, ""); }

std::string_view OptionText(std::string_view command, std::string_view option) {
  const std::string_view own = Find(command, option);
  return own.empty() ? Find("", option) : own;
}

}  // namespace norvane::cli
