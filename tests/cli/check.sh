# Shared by the norvane-cli test scripts (sourced): counts and reports checks.
failures=0
passes=0

check() {  # check NAME EXPECTED-STATUS EXPECTED-SUBSTRING -- COMMAND...
  local name=$1 status=$2 want=$3
  shift 4
  local out rc
  out=$("$@" 2>&1)
  rc=$?
  if [ "$rc" != "$status" ] || [[ "$out" != *"$want"* ]]; then
    echo "FAIL $name: status $rc (want $status), output: ${out:0:400}"
    failures=$((failures + 1))
  else
    passes=$((passes + 1))
  fi
}

finish() {  # prints the tally and exits non-zero on any failure
  echo "$passes passed, $failures failed"
  [ "$failures" = 0 ]
  exit
}
