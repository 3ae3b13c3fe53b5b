# The golden views: file name -> norvane-cli render arguments, relative to the
# repository root ($root). Evening of 14 April 2017 at Kiel, 23:00 local time,
# with the element file of that day.
g_common="--tle $root/data/visual_2017-04-14.txt --jd 2457858.375 --lat 54.3023 --lon 10.1247 --alt 0.03 --utc-shift 2 --skins $root/data/skins"
g_gps="--gps $root/tests/gps/data/kiel_drive.nmea"
declare -A golden_cases=(
  [sky_iss]="sky $g_common --current 106 --settings $root/tests/golden/planets.settings"
  [sky_gps_swapped]="sky $g_common $g_gps --current 73 --clock x10 --settings $root/tests/golden/swap.settings"
  [map_iss]="map $g_common --current 106"
  [map_hst_tap]="map $g_common --current 0 --select 0,73,106 --tap 84,295"
  [gps_fix]="gps $g_common $g_gps"
  [gps_off]="gps $g_common"
  [sky_iridium]="sky --tle $root/data/iridium_2014-06-21.txt --jd 2456830.4 --lat 54.3023 --lon 10.1247 --alt 0.03 --skins $root/data/skins --current 3"
  [orbit_iss]="orbit $g_common --current 106 --settings $root/tests/golden/planets.settings"
)
