#!/usr/bin/env bash
# norvane-cli propagate on the report's two element sets (24-character name lines, CRLF).
set -u
cli=$1
tle=$2
source "$(dirname "$0")/check.sh"

# Within metres of the report's printed values (x 2456.10705566 and 2456.04577637 km).
check sgp4 0 '{"x":2456.10' -- "$cli" --json propagate --tle "$tle" --index 0 --tsince 360
check sgp4model 0 '"model":"SGP4","period":89.6238' -- "$cli" --json propagate --tle "$tle" --index 0 --tsince 360
check sgp8 0 '{"x":2456.04' -- "$cli" --json propagate --tle "$tle" --index 0 --tsince 360 --sgp8
check sgp8model 0 '"model":"SGP8"' -- "$cli" --json propagate --tle "$tle" --index 0 --tsince 360 --sgp8
# The epoch as a Julian date: 1980 day 275.98708465.
check jd 0 '{"x":2328.97' -- "$cli" --json propagate --tle "$tle" --index 0 --jd 2444514.48708465
# Deep space: lunar-solar terms of 2080 move the 1980 set by about 3 km from the report.
check sdp4 0 '"model":"SDP4","period":630.137' -- "$cli" --json propagate --tle "$tle" --index 1 --tsince 0
check sdp4deep 0 '"deep_space":1' -- "$cli" --json propagate --tle "$tle" --index 1 --tsince 0
check sdp8 0 '"model":"SDP8"' -- "$cli" --json propagate --tle "$tle" --index 1 --tsince 0 --sgp8
check text 0 'model       SGP4' -- "$cli" propagate --tle "$tle" --index 0 --tsince 0
check noindex 1 'is not a loaded satellite' -- "$cli" propagate --tle "$tle" --index 2 --tsince 0
check bothtimes 2 'give one of --jd and --tsince' -- "$cli" propagate --tle "$tle" --index 0 --jd 1 --tsince 0
check notime 2 'give one of --jd and --tsince' -- "$cli" propagate --tle "$tle" --index 0
check badtime 1 'not a number' -- "$cli" propagate --tle "$tle" --index 0 --tsince abc

finish
