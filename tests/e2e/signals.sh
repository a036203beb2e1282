#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A signal to end keeps the work, also while a menu is open that waits for its user.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000
y=90
for signal in TERM INT HUP; do
    start_program "$app"
    stroke 100 $y 160 $y
    kill -$signal "$program"
    end_program || fail "result $? after $signal"
    frame=tga:$app/WORKSPACE/current.000
    expect "the stroke before $signal is in the file" test "$(pixel "$frame" 130 $y)" != "$(pixel "$frame" 10 $y)"
    y=$((y + 20))
done

start_program "$app"
stroke 100 $y 160 $y
press b # the menu of tools
kill -TERM "$program"
end_program || fail "result $? after TERM in a menu"
expect 'the stroke before the menu is in the file' test "$(pixel "$frame" 130 $y)" != "$(pixel "$frame" 10 $y)"
