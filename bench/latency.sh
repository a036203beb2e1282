#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# latency.sh [FOLDER] [SAMPLES]: the time from a real event to a pixel of the window, of the program in FOLDER (the
# delivered one, build/app), on a virtual display at scale 3. The figures hold for a machine that has nothing else to
# do; the load is printed with them.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/.."
folder=${1:-build/app} samples=${2:-200}
. tools/packages.sh
need_packages "${display_packages[@]}" g++ libx11-dev libxtst-dev
. tools/virtual_display.sh
g++ -std=c++20 -O2 -Wall -Wextra -o "$scratch/latency" bench/latency.cpp -lXtst -lX11
copy_program "$folder" "$scratch/app"
start_display 1300x1000
start_program "$scratch/app"
# A tip larger than the cursor, under which the pixel of a press would not be seen.
press t
move_to 197 209
xdotool mousedown 1 sleep "$hold" mouseup 1 sleep "$hold"
press t
echo "load before: $(cut -d' ' -f1 /proc/loadavg), $(nproc) processors"
"$scratch/latency" "$window" "$scale" "$samples"
echo "load after: $(cut -d' ' -f1 /proc/loadavg)"
