#!/usr/bin/env bash
# norvane-cli look --state, sun, moon and planets: keys, units and the quirks they show.
set -u
cli=$1
source "$(dirname "$0")/check.sh"

j2000=(--jd 2451545 --lat 0 --lon -10 --alt 0)
overhead=56.274544,-6999.773795,0,0,0,0  # 621.863 km above 0 N 10 W at J2000

check look_keys 0 '{"azimuth":90,"elevation":89.99999879' -- "$cli" --json look --state $overhead "${j2000[@]}"
check look_west 0 '"sub_lat":0,"sub_lon":349.999999997' -- "$cli" --json look --state $overhead "${j2000[@]}"
check look_refraction 0 '"elevation":89.99815053' -- "$cli" --json look --state $overhead "${j2000[@]}" --refraction
check look_below 0 '"elevation":-39.7696908134' -- "$cli" --json look --state 6378.137,0,0,0,0,1 --jd 2451545 --lat 0 --lon 0 --alt 0
check look_south 0 '"sub_lat":-90,' -- "$cli" --json look --state 0,0,-7000,0,0,1 --jd 2451545 --lat -90 --lon 0 --alt 0
check look_badstate 1 'six numbers wanted' -- "$cli" look --state 1,2,3 "${j2000[@]}"
check look_nostate 2 'look needs --state' -- "$cli" look "${j2000[@]}"
check sun_j2000 0 '{"x":26506801.5494139' -- "$cli" --json sun --jd 2451545 --lat 0 --lon 0 --alt 0
check sun_keys 0 '"distance":147100849.13574073,"azimuth":178.0459871277' -- "$cli" --json sun --jd 2451545 --lat 0 --lon 0 --alt 0
check moon_keys 0 '{"azimuth":257.2811875' -- "$cli" --json moon --jd 2451545 --lat 0 --lon 0 --alt 0
check moon_unreduced 0 '"sub_lon":-58.0153982' -- "$cli" --json moon --jd 2451545 --lat 0 --lon 0 --alt 0
check moon_age 0 '"phase":0.22977678289048414,"age":5.2833565980' -- "$cli" --json moon --jd 2451545 --lat 0 --lon 0 --alt 0
check planets_earth_first 0 '{"name":"Earth          ","x":-26064651.40088' -- "$cli" --json planets --jd 2451545 --lat 0 --lon 0 --alt 0
check planets_mars 0 '{"name":"Mars           ","x":208018964.0403' -- "$cli" --json planets --jd 2451545 --lat 0 --lon 0 --alt 0
check planets_pluto 0 '{"name":"Pluto          "' -- "$cli" --json planets --jd 2451545 --lat 0 --lon 0 --alt 0
check planets_usage 2 'missing option --alt' -- "$cli" planets --jd 2451545 --lat 0 --lon 0
check sun_badnumber 1 'not a number' -- "$cli" sun --jd 2451545 --lat north --lon 0 --alt 0

finish
