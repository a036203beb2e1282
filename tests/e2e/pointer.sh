#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Real events faster than frames: a press that comes with its motion, a release in motion, a click of no length, a fast
# circle. Each is one call of xdotool without a pause in it.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000
start_program "$app"

at() { echo "mousemove --window $window $(physical "$1" "$2")"; }
move_to 10 10
sleep 0.3

# shellcheck disable=SC2046 # each word is an argument
xdotool $(at 60 60) mousedown 1 $(at 80 60) $(at 100 90) mouseup 1 $(at 200 20)
sleep 0.3
xdotool $(at 30 130) mousedown 1 mouseup 1 $(at 200 20)
sleep 0.3
circle=$(awk -v s="$scale" -v w="$window" 'BEGIN { for (i = 0; i <= 200; ++i) { a = i * 6.2831853 / 200
    printf "mousemove --window %s %d %d ", w, (200 + 50 * cos(a)) * s + 1, (120 + 50 * sin(a)) * s + 1 } }')
xdotool $(at 250 120) mousedown 1 $circle mouseup 1 $(at 20 20)
sleep 0.5
end_by close_button
convert "$frame" -auto-orient +repage -alpha off "$scratch/frame.png" # read once
frame=$scratch/frame.png

expect 'the stroke begins at the press' painted 60 60
expect 'it turns where the pointer turned' painted 80 60
expect 'it ends at the release' painted 100 90
expect 'it goes no further' bare 150 55
expect 'a click of no length leaves a stamp' painted 30 130
for degree in $(seq 0 15 345); do
    place=$(awk -v d="$degree" 'BEGIN { a = d * 3.14159265 / 180
        printf "%d %d", 200 + 50 * cos(a) + 1 / 3, 120 + 50 * sin(a) + 1 / 3 }')
    found=0
    for dx in -1 0 1; do
        for dy in -1 0 1; do
            if painted $((${place% *} + dx)) $((${place#* } + dy)); then found=1; fi
        done
    done
    expect "the circle is round at $degree degrees" test $found = 1
done
