#!/usr/bin/env bash
# Command-line contract of norvane-cli: outputs, exit codes and messages.
set -u
cli=$1
data=$2
source "$(dirname "$0")/check.sh"

check jd2000 0 '{"jd":2451545,"gmst":4.89496121278' -- "$cli" --json time --date 2000-01-01 --time 12:00:00
check leapquirk 0 '"jd":2454498.5' -- "$cli" --json time --date 2008-02-01 --time 00:00:00
check calendar 0 '{"year":2000,"month":1,"day":1,"hour":12,"minute":0,"second":0' -- "$cli" time --jd 2451545 --json
check visual 0 '{"count":144,"message":"Data of 144 satellites successfully read from' -- "$cli" --json elements --tle "$data/visual_2017-04-14.txt"
check firstsat 0 '{"slot":0,"catnr":694,"name":"ATLAS CENTAUR 2         ","epoch":17104.58156486' -- "$cli" --json elements --tle "$data/visual_2017-04-14.txt"
check iridium 0 '"count":92' -- "$cli" --json elements --tle "$data/iridium_2014-06-21.txt"
omm=$(dirname "$0")/../elements/omm
check ommcsv 0 '"format":"csv","skipped":0}' -- "$cli" --json elements --tle "$omm/visual_2017-04-14.csv"
check ommjson 0 '{"slot":143,"catnr":41337,"name":"ASTRO-H (HITOMI)","epoch":17104.5008649' -- "$cli" --json elements --tle "$omm/visual_2017-04-14.json"
check ommlook 0 '"azimuth":' -- "$cli" --json look --tle "$omm/visual_2017-04-14.json" --index 0 --jd 2457858.5 --lat 50 --lon 10 --alt 0.1
check missing 1 "I can't open the file!" -- "$cli" elements --tle /nonexistent/file.txt
check badnumber 1 'not a number' -- "$cli" time --jd abc
check usage 2 'missing option --tle' -- "$cli" elements
check unknown 2 'unknown subcommand' -- "$cli" frobnicate
check help 0 'elements --tle FILE' -- "$cli" --help

finish
