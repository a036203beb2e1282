#!/usr/bin/env bash
# A display that goes away ends the program, and the work is kept.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 1300x1000
start_program "$app"
stroke 100 90 160 90
kill -KILL "$display_server"
wait "$display_server" 2>/dev/null || true
display_server=
end_program && fail 'no failure is told'
expect 'the workspace is written' log_says '[ END ] : Closing log.'
frame=tga:$app/WORKSPACE/current.000
expect 'the stroke is in the file' test "$(pixel "$frame" 130 90)" != "$(pixel "$frame" 10 90)"
