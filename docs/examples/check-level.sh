#!/bin/sh
# Sets a tone of a given level, waits until the meters show it, and takes a screenshot.
#   check-level.sh [LEVEL_DBFS]
# Exit code: 0 the level is right, 1 it is not, or something does not answer. Needs wz_datacore and wz_console.
set -eu
level=${1:--20}

# From a cold start: the instrument is there when it has a value, the client when it can tell the instrument something.
wz_datacore wait configCoreRouter/toneGenerator/level --timeout 30 >/dev/null
tries=0
until wz_console --timeout 30 execute reset-peak-hold >/dev/null; do
    tries=$((tries + 1))
    [ "$tries" -lt 100 ]
    sleep 0.2
done

wz_console execute close-layout-windows >/dev/null
wz_console execute open-audio-metering >/dev/null
wz_datacore set configCoreRouter/signalSource/name tone
wz_datacore set configCoreRouter/toneGenerator/level -- "$level"

# What the meters show on channel 1.
right=no
tries=0
while [ "$right" = no ] && [ "$tries" -lt 10 ]; do
    tries=$((tries + 1))
    shown=$(wz_datacore meters --json --count 5 | tail -n 1 | sed 's/.*"instantPeakDb":\[\([-0-9.]*\).*/\1/')
    right=$(awk -v a="$shown" -v b="$level" 'BEGIN { d = a - b; print (d < 0.2 && d > -0.2) ? "yes" : "no" }')
done

wz_console execute take-screenshot | tail -n 1
echo "wanted $level dBFS, shown $shown dBFS"
[ "$right" = yes ]
