#!/usr/bin/env bash
# Makes the pictures of the documents from the running program: docs_pictures.sh APP OUT
# It works in a copy of the program's folder APP, with a picture of its own as the frame, and leaves one PNG for each
# screen in OUT. Needs xvfb, xdotool and imagemagick.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/virtual_display.sh"
app=$(realpath "$1") out=$(realpath -m "$2")

# A sunset over the sea, 320 x 240, as a frame file: a head of 18 bytes, then rows of B, G, R and alpha from the bottom.
paint_scene() {
    printf '\0\0\2\0\0\0\0\0\0\0\0\0\100\1\360\0\40\10' >"$1"
    convert -size 320x95 'gradient:#241c71-#9965e2' -size 320x65 'gradient:#9965e2-#fa8540' -append \
        -size 320x80 'gradient:#fa8540-#202469' -append +antialias -ordered-dither o4x4,7 \
        -fill '#ffe661' -draw 'circle 208,146 208,118' -fill '#fff6c2' -draw 'circle 208,146 208,124' \
        -fill '#58307d' -draw 'polygon 0,160 0,120 24,104 40,116 70,86 96,118 120,106 160,160' \
        -fill '#75449d' -draw 'polygon 70,86 96,118 84,114 76,122 66,110 58,112 52,104' \
        -fill '#38206d' -draw 'polygon 140,160 190,138 214,150 250,112 282,136 320,108 320,160' \
        -fill '#281850' -draw 'polygon 0,160 40,140 90,160' -fill '#28409d' -draw 'rectangle 0,160 319,239' \
        -fill '#3455d6' -draw 'rectangle 20,168 110,168 rectangle 240,174 310,174 rectangle 60,186 140,186' \
        -draw 'rectangle 4,204 80,205 rectangle 250,214 316,215' \
        -fill '#ffbe71' -draw 'rectangle 186,161 230,162 rectangle 192,165 224,166 rectangle 184,170 234,171' \
        -draw 'rectangle 196,175 220,177 rectangle 188,182 228,183 rectangle 200,190 216,192' \
        -draw 'rectangle 192,199 226,200 rectangle 203,210 214,212' \
        -alpha set -flip -depth 8 bgra:- >>"$1"
}

# A short click on a place of the screen.
click() {
    move_to "$1" "$2"
    xdotool mousedown 1 sleep "$hold" mouseup 1
    sleep 0.2
}

# user_entry ROW: opens the column of the USER button and takes its entry ROW, from 0 on.
user_entry() {
    click 298 213
    click 290 "$((123 + 10 * $1))"
}

# The screens: a name, and what leads from the drawing menu to it.
screens=(drawing_menu zoomed color_menu favorites brush_tips brush_tools inks file_browser animation options hotkeys
    schemes help about)
to_drawing_menu() { move_to 160 120; }
to_zoomed() {
    move_to 205 130
    press 86
    press 86
    press 86
}
to_color_menu() { press c; }
to_favorites() { press p; }
to_brush_tips() { press t; }
to_brush_tools() { press b; }
to_inks() { press i; }
to_file_browser() { press F9; }
to_animation() { press Shift_L z; }
to_options() { user_entry 0; }
to_hotkeys() { user_entry 1; }
to_schemes() { user_entry 3; }
to_help() { user_entry 4; }
to_about() { user_entry 6; }

mkdir -p "$out"
start_display 1300x1000

# A workspace as the first start leaves it, with the scene in place of its empty frame.
copy_program "$app" "$scratch/first"
start_program "$scratch/first"
kill -TERM "$program"
end_program
paint_scene "$scratch/first/WORKSPACE/current.000"

for screen in "${screens[@]}"; do
    rm -rf "$scratch/copy"
    cp -r "$scratch/first" "$scratch/copy"
    start_program "$scratch/copy"
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
echo "Pictures of ${#screens[@]} screens are in $out"
