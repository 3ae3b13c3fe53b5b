#!/usr/bin/env python3
"""Element-set server for the download tests, on 127.0.0.1 only.

The first part of the request path picks the behaviour, the rest is the usual
/NORAD/elements/NAME.txt:
  /ok/...        the bundled file (iridium.txt gets the Iridium file, any other name the visual one)
  /agent/...     a text of the User-Agent header and the request path
  /big/...       40,000 bytes of element sets
  /empty/...     an empty body
  /garbage/...   5,000 bytes of fixed pseudo-random binary
  /redirect/...  302 to the same name under /ok/ with another file name
  /reset/...     announces the whole file, sends 1,000 bytes, then resets the connection
  /slow/...      answers only after 4 s
  /stall/...     sends 1,000 bytes of the body, then nothing for 4 s
  /trickle/...   the bundled file in 1,000-byte pieces, one every 100 ms (about 2.5 s)
  anything else  404
Prints the port on the first line of stdout; exits by itself after five minutes.
"""
import os
import random
import socket
import struct
import sys
import threading
import time
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

DATA = sys.argv[1]


def read(name):
    with open(os.path.join(DATA, name), "rb") as f:
        return f.read()


VISUAL = read("visual_2017-04-14.txt")
IRIDIUM = read("iridium_2014-06-21.txt")
BIG = (VISUAL + IRIDIUM + VISUAL)[:40000]
GARBAGE = bytes(random.Random(7).randrange(256) for _ in range(5000))


class Handler(BaseHTTPRequestHandler):
    def log_message(self, *args):
        pass

    def send_body(self, body, status=200, announced=None):
        self.send_response(status)
        self.send_header("Content-Type", "text/plain")
        self.send_header("Content-Length", str(len(body) if announced is None else announced))
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

    def do_GET(self):
        parts = self.path.split("/", 2)
        mode = parts[1] if len(parts) > 2 else ""
        rest = "/" + parts[2] if len(parts) > 2 else ""
        if not rest.startswith("/NORAD/elements/") or not rest.endswith(".txt"):
            mode = "missing"
        name = rest[len("/NORAD/elements/"):-len(".txt")]
        if mode == "ok":
            self.send_body(IRIDIUM if name == "iridium" else VISUAL)
        elif mode == "agent":
            self.send_body((self.headers.get("User-Agent", "") + "\n" + self.path).encode())
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
