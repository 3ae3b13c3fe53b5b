# Shell helpers for the tests that drive the real window under Xvfb; sourced.

# start_xvfb WORK: starts Xvfb on a display number it picks itself (other test
# runs may hold theirs), sets xvfb_pid, exports DISPLAY and QT_QPA_PLATFORM=xcb
# and waits until xdotool reaches the display.
start_xvfb() {
  Xvfb -displayfd 3 -screen 0 800x800x24 -nolisten tcp 3>"$1/display" >/dev/null 2>&1 &
  xvfb_pid=$!
  for _ in $(seq 300); do [ -s "$1/display" ] && break; sleep 0.1; done  # a loaded machine starts Xvfb slowly
  DISPLAY=":$(head -1 "$1/display")"
  export DISPLAY QT_QPA_PLATFORM=xcb
  for _ in $(seq 50); do xdotool getmouselocation >/dev/null 2>&1 && break; sleep 0.1; done
}

# visible_window TITLE TRIES: prints the id of a shown window titled exactly
# TITLE, looking every 0.1 s at most TRIES times; prints nothing if none shows.
visible_window() {
  local id=
  for _ in $(seq "$2"); do
    id=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -1)
    [ -n "$id" ] && break
    sleep 0.1
  done
  echo "$id"
}
