#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Full screen: by a window manager, on one of two screens, without one, and with one that promises it and does nothing.
# The picture is as large as whole factors allow and in the middle, black is around it, and every press lands on the
# pixel that is seen there.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
printf 1 >"$app/config.def"
manager=
trap '[ -z "$manager" ] || kill "$manager" 2>/dev/null || true; clean_up' EXIT

start_manager() {
    openbox --sm-disable --config-file /dev/null >"$scratch/manager" 2>&1 &
    manager=$!
    wait_for 'the window manager' sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id" &&
        xprop -root _NET_SUPPORTED | grep -q _NET_WM_STATE_FULLSCREEN'
}

end_manager() {
    kill "$manager"
    wait "$manager" 2>/dev/null || true
    manager=
    # It leaves its words behind, by which the next one would seem to be there before it is.
    xprop -root -remove _NET_SUPPORTING_WM_CHECK
    xprop -root -remove _NET_SUPPORTED
}

# The window that a user sees: the whole screen.
whole_screen() { xwininfo -root | sed -n 's/.*Window id: \(0x[0-9a-f]*\).*/\1/p'; }

# border_is_black: what lies around the picture on the screen.
border_is_black() {
    import -window root "png24:$scratch/root.png"
    convert "$scratch/root.png" -fill black -draw "rectangle $left,$top $((left + 320 * scale - 1)),$((top + 240 * scale - 1))" \
        "$scratch/border.png"
    [ "$(convert "$scratch/border.png" -format '%[fx:maxima]' info:)" = 0 ]
}

# paint_and_judge WHAT: strokes from inside and from outside of the picture, and where they are in its file.
paint_and_judge() {
    wait_for "black around the picture, $1" border_is_black
    stroke 120 100 170 100
    # A press on the black on the left begins at the picture's edge.
    xdotool mousemove --window "$window" 2 $((top + 60 * scale)) sleep "$hold" mousedown 1 sleep "$hold"
    xdotool mousemove --window "$window" $(physical 40 60) sleep "$hold" mouseup 1 sleep "$hold"
    end_by terminate
    local place
    for place in 120,100 170,100 145,100 0,60 40,60; do expect "$1, paint at $place" painted ${place/,/ }; done
    for place in 116,100 174,100 145,96 145,104 44,60; do expect "$1, no paint at $place" bare ${place/,/ }; done
    rm -rf "$app/WORKSPACE"
}

start_display 1366x1000
start_manager
start_program "$app"
expect 'the state' sh -c "xprop -id $window _NET_WM_STATE | grep -q _NET_WM_STATE_FULLSCREEN"
expect 'a window as large as the screen' test "$scale $left $top" = '4 43 20'
expect 'the scale in the log' log_says '[ INIT ] : Full screen shows 1280x960'
expect 'the request' log_says '[ INIT ] : Requesting 640x480 fullscreen resolution'
paint_and_judge 'by the manager'

# The user leaves full screen by the manager's keys, and the picture stays where the pointer finds it.
start_program "$app"
move_to 250 150
"$tools/window_peer" "$window" leave
smaller() { measure_window && [ "$left" -lt 43 ]; }
wait_for 'a smaller window' smaller
picture_moved() { xwininfo -children -id "$window" | grep -q "1280x960+$left+$top "; }
wait_for 'the picture in its middle' picture_moved
# A press of a pointer that hasn't moved meanwhile.
eval "$(xdotool getmouselocation --shell)"
under_pointer=$(xwininfo -id "$window" | awk -v x="$X" -v y="$Y" -v left="$left" -v top="$top" \
    '/Absolute upper-left X/ { x -= $NF + left } /Absolute upper-left Y/ { y -= $NF + top } END { print int(x / 4), int(y / 4) }')
xdotool mousedown 1 sleep "$hold" mouseup 1 sleep "$hold"
stroke 120 100 170 100
end_by terminate
expect 'paint under the pointer' painted $under_pointer
expect 'paint in the smaller window' painted 145 100
rm -rf "$app/WORKSPACE"

# Of two screens the window gets one, which decides on the scale.
end_manager
xrandr --setmonitor left 700/185x1000/264+0+0 screen
xrandr --setmonitor right 666/176x1000/264+700+0 none
start_manager
start_program "$app"
expect 'a window as large as one screen' test "$scale $left $top" = '2 30 260'
paint_and_judge 'on one of two screens'
xrandr --delmonitor left
xrandr --delmonitor right
end_manager

# Without a manager: a window of its own kind, which has no name.
find_window() { window=$(whole_screen); }
start_program "$app"
paint_and_judge 'without a manager'

# A manager that says it can.
root=$(whole_screen)
"$tools/window_peer" "$root" manager
start_program "$app"
paint_and_judge 'with a manager that does nothing'
