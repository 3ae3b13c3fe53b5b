#!/usr/bin/env bash
# Renders the golden views of tests/golden/ with norvane-cli. Run it only when
# a change to a view is meant to change its pictures, look at every new PNG,
# and say why in the commit.
#   tools/make_goldens.sh build/cli/norvane-cli [OUT-FOLDER]
set -eu
cli=$1
root=$(cd "$(dirname "$0")/.." && pwd)
out=${2:-$root/tests/golden}
. "$root/tests/golden/cases.sh"
for name in "${!golden_cases[@]}"; do
  # shellcheck disable=SC2086
  "$cli" render ${golden_cases[$name]} --out "$out/$name.png" >/dev/null
done
