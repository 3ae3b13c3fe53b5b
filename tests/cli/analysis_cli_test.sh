#!/usr/bin/env bash
# norvane-cli passes and look --tle: keys, row texts, limits and usage errors.
set -u
cli=$1
data=$2
source "$(dirname "$0")/check.sh"

visual=(--tle "$data/visual_2017-04-14.txt")
london=(--lat 51.5 --lon -0.1 --alt 0.05)
iss=("${visual[@]}" --index 106 --jd 2457858.2748 "${london[@]}")

check look_entry_geometry 0 '{"azimuth":279.4326' -- "$cli" --json look "${iss[@]}"
check look_entry_visibility 0 '"state":3,"state_text":"In sun","magnitude":-20,"illumination":0.1161' -- "$cli" --json look "${iss[@]}"
check look_entry_flare_keys 0 '"antenna":' -- "$cli" --json look "${iss[@]}" --flares
check look_entry_index 1 'not a loaded satellite' -- "$cli" look "${visual[@]}" --index 144 --jd 2457858 "${london[@]}"
check look_both 2 'look needs' -- "$cli" look "${visual[@]}" --state 1,2,3,4,5,6 --index 0 --jd 2457858 "${london[@]}"
check passes_row_limit 0 '"rows":301' -- "$cli" --json passes "${visual[@]}" --start "2017-04-14 12:00:00" --hours 24 "${london[@]}"
check passes_row_texts 0 '"local_time":"2017-4-14 14:' -- "$cli" --json passes "${visual[@]}" --start "2017-04-14 14:00:00" --hours 1 --utc-shift 2 "${london[@]}" --select 106
check passes_sat_blanks 0 '"sat":"ISS (ZARYA)               "' -- "$cli" --json passes "${visual[@]}" --start "2017-04-14 18:30:00" --hours 2 "${london[@]}" --select 106
check passes_flares 0 '"state":5,"state_text":"Flare"' -- "$cli" --json passes --tle "$data/iridium_2014-06-21.txt" --start "2014-06-21 00:00:00" --hours 24 "${london[@]}" --flares
check passes_zero_span 0 '"rows":0' -- "$cli" --json passes "${visual[@]}" --start "2017-04-14 12:00:00" --hours 0 "${london[@]}" --select 106
check passes_bad_select 1 'no selection flag' -- "$cli" passes "${visual[@]}" --start "2017-04-14 12:00:00" --hours 1 "${london[@]}" --select 180
check passes_bad_start 1 'cannot read' -- "$cli" passes "${visual[@]}" --start "2017-04-14" --hours 1 "${london[@]}"
check passes_usage 2 'missing option --hours' -- "$cli" passes "${visual[@]}" --start "2017-04-14 12:00:00" "${london[@]}"

# The pass planner: one record per pass, null AOS for the pass under way at the start, the calendar file.
summary=(passes --summary "${visual[@]}" --start "2017-04-14 12:00:00" --hours 24 "${london[@]}" --select 106,111)
check summary_in_progress 0 '{"sat":"TERRA","slot":111,"catnr":25994,"aos":null,"aos_utc":"","aos_az":null,"tca":' -- "$cli" --json "${summary[@]}"
check summary_pass 0 '"aos_utc":"2017-04-14T20:11:55Z"' -- "$cli" --json "${summary[@]}"
check summary_visible 0 '"visible_start_utc":"2017-04-14T20:11:55Z","visible_end":' -- "$cli" --json "${summary[@]}"
check summary_tally 0 '{"passes":15,"seconds":' -- "$cli" --json "${summary[@]}"
check summary_sgp8 0 '"passes":15,' -- "$cli" --json "${summary[@]}" --sgp8
check summary_min_el 0 '{"passes":6,' -- "$cli" --json "${summary[@]}" --min-el 30
ics=$(mktemp)
check summary_ics 0 '"passes":15' -- "$cli" --json "${summary[@]}" --ics "$ics"
check summary_ics_events 0 '15' -- bash -c "grep -c '^BEGIN:VEVENT' '$ics'"
rm -f "$ics"
check summary_ics_unwritable 1 'cannot write' -- "$cli" "${summary[@]}" --ics /nonexistent/dir/p.ics
check summary_bad_min_el 1 'not an elevation' -- "$cli" "${summary[@]}" --min-el 95
check summary_span_limit 1 'at most 240 hours' -- "$cli" "${summary[@]}" --hours 241
check min_el_needs_summary 2 '--min-el goes with --summary' -- "$cli" passes "${visual[@]}" --start "2017-04-14 12:00:00" --hours 1 "${london[@]}" --min-el 10

finish
