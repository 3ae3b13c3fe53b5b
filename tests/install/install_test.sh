#!/usr/bin/env bash
# The installation as a user gets it. Installs the build into a scratch root
# (DESTDIR, prefix /usr, stripped), then runs the installed programs with the
# source and build trees out of reach: norvane-cli on the installed example
# file and skins, the window under Xvfb with an empty home, which must seed
# its program folder and show its views. Then the Debian package: its files,
# lintian, the desktop entry and the metainfo.
# usage: install_test.sh BUILD-DIR SOURCE-DIR VERSION GRAB_WINDOW
set -u
build=$(cd "$1" && pwd -P) source=$(cd "$2" && pwd -P) version=$3 grab=$4
. "$source/tests/cli/check.sh"
. "$source/tests/common/xvfb.sh"
for tool in Xvfb xdotool strings lintian desktop-file-validate appstreamcli dpkg-deb cpack; do
  command -v "$tool" >/dev/null || { echo "$tool missing"; exit 77; }
done
work=$(mktemp -d)
xvfb_pid='' app_pid=''
cleanup() {
  [ -n "$app_pid" ] && kill "$app_pid" 2>/dev/null
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT
root=$work/root
share=$root/usr/share/norvane
ok() { passes=$((passes + 1)); }
fail() { echo "FAIL $*"; failures=$((failures + 1)); }

if ! DESTDIR=$root cmake --install "$build" --prefix /usr --strip >"$work/install.log" 2>&1; then
  cat "$work/install.log"; fail "cmake --install"; finish
fi

# What a user of the installed programs needs, and every file of data/ that
# the programs read (not the compiled-in tables, their sources or the element
# files, which are examples).
wanted=(usr/bin/norvane usr/bin/norvane-cli usr/share/man/man1/norvane.1.gz usr/share/man/man1/norvane-cli.1.gz
        usr/share/bash-completion/completions/norvane-cli usr/share/applications/org.norvane.Norvane.desktop
        usr/share/metainfo/org.norvane.Norvane.metainfo.xml usr/share/icons/hicolor/scalable/apps/norvane.svg
        usr/share/doc/norvane/copyright usr/share/doc/norvane/changelog.gz
        usr/share/norvane/examples/visual_2017-04-14.txt usr/share/norvane/examples/iridium_2014-06-21.txt)
for size in 16 22 24 32 48 64 128 256; do wanted+=("usr/share/icons/hicolor/${size}x${size}/apps/norvane.png"); done
while IFS= read -r file; do wanted+=("usr/share/norvane/${file#./}"); done < <(
  cd "$source/data" && find . -type f ! -path './sources/*' ! -name '*.inc' ! -name '*_[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9].*')
missing=0
for file in "${wanted[@]}"; do [ -f "$root/$file" ] || { fail "not installed: /$file"; missing=1; }; done
[ "$missing" = 0 ] && ok

for program in norvane norvane-cli; do
  if strings -a "$root/usr/bin/$program" | grep -F -q -e "$source" -e "$build"; then
    fail "$program holds a path of the build machine"
  else
    ok
  fi
done

# Runs an installed program with the source and build trees hidden under empty
# folders, where this machine allows a private mount namespace.
hidden=()
if unshare -rm sh -c 'mount -t tmpfs none "$1"' sh "$work" 2>/dev/null; then
  hidden=(unshare -rm sh -c 'for d in "$1" "$2"; do [ -d "$d" ] && mount -t tmpfs none "$d"; done; shift 2; exec "$@"'
          sh "$build" "$source")
  if "${hidden[@]}" test -e "$source/CMakeLists.txt"; then fail "the source tree is still in reach"; else ok; fi
else
  echo "note: no private mount namespace here; the strings check stands in for hiding the trees"
fi
cp "$source/tests/golden/map_iss.png" "$work/golden_map.png"
export HOME=$work/home XDG_RUNTIME_DIR=$work/run
unset NORVANE_HOME XDG_CONFIG_HOME XDG_DATA_HOME
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
example=$share/examples/visual_2017-04-14.txt
cli=$root/usr/bin/norvane-cli
check version 0 "norvane-cli $version" -- "${hidden[@]}" "$cli" --version
check window_version 0 "norvane $version" -- "${hidden[@]}" "$root/usr/bin/norvane" --version
check window_help 0 "--zoom 1-4" -- "${hidden[@]}" "$root/usr/bin/norvane" --help
check example 0 '"count":144' -- "${hidden[@]}" "$cli" --json elements --tle "$example"
# The installed skins draw the map exactly as the source tree's do.
"${hidden[@]}" "$cli" render map --tle "$example" --jd 2457858.375 --lat 54.3023 --lon 10.1247 --alt 0.03 \
  --utc-shift 2 --current 106 --out "$work/map.png" >/dev/null 2>&1
if cmp -s "$work/map.png" "$work/golden_map.png"; then ok; else fail "installed skins: map unlike tests/golden/map_iss.png"; fi

# The manual pages name the installed data folder and format without warnings.
for page in norvane norvane-cli; do
  text=$(MANWIDTH=80 man --warnings -l "$root/usr/share/man/man1/$page.1.gz" 2>"$work/man.err")
  if [[ $text == *"/usr/share/norvane/examples"* ]] && [ ! -s "$work/man.err" ]; then ok; else
    fail "man page $page: $(head -3 "$work/man.err")"; fi
done

# The completion: subcommands, options, a choice list, files.
complete_words() {  # complete_words WORD...: the completions of the last word
  bash -c '. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _norvane_cli; echo "${COMPREPLY[*]}"' \
    sh "$root/usr/share/bash-completion/completions/norvane-cli" norvane-cli "$@"
}
check complete_command 0 "render" -- complete_words ren
check complete_option 0 "--clock" -- complete_words render sky --cl
check complete_choice 0 "x1 x10 x30 x60" -- complete_words render --clock x
check complete_view 0 "sky" -- complete_words render s
check complete_file 0 "$share/examples/visual_2017-04-14.txt" -- complete_words elements --tle "$share/examples/vis"

# The window with an empty home: it seeds ~/.local/share/Norvane from the
# installed data and draws its views from it.
start_xvfb "$work"
"${hidden[@]}" "$root/usr/bin/norvane" --tle "$example" --time "2017-04-14 21:00:00" --clock pause >"$work/out.log" 2>&1 &
app_pid=$!
win=$(visible_window Norvane 100)
folder=$HOME/.local/share/Norvane
if [ -z "$win" ]; then
  fail "no window titled Norvane: $(head -5 "$work/out.log")"
else
  ok
  sleep 1
  # Only the window and the load's message are up: a skin that cannot be read
  # would add its "Read bitmap" box.
  names=$(for w in $(xdotool search --onlyvisible --name '.' 2>/dev/null); do xdotool getwindowname "$w"; done | sort | tr '\n' ' ')
  [ "$names" = "Info Norvane " ] && ok || fail "windows up: $names"
  seeded=$(ls "$folder/skins" 2>/dev/null | wc -l)
  if [ "$seeded" = 11 ] && [ -f "$folder/Cities.loc" ] && [ -f "$folder/Help.htm" ] && [ -f "$folder/sky.png" ]; then ok; else
    fail "program folder not seeded: $(ls -R "$folder" 2>&1 | head -5)"; fi
  xdotool windowmove "$win" 0 0
  eval "$(xdotool getwindowgeometry --shell "$win")"
  info_height=$HEIGHT
  # The map and sky buttons at the left of the bottom bar; a corner tap comes back.
  for view in map:16:236:316 sky:48:236:4; do
    IFS=: read -r name x back_x back_y <<<"$view"
    xdotool mousemove --window "$win" "$x" $((info_height - 40)) click 1  # above the status bar
    sleep 1.3
    # A graphic view fills the window with the bare 240 x 320 screen.
    eval "$(xdotool getwindowgeometry --shell "$win")"
    [ "$HEIGHT" = 320 ] && ok || fail "$name view: window height $HEIGHT"
    "$grab" "$win" "$work/$name.png"
    # A view drawn from its skins is a picture of many colours: its PNG is large.
    size=$(stat -c %s "$work/$name.png" 2>/dev/null || echo 0)
    [ "$size" -gt 8000 ] && ok || fail "$name view: screenshot of $size bytes"
    xdotool mousemove --window "$win" "$back_x" "$back_y" click 1
    sleep 0.8
  done
fi

# The Debian package.
if cpack -G DEB -B "$work/package" --config "$build/CPackConfig.cmake" >"$work/cpack.log" 2>&1; then
  deb=$(ls "$work"/package/norvane_*.deb)
  contents=$(dpkg-deb --contents "$deb" | awk '{print $6}')
  absent=0
  for file in "${wanted[@]}"; do [[ $contents == *"./$file"* ]] || { fail "not in the package: /$file"; absent=1; }; done
  [ "$absent" = 0 ] && ok
  depends=$(dpkg-deb -f "$deb" Depends)
  [[ $depends == *libqt6widgets6* && $depends != *-dev* && $depends != *cmake* ]] && ok || fail "Depends: $depends"
  lintian --tag-display-limit 0 "$deb" >"$work/lintian.log" 2>&1
  grep -E '^[EW]: ' "$work/lintian.log"
  grep -q '^E: ' "$work/lintian.log" && fail "lintian reports errors" || ok
else
  cat "$work/cpack.log"; fail "cpack -G DEB"
fi
check desktop 0 "" -- desktop-file-validate "$root/usr/share/applications/org.norvane.Norvane.desktop"
check metainfo 0 "" -- appstreamcli validate --no-net "$root/usr/share/metainfo/org.norvane.Norvane.metainfo.xml"
finish
