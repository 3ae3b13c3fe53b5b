#!/usr/bin/env python3
"""Element-set server for the download tests, on 127.0.0.1 only.

The first part of the request path picks the behaviour, the rest is either
/NORAD/elements/NAME.txt or the query form /NORAD/elements/gp.php?GROUP=NAME
[&FORMAT=tle|csv|json] (without FORMAT the answer is CSV):
  /ok/...        the bundled file (group iridium gets the Iridium file, any other the visual one),
                 or for the query form the format asked for
  /csv/..., /json/...  OMM CSV or JSON of four element sets (one numbered 270001) and a fifth
                 without a mean motion, whatever was asked
  /validators/...  the bundled file with an ETag and a Last-Modified date; 304 when the
                 request carries either of them back
  /refuse/...    403 with a short text
  /busy/...      429 with Retry-After: 120
  /html/...      200 with an HTML page
  /nogp/...      200 with the text "No GP data found"
  /big/...       40,000 bytes of element sets
  /empty/...     an empty body
  /garbage/...   5,000 bytes of fixed pseudo-random binary
  /redirect/...  302 to the same name under /ok/ with another file name
  /reset/...     announces the whole file, sends 1,000 bytes, then resets the connection
  /slow/...      answers only after 4 s
  /stall/...     sends 1,000 bytes of the body, then nothing for 4 s
  /trickle/...   the bundled file in 1,000-byte pieces, one every 100 ms (about 2.5 s)
  /requests      the requests since the last /requests, one a line: path, User-Agent,
                 If-None-Match and If-Modified-Since separated by tabs
  anything else  404
Prints the port on the first line of stdout; exits by itself after five minutes.
"""
import calendar
import json
import os
import random
import socket
import struct
import sys
import threading
import time
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from urllib.parse import parse_qs, urlsplit

DATA = sys.argv[1]


def read(name):
    with open(os.path.join(DATA, name), "rb") as f:
        return f.read()


VISUAL = read("visual_2017-04-14.txt")
IRIDIUM = read("iridium_2014-06-21.txt")
BIG = (VISUAL + IRIDIUM + VISUAL)[:40000]
GARBAGE = bytes(random.Random(7).randrange(256) for _ in range(5000))
ETAG = '"v1"'
LAST_MODIFIED = "Mon, 23 Nov 2026 12:00:00 GMT"
HTML = b"<!DOCTYPE html>\n<html><head><title>Server error</title></head><body>Try later</body></html>\n"

LOG = []
LOG_LOCK = threading.Lock()


def exponent_field(text):
    """A TLE field such as " 58515-4" (assumed leading decimal point) as a float."""
    text = text.strip()
    if not text:
        return 0.0
    sign = -1.0 if text[0] == "-" else 1.0
    text = text.lstrip("+-")
    mantissa, exponent = text[:-2], text[-2:]
    return sign * float("0." + mantissa) * 10.0 ** int(exponent)


def omm_of(name, line1, line2, number=None):
    year = int(line1[18:20])
    year += 2000 if year < 57 else 1900
    day = float(line1[20:32])
    epoch = time.gmtime(calendar.timegm((year, 1, 1, 0, 0, 0)) + (day - 1) * 86400)
    seconds = ((day - 1) * 86400) % 60
    launch = int(line1[9:11])
    launch += 2000 if launch < 57 else 1900
    return {
        "OBJECT_NAME": name.strip(),
        "OBJECT_ID": "%d-%s" % (launch, line1[11:17].strip()),
        "EPOCH": time.strftime("%Y-%m-%dT%H:%M:", epoch) + "%09.6f" % seconds,
        "MEAN_MOTION": float(line2[52:63]),
        "ECCENTRICITY": float("0." + line2[26:33]),
        "INCLINATION": float(line2[8:16]),
        "RA_OF_ASC_NODE": float(line2[17:25]),
        "ARG_OF_PERICENTER": float(line2[34:42]),
        "MEAN_ANOMALY": float(line2[43:51]),
        "EPHEMERIS_TYPE": 0,
        "CLASSIFICATION_TYPE": "U",
        "NORAD_CAT_ID": number if number is not None else int(line1[2:7]),
        "ELEMENT_SET_NO": int(line1[64:68]),
        "REV_AT_EPOCH": int(line2[63:68]),
        "BSTAR": exponent_field(line1[53:61]),
        "MEAN_MOTION_DOT": float(line1[33:43]),
        "MEAN_MOTION_DDOT": exponent_field(line1[44:52]),
    }


