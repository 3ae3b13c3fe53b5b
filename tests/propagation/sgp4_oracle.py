#!/usr/bin/python3
"""Independent SGP4 positions for the propagation tests (python3-sgp4).

Reads lines "catnr epoch_days_since_1949_dec_31 bstar inclo nodeo ecco argpo
mo no_kozai t1 t2 ..." (radians, rad/min, minutes) and writes one line per
time: "catnr t error x y z vx vy vz" in km and km/s. Exit status 3 when the
module is missing, so the caller can skip.
"""
import sys

try:
    from sgp4.api import Satrec, WGS72
except ImportError:
    sys.exit(3)

def main(source, target):
    with open(source) as inp, open(target, "w") as out:
        for line in inp:
            f = line.split()
            if not f:
                continue
            catnr = int(f[0])
            epoch, bstar, incl, node, ecc, argp, mo, no = map(float, f[1:9])
            sat = Satrec()
            sat.sgp4init(WGS72, "a", catnr, epoch, bstar, 0.0, 0.0, ecc, argp, incl, mo, no, node)
            for t in map(float, f[9:]):
                err, r, v = sat.sgp4_tsince(t)
                out.write("%d %.17g %d %.17g %.17g %.17g %.17g %.17g %.17g\n" % ((catnr, t, err) + tuple(r) + tuple(v)))

if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
