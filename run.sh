#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the editor and starts it. Where no display is reachable it starts a copy on a
# virtual one, paints a small picture with real mouse events and leaves a screenshot.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"
. tools/packages.sh

# All at once, so that somebody who has to ask for packages asks once.
needed=("${build_packages[@]}")
[ -n "${DISPLAY:-}" ] || needed+=("${display_packages[@]}")
need_packages "${needed[@]}"
build_preset release

if [ -n "${DISPLAY:-}" ] && timeout 10 xdpyinfo >/dev/null 2>&1; then
    cd build/app
    exec ./kelu
fi
echo "No display is reachable: painting on a virtual one"
need_packages "${display_packages[@]}"
exec bash tools/paint_demo.sh build/app build/demo
