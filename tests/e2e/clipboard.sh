#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The clipboard with another program, xclip: copy and paste, small and in pieces, and others that misbehave.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
start_display 640x480
cd "$scratch"

# ask COMMAND FILE: has the editor's side do something and leaves its answer in $answer.
coproc probe { "$tools/clipboard_probe"; }
ask() {
    echo "$1 $2" >&"${probe[1]}"
    read -r answer <&"${probe[0]}"
}
# offers TYPE: what is on the clipboard has this type.
offers() { xclip -selection clipboard -o -t TARGETS 2>/dev/null | grep -qx "$1"; }

convert -size 33x21 gradient:red-blue -depth 8 PNG24:small.png
convert -size 900x700 -seed 1 plasma: -depth 8 PNG24:large.png

ask paste out.png
expect 'nothing on the clipboard' test "$answer" = empty

for picture in small large; do
    ask copy $picture.png
    expect "$picture is copied" test "$answer" = copied
    for form in png bmp; do
        expect "$form is offered" offers image/$form
        xclip -selection clipboard -o -t image/$form >taken.$form
        expect "xclip takes $picture as $form" same taken.$form $picture.png
    done
    ask paste own.png
    expect 'our own copy comes back' same own.png $picture.png
done

# Takers that vanish in the middle do no harm.
for _ in 1 2 3; do
    xclip -selection clipboard -o -t image/bmp >/dev/null &
    kill -KILL $!
    wait $! 2>/dev/null || true
done
xclip -selection clipboard -o -t image/png >after.png
expect 'others are served on' same after.png large.png

# xclip goes into the background before it owns the clipboard.
pastes() { rm -f out.png && ask paste out.png && same out.png "$1"; }
for picture in small large; do
    xclip -selection clipboard -i -t image/png <$picture.png
    wait_for "$picture taken as PNG" pastes $picture.png || fail "we don't take $picture as PNG"
    convert $picture.png BMP3:$picture.bmp
    echo text | xclip -selection clipboard -i
    wait_for 'the text on the clipboard' offers UTF8_STRING
    xclip -selection clipboard -i -t image/bmp <$picture.bmp
    wait_for "$picture taken as BMP" pastes $picture.png || fail "we don't take $picture as BMP"
done

takes() { ask paste out.png && [ "$answer" = "$1" ]; }
convert small.png -colors 200 small.gif
convert small.png -quality 95 small.jpg
for type in gif jpeg; do
    xclip -selection clipboard -i -t image/$type <"small.${type/jpeg/jpg}"
    wait_for "a picture that is only a $type" takes '33 x 21'
done
expect 'with its colours' test "$(compare -metric MAE out.png small.png null: 2>&1 | cut -d. -f1)" -lt 1000

echo text | xclip -selection clipboard -i
wait_for 'the text on the clipboard' offers UTF8_STRING
ask paste out.png
expect 'a text is no picture' test "$answer" = empty
head -c 300 small.png | xclip -selection clipboard -i -t image/png
wait_for 'the damaged picture on the clipboard' offers image/png
ask paste out.png
expect 'a damaged picture is none' test "$answer" = empty

# An owner that never answers.
xclip -selection clipboard -i -t image/png -quiet <small.png 2>/dev/null &
owner=$!
sleep 0.3
kill -STOP $owner
started=$(date +%s%N)
ask paste out.png
waited=$((($(date +%s%N) - started) / 1000000))
kill -CONT $owner
kill $owner
expect 'nothing comes from a hanging program' test "$answer" = empty
expect "the wait ends soon, $waited ms" test $waited -lt 5000

ask copy small.png
expect 'we can copy after that' test "$answer" = copied
probe_process=$probe_PID
echo quit >&"${probe[1]}"
wait "$probe_process"
xclip -selection clipboard -o -t TARGETS >left 2>/dev/null || true
expect 'without a manager the content ends with the program' test ! -s left
