#!/usr/bin/env bash
# norvane-cli info and render info on the bundled element file.
# usage: info_cli_test.sh NORVANE-CLI DATA-DIR
cli=$1
data=$2
. "$(dirname "$0")/check.sh"
tle=$data/visual_2017-04-14.txt
where=(--jd 2457858.4 --lat 54.3023 --lon 10.1247 --alt 0.03)
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT

check "info lines" 0 "THOR AGENA D R/B" -- "$cli" info --tle "$tle" --index 1 "${where[@]}"
check "info shape" 0 "Cylindrical shape l.=8.0m r.=1.5m" -- "$cli" info --tle "$tle" --index 1 "${where[@]}"
check "info status" 0 "Passing possible satellite below horison." -- "$cli" info --tle "$tle" --index 1 "${where[@]}"
check "info json utf-8" 0 '°"}' -- "$cli" info --json --tle "$tle" --index 1 "${where[@]}"
# An 8-bit name byte that is no UTF-8 is escaped as Latin-1.
{ printf 'CAF\xe9 SAT\r\n'; sed -n '2,3p' "$tle"; } >"$out/latin1.txt"
check "info json latin-1" 0 '"left":"CAF\u00e9 SAT' -- "$cli" info --json --tle "$out/latin1.txt" --index 0 "${where[@]}"
check "info comparison" 0 '"left":"SxP8-SxP4"' -- "$cli" info --json --tle "$tle" --index 1 --test --sgp8 "${where[@]}"
check "info clock" 0 "Sym time x60 23:36:00" -- "$cli" info --tle "$tle" --index 1 --clock x60 --utc-shift 2 "${where[@]}"
check "info bad index" 1 "--index" -- "$cli" info --tle "$tle" --index 400 "${where[@]}"
check "render info" 0 "info" -- "$cli" render info --tle "$tle" --current 1 "${where[@]}" --out "$out/info.png"
check "render info png" 0 "PNG" -- head -c 4 "$out/info.png"
finish
