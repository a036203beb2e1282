#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Start, stroke, undo, stroke, quit by the close button, start again: the same picture. Then quit by Shift+Q on another
# keyboard layout.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000
start_program "$app"

rest() { move_to 310 60; }
rest
# The picture fades in from black; it stands once two screenshots are the same.
steady() { screenshot "$scratch/blank.png" && sleep 0.3 && shows "$scratch/blank.png"; }
wait_for 'a steady picture' steady

stroke 90 100 170 100
rest
wait_for 'the first stroke' differs "$scratch/blank.png"
press u
wait_for 'the picture before the stroke' shows "$scratch/blank.png"
stroke 90 120 170 150
rest
wait_for 'the second stroke' differs "$scratch/blank.png"
screenshot "$scratch/painted.png"
"$tools/send_close" "$window"
end_program || fail "result $? after the close button"
expect 'the end is in the log' log_says '[ END ] : Closing log.'

frame=tga:$app/WORKSPACE/current.000
background=$(pixel "$frame" 10 100)
expect 'the first stroke is gone from the file' test "$(pixel "$frame" 130 100)" = "$background"
expect 'the second stroke is in the file' test "$(pixel "$frame" 130 135)" != "$background"

start_program "$app"
rest
wait_for 'the same picture at the next start' shows "$scratch/painted.png" || fail 'another picture at the next start'
setxkbmap fr
press 50 24 # left shift, and the key in the place of Q
end_program || fail "result $? after Shift+Q"
