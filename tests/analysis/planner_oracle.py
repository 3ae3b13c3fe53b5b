#!/usr/bin/env python3
"""AOS, TCA, LOS and maximum elevation of norvane-cli passes --summary
against PyEphem's pass finder, an independent SGP4 and observer model.

Both work without refraction at a horizon of 0 degrees; the two SGP4s and
Earth figures agree to about a second and 0.02 degrees.
Passes cut by the span's ends are left out. Exit 77 (skipped) when PyEphem
is missing.
"""
import os
import sys

from ephem_oracle import cli_records, entry, ephem_passes, start_jd as jd_of

CLI, DATA = sys.argv[1], sys.argv[2]
SECOND = 1.0 / 86400.0
TIME_SLACK = 3 * SECOND
ELEVATION_SLACK = 0.05  # degrees

CASES = [
    # file, slot, start (UTC), hours, latitude, longitude, altitude (km)
    ("visual_2017-04-14.txt", 106, "2017-04-14 12:00:00", 48, 51.5, -0.1, 0.05),  # ISS
    ("visual_2017-04-14.txt", 106, "2017-04-15 00:00:00", 48, -33.9, 151.2, 0.0),
    ("visual_2017-04-14.txt", 111, "2017-04-14 00:00:00", 48, 78.2, 15.6, 0.0),  # TERRA over Svalbard
    ("visual_2017-04-14.txt", 0, "2017-04-14 00:00:00", 48, 40.0, -105.0, 1.6),
]


def planned(path, slot, start, hours, lat, lon, alt):
    records = cli_records(CLI, "passes", "--summary", "--tle", path, "--start", start, "--hours", str(hours),
                          "--lat", str(lat), "--lon", str(lon), "--alt", str(alt), "--select", str(slot))
    return [r for r in records if "sat" in r]


def main():
    failures = checked = 0
    for name, slot, start, hours, lat, lon, alt in CASES:
        path = os.path.join(DATA, name)
        passes = planned(path, slot, start, hours, lat, lon, alt)
        inside = [p for p in passes if p["aos"] is not None and p["los"] is not None]
        start_jd = jd_of(start)
        expected = ephem_passes(entry(path, slot), start_jd, start_jd + hours / 24.0, lat, lon, alt)
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
