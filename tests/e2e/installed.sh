#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The program as an administrator installs it: its user can't write where it lies, and has a folder of his own.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
install_program() { cmake --install "$(dirname "$delivered")" --prefix "$scratch/usr" >/dev/null; }
umask 022
install_program
chmod -R a-w "$scratch/usr"
kelu=$scratch/usr/bin/kelu

chmod 755 "$scratch"
start_display 1000x800
chmod 777 "$HOME" "$scratch"

# Without XDG_DATA_HOME, and with one that is no path, the folder is below the home.
app=$HOME/.local/share/kelu
export XDG_DATA_HOME=relative
"${somebody[@]}" mkdir -p "$app" # for the log; empty otherwise
start_program "$app" "${somebody[@]}" "$kelu"
for made in config.def resource/user.def WORKSPACE/current.000 WORKSPACE/current.spa fonts/system.ttf; do
    expect "$made" test -s "$app/$made"
done
expect 'the delivered size of the window' test "$(cat "$app/config.def")" = 3
expect 'no copy of the art' test ! -e "$app/resource/FW_GUI"
stroke 90 40 170 60
end_by terminate

# An update brings other art and other defaults; what is the user's stays.
work=$(cksum <"$app/WORKSPACE/current.000")
expect 'work that is not the delivered frame' test "$work" != "$(cksum <"$scratch/usr/share/kelu/defaults/WORKSPACE/current.000")"
chmod -R u+w "$scratch/usr"
printf 2 >"$app/config.def"
rm -r "$scratch/usr"
install_program
rm "$app/fonts/system.ttf"
ln -s /nowhere/system.ttf "$app/fonts/system.ttf" # a link to the installation before
chmod -R a-w "$scratch/usr"
start_program "$app" "${somebody[@]}" "$kelu"
expect 'the size that the user has chosen' test "$scale" = 2
expect 'the work' test "$(cksum <"$app/WORKSPACE/current.000")" = "$work"
expect 'the font of this installation' cmp "$app/fonts/system.ttf" "$scratch/usr/share/kelu/fonts/system.ttf"
end_by terminate

# A folder elsewhere, with a blank in its name; a first start that was cut short is made good.
export XDG_DATA_HOME="$scratch/data of mine"
app=$XDG_DATA_HOME/kelu
"${somebody[@]}" mkdir -p "$app/.WORKSPACE.kelu-new" "$app/WORKSPACE"
start_program "$app" "${somebody[@]}" "$kelu"
expect 'a whole workspace' test -s "$app/WORKSPACE/current.spa"
expect 'nothing left over' test ! -e "$app/.WORKSPACE.kelu-new"
end_by terminate

# No folder can be made: a box says which, and why.
export XDG_DATA_HOME=/proc
: >"$scratch/boxes"
chmod 666 "$scratch/boxes"
expect 'the end with 255' test "$( ("${somebody[@]}" timeout 20 "$kelu" >"$scratch/output" 2>&1) && echo 0 || echo $?)" = 255
expect 'a box about the folder' box_says "The folder for your work can't be made or written: /proc/kelu"
chmod -R u+w "$scratch/usr"
