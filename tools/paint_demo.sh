#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Paints a small picture with real mouse events: paint_demo.sh APP COPY
# It works in COPY, a copy of the program's folder APP, so that nobody's work is touched, and leaves a screenshot there.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/virtual_display.sh"
app=$(realpath "$1") copy=$(realpath -m "$2")

copy_program "$app" "$copy"
start_display 1600x1200
start_program "$copy"

# A boat on the sea, under the sun.
stroke 110 120 210 120 190 140 130 140 110 120
stroke 160 118 160 60
stroke 158 64 158 112 122 112 158 64
stroke 163 70 163 112 192 112 163 70
stroke 60 146 75 142 90 146 105 142 120 146 135 142 150 146 165 142 180 146 195 142 210 146 225 142 240 146 255 142
sun=()
for ((step = 0; step <= 24; step++)); do
    sun+=($(awk -v a="$step" 'BEGIN { printf "%d %d", 240.5 + 14 * cos(a * 0.2618), 60.5 + 14 * sin(a * 0.2618) }'))
done
stroke "${sun[@]}"

move_to 300 20
screenshot "$copy/screenshot.png"
kill -TERM "$program"
end_program
echo "Painted a picture in the copy $copy; its screenshot is $copy/screenshot.png"
