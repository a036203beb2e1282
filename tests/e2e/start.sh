#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What stops the start, and the modes that a small desktop allows.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"

permissions='This program REQUIRES read and write permissions where it'\''s located. You can try the following actions: - Move the program to a different location. - Run the program as Administrator.'

start_display 1000x800
echo 'the last run' >"$app/FW_log.txt"
chmod -R a+rwX "$scratch"
for obstacle in 'chmod 444' rm; do # a config.def that can't be written, and none
    $obstacle "$app/config.def"
    : >"$scratch/boxes"
    expect "the end with 255 after $obstacle" test "$(run_to_end "${somebody[@]}")" = 255
    expect "the box of permissions after $obstacle" box_says "$permissions"
    expect "the last log after $obstacle" log_says 'the last run'
done

# 1280 x 960 is too large, 960 x 720 fits.
printf 4 >"$app/config.def"
start_program "$app"
expect 'the first request' log_says '[ INIT ] : Requesting 1280x960 windowed resolution'
expect 'the second request' log_says '[ INIT ] : Requesting 960x720 windowed resolution'
expect 'the smaller window' test "$scale" = 3
end_by terminate

# Any other byte is a window of 640 x 480.
printf x >"$app/config.def"
start_program "$app"
expect 'a warning' log_says '[ WARNING ] : Unknown video mode. Assuming windowed.'
expect 'the smallest window' test "$scale" = 2
end_by terminate

# Without the program's own font, and without another, there is nothing to write with.
mv "$app/fonts/system.ttf" "$scratch"
: >"$scratch/boxes"
expect 'a missing font ends with 255' test "$(run_to_end)" = 255
expect 'a line about both fonts' log_says '[ ERROR ] : Preferred font AND system font are missing. Reinstall program!'
expect 'the box of the font' box_says 'System font file is missing. Please reinstall the application.'
mv "$scratch/system.ttf" "$app/fonts"

# Nothing fits.
kill "$display_server"
wait "$display_server" 2>/dev/null || true
rm "$scratch/display"
start_display 500x400
printf 3 >"$app/config.def"
expect 'no mode ends with 255' test "$(run_to_end)" = 255
expect 'the last request' log_says '[ INIT ] : Requesting 640x480 windowed resolution'
expect 'the refusal' log_says '[ INIT ] : Resolution DENIED!'
expect 'the box' box_says "Your system didn't like the specified resolution!"

# No display at all: a line, and no crash.
DISPLAY= expect 'no display ends with 255' test "$(run_to_end env -u DISPLAY)" = 255
expect 'a line about the display' grep -qi display "$scratch/output"