def omm_sets():
    lines = VISUAL.decode().split("\r\n")
    sets = [omm_of(*lines[i:i + 3]) for i in range(0, 9, 3)]
    sets.append(omm_of("NEW SAT", lines[1], lines[2], number=270001))
    broken = omm_of("NO MEAN MOTION", lines[1], lines[2], number=270002)
    broken["MEAN_MOTION"] = ""
    sets.append(broken)
    return sets


OMM = omm_sets()
OMM_JSON = json.dumps(OMM).encode()
OMM_CSV = (",".join(OMM[0].keys()) + "\r\n" +
           "".join(",".join(str(v) for v in s.values()) + "\r\n" for s in OMM)).encode()


class Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.0"

    def log_message(self, *args):
        pass

    def send_body(self, body, status=200, announced=None, content_type="text/plain", headers=()):
        self.send_response(status)
        self.send_header("Content-Type", content_type)
        self.send_header("Content-Length", str(len(body) if announced is None else announced))
        for name, value in headers:
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(body)
        self.wfile.flush()

    def trickle(self, body):
        self.send_response(200)
        self.send_header("Content-Type", "text/plain")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        try:
            for start in range(0, len(body), 1000):
                self.wfile.write(body[start:start + 1000])
                self.wfile.flush()
                time.sleep(0.1)
        except OSError:
            pass  # the client gave up

    def element_file(self, name, fmt):
        if fmt == "json":
            self.send_body(OMM_JSON, content_type="application/json")
        elif fmt == "csv":
            self.send_body(OMM_CSV, content_type="text/csv")
        else:
            self.send_body(IRIDIUM if name == "iridium" else VISUAL)

    def do_GET(self):
        url = urlsplit(self.path)
        if url.path == "/requests":
            with LOG_LOCK:
                text = "".join(line + "\n" for line in LOG)
                LOG.clear()
            self.send_body(text.encode())
            return
        with LOG_LOCK:
            LOG.append("\t".join([self.path, self.headers.get("User-Agent", ""),
                                  self.headers.get("If-None-Match", ""),
                                  self.headers.get("If-Modified-Since", "")]))
        parts = url.path.split("/", 2)
        mode = parts[1] if len(parts) > 2 else ""
        rest = "/" + parts[2] if len(parts) > 2 else ""
        fmt = "tle"
        if rest == "/NORAD/elements/gp.php":
            query = parse_qs(url.query)
            name = query.get("GROUP", [""])[0]
            fmt = query.get("FORMAT", ["csv"])[0].lower()
        elif rest.startswith("/NORAD/elements/") and rest.endswith(".txt"):
            name = rest[len("/NORAD/elements/"):-len(".txt")]
        else:
            mode = "missing"
        if mode == "ok":
            self.element_file(name, fmt)
        elif mode in ("csv", "json"):
            self.element_file(name, mode)
        elif mode == "validators":
            if (self.headers.get("If-None-Match") == ETAG or
                    self.headers.get("If-Modified-Since") == LAST_MODIFIED):
                self.send_response(304)
                self.send_header("ETag", ETAG)
                self.end_headers()
            else:
                self.send_body(VISUAL, headers=[("ETag", ETAG), ("Last-Modified", LAST_MODIFIED)])
        elif mode == "refuse":
            self.send_body(b"Data requested more than once in two hours.\n", status=403)
        elif mode == "busy":
            self.send_body(b"Too many requests.\n", status=429, headers=[("Retry-After", "120")])
        elif mode == "html":
            self.send_body(HTML, content_type="text/html; charset=UTF-8")
        elif mode == "nogp":
            self.send_body(b"No GP data found")
        elif mode == "big":
            self.send_body(BIG)
        elif mode == "empty":
            self.send_body(b"")
        elif mode == "garbage":
            self.send_body(GARBAGE)
        elif mode == "redirect":
            self.send_response(302)
            self.send_header("Location", "/ok/NORAD/elements/moved-" + name + ".txt")
            self.send_header("Content-Length", "0")
            self.end_headers()
        elif mode == "reset":
            self.send_body(VISUAL[:1000], announced=len(VISUAL))
            self.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            self.connection.close()
        elif mode == "slow":
            time.sleep(4)
            self.send_body(VISUAL)
        elif mode == "trickle":
            self.trickle(VISUAL)
        elif mode == "stall":
            self.send_body(VISUAL[:1000], announced=len(VISUAL))
            time.sleep(4)
        else:
            self.send_body(b"not here", status=404)


def main():
    server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    threading.Timer(300, lambda: os._exit(0)).start()
    print(server.server_address[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
