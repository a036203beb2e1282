# SPDX-License-Identifier: MIT
# The real program on a virtual display, with real mouse and key events. To be sourced by bash.
#
# All positions are in logical pixels. Events are held for a while: the program looks at mouse and keys 100 times a
# second, and a press that is shorter leaves no trace. Everything lives in $scratch, which goes at the end.

hold=0.06 # seconds

scratch=$(mktemp -d)
display_server= program= window=
scale=3 left=0 top=0 # of the picture in the window: its size and its place

# Ends what was started here, by its own id.
clean_up() {
    [ -z "$program" ] || kill -KILL "$program" 2>/dev/null || true
    [ -z "$display_server" ] || kill "$display_server" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$scratch"
}
trap clean_up EXIT

# wait_for WHAT COMMAND...: runs the command until it succeeds; fails after 20 seconds.
wait_for() {
    local what=$1 until=$((SECONDS + 20))
    shift
    while [ $SECONDS -lt $until ]; do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.05
    done
    echo "Waited in vain for $what" >&2
    return 1
}

# start_display WIDTHxHEIGHT: a server of our own, on a free number. Message boxes go to $scratch/boxes and are closed
# at once. The program finds an empty home folder.
start_display() {
    mkdir -p "$scratch/bin" "$scratch/home"
    Xvfb -displayfd 7 -screen 0 "$1x24" -nolisten tcp -noreset -ac 7>"$scratch/display" >"$scratch/xvfb.log" 2>&1 &
    display_server=$!
    wait_for 'the virtual display' test -s "$scratch/display"
    DISPLAY=:$(cat "$scratch/display")
    cat >"$scratch/bin/xmessage" <<END
#!/bin/sh
printf '%s\n' "\$*" >>"$scratch/boxes"
exit 101
END
    chmod +x "$scratch/bin/xmessage"
    : >"$scratch/boxes"
    PATH=$scratch/bin:$PATH HOME=$scratch/home
    export DISPLAY PATH HOME
}

# copy_program FROM TO: the program's folder as it is delivered, without the work and the settings of its user.
copy_program() {
    rm -rf "$2"
    mkdir -p "$2/WORKSPACE"
    cp "$1/kelu" "$2/"
    cp -r "$1/resource" "$1/fonts" "$2/"
    rm -f "$2/resource/user.def"
    printf 3 >"$2/config.def"
}

find_window() {
    window=$(xdotool search --onlyvisible --name '^Kelu v[0-9.]*$' | head -n 1)
    [ -n "$window" ]
}

# The picture is as large as fits, and in the middle.
measure_window() {
    local WIDTH HEIGHT SCREEN WINDOW X Y
    eval "$(xdotool getwindowgeometry --shell "$window")"
    scale=$((WIDTH * 3 < HEIGHT * 4 ? WIDTH / 320 : HEIGHT / 240))
    left=$(((WIDTH - 320 * scale) / 2)) top=$(((HEIGHT - 240 * scale) / 2))
}

# start_program FOLDER [COMMAND...]: starts ./kelu, or the command, in the folder that has its log, and waits until it
# takes input.
start_program() {
    local folder=$1
    shift
    [ $# -gt 0 ] || set -- ./kelu
    mkdir -p "$folder"
    rm -f "$folder/FW_log.txt"
    (cd "$folder" && exec "$@" >"$scratch/output" 2>&1) &
    program=$!
    wait_for_input "$folder"
}

# wait_for_input FOLDER: until the program that has its log there takes input.
wait_for_input() {
    wait_for 'the start of the program' grep -q 'Entering program loop' "$1/FW_log.txt"
    wait_for 'the window' find_window
    measure_window
    xdotool windowfocus "$window"
    # For a quarter of a second after the start the pointer moves by steps, not to places.
    sleep 0.4
}

has_ended() { ! kill -0 "$1"; }

# end_program: waits for its end; the result is its own.
end_program() {
    local id=$program
    wait_for 'the end of the program' has_ended "$id" || return 1
    program=
    wait "$id"
}

# physical X Y: the pixel of the window in the middle of a logical one.
physical() { echo $((left + $1 * scale + scale / 2)) $((top + $2 * scale + scale / 2)); }

move_to() {
    xdotool mousemove --window "$window" $(physical "$1" "$2")
    sleep "$hold"
}

# stroke X Y [X Y]...: from point to point with the left button down.
stroke() {
    move_to "$1" "$2"
    xdotool mousedown 1
    sleep "$hold"
    while [ $# -ge 2 ]; do
        xdotool mousemove --window "$window" $(physical "$1" "$2") sleep 0.02
        shift 2
    done
    sleep "$hold"
    xdotool mouseup 1
    sleep "$hold"
}

# press KEY...: presses keys together, by X name or key code, and lets them go in the opposite order.
press() {
    local key keys=()
    for key in "$@"; do
        xdotool keydown "$key" sleep "$hold"
        keys=("$key" "${keys[@]}")
    done
    for key in "${keys[@]}"; do
        xdotool keyup "$key" sleep "$hold"
    done
}

screenshot() { import -window "$window" "png24:$1"; }
