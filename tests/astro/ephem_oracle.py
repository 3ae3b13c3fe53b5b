#!/usr/bin/env python3
"""Compares norvane-cli's sun, moon, planets and time output with PyEphem.

Usage: ephem_oracle.py NORVANE_CLI [--report]
Exits 77 (skipped) when the ephem module is missing. With --report it prints
the largest difference of every quantity instead of checking tolerances.

The tolerances follow from the precision of each theory in the tracker:
- sidereal time: mean sidereal time against ephem's apparent one; they differ
  by the equation of the equinoxes, at most 1.2 s of time (8.7e-5 rad).
- Sun: an apparent-longitude series good to about 0.01 deg, but in the mean
  equator and with mean sidereal time: the direction agrees within 0.02 deg.
- Moon: a nine-term longitude and three-term latitude series (omitted terms
  add up to about 0.3 deg) with a fixed obliquity: the sub-lunar point within
  0.6 deg. The sky direction also takes its sidereal time from a day-count
  formula that adds 0.0657098 h per day on the fractional day as well as the
  UT term, so the hour angle runs up to 0.99 deg ahead late in the day; and
  the parallax is applied to the altitude only: direction within 1.4 deg.
  The almanac's short series: phase within 0.02, angle of age within 0.03
  rad, distance within 2.5 % (the evection and variation terms, 3699 and
  2956 km, are left out).
- Planets: fixed Keplerian ellipses of 1987 with no perturbations, no
  precession of the frame (0.014 deg per year from the epoch, 0.6 deg by
  2030) and no light time; the heliocentric errors are magnified when Venus
  or Mars comes closer than the Sun: all within 1.2 deg, Pluto within 2 deg
  over 1990-2030.
"""
import json
import math
import subprocess
import sys

try:
    import ephem
except ImportError:
    print("SKIP: the Python 'ephem' module is absent (Debian: python3-ephem); no oracle comparison made")
    sys.exit(77)

CLI = sys.argv[1]
REPORT = "--report" in sys.argv[2:]

# Julian dates (UTC) spread over 1990-2030, at varied times of day.
DATES = [2447892.5 + 487.3 * i + 0.137 * i for i in range(31)]
OBSERVERS = [(52.52, 13.40, 0.034), (-33.87, 151.21, 0.05)]  # Berlin, Sydney
PLANETS = ["Mercury", "Venus", "Mars", "Jupiter", "Saturn", "Uranus", "Neptune", "Pluto"]
TOLERANCE = {
    "gmst": 1.5e-4, "sun": 0.02, "moon": 1.4, "moon_sub": 0.6, "phase": 0.02,
    "moon_distance": 0.025, "sun_distance": 0.001, "age": 0.03,
    "Mercury": 1.2, "Venus": 1.2, "Mars": 1.2, "Jupiter": 1.2, "Saturn": 1.2,
    "Uranus": 1.2, "Neptune": 1.2, "Pluto": 2.0,
}
worst = {}
failures = []


def cli(*args):
    out = subprocess.run([CLI, "--json", *args], check=True, capture_output=True, text=True).stdout
    return [json.loads(line) for line in out.splitlines() if line.strip()]


def separation(az1, el1, az2, el2):
    """Angle in degrees between two directions given in degrees."""
    a1, e1, a2, e2 = (math.radians(v) for v in (az1, el1, az2, el2))
    c = math.sin(e1) * math.sin(e2) + math.cos(e1) * math.cos(e2) * math.cos(a1 - a2)
    return math.degrees(math.acos(max(-1.0, min(1.0, c))))


def angle_diff(a, b, turn=2 * math.pi):
    d = (a - b) % turn
    return min(d, turn - d)


def record(name, value, where):
    if value > worst.get(name, (-1, ""))[0]:
        worst[name] = (value, where)
    if value > TOLERANCE[name]:
        failures.append("%s: %.6g > %g at %s" % (name, value, TOLERANCE[name], where))


def observer_for(jd, lat, lon, alt):
    o = ephem.Observer()
    o.lat, o.lon, o.elevation = str(lat), str(lon), alt * 1000.0
    o.pressure = 0  # no refraction: the tracker's look angles here carry none
    o.date = jd - 2415020.0  # ephem counts days from 1899 December 31.5
    o.epoch = o.date
    return o


def main():
    for jd in DATES:
        for lat, lon, alt in OBSERVERS:
            where = "jd %.4f obs %g,%g" % (jd, lat, lon)
            obs = observer_for(jd, lat, lon, alt)
            place = ["--jd", repr(jd), "--lat", str(lat), "--lon", str(lon), "--alt", str(alt)]

            gmst = cli("time", "--jd", repr(jd))[0]["gmst"]
            greenwich = observer_for(jd, 0.0, 0.0, 0.0)
            record("gmst", angle_diff(gmst, float(greenwich.sidereal_time())), where)

            sun = cli("sun", *place)[0]
            s = ephem.Sun(obs)
            record("sun", separation(sun["azimuth"], sun["elevation"],
                                     math.degrees(s.az), math.degrees(s.alt)), where)
            record("sun_distance", abs(sun["distance"] / (s.earth_distance * ephem.meters_per_au / 1000) - 1), where)

            moon = cli("moon", *place)[0]
            m = ephem.Moon(obs)
            record("moon", separation(moon["azimuth"], moon["altitude"],
                                      math.degrees(m.az), math.degrees(m.alt)), where)
            geocentric = ephem.Moon(obs.date)
            sub_lon = math.degrees(float(m.g_ra) - float(greenwich.sidereal_time()))
            record("moon_sub", separation(moon["sub_lon"], moon["sub_lat"], sub_lon, math.degrees(m.g_dec)), where)
            record("phase", abs(moon["phase"] - geocentric.moon_phase), where)
            record("moon_distance", abs(moon["distance"] / (geocentric.earth_distance * ephem.meters_per_au / 1000) - 1), where)
            elongation = (float(ephem.Ecliptic(m).lon) - float(ephem.Ecliptic(s).lon)) % (2 * math.pi)
            record("age", angle_diff(moon["age"], elongation), where)

            for body in cli("planets", *place)[1:]:
                name = body["name"].strip()
                p = getattr(ephem, name)(obs)
                record(name, separation(body["azimuth"], body["elevation"],
                                        math.degrees(p.az), math.degrees(p.alt)), where)

    for name in sorted(worst):
        value, where = worst[name]
        print("%-14s worst %.6g (tolerance %g) at %s" % (name, value, TOLERANCE[name], where))
    if REPORT:
        return 0
    for f in failures:
        print("FAIL " + f)
    print("%d comparisons over %d dates and %d observers, %d failures"
          % (len(DATES) * len(OBSERVERS) * (9 + len(PLANETS)), len(DATES), len(OBSERVERS), len(failures)))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
