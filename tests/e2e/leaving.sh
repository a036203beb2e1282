#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The close button while a screen is open: the first press waits for the user, the second doesn't; a signal ends the
# program out of a menu and out of a tool. The work is kept each time.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000

runs() { kill -0 "$program"; }
# ends_at_once WHAT Y: within two seconds, with the stroke at that height.
ends_at_once() {
    local began
    began=$(date +%s%N)
    end_program || fail "result $? after $1"
    expect "$1 ends the program within two seconds" test $(($(date +%s%N) - began)) -lt 2000000000
    expect "the stroke before $1 is in the file" painted 130 "$2"
}

start_program "$app"
stroke 100 60 160 60
press b # the menu of tools
close_button
sleep 1
expect 'the menu runs on after the first request' runs
screenshot "$scratch/asked.png"
press b
ends_at_once 'leaving the menu' 60

start_program "$app"
stroke 100 80 160 80
press b
screenshot "$scratch/before.png"
expect 'the bar says what the program waits for' differs "$scratch/asked.png"
close_button
sleep 0.3
close_button
ends_at_once 'the second request' 80

y=100
for signal in INT HUP TERM; do
    start_program "$app"
    stroke 100 $y 160 $y
    if [ $signal = TERM ]; then
        press Escape # a cel is to be grabbed: two corners
        move_to 60 60
        xdotool mousedown 1 sleep "$hold" mouseup 1 sleep "$hold"
    else
        press b
    fi
    kill -$signal "$program"
    ends_at_once "$signal" $y
    y=$((y + 20))
done
