#!/usr/bin/env bash
# norvane-cli render: every golden view comes out byte for byte as committed
# (tests/golden, made by tools/make_goldens.sh), and the command's failures.
set -u
cli=$1
root=$2
here=$(dirname "$0")
. "$here/check.sh"
. "$root/tests/golden/cases.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for name in "${!golden_cases[@]}"; do
  # shellcheck disable=SC2086
  if "$cli" render ${golden_cases[$name]} --out "$work/$name.png" >/dev/null &&
     cmp -s "$work/$name.png" "$root/tests/golden/$name.png"; then
    passes=$((passes + 1))
  else
    echo "FAIL golden $name: not as tests/golden/$name.png (tools/make_goldens.sh renders it for a look)"
    failures=$((failures + 1))
  fi
done

check tap 0 '"current":73' -- "$cli" --json render map $g_common --select 0,73,106 --tap 84,295 --out "$work/t.png"
check clocktap 0 '"clock":1' -- "$cli" --json render sky $g_common --tap 150,5 --out "$work/t.png"
check info 0 'info' -- "$cli" render info $g_common --out "$work/t.png"
check unknownview 2 'unknown view' -- "$cli" render globe $g_common --out "$work/t.png"
check noview 2 'one view' -- "$cli" render $g_common --out "$work/t.png"
echo "Colour_depth=8" > "$work/bad.settings"
check badsetting 1 'unknown setting Colour_depth' -- "$cli" render sky $g_common --settings "$work/bad.settings" --out "$work/t.png"
check badclock 2 'one of real' -- "$cli" render sky $g_common --clock x2 --out "$work/t.png"
check noskins 0 'Read bitmap night.bmp failed!' -- "$cli" render map $g_common --skins "$work/none" --out "$work/t.png"
finish
