"""What the pass oracles share: norvane-cli's JSON lines, element entries by
slot, and PyEphem's passes for an observer without refraction at a 0-degree
horizon. Importing it exits 77 (skipped) when PyEphem is missing."""
import json
import math
import subprocess
import sys

try:
    import ephem
except ImportError:
    sys.exit(77)

DUBLIN_OFFSET = 2415020.0  # ephem dates count days from JD 2415020


def entry(path, slot):
    """The three lines of the element set in a file's slot."""
    with open(path, encoding="latin-1") as f:
        lines = f.read().splitlines()
    return lines[3 * slot : 3 * slot + 3]


def start_jd(utc):
    """Julian date of a "YYYY-MM-DD hh:mm:ss" UTC text."""
    return float(ephem.Date(utc.replace("-", "/"))) + DUBLIN_OFFSET


def cli_records(cli, *args):
    """The JSON records norvane-cli --json prints for args, one a line."""
    out = subprocess.run([cli, "--json", *args], check=True, capture_output=True, text=True).stdout
    return [json.loads(line) for line in out.splitlines()]


def ephem_passes(lines, begin_jd, end_jd, lat, lon, alt):
    """(rise, tca, set, top elevation in degrees) of every pass rising before
    end_jd, from begin_jd on; times in Julian days, alt in km."""
    sat = ephem.readtle(*lines)
    obs = ephem.Observer()
    obs.lat, obs.lon, obs.elevation = str(lat), str(lon), alt * 1000.0
    obs.pressure = 0
    obs.horizon = "0"
    obs.date = ephem.Date(begin_jd - DUBLIN_OFFSET)
    found = []
    while True:
        rise, _, tca, top, setting, _ = obs.next_pass(sat)
        if float(rise) + DUBLIN_OFFSET > end_jd:
            return found
        found.append(tuple(float(x) + DUBLIN_OFFSET for x in (rise, tca, setting)) + (math.degrees(float(top)),))
        obs.date = ephem.Date(setting + ephem.minute)
