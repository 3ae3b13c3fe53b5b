#pragma once

namespace norvane {

// Marker returned for a date that cannot be converted.
inline constexpr double kInvalidJulianDate = -1.0;

// Julian date (UTC days) of day 0 of a year (0h of 31 December before it);
// -1 outside (1582, 3000].
double JulianDateOfYear(double year);

// Julian date (UTC days) of a calendar date and clock time; -1 for a day
// outside [0, 31] or a year outside (1582, 3000]. In a leap year every date
// from 1 February on gets the leap day, so February dates come out a day late.
double JulianDateOfDate(int year, int month, int day, int hour, int minute, int second);

// Whole calendar fields of a Julian date; the day is truncated.
void CalendarOfJulianDate(double jd, int& year, int& month, int& day);

// UTC clock time of a Julian date to the nearest second (hour 24 possible).
void TimeOfDay(double jd, int& hour, int& minute, int& second);

}  // namespace norvane
