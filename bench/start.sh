#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# start.sh [FOLDER] [SAMPLES]: from the start of the program in FOLDER (the delivered one, build/app) to its window, to
# the first picture and to the whole one, on a virtual display at scale 3: with one frame, and with 100. The figures
# hold for a machine that has nothing else to do; the load is printed with them.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/.."
folder=${1:-build/app} samples=${2:-5}
. tools/packages.sh
need_packages "${display_packages[@]}" g++ libx11-dev libxext-dev
. tools/virtual_display.sh
g++ -std=c++20 -O2 -Wall -Wextra -o "$scratch/start" bench/start.cpp -lXext -lX11
copy_program "$folder" "$scratch/app"
start_display 1300x1000
cd "$scratch/app"
echo "load before: $(cut -d' ' -f1 /proc/loadavg), $(nproc) processors"
"$scratch/start" ./kelu >/dev/null # makes the workspace
for frames in 1 100; do
    for number in $(seq 1 $((frames - 1))); do
        cp WORKSPACE/current.000 "$(printf 'WORKSPACE/current.%03d' "$number")"
    done
    echo "$frames frames:"
    for _ in $(seq "$samples"); do "$scratch/start" ./kelu; done
done
echo "load after: $(cut -d' ' -f1 /proc/loadavg)"
