#include <cstdio>

#include "cli/command.h"
#include "cli/output.h"
#include "core/astro/julian_date.h"
#include "core/astro/sidereal_time.h"

namespace norvane::cli {
namespace {

// "YYYY-MM-DD" or "HH:MM:SS" as three whole numbers (signs allowed, no range checks).
void splitTriple(const std::string& name, const std::string& text, const char* format, int (&out)[3]) {
  int consumed = 0;
  if (std::sscanf(text.c_str(), format, &out[0], &out[1], &out[2], &consumed) != 3 ||
      static_cast<std::size_t>(consumed) != text.size()) {
    throw InputError{"--" + name + ": cannot read " + text};
  }
}

int runTime(const Args& args) {
  Record record;
  if (args.has("jd")) {
    const double jd = requiredDouble(args, "jd");
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    CalendarOfJulianDate(jd, year, month, day);
    TimeOfDay(jd, hour, minute, second);
    record.add("year", year).add("month", month).add("day", day);
    record.add("hour", hour).add("minute", minute).add("second", second);
    record.add("gmst", GreenwichSiderealTime(jd));
  } else {
    int date[3] = {0, 0, 0};
    int time[3] = {0, 0, 0};
    splitTriple("date", required(args, "date"), "%d-%d-%d%n", date);
    if (args.has("time")) splitTriple("time", *args.value("time"), "%d:%d:%d%n", time);
    const double jd = JulianDateOfDate(date[0], date[1], date[2], time[0], time[1], time[2]);
    record.add("jd", jd).add("gmst", GreenwichSiderealTime(jd));
  }
  record.print(stdout, args.json);
  return 0;
}

}  // namespace

Command timeCommand() {
  return {"time",
          "time --date YYYY-MM-DD [--time HH:MM:SS] | time --jd JD",
          {"date", "time", "jd"},
          {},
          runTime,
          10};
}

NORVANE_CLI_COMMAND(timeCommand);

}  // namespace norvane::cli
