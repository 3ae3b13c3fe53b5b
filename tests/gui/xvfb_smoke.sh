#!/usr/bin/env bash
# Starts the real tracker under Xvfb on the bundled element file, clicks
# through every view with the pointer (image buttons, corner taps), opens the
# "Time" dialog by its button and "Sat selection" from the Edit menu, and
# saves a screenshot of each. Skips (77) without Xvfb or xdotool.
# usage: xvfb_smoke.sh NORVANE GRAB_WINDOW DATA-DIR OUT-DIR
set -u
. "$(dirname "$0")/../common/xvfb.sh"
norvane=$1 grab=$2 data=$3 shots=$4
command -v Xvfb >/dev/null && command -v xdotool >/dev/null || { echo "Xvfb or xdotool missing"; exit 77; }
mkdir -p "$shots"
work=$(mktemp -d)
xvfb_pid= app_pid=
cleanup() {
  [ -n "$app_pid" ] && kill "$app_pid" 2>/dev/null
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT
start_xvfb "$work"
export NORVANE_HOME=$work/home XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work

"$norvane" --tle "$data/visual_2017-04-14.txt" --time "2017-04-14 20:00:00" --clock x60 --zoom 1 \
  >"$work/out.log" 2>&1 &
app_pid=$!
failures=0 passes=0
fail() { echo "FAIL $*"; failures=$((failures + 1)); }
win=$(visible_window Norvane 100)
[ -n "$win" ] || { fail "no window titled Norvane"; cat "$work/out.log"; echo "0 passed, 1 failed"; exit 1; }
xdotool windowmove "$win" 0 0
# The load's "Data of ... successfully read" box stays open beside the window.
box=$(visible_window Info 30)
if [ -n "$box" ]; then passes=$((passes + 1)); xdotool windowmove "$box" 400 0; else fail "no load message"; fi
sleep 0.5

geometry() { xdotool getwindowgeometry --shell "$win"; }
shot() {  # shot NAME: waits for a tick, saves the window
  sleep 1.3
  if "$grab" "$win" "$shots/$1.png" && [ -s "$shots/$1.png" ]; then passes=$((passes + 1)); else fail "screenshot $1"; fi
}
click() { xdotool mousemove --window "$win" "$1" "$2" click 1; sleep 0.3; }
height() { eval "$(geometry)"; echo "$HEIGHT"; }

shot info
eval "$(geometry)"
info_height=$HEIGHT
# The image buttons lie in the bar above the next-pass line at the bottom,
# about 32 pixels apart from the left.
button_y=$((info_height - 40))
names=(map sky orbit gps)
xs=(16 48 80 144)
for i in 0 1 2 3; do
  click "${xs[$i]}" "$button_y"
  full=$(height)
  if [ "$full" = 320 ]; then passes=$((passes + 1)); else fail "${names[$i]}: window height $full, not the bare 320 screen"; fi
  shot "${names[$i]}"
  # Leave full screen: the map's corner is bottom right, the others' top right.
  if [ "${names[$i]}" = map ]; then click 236 316; else click 236 4; fi
  sleep 1.2
  back=$(height)
  if [ "$back" = "$info_height" ]; then passes=$((passes + 1)); else fail "${names[$i]}: no way back ($back)"; fi
done
shot info_after

# dialog_shot TITLE NAME: waits for the dialog, saves it, closes it with Escape
# and checks that the window is back on the information page.
dialog_shot() {
  local d
  d=$(visible_window "$1" 30)
  if [ -z "$d" ]; then fail "no $1 dialog"; return; fi
  sleep 0.5
  if "$grab" "$d" "$shots/$2.png" && [ -s "$shots/$2.png" ]; then passes=$((passes + 1)); else fail "screenshot $2"; fi
  xdotool windowfocus "$d" 2>/dev/null; sleep 0.2; xdotool key Escape; sleep 0.5
  if xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; then fail "$1 stays open"; else passes=$((passes + 1)); fi
  back=$(height)
  if [ "$back" = "$info_height" ]; then passes=$((passes + 1)); else fail "after $1: window height $back"; fi
}
click 112 "$button_y"  # the time button
dialog_shot Time dialog_time
# Edit is the second menu; its third item is "Sat select".
click 50 10
xdotool key Down Down Down Return
dialog_shot "Sat selection" dialog_sat_selection
kill -0 "$app_pid" 2>/dev/null && passes=$((passes + 1)) || fail "the program ended"
echo "$passes passed, $failures failed"
[ "$failures" = 0 ]
