#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# playback.sh [FOLDER] [SECONDS]: whether every position of an animation of 100 frames of 320 x 240 shows at the highest
# speed, 120 a second, at each setting of POWER SAVING MODE. FOLDER is the delivered program (build/app). For a machine
# that has nothing else to do; the load is printed.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$here/.."
folder=${1:-build/app} seconds=${2:-10}
. tools/packages.sh
need_packages "${display_packages[@]}" g++ libx11-dev python3
. tools/virtual_display.sh
g++ -std=c++20 -O2 -Wall -Wextra -o "$scratch/playback" bench/playback.cpp -lX11
start_display 1300x1000

click() {
    move_to "$1" "$2"
    xdotool mousedown 1 sleep "$hold" mouseup 1 sleep "$hold"
}

# frames_and_mode APP MODE: 100 frames of one colour each, and the setting in user.def.
frames_and_mode() {
    python3 - "$1" "$2" <<'END'
import struct
import sys
app, mode = sys.argv[1], int(sys.argv[2])
for n in range(100):
    head = bytes([0, 0, 2] + [0] * 9) + struct.pack("<HHBB", 320, 240, 32, 8)
    with open(f"{app}/WORKSPACE/current.{n:03d}", "wb") as frame:
        frame.write(head + bytes((20 + 2 * n, 64, 235 - 2 * n, 255)) * (320 * 240))
name = f"{app}/resource/user.def"
settings = open(name, "rb").read()
tag = struct.pack(">IIII", 0xDEADBEEF, 10, 0, 1)
at = settings.index(tag) + len(tag)
open(name, "wb").write(settings[:at] + struct.pack(">I", mode) + settings[at + 4:])
END
}

echo "load before: $(cut -d' ' -f1 /proc/loadavg), $(nproc) processors"
for mode in 0 1 2; do
    copy_program "$folder" "$scratch/app"
    cp "$folder"/WORKSPACE/* "$scratch/app/WORKSPACE/"
    cp "$folder/resource/user.def" "$scratch/app/resource/"
    frames_and_mode "$scratch/app" "$mode"
    start_program "$scratch/app"
    sleep 0.5
    press shift z # the selection: all frames, the highest speed
    click 35 233
    move_to 240 221
    for _ in $(seq 10); do xdotool click 4 sleep 0.1; done
    click 221 233
    press z
    sleep 2 # the frames are read
    click 113 153
    move_to 160 200 # its crosshairs are not on the pixel that is watched
    sleep 1
    printf 'power saving %s: ' "$mode"
    "$scratch/playback" "$((100 * scale))" "$((60 * scale))" "$seconds"
    screenshot "${SHOT:-$scratch/shot}$mode.png"
    kill -TERM "$program"
    end_program || true
done
echo "load after: $(cut -d' ' -f1 /proc/loadavg)"
