#!/usr/bin/env bash
# Renders the pictures of data/help/Help.htm with norvane-cli.
# usage: tools/make_help_pictures.sh [NORVANE-CLI]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cli=${1:-$root/build/cli/norvane-cli}
where=(--tle "$root/data/visual_2017-04-14.txt" --current 1 --jd 2457858.4 --lat 54.3023 --lon 10.1247 --alt 0.03)
for view in sky map orbit info; do
  "$cli" render "$view" "${where[@]}" --out "$root/data/help/$view.png" >/dev/null
done
"$cli" render gps "${where[@]}" --gps "$root/tests/fuzz/corpus/nmea/kiel_drive.nmea" \
  --out "$root/data/help/gps.png" >/dev/null
