#!/usr/bin/env bash
# Files handed to the program: on its command line and dropped on its window.
. "$(dirname "${BASH_SOURCE[0]}")/story.sh"
kelu=$app/kelu
cd "$scratch"

# run WORDS...: an answer without a display; prints the result.
run() { env -u DISPLAY timeout 20 "$kelu" "$@" >out 2>err && echo 0 || echo $?; }
expect 'help' test "$(run --help)" = 0
expect 'a text about FILE' grep -q 'FILE  *a picture' out
expect 'a version' test "$(run --version)" = 0
expect 'the form of the version' grep -Eqx 'kelu [0-9.]+ \(built [0-9]{4}-[0-9]{2}-[0-9]{2}\)' out
for wrong in --nonsense -x missing.png . ''; do
    expect "code 2 for '$wrong'" test "$(run "$wrong")" = 2
    expect "usage for '$wrong'" grep -q '^Usage: kelu' err
    expect "no output for '$wrong'" test ! -s out
done
expect 'no log of these' test ! -e "$app/FW_log.txt"
