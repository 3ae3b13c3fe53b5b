#!/usr/bin/env bash
# Renders the screenshots of the AppStream metainfo (packaging/screenshots/)
# with norvane-cli: the bundled bright satellites over Kiel on the evening of
# 14 April 2017, with COSMOS 1455 high in the sky. usage: tools/make_screenshots.sh [NORVANE-CLI]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cli=${1:-$root/build/cli/norvane-cli}
out=$root/packaging/screenshots
mkdir -p "$out"
where=(--tle "$root/data/visual_2017-04-14.txt" --jd 2457858.3451 --lat 54.3023 --lon 10.1247 --alt 0.03
       --skins "$root/data/skins")
"$cli" render sky "${where[@]}" --current 31 --out "$out/sky.png" >/dev/null
"$cli" render map "${where[@]}" --current 31 --out "$out/map.png" >/dev/null
"$cli" render info "${where[@]}" --current 31 --out "$out/info.png" >/dev/null
