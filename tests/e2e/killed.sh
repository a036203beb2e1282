#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The program killed a second after a stroke, and with a stroke being drawn: the next start shows the picture, says so, and
# brings the committed one by RESTORE. An idle program writes nothing.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000
start_program "$app"

rest() { move_to 310 60; }
kill_program() { kill -KILL "$program" && ! wait "$program" 2>/dev/null; }
rest
wait_for 'a steady picture' steady
cp "$scratch/steady.png" "$scratch/blank.png"
committed=$(sha256sum <"$app/WORKSPACE/current.000")

stroke 90 100 170 100
stroke 90 120 170 150
rest
wait_for 'the strokes' differs "$scratch/blank.png"
wait_for 'a steady picture' steady
cp "$scratch/steady.png" "$scratch/painted.png"
sleep 1
kill_program
expect 'the file of the frame is as it was' test "$(sha256sum <"$app/WORKSPACE/current.000")" = "$committed"

start_program "$app"
expect 'the log tells of it' log_says '[ INFO ] : Work on current.000 was recovered'
rest
wait_for 'the same picture at the next start' shows "$scratch/painted.png" || fail 'another picture at the next start'

# A stroke that is held: all but the last half second is there.
move_to 100 160
xdotool mousedown 1
move_to 200 170
sleep 1.5
kill_program
xdotool mouseup 1
start_program "$app"
rest
wait_for 'the unfinished stroke' differs "$scratch/painted.png"
wait_for 'a steady picture' steady

sleep 5 # whatever the start has changed is written
touch "$scratch/now"
sleep 8
expect 'an idle program writes nothing' test -z "$(find "$app/WORKSPACE" "$app/resource" -newer "$scratch/now")"

press r
wait_for 'the committed picture' shows "$scratch/blank.png"
end_by close_button
expect 'no journal is left' test ! -e "$app/WORKSPACE/journal.000"
