#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Start, stroke, undo, stroke, quit by the close button, start again: the same picture. Then quit by Shift+Q on another
# keyboard layout.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000
start_program "$app"

rest() { move_to 310 60; }
rest
wait_for 'a steady picture' steady # it fades in from black
cp "$scratch/steady.png" "$scratch/blank.png"

stroke 90 100 170 100
rest
wait_for 'the first stroke' differs "$scratch/blank.png"
press u
wait_for 'the picture before the stroke' shows "$scratch/blank.png"
stroke 90 120 170 150
rest
wait_for 'the second stroke' differs "$scratch/blank.png"
screenshot "$scratch/painted.png"
end_by close_button
expect 'the end is in the log' log_says '[ END ] : Closing log.'
expect 'the first stroke is gone from the file' bare 130 100
expect 'the second stroke is in the file' painted 130 135

start_program "$app"
rest
wait_for 'the same picture at the next start' shows "$scratch/painted.png" || fail 'another picture at the next start'
setxkbmap fr
press 50 24 # left shift, and the key in the place of Q
end_program || fail "result $? after Shift+Q"
