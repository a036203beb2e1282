#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs the fuzz targets, built by clang with libFuzzer, ASan and UBSan: fuzz.sh [TARGET] [MINUTES]
# Without a target each of them runs, one after the other; a minute each without a number. Inputs that reach something
# new gather in build/fuzz/corpus/TARGET; one that breaks a reader is written there beside them and ends the run.
# The target "monkey" runs the whole program, with g++ and our own driver.
#   fuzz.sh TARGET keep    the fewest of them that reach as much become the target's own examples, tests/data/fuzz/TARGET
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
need_packages "${build_packages[@]}" clang

target=${1:-all} minutes=${2:-1}
case $minutes in
    keep) ;;
    *[!0-9]* | '' | 0) echo "usage: fuzz.sh [TARGET] [MINUTES|keep]" >&2; exit 2 ;;
esac
# One a file, and one a row of the table of picture readers.
mapfile -t targets < <(
    find tests/fuzz -name '*.cpp' -printf '%f\n' | grep -vE '^(driver|monkey|pictures)' | sed 's/\.cpp$//'
    sed -n 's/^    {"\([a-z]*\)".*/\1/p' tests/fuzz/pictures.cpp
)
if printf '%s\n' "${targets[@]}" monkey | grep -qx "$target"; then
    targets=("$target")
elif [ "$target" != all ]; then
    echo "There is no target $target." >&2
    exit 2
fi

# shared_examples TARGET: the folders that it has in common with other tests, as tests/fuzz/CMakeLists.txt finds them.
shared_examples() {
    local folder
    for folder in "$1" $(sed -n "s/^$1 //p" tests/data/fuzz/seeds.txt); do
        [ ! -d "tests/data/$folder" ] || echo "tests/data/$folder"
    done
}

# keep_examples TARGET: chooses anew which of the inputs found are examples. Those with names of their own stay.
keep_examples() {
    local own=tests/data/fuzz/$1 corpus=build/fuzz/corpus/$1 anew file
    mkdir -p "$own" "$corpus"
    anew=$(mktemp -d)
    mapfile -t named < <(shared_examples "$1"; find "$own" -type f ! -name 'found-*')
    cp -r "${named[@]/#/$PWD/}" "$anew"
    find "$anew" -type f >"$corpus.named"
    # By the places that are reached; how often would take hundreds of files.
    "build/fuzz/tests/fuzz/fuzz_$1" -set_cover_merge=1 -use_counters=0 -max_len=1024 "$anew" "$own" "$corpus" \
        >"$corpus.log" 2>&1
    rm -f "$own"/found-*
    while read -r file; do rm "$file"; done <"$corpus.named"
    find "$anew" -type f | while read -r file; do
        name=$(basename "$file")
        mv "$file" "$own/found-${name:0:8}"
    done
    rm -r "$anew"
    echo "$1: $(find "$own" -type f | wc -l) examples, $(du -bs "$own" | cut -f1) bytes"
}

# run_monkey: libFuzzer's measuring would take three times as long as the program, and where it has been says little of
# what it has come to. Each run has another start; its inputs make themselves out of it.
run_monkey() {
    local folder=build/asan/monkey
    build_preset asan fuzz_monkey
    mkdir -p "$folder/found" "$folder/start"
    head -c 16 /dev/urandom >"$folder/start/seed"
    echo "== monkey"
    if ! timeout -s ABRT $((minutes * 60 + 300)) build/asan/tests/fuzz/fuzz_monkey $((minutes * 60)) "$folder/found" \
        "$folder/start" >"$folder.log" 2>&1; then
        grep -aE '^Event|ERROR|SUMMARY' "$folder.log" || true
        echo "An input breaks the program, see $folder.log; it does so again, with each event told, by"
        echo "KELU_MONKEY_LOG=1 build/asan/tests/fuzz/fuzz_monkey 0 $folder/found $folder/found"
        exit 1
    fi
    tail -n 1 "$folder.log"
}

if [ "$target" = monkey ]; then
    [ "$minutes" != keep ] || { echo "The monkey has no examples." >&2; exit 2; }
    run_monkey
    exit
fi
build_preset fuzz "${targets[@]/#/fuzz_}"
for name in "${targets[@]}"; do
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    if [ "$minutes" = keep ]; then
        keep_examples "$name"
        continue
    fi
    mapfile -t examples < <(shared_examples "$name"; find tests/data/fuzz -mindepth 1 -type d -name "$name")
    echo "== $name"
    # The summary has runs, runs a second, coverage and memory.
    found=0
    "build/fuzz/tests/fuzz/fuzz_$name" -max_total_time=$((minutes * 60)) -max_len=4096 -timeout=10 \
        -rss_limit_mb=2048 -artifact_prefix="$corpus/" -print_final_stats=1 "$corpus" "${examples[@]}" \
        >"$corpus.log" 2>&1 || found=$?
    grep -aE 'ERROR|SUMMARY|DONE|stat::|artifact' "$corpus.log" || true
    [ $found -eq 0 ] || { echo "$name: an input breaks it, see $corpus and $corpus.log"; exit 1; }
done
if [ "$target" = all ] && [ "$minutes" != keep ]; then run_monkey; fi
