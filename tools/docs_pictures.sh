#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes the pictures of the documents from the running program: docs_pictures.sh APP OUT [SCREEN...]
# Without names it makes all of them.
# It works in a copy of the program's folder APP, with the settings and the workspace that a first start finds and with
# pictures of its own as frames, and leaves one PNG for each screen in OUT. Needs xvfb, xdotool and imagemagick.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/virtual_display.sh"
app=$(realpath "$1") out=$(realpath -m "$2")
shift 2
# The delivered workspace lies in the build that the program comes from; build/app is that of the preset release.
for defaults in "$(dirname "$app")/defaults" "$(dirname "$app")/release/defaults"; do
    [ ! -d "$defaults" ] || break
done

# sunset SINK: a sunset over the sea as a picture of 320 x 240, with the sun SINK pixels lower.
sunset() {
    local y=$((146 + $1))
    convert -size 320x95 'gradient:#241c71-#9965e2' -size 320x65 'gradient:#9965e2-#fa8540' -append \
        -size 320x80 'gradient:#fa8540-#202469' -append +antialias -ordered-dither o4x4,7 \
        -fill '#ffe661' -draw "circle 208,$y 208,$((y - 28))" -fill '#fff6c2' -draw "circle 208,$y 208,$((y - 22))" \
        -fill '#58307d' -draw 'polygon 0,160 0,120 24,104 40,116 70,86 96,118 120,106 160,160' \
        -fill '#75449d' -draw 'polygon 70,86 96,118 84,114 76,122 66,110 58,112 52,104' \
        -fill '#38206d' -draw 'polygon 140,160 190,138 214,150 250,112 282,136 320,108 320,160' \
        -fill '#281850' -draw 'polygon 0,160 40,140 90,160' -fill '#28409d' -draw 'rectangle 0,160 319,239' \
        -fill '#3455d6' -draw 'rectangle 20,168 110,168 rectangle 240,174 310,174 rectangle 60,186 140,186' \
        -draw 'rectangle 4,204 80,205 rectangle 250,214 316,215' \
        -fill '#ffbe71' -draw 'rectangle 186,161 230,162 rectangle 192,165 224,166 rectangle 184,170 234,171' \
        -draw 'rectangle 196,175 220,177 rectangle 188,182 228,183 rectangle 200,190 216,192' \
        -draw 'rectangle 192,199 226,200 rectangle 203,210 214,212' -depth 8 "$2"
}

# frame PICTURE FILE: a picture of 320 x 240 as a frame: a head of 18 bytes, then rows of B, G, R and alpha from the
# bottom.
frame() {
    printf '\0\0\2\0\0\0\0\0\0\0\0\0\100\1\360\0\40\10' >"$2"
    convert "$1" -alpha set -flip -depth 8 bgra:- >>"$2"
}

# A short click on a place of the screen.
click() {
    move_to "$1" "$2"
    xdotool mousedown 1 sleep "$hold" mouseup 1
    sleep 0.25
}

# wheel STEPS X Y: turns the wheel over a place, away from the user when STEPS is above 0.
wheel() {
    move_to "$2" "$3"
    local step button=$(($1 > 0 ? 4 : 5))
    for ((step = 0; step < ${1#-}; step++)); do xdotool click "$button" sleep 0.06; done
}

# user_entry ROW: opens the column of the USER button and takes its entry ROW, from 0 on.
user_entry() {
    click 298 213
    click 290 "$((123 + 10 * $1))"
}

# The tool TEXT at the first place of the menu, and the click with which it begins.
begin_text() {
    press b
    sleep 0.3
    wheel -6 30 200
    click 30 232
    press b
    sleep 0.3
    click 40 30
}

# The screens: a name, and what leads from the drawing menu to it.
screens=(drawing_menu zoomed color_menu favorites brush_tips brush_tools inks text_tool font_browser file_browser
    animation onion_skin options hotkeys schemes help about)
[ $# -eq 0 ] || screens=("$@")
to_drawing_menu() {
    stroke 60 46 64 42 68 42 71 46 74 42 78 42 82 46
    stroke 96 60 99 57 102 57 105 60 108 57 111 57 114 60
    stroke 84 30 86 28 88 28 90 30 92 28 94 28 96 30
    move_to 124 48
}
to_zoomed() {
    move_to 176 142
    for key in 86 86 63; do
        press "$key"
        sleep 0.2
    done
    move_to 230 100
}
to_color_menu() { press c; }
to_favorites() { press p; }
to_brush_tips() { press t; }
to_brush_tools() { press b; }
to_inks() {
    press i
    sleep 0.3
    wheel 3 30 200
    click 30 224
}
to_text_tool() {
    begin_text
    xdotool type --delay 110 'Good evening!'
    wheel 2 140 213
    move_to 160 70
}
to_font_browser() {
    begin_text
    click 160 234
    sleep 0.5
    click 60 158
    sleep 0.5
    click 60 158
    sleep 0.3
    move_to 60 175
}
to_file_browser() {
    press F9
    sleep 0.3
    click 60 158
    sleep 0.3
    move_to 60 190
}
to_animation() {
    press Shift_L z
    sleep 0.4
    click 30 231
    move_to 160 150
}
to_onion_skin() {
    press Next
    sleep 0.3
    press o
    move_to 250 60
}
to_options() { user_entry 0; }
to_hotkeys() { user_entry 1; }
to_schemes() { user_entry 3; }
to_help() {
    user_entry 4
    click 30 58
    sleep 0.3
}
to_about() { user_entry 6; }

# The browser shows the ends of paths: these are alike in every run.
first=$scratch/first/home/painter/kelu copy=$scratch/copy/home/painter/kelu
start_display 1300x1000
export HOME=$scratch/home/people/painter # the browser opens in its folder Pictures
pictures=$HOME/Pictures
mkdir -p "$out" "$first" "${copy%/*}" "$pictures"

# A workspace as the first start finds it, with an evening in six frames in place of its empty one.
copy_program "$app" "$first"
cp -r "$defaults/." "$first"
printf 2 >"$first/config.def"
for frame in 0 1 2 3 4 5; do
    sunset $((frame * 7 - 14)) "$pictures/evening$frame.png"
    frame "$pictures/evening$frame.png" "$first/WORKSPACE/current.00$frame"
done
start_program "$first"
for frame in 0 1 2 3 4 5; do press Next; done
press Home
kill -TERM "$program"
end_program

for screen in "${screens[@]}"; do
    rm -rf "$copy"
    cp -r "$first" "$copy"
    start_program "$copy"
    # The first frames fade in from black.
    sleep 1
    move_to 160 60
    "to_$screen"
    sleep 0.4
    screenshot "$out/$screen.png"
    # The copy goes, and an open screen would wait for the user.
    kill -KILL "$program"
    wait "$program" 2>/dev/null || true
    program=
done
# Few colours and flat areas: a palette and the best compression keep the pictures small.
mogrify -strip -define png:compression-level=9 -define png:compression-filter=0 "$out"/*.png
echo "Pictures of ${#screens[@]} screens are in $out"
