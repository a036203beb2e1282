#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A display that goes away ends the program, and the work is kept: whatever paces the frames, also with a menu open.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000

# set_option TAG VALUE: appends the record of a user's option; the last of several counts.
set_option() { printf '\xde\xad\xbe\xef\0\0\0\x'"$1"'\0\0\0\0\0\0\0\1\0\0\0\x'"$2" >>"$app/resource/user.def"; }

limiter=0a pacing=02
y=70
for mode in '2 1' '1 1' '0 1' '2 0'; do # frame limiter, power saving
    set -- $mode
    : >"$app/resource/user.def"
    set_option $limiter "$1"
    set_option $pacing "$2"
    [ -n "$display_server" ] || start_display 1300x1000
    start_program "$app"
    stroke 100 $y 160 $y
    press b # the menu of tools
    kill -KILL "$display_server"
    wait "$display_server" 2>/dev/null || true
    display_server=
    rm "$scratch/display" # the next server writes its own number
    end_program && fail 'no failure is told'
    expect "the workspace is written in mode $mode" log_says '[ END ] : Closing log.'
    expect "the stroke of mode $mode is in the file" painted 130 $y
    y=$((y + 20))
done
