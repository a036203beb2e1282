#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What newcomers and writers of the documents start: the demonstration where there is no display, and the pictures.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
tools_folder=$here/../../tools

bash "$tools_folder/paint_demo.sh" "$delivered" "$scratch/demo" >"$scratch/output" 2>&1 || fail 'the demonstration'
expect 'the place of the screenshot' grep -qF "$scratch/demo/screenshot.png" "$scratch/output"
expect 'the mast of the boat' test "$(pixel "$scratch/demo/screenshot.png" $((160 * 3 + 1)) $((90 * 3 + 1)))" != '#000000'
expect 'nothing new in the delivered folder' test ! -e "$delivered/screenshot.png"

bash "$tools_folder/docs_pictures.sh" "$delivered" "$scratch/pictures" drawing_menu >"$scratch/output" 2>&1 || fail 'the pictures'
expect 'no other picture' test "$(ls "$scratch/pictures")" = drawing_menu.png
expect 'the size of the picture' test "$(identify -format '%wx%h' "$scratch/pictures/drawing_menu.png")" = 640x480
expect 'the evening over the sea' test "$(identify -format '%k' "$scratch/pictures/drawing_menu.png")" -gt 20
