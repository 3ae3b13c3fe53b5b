#!/usr/bin/env python3
"""Writes an element file (name line and two element lines per satellite) as
OMM CSV and OMM JSON, with the element-set server's column set.

    tools/tle_to_omm.py ELEMENTS.txt OUT.csv OUT.json

Every value is taken from its columns of the element lines; numbers keep the
digits written there, so the three files describe the same element sets.
"""
import csv
import datetime
import json
import sys

COLUMNS = ["OBJECT_NAME", "OBJECT_ID", "EPOCH", "MEAN_MOTION", "ECCENTRICITY", "INCLINATION",
           "RA_OF_ASC_NODE", "ARG_OF_PERICENTER", "MEAN_ANOMALY", "EPHEMERIS_TYPE", "CLASSIFICATION_TYPE",
           "NORAD_CAT_ID", "ELEMENT_SET_NO", "REV_AT_EPOCH", "BSTAR", "MEAN_MOTION_DOT", "MEAN_MOTION_DDOT"]


def catalogue_number(text):
    """Plain digits, or a letter (I and O unused) and four digits for 100000 and up."""
    text = text.strip()
    if text[:1].isalpha():
        letter = "ABCDEFGHJKLMNPQRSTUVWXYZ".index(text[0]) + 10
        return letter * 10000 + int(text[1:])
    return int(text)


def exponent_number(text):
    """A field such as '-11606-4' (mantissa with an assumed leading point, exponent) as a float."""
    text = text.strip()
    sign = "-" if text.startswith("-") else ""
    text = text.lstrip("+-")
    mantissa, exponent = text[:-2], text[-2:]
    return float("%s0.%se%d" % (sign, mantissa, int(exponent)))


def designator(text):
    """'98067A' as '1998-067A'."""
    text = text.strip()
    if len(text) < 5:
        return ""
    year = int(text[:2])
    return "%d-%s" % (1900 + year if year >= 57 else 2000 + year, text[2:])


def epoch(text):
    """YYDDD.dddddddd as an ISO 8601 UTC time with microseconds."""
    year = int(text[:2])
    year += 1900 if year >= 57 else 2000
    day = int(text[2:5])
    fraction = int(text[6:14].ljust(8, "0"))  # whole units of 1e-8 day = 864 microseconds
    start = datetime.datetime(year, 1, 1) + datetime.timedelta(days=day - 1)
    return (start + datetime.timedelta(microseconds=fraction * 864)).strftime("%Y-%m-%dT%H:%M:%S.%f")


def record(name, line1, line2):
    return {
        "OBJECT_NAME": name.strip(),
        "OBJECT_ID": designator(line1[9:17]),
        "EPOCH": epoch(line1[18:32]),
        "MEAN_MOTION": float(line2[52:63]),
        "ECCENTRICITY": float("0." + line2[26:33].strip()),
        "INCLINATION": float(line2[8:16]),
        "RA_OF_ASC_NODE": float(line2[17:25]),
        "ARG_OF_PERICENTER": float(line2[34:42]),
        "MEAN_ANOMALY": float(line2[43:51]),
        "EPHEMERIS_TYPE": int(line1[62] if line1[62].strip() else 0),
        "CLASSIFICATION_TYPE": line1[7],
        "NORAD_CAT_ID": catalogue_number(line1[2:7]),
        "ELEMENT_SET_NO": int(line1[64:68] or 0),
        "REV_AT_EPOCH": int(line2[63:68].strip() or 0),
        "BSTAR": exponent_number(line1[53:61]),
        "MEAN_MOTION_DOT": float(line1[33:43].replace(" ", "")),
        "MEAN_MOTION_DDOT": exponent_number(line1[44:52]),
    }


def read_elements(path):
    with open(path, encoding="latin-1", newline="") as f:
        lines = [line.rstrip("\r\n") for line in f]
    records = []
    for i in range(0, len(lines) - 2, 3):
        name, line1, line2 = lines[i], lines[i + 1], lines[i + 2]
        if line1.startswith("1 ") and line2.startswith("2 "):
            records.append(record(name, line1, line2))
    return records


def main(argv):
    if len(argv) != 4:
        sys.exit(__doc__)
    records = read_elements(argv[1])
    with open(argv[2], "w", encoding="utf-8", newline="") as f:
        writer = csv.DictWriter(f, fieldnames=COLUMNS, lineterminator="\r\n")
        writer.writeheader()
        for r in records:
            writer.writerow({k: repr(v) if isinstance(v, float) else v for k, v in r.items()})
    with open(argv[3], "w", encoding="utf-8") as f:
        json.dump(records, f, indent=1)
        f.write("\n")
    print("%d records" % len(records))


if __name__ == "__main__":
    main(sys.argv)
