#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs the fuzz targets, built by clang with libFuzzer, ASan and UBSan: fuzz.sh [TARGET] [MINUTES]
# Without a target each of them runs, one after the other; a minute each without a number. Inputs that reach something
# new gather in build/fuzz/corpus/TARGET; one that breaks a reader is written there beside them and ends the run.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
need_packages "${build_packages[@]}" clang

target=${1:-all} minutes=${2:-1}
case $minutes in *[!0-9]* | '') echo "usage: fuzz.sh [TARGET] [MINUTES]" >&2; exit 2 ;; esac
targets=("$target")
if [ "$target" = all ]; then
    targets=()
    for source in tests/fuzz/*.cpp; do
        name=$(basename "$source" .cpp)
        [ "$name" = driver ] || targets+=("$name")
    done
elif [ ! -f "tests/fuzz/$target.cpp" ]; then
    echo "There is no target $target." >&2
    exit 2
fi

build_preset fuzz "${targets[@]/#/fuzz_}"
for name in "${targets[@]}"; do
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    examples=()
    for folder in "tests/data/$name" "tests/fuzz/corpus/$name"; do
        [ ! -d "$folder" ] || examples+=("$folder")
    done
    echo "== $name"
    # The summary has runs, runs a second, coverage and memory.
    found=0
    "build/fuzz/tests/fuzz/fuzz_$name" -max_total_time=$((minutes * 60)) -timeout=10 -rss_limit_mb=2048 \
        -artifact_prefix="$corpus/" -print_final_stats=1 "$corpus" "${examples[@]}" >"$corpus.log" 2>&1 || found=$?
    grep -E 'ERROR|SUMMARY|DONE|stat::|artifact' "$corpus.log" || true
    [ $found -eq 0 ] || { echo "$name: an input breaks it, see $corpus and $corpus.log"; exit 1; }
done
