#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Files handed to the program: on its command line and dropped on its window.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
kelu=$app/kelu
cd "$scratch"

# run WORDS...: an answer without a display; prints the result.
run() { env -u DISPLAY timeout 20 "$kelu" "$@" >out 2>err && echo 0 || echo $?; }
expect 'help' test "$(run --help)" = 0
expect 'a text about FILE' grep -q 'FILE  *a picture' out
expect 'a version' test "$(run --version)" = 0
expect 'the form of the version' grep -Eqx 'kelu [0-9.]+ \(built [0-9]{4}-[0-9]{2}-[0-9]{2}\)' out
for wrong in --nonsense -x missing.png . ''; do
    expect "code 2 for '$wrong'" test "$(run "$wrong")" = 2
    expect "usage for '$wrong'" grep -q '^Usage: kelu' err
    expect "no output for '$wrong'" test ! -s out
done
expect 'no log of these' test ! -e "$app/FW_log.txt"

# Pictures of a command line become frames behind the last one, and the first of them is shown.
convert -size 61x43 gradient:red-blue -depth 8 PNG24:'one picture.png'
convert -size 320x240 'xc:#00ff00' -depth 8 GIF:two.gif
start_display 1300x1000
start_program "$app" ./kelu "$scratch/one picture.png" "$scratch/two.gif"
wait_for 'two more frames' test -s "$app/WORKSPACE/current.002"
expect 'the frames' test ! -e "$app/WORKSPACE/current.003"
holds() { screenshot now.png && convert now.png -unique-colors -depth 8 txt:- | grep -q "$1"; }
wait_for 'the red line of the first picture, once the first frames have faded in' holds '#FF0000'
expect 'not the second picture' test "$(pixel now.png 800 300)" != '#00FF00'

# The window tells who owns it, and answers.
says() { xprop -id "$window" "$1" | grep -qE -- "$2"; }
expect 'the process' says _NET_WM_PID "= $(pgrep -P "$program" kelu || echo "$program")\$"
expect 'the machine' says WM_CLIENT_MACHINE "\"$(hostname)\""
expect 'the title in UTF-8' says _NET_WM_NAME 'UTF8_STRING\) = "Kelu v[0-9.]+"'
expect 'the protocols' says WM_PROTOCOLS 'WM_DELETE_WINDOW, _NET_WM_PING'
expect 'icons of several sizes' test "$(xprop -id "$window" _NET_WM_ICON | grep -c 'Icon (')" -ge 3
expect 'the size, which is fixed' says WM_NORMAL_HINTS 'minimum size: 960 by 720'
for _ in 1 2 3 4 5 6 7 8 9 10; do expect 'an answer to a ping' "$tools/window_peer" "$window" ping; done

# Files from a file manager.
expect 'a drop of a picture' "$tools/window_peer" "$window" drop "file://$scratch/two.gif"
wait_for 'another frame' test -s "$app/WORKSPACE/current.003"
green_frame() { screenshot now.png && [ "$(pixel now.png 800 300)" = '#00FF00' ]; }
wait_for 'the dropped picture' green_frame
expect 'what is no file is refused' "$tools/window_peer" "$window" drop-other
expect 'a list without a file of ours' test "$("$tools/window_peer" "$window" drop 'http://localhost/x' && echo 0 || echo $?)" = 1
expect 'a drop of a program that dies' "$tools/window_peer" "$window" drop-dying
expect 'a drop after that' "$tools/window_peer" "$window" drop "file://$scratch/one%20picture.png"
wait_for 'the frame after that' test -s "$app/WORKSPACE/current.004"
end_by terminate
