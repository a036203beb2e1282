#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks formatting and the linter's rules: lint.sh [FILE...], without files all of ours.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
need_packages "${build_packages[@]}" "${test_packages[@]}" clang-format clang-tidy

files=("$@")
if [ $# -eq 0 ]; then mapfile -t files < <(git ls-files '*.cpp' '*.h'); fi
clang-format --dry-run -Werror "${files[@]}"

# A build folder of its own tells the linter how each unit is compiled; nothing is built in it.
cmake -S . -B build/lint -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKELU_E2E=ON >/dev/null
units=()
for file in "${files[@]}"; do
    case $file in
        tests/fuzz/* | bench/*) ;; # other presets compile these
        *.cpp) units+=("$file") ;;
    esac
done
# For gcc, -Wconversion leaves signs alone in C++; .clang-tidy switches clang's wider sense of it off.
printf '%s\n' "${units[@]}" | xargs -r -P "$(nproc)" -n 4 clang-tidy --quiet -p build/lint
