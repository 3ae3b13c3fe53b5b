#!/usr/bin/env python3
"""AOS, TCA, LOS and maximum elevation of norvane-cli passes --summary
against PyEphem's pass finder, an independent SGP4 and observer model.

Both work without refraction at a horizon of 0 degrees; the two SGP4s and
Earth figures agree to about a second and 0.02 degrees.
Passes cut by the span's ends are left out. Exit 77 (skipped) when PyEphem
is missing.
"""
import json
import os
import subprocess
import sys

try:
    import ephem
except ImportError:
    sys.exit(77)

CLI, DATA = sys.argv[1], sys.argv[2]
SECOND = 1.0 / 86400.0
TIME_SLACK = 3 * SECOND
ELEVATION_SLACK = 0.05  # degrees
DUBLIN_OFFSET = 2415020.0  # ephem dates count days from JD 2415020

CASES = [
    # file, slot, start (UTC), hours, latitude, longitude, altitude (km)
    ("visual_2017-04-14.txt", 106, "2017-04-14 12:00:00", 48, 51.5, -0.1, 0.05),  # ISS
    ("visual_2017-04-14.txt", 106, "2017-04-15 00:00:00", 48, -33.9, 151.2, 0.0),
    ("visual_2017-04-14.txt", 111, "2017-04-14 00:00:00", 48, 78.2, 15.6, 0.0),  # TERRA over Svalbard
    ("visual_2017-04-14.txt", 0, "2017-04-14 00:00:00", 48, 40.0, -105.0, 1.6),
]


def entry(path, slot):
    with open(path, encoding="latin-1") as f:
        lines = f.read().splitlines()
    return lines[3 * slot : 3 * slot + 3]


def planned(path, slot, start, hours, lat, lon, alt):
    out = subprocess.run(
        [CLI, "--json", "passes", "--summary", "--tle", path, "--start", start, "--hours", str(hours),
         "--lat", str(lat), "--lon", str(lon), "--alt", str(alt), "--select", str(slot)],
        check=True, capture_output=True, text=True).stdout
    return [r for r in map(json.loads, out.splitlines()) if "sat" in r]


def reference(lines, start_jd, end_jd, lat, lon, alt):
    sat = ephem.readtle(*lines)
    obs = ephem.Observer()
    obs.lat, obs.lon, obs.elevation = str(lat), str(lon), alt * 1000.0
    obs.pressure = 0
    obs.horizon = "0"
    obs.date = ephem.Date(start_jd - DUBLIN_OFFSET)
    found = []
    while True:
        rise, _, tca, top, setting, _ = obs.next_pass(sat)
        if float(rise) + DUBLIN_OFFSET > end_jd:
            return found
        found.append([float(x) + DUBLIN_OFFSET for x in (rise, tca, setting)] + [float(top) * 180 / 3.141592653589793])
        obs.date = ephem.Date(setting + ephem.minute)


def main():
    failures = checked = 0
    for name, slot, start, hours, lat, lon, alt in CASES:
        path = os.path.join(DATA, name)
        passes = planned(path, slot, start, hours, lat, lon, alt)
        inside = [p for p in passes if p["aos"] is not None and p["los"] is not None]
        start_jd = float(ephem.Date(start.replace("-", "/"))) + DUBLIN_OFFSET
        expected = reference(entry(path, slot), start_jd, start_jd + hours / 24.0, lat, lon, alt)
        expected = [e for e in expected if e[0] > start_jd and e[2] < start_jd + hours / 24.0]
        if len(expected) != len(inside) or not inside:
            print(f"FAIL {name} slot {slot} at {lat}: {len(inside)} passes, PyEphem {len(expected)}")
            failures += 1
            continue
        for p, (aos, tca, los, top) in zip(inside, expected):
            checked += 1
            if (abs(p["aos"] - aos) > TIME_SLACK or abs(p["los"] - los) > TIME_SLACK
                    or abs(p["tca"] - tca) > TIME_SLACK or abs(p["tca_el"] - top) > ELEVATION_SLACK):
                print(f"FAIL {name} slot {slot} pass at {p['aos_utc']}: "
                      f"aos {(p['aos'] - aos) / SECOND:+.1f} s, tca {(p['tca'] - tca) / SECOND:+.1f} s, "
                      f"los {(p['los'] - los) / SECOND:+.1f} s, max el {p['tca_el'] - top:+.3f} deg")
                failures += 1
    print(f"{checked} passes checked, {failures} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
