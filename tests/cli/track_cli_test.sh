#!/usr/bin/env bash
# norvane-cli track against the dummy rigctld and rotctld on free local ports:
# a pass of the space station at x60, one JSON object per update, commands
# reaching both daemons; bad options refused. Skipped without the daemons.
cli=$1 data=$2
. "$(dirname "$0")/check.sh"
command -v rigctld >/dev/null && command -v rotctld >/dev/null || { echo "rigctld/rotctld missing: run scripts/setup"; exit 77; }

ports=$(python3 -c 'import socket
s=[socket.socket() for _ in range(2)]
[x.bind(("127.0.0.1",0)) for x in s]
print(*[x.getsockname()[1] for x in s])')
read -r rigport rotport <<<"$ports"
rigctld -m 1 -T 127.0.0.1 -t "$rigport" 2>/dev/null & rigpid=$!
rotctld -m 1 -T 127.0.0.1 -t "$rotport" 2>/dev/null & rotpid=$!
trap 'kill $rigpid $rotpid 2>/dev/null; wait 2>/dev/null' EXIT
sleep 1

# The station passes over this place at 19:12 UTC; three minutes of it before the top.
track=("$cli" track --tle "$data/visual_2017-04-14.txt" --index 106 --lat -41.95 --lon 88.13 --alt 0.05
       --time "2017-04-14 19:09:00" --clock x60 --seconds 3 --period 0.5 --frequencies "$data/Frequencies.txt"
       --rig "127.0.0.1:$rigport" --rot ":$rotport" --az-range 180 --json)
out=$("${track[@]}")
check "seven updates" 0 "" -- test "$(wc -l <<<"$out")" = 7
check "tracking" 0 '"rot_phase":"track"' -- echo "$out"
check "frequency sent" 0 '"commands":["F 4378' -- echo "$out"
check "split uplink" 0 '"I 14598' -- echo "$out"
check "rotator moved" 0 '"P ' -- echo "$out"
check "both connected" 0 '"rig":"connected","rot":"connected"' -- echo "$out"
rx_values=$(python3 -c 'import json,sys; print(*[round(json.loads(l)["rx_hz"]) for l in sys.stdin][-2:])' <<<"$out")
read -r before_rx last_rx <<<"$rx_values"
check "past the top: receding, received lower" 0 "" -- test "$last_rx" -lt 437800000
# The radio holds the last corrected frequency (the one before it, should the last not have gone out).
check "radio on a corrected frequency" 0 "" -- python3 -c "
import socket; s=socket.create_connection(('127.0.0.1',$rigport)); s.sendall(b'f\\n')
f=int(s.recv(64).decode()); assert min(abs(f-$last_rx), abs(f-$before_rx)) <= 10, f"

# Nothing listening: updates go on and say why.
free=$(python3 -c 'import socket; s=socket.socket(); s.bind(("127.0.0.1",0)); print(s.getsockname()[1])')
check "absent daemon" 0 'error: rigctld 127.0.0.1:'"$free"': connection refused' -- \
  "$cli" track --tle "$data/visual_2017-04-14.txt" --index 106 --lat 50 --lon 10 --alt 0 --seconds 1.5 --rig "127.0.0.1:$free" --json
check "bad clock" 1 "--clock" -- "$cli" track --tle "$data/visual_2017-04-14.txt" --index 106 --lat 50 --lon 10 --alt 0 --clock x7 --seconds 0
check "bad endpoint" 1 "HOST:PORT" -- "$cli" track --tle "$data/visual_2017-04-14.txt" --index 106 --lat 50 --lon 10 --alt 0 --rig 4532 --seconds 0
check "bad range" 1 "--az-range" -- "$cli" track --tle "$data/visual_2017-04-14.txt" --index 106 --lat 50 --lon 10 --alt 0 --az-range 270 --seconds 0
finish
