# SPDX-License-Identifier: MIT
# What the stories share: story.sh is sourced first. Arguments of a story: the program's folder, the folder of tools.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/../../tools/virtual_display.sh"
delivered=$1 tools=$2
app=$scratch/app
copy_program "$delivered" "$app"
frame=tga:$app/WORKSPACE/current.000

# Root may write anywhere; then somebody else is the user where rights matter.
somebody=()
if [ "$(id -u)" -eq 0 ]; then somebody=(setpriv --reuid=65534 --regid=65534 --clear-groups); fi

fail() {
    echo "FAILED: $*"
    echo '--- log'
    cat "$app/FW_log.txt" 2>/dev/null || true
    echo '--- output'
    cat "$scratch/output" 2>/dev/null || true
    exit 1
}

# expect WHAT COMMAND...: the command succeeds now.
expect() {
    local what=$1
    shift
    "$@" >/dev/null 2>&1 || fail "$what"
}

# Messages are compared without their line breaks.
box_says() { tr '\n' ' ' <"$scratch/boxes" | tr -s ' ' | grep -qF -- "$1"; }

log_says() { grep -qF -- "$1" "$app/FW_log.txt"; }

# run_to_end: starts the program where it is expected to stop by itself; prints its result.
run_to_end() { (cd "$app" && timeout 20 "$@" ./kelu >"$scratch/output" 2>&1) && echo 0 || echo $?; }

# pixel PICTURE X Y: its colour. The file of a frame holds its bottom row first.
pixel() { convert "$1" -auto-orient +repage -crop "1x1+$2+$3" -depth 8 txt:- | sed -n 's/.*\(#[0-9A-Fa-f]\{6\}\).*/\1/p'; }

# painted X Y: the stored frame has another colour there than in its corner.
painted() { [ "$(pixel "$frame" "$1" "$2")" != "$(pixel "$frame" 315 5)" ]; }
bare() { ! painted "$1" "$2"; }

# same A B: both files are there and show the same picture.
same() { [ -s "$1" ] && [ "$(convert "$1" rgb:- | cksum)" = "$(convert "$2" rgb:- | cksum)" ]; }

pictures_equal() { [ "$(compare -metric AE "$1" "$2" null: 2>&1)" = 0 ]; }

# shows PICTURE, differs PICTURE: what the window holds at present.
shows() { screenshot "$scratch/now.png" && pictures_equal "$scratch/now.png" "$1"; }
differs() { screenshot "$scratch/now.png" && ! pictures_equal "$scratch/now.png" "$1"; }

# steady: nothing moves on the screen; the picture is then in $scratch/steady.png.
steady() { screenshot "$scratch/steady.png" && sleep 0.4 && shows "$scratch/steady.png"; }

close_button() { "$tools/window_peer" "$window" close; }

# end_by COMMAND...: ends the program by it, in order.
end_by() {
    "$@"
    end_program || fail "result $? after $*"
}
terminate() { kill -TERM "$program"; }
