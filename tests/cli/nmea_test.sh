#!/usr/bin/env bash
# norvane-cli nmea: decoding from standard input and from a serial device.
set -u
cli=$1
tests=$2
failures=0
passes=0

check() {  # check NAME EXPECTED-STATUS EXPECTED-SUBSTRING OUTPUT STATUS
  if [ "$5" != "$2" ] || [[ "$4" != *"$3"* ]]; then
    echo "FAIL $1: status $5 (want $2), output: ${4:0:400}"
    failures=$((failures + 1))
  else
    passes=$((passes + 1))
  fi
}

nmea() {  # nmea BODY: the sentence with its checksum
  local body=$1 sum=0 i
  for ((i = 0; i < ${#body}; i++)); do
    sum=$((sum ^ $(printf '%d' "'${body:i:1}")))
  done
  printf '$%s*%02X\r\n' "$body" "$sum"
}

out=$("$cli" --json nmea < "$tests/gps/data/kiel_drive.nmea" | sed 's/,"timeStamp":[0-9]*//')
check replay 0 "$(cat "$tests/gps/data/kiel_drive.expected")" "$out" $?

gn=$(nmea "GNRMC,101500.00,A,5418.138,N,01007.482,E,012.5,045.0,210614,001.2,E")
out=$(printf '%s' "$gn" | "$cli" --json nmea)
check gn_ignored 0 '"valid":0,"latitude":0,' "$out" $?
out=$(printf '%s' "$gn" | "$cli" --json nmea --accept-gn)
check gn_accepted 0 '"valid":1,"latitude":54.302299999999995,' "$out" $?

out=$("$cli" --json nmea --wanted GLL < "$tests/gps/data/kiel_drive.nmea" | tail -1)
check gll_only 0 '"valid":1,"latitude":54.302299999999995,"longitude":10.124699999999999,"altitude":0,' "$out" $?
out=$("$cli" nmea --wanted RMC,XYZ < /dev/null 2>&1)
check bad_kind 2 'unknown sentence kind XYZ' "$out" $?
out=$("$cli" nmea --device /nonexistent/tty 2>&1)
check no_device 1 'Could not open the /nonexistent/tty port' "$out" $?
out=$("$cli" nmea < /dev/null)
check empty 0 '' "$out" $?

# A serial line behind a stable name: a pseudo-terminal whose far end sends the
# log and hangs up; a second one then takes the name over (a receiver plugged
# in again) and the reader carries on with it.
if command -v python3 > /dev/null; then
  out=$(python3 - "$cli" "$tests/gps/data/kiel_drive.nmea" <<'PY'
import os, pty, select, subprocess, sys, tempfile, time, tty
def receiver():
    master, slave = pty.openpty()
    tty.setraw(master)
    os.set_blocking(master, False)  # a reader that went away must not stall the script
    path = os.ttyname(slave)
    os.close(slave)
    return master, path
folder = tempfile.mkdtemp()
link = os.path.join(folder, "gps0")
master, path = receiver()
os.symlink(path, link)
cli = subprocess.Popen([sys.argv[1], "--json", "nmea", "--device", link, "--baud", "14400"],
                       stdout=subprocess.PIPE)
time.sleep(0.3)
def send(data):
    try:
        os.write(master, data)
    except OSError:
        pass
for byte in open(sys.argv[2], "rb").read():
    send(bytes([byte]))
    time.sleep(0.0002)
time.sleep(0.5)
os.close(master)
time.sleep(0.3)
master, path = receiver()
os.unlink(link)
os.symlink(path, link)
body = b"GPGGA,120000.00,5130.000,N,00007.000,W,1,05,1.5,35.0,M,,,,"
checksum = 0
for b in body:
    checksum ^= b
sentence = b"$" + body + b"*%02X\r\n" % checksum
out, deadline = b"", time.time() + 10
while time.time() < deadline and b'"latitude":51.5,' not in out:
    send(sentence)
    if select.select([cli.stdout], [], [], 0.2)[0]:
        out += os.read(cli.stdout.fileno(), 65536)
out += cli.stdout.read() if cli.poll() is not None else b""
cli.kill()
cli.wait()
os.close(master)
os.unlink(link)
os.rmdir(folder)
print(out.decode())
PY
)
  check device 0 '"satellitesInView":7,"satellitesInUse":6,' "$out" $?
  check device_reopened 0 '"latitude":51.5,"longitude":-0.11666666666666667,' "$out" $?
else
  echo "python3 missing: the device check is skipped"
fi

echo "$passes passed, $failures failed"
[ "$failures" = 0 ]
