#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Proves that nothing is lost, for as long as one likes: tools/crash_test.sh [SECONDS]
#
# First every failure point of the tests: each call on files fails or the program ends there, and the next start is
# judged. Then the real program on a virtual display: it is painted on and killed at random moments, started again, and
# every stroke that was finished more than a second before must be there, in frames that are whole. The folders of the
# program and of the tests stand in KELU_APP (build/app) and KELU_UNIT (build/dev/tests/kelu_unit). The last line says
# how it went.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
seconds=${1:-60}
delivered=$(readlink -f "${KELU_APP:-build/app}")
unit=$(readlink -f "${KELU_UNIT:-build/dev/tests/kelu_unit}")
. tools/virtual_display.sh
app=$scratch/app
frames=3
most_lost=1000000000 # nanoseconds: what was finished so long before the end is on disk

# --- the failure points, a share of them a processor

points() {
    local shares i ids=()
    shares=$(nproc)
    for ((i = 0; i < shares; i++)); do
        GTEST_TOTAL_SHARDS=$shares GTEST_SHARD_INDEX=$i KELU_ALL_FAILURES=1 TMPDIR=$([ -d /dev/shm ] && echo /dev/shm || echo /tmp) \
            "$unit" --gtest_filter='*FailurePoints*:*SingleFiles*:AlternateTest*:RunningWorkTest.NoFailure*:FolderLock*' \
            >"$scratch/points.$i" 2>&1 &
        ids+=($!)
    done
    local good=1 id
    for id in "${ids[@]}"; do wait "$id" || good=0; done
    sed -n 's/^\([A-Za-z]* [A-Za-z]*: [0-9]* points.*\)/  \1/p' "$scratch"/points.* | sort
    awk '/ points, / { p += $3; o += $5; n += $7; m += $9; s += $11 }
        END { printf "all points: %d tried, %d old, %d new, %d mixed, %d silent\n", p, o, n, m, s }' "$scratch"/points.*
    [ $good = 1 ] || { grep -h -A4 'Failure$' "$scratch"/points.* | head -40; exit 1; }
}

# --- random moments of the real program

now() { date +%s%N; }

# The place of stroke number $1 on its frame: a short line, apart from all others.
place() { x=$((10 + $1 % 14 * 22)) y=$((14 + $1 / 14 % 22 * 8)); }

# Paints until it is killed; the strokes that are finished go to $scratch/strokes: time, number, frame.
paint() {
    local number=$1 frame=$2
    while :; do
        place "$number"
        stroke "$x" "$y" $((x + 12)) "$y" 2>/dev/null || return 0
        echo "$(now) $number $frame" >>"$scratch/strokes"
        number=$((number + 1))
        if [ $((RANDOM % 4)) = 0 ]; then
            press Next 2>/dev/null || return 0
            frame=$(((frame + 1) % frames))
        fi
    done
}

# level FRAME X Y: sum of the channels of a stored pixel.
level() { od -An -tu1 -j $((($3 * 320 + $2) * 3)) -N3 "$scratch/frame.$1" | awk '{ print $1 + $2 + $3 }'; }

# judge KILLED: what the program left; prints what is wrong.
judge() {
    local frame time number at
    ls "$app"/WORKSPACE | grep '^damaged' && return
    for ((frame = 0; frame < frames; frame++)); do
        convert "tga:$app/WORKSPACE/current.00$frame" -auto-orient +repage -depth 8 "rgb:$scratch/frame.$frame" 2>/dev/null &&
            [ "$(stat -c %s "$scratch/frame.$frame")" = $((320 * 240 * 3)) ] || { echo "frame $frame isn't whole"; return; }
    done
    while read -r time number frame; do
        place "$number"
        [ $((time + most_lost)) -lt "$1" ] || continue
        [ "$(level "$frame" $((x + 6)) "$y")" -gt 0 ] || echo "stroke $number of frame $frame is lost"
    done <"$scratch/strokes"
}

kills() {
    local round=0 number=0 frame=0 until=$((SECONDS + seconds)) painter killed wrong i
    start_display 1300x1000
    copy_program "$delivered" "$app"
    start_program "$app"
    kill -TERM "$program"
    end_program
    for ((i = 1; i < frames; i++)); do cp "$app/WORKSPACE/current.000" "$app/WORKSPACE/current.00$i"; done
    : >"$scratch/strokes"
    while [ $SECONDS -lt $until ]; do
        start_program "$app"
        paint $number $frame &
        painter=$!
        sleep "$((RANDOM % 6 + 1)).$((RANDOM % 10))"
        killed=$(now)
        kill -KILL "$program"
        kill "$painter" 2>/dev/null || true
        wait "$painter" "$program" 2>/dev/null || true
        xdotool mouseup 1 keyup Next
        # The next start finds what there is; its end brings it to the files that are judged.
        start_program "$app"
        kill -TERM "$program"
        end_program || { echo "round $round: the start after it failed"; exit 1; }
        wrong=$(judge "$killed")
        [ -z "$wrong" ] || { echo "round $round: $wrong"; tail -20 "$app/FW_log.txt"; exit 1; }
        round=$((round + 1))
        # Begin anew: black frames, the first of them current.
        number=$(((number + 97) % 300)) frame=0
        rm -rf "$app/WORKSPACE"
        start_program "$app"
        kill -TERM "$program"
        end_program
        for ((i = 1; i < frames; i++)); do cp "$app/WORKSPACE/current.000" "$app/WORKSPACE/current.00$i"; done
        strokes=$((${strokes:-0} + $(wc -l <"$scratch/strokes")))
        : >"$scratch/strokes"
    done
    echo "random moments: $round kills, ${strokes:-0} strokes, nothing lost"
}

points
kills
