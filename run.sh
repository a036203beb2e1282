#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the editor and starts it. Where no display is reachable it starts a copy on a
# virtual one, paints a small picture with real mouse events and leaves a screenshot.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"
. tools/packages.sh

# Where xdpyinfo isn't there yet, the socket of a display on this machine has to do.
display_reachable() {
    [ -n "${DISPLAY:-}" ] || return 1
    if command -v xdpyinfo >/dev/null; then
        timeout 10 xdpyinfo >/dev/null 2>&1
    else
        local number=${DISPLAY##*:}
        [ "${DISPLAY%%:*}" != '' ] || [ -S "/tmp/.X11-unix/X${number%%.*}" ]
    fi
}

# All at once, so that somebody who has to ask for packages asks once.
needed=("${build_packages[@]}")
display_reachable || needed+=("${display_packages[@]}")
need_packages "${needed[@]}"
build_preset release

if display_reachable; then
    cd build/app
    exec ./kelu
fi
echo "No display is reachable: painting on a virtual one"
need_packages "${display_packages[@]}"
exec bash tools/paint_demo.sh build/app build/demo
