#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The close button while a screen is open: the first press waits for the user, the second doesn't; a signal ends the
# program out of a tool. The work is kept each time.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000

close_button() { "$tools/send_close" "$window"; }
runs() { kill -0 "$program"; }
# ends_at_once WHAT: within two seconds.
ends_at_once() {
    local began
    began=$(date +%s%N)
    end_program || fail "result $? after $1"
    expect "$1 ends the program within two seconds" test $(($(date +%s%N) - began)) -lt 2000000000
}
stroke_is_kept() {
    expect "the stroke before $2 is in the file" \
        test "$(pixel "tga:$app/WORKSPACE/current.000" 130 "$1")" != "$(pixel "tga:$app/WORKSPACE/current.000" 10 "$1")"
}

start_program "$app"
stroke 100 60 160 60
press b # the menu of tools
close_button
sleep 1
expect 'the menu runs on after the first request' runs
screenshot "$scratch/asked.png"
press b
ends_at_once 'leaving the menu'
stroke_is_kept 60 'the first request'

start_program "$app"
stroke 100 80 160 80
press b
screenshot "$scratch/before.png"
expect 'the bar says what the program waits for' differs "$scratch/asked.png"
close_button
sleep 0.3
close_button
ends_at_once 'the second request'
stroke_is_kept 80 'the second request'

start_program "$app"
stroke 100 100 160 100
press Escape # a cel is to be grabbed: two corners
move_to 60 60
xdotool mousedown 1 sleep "$hold" mouseup 1 sleep "$hold"
kill -TERM "$program"
ends_at_once 'TERM in a tool'
stroke_is_kept 100 'TERM in a tool'
