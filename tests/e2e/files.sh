#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Pictures in and out by real mouse and keys: saved and loaded in the browser, copied and pasted with another program.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000
cd "$scratch"
convert -size 61x43 gradient:red-blue -depth 8 PNG24:small.png
convert -size 900x700 -seed 1 plasma: -depth 8 PNG24:large.png
pictures=$HOME/Pictures # where the browser opens
mkdir -p "$pictures/shelf"
cp small.png "$pictures/shelf/Ramp.png"
cp large.png "$pictures/shelf/zoo.png"
start_program "$app"

type_name() {
    local i
    for ((i = 0; i < ${#1}; i++)); do
        case ${1:i:1} in
        .) press period ;;
        /) press slash ;;
        *) press "${1:i:1}" ;;
        esac
    done
}
click() {
    move_to "$1" "$2"
    xdotool mousedown "${3:-1}" sleep "$hold" mouseup "${3:-1}" sleep "$hold"
}
# frame_is PICTURE: copies the frame, and another program takes it. A copy is renewed once a try.
frame_is() {
    press ctrl c
    timeout 5 xclip -selection clipboard -o -t image/png >taken.png && same taken.png "$1"
}
# shown_row N: the list's row N of the browser at its first place.
shown_row() { click 20 $((115 + 32 + 5 + 6 * $1)); }

# The browser is open when its captions PATH and FILE are there, a dialog when its grey ground is.
captions() { convert "$1" -crop 87x57+6+381 +repage rgb:- | cksum; }
browsing() { screenshot now.png && [ "$(captions now.png)" = "$(captions save.png)" ]; }
asking() { screenshot now.png && [ "$(pixel now.png 210 285)" = '#9E9E9E' ]; }

stroke 90 40 170 60
wait_for 'a steady picture' steady
screenshot bare.png
press F5
wait_for 'the browser' differs bare.png
wait_for 'the whole browser' steady
type_name shelf/art.png
wait_for 'the name in its field' steady
screenshot save.png
press Return
wait_for 'the saved file' test -s "$pictures/shelf/art.png"
wait_for 'the same picture on the clipboard' frame_is "$pictures/shelf/art.png"
expect 'the stroke is in it' test "$(pixel "$pictures/shelf/art.png" 130 50)" != "$(pixel "$pictures/shelf/art.png" 10 200)"

press F9
wait_for 'the open browser' browsing
shown_row 1 # ".." SHELF
wait_for 'the list of the folder' steady
shown_row 2 # ".." ART.PNG RAMP.PNG ZOO.PNG
click 30 $((115 + 118)) # OKAY
wait_for 'the loaded picture' frame_is small.png

# The other way: a larger picture, in pieces, with the question whether the frame should grow.
xclip -selection clipboard -i -t image/png <large.png
press ctrl v
wait_for 'the question' asking
click 90 135 # OKAY
wait_for 'the larger frame' frame_is large.png

# A smaller one floats until a right click anchors it at the corner.
xclip -selection clipboard -i -t image/png <small.png
move_to 300 20
sleep 2.5 # until the message about the copy has gone
wait_for 'the bar without a message' steady
screenshot before.png
press ctrl v
wait_for 'the floating picture' differs before.png
click 300 20 3
composite -geometry +0+0 small.png large.png PNG24:both.png
wait_for 'the anchored picture' frame_is both.png

end_by terminate
