#!/usr/bin/env bash
# core/ is the bottom layer: none of its files includes settings/, gps/,
# download/ or ui/, and none of its libraries links one of theirs.
# usage: core_layering_test.sh SOURCE-ROOT
set -u
root=$1
status=0
includes=$(grep -rnE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"(settings|gps|download|ui)/' "$root/core")
if [ -n "$includes" ]; then
  echo "core includes a layer above it:"
  echo "$includes"
  status=1
fi
# Libraries of those layers are named settings*, gps_*, download*, ui_*.
links=$(grep -rnE '(DEPS|target_link_libraries)[^)]*[[:space:]](settings|settings_qt|gps_[a-z_]+|download[a-z_]*|ui_[a-z_]+)([[:space:]]|\))' \
  --include=CMakeLists.txt "$root/core")
if [ -n "$links" ]; then
  echo "a core library links a layer above it:"
  echo "$links"
  status=1
fi
[ "$status" = 0 ] && echo "core stands on its own"
exit "$status"
