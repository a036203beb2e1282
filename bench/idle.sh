#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What the program costs while nobody touches it: percent of a core, wake-ups a second of all threads and megabytes,
# at each scale. Needs Xvfb.
#
#     bench/idle.sh FOLDER [SCALE ...]
#
# FOLDER is a program folder as the build leaves it, build/app for one; it is copied.
set -eu
folder=$1
shift
scratch=$(mktemp -d)
display=
program=
finish() {
    for process in $program $display; do kill "$process" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$scratch"
}
trap finish EXIT

Xvfb -displayfd 7 -screen 0 3000x2300x24 -nolisten tcp -noreset 7>"$scratch/display" 2>/dev/null &
display=$!
while [ ! -s "$scratch/display" ]; do sleep 0.05; done
DISPLAY=:$(cat "$scratch/display")
export DISPLAY

ticks() { awk '{print $14 + $15}' "/proc/$program/stat"; }
switches() { cat /proc/"$program"/task/*/status | awk '/^voluntary/ {n += $2} END {print n}'; }

cp -r "$folder" "$scratch/app"
cd "$scratch/app"
mkdir -p WORKSPACE
for scale in "${@:-3}"; do
    printf %s "$scale" >config.def
    ./kelu >/dev/null 2>&1 &
    program=$!
    for _ in $(seq 600); do
        grep -q 'Entering program loop' FW_log.txt 2>/dev/null && break
        sleep 0.05
    done
    sleep 4 # the picture fades in
    seconds=20
    busy=$(ticks)
    woken=$(switches)
    sleep "$seconds"
    busy=$(($(ticks) - busy))
    woken=$(($(switches) - woken))
    awk -v scale="$scale" -v busy="$busy" -v woken="$woken" -v s="$seconds" -v hz="$(getconf CLK_TCK)" \
        '/^VmRSS/ {rss = $2} /^RssShmem/ {shared = $2} END {
            printf "scale %d: %.2f %% of a core, %.0f wake-ups a second, %.0f MB (%.0f of them shared with the display)\n",
                   scale, 100 * busy / hz / s, woken / s, rss / 1024, shared / 1024}' "/proc/$program/status"
    for task in /proc/"$program"/task/*; do
        [ -z "${VERBOSE:-}" ] || awk -v t="${task##*/}" '/^voluntary/ {print "  thread " t ": " $2}' "$task/status"
    done
    kill "$program"
    wait "$program" || true
    rm -f FW_log.txt
done
