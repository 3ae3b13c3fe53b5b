#!/usr/bin/env bash
# norvane-cli download against tests/download/element_server.py on 127.0.0.1.
set -u
cli=$1
data=$2
server=$3
work=$(mktemp -d)
"$server" "$data" > "$work/port" &
server_pid=$!
trap 'kill $server_pid 2>/dev/null; rm -rf "$work"' EXIT
for _ in $(seq 50); do [ -s "$work/port" ] && break; sleep 0.1; done
base="http://127.0.0.1:$(head -n 1 "$work/port")"
# The program folder, where the fetch log shared with the window is kept.
export NORVANE_HOME=$work/home
mkdir -p "$NORVANE_HOME"
source "$(dirname "$0")/check.sh"

check visual 0 "{\"format\":\"tle\",\"count\":144,\"skipped\":0,\"path\":\"$work/visual.txt\",\"iridium\":0,\"fetched\":true}" -- \
  "$cli" --json download --server "$base/ok" --category visual --out "$work"
check iridium 0 '"count":92,' -- "$cli" --json download --server "$base/ok" --category Iridium --out "$work"
# Asked again within two hours: the saved copy is loaded, the server is not asked.
check iridium-again 0 '"iridium":1,"fetched":false}' -- "$cli" --json download --server "$base/ok" --category iridium --out "$work"
check iridium-why 0 'Not downloaded again: ' -- "$cli" download --server "$base/ok" --category iridium --out "$work"
[ -s "$NORVANE_HOME/Downloads.json" ] || { echo "FAIL no fetch log"; failures=$((failures + 1)); }
check template 0 "fetched  true" -- \
  "$cli" download --server "$base/ok/NORAD/elements/gp.php?GROUP={group}&FORMAT={format}" --category weather --out "$work"
check csv 0 '{"format":"csv","count":4,"skipped":1,' -- \
  "$cli" --json download --server "$base/csv/NORAD/elements/gp.php?GROUP={group}" --category resources --out "$work"
check html 1 "No element sets in the reply from $base/html/NORAD/elements/noaa.txt: text/html" -- \
  "$cli" download --server "$base/html" --category noaa --out "$work"
check refused 1 "(HTTP 429)" -- "$cli" download --server "$base/busy" --category noaa --out "$work"
check missing 1 "Can't connect to url!" -- "$cli" download --server "$base/missing" --category geo --out "$work"
check reset 1 "Error reading data!" -- "$cli" download --server "$base/reset" --category geo --out "$work"
check nosave 1 "Error saving data to My Documents!" -- "$cli" download --server "$base/ok" --category geo --out "$work/port"
check unknown 1 'unknown category' -- "$cli" download --category nothing --out "$work"
check usage 2 'missing option --category' -- "$cli" download
cmp -s "$work/visual.txt" "$data/visual_2017-04-14.txt" || { echo "FAIL copy differs"; failures=$((failures + 1)); }
[ -e "$work/geo.txt" ] && { echo "FAIL failed downloads left geo.txt"; failures=$((failures + 1)); }
[ -e "$work/noaa.txt" ] && { echo "FAIL an unusable reply left noaa.txt"; failures=$((failures + 1)); }
finish
