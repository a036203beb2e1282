#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the editor by other compilers, warnings as errors: check_compilers.sh COMPILER...
# g++ sees more when it optimises, clang++ doesn't: g++ is asked for a release, clang++ for what is fast.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
[ $# -gt 0 ] || { echo "usage: check_compilers.sh COMPILER..." >&2; exit 2; }
need_packages "${build_packages[@]}"

for compiler in "$@"; do
    command -v "$compiler" >/dev/null || { echo "There is no $compiler." >&2; exit 2; }
    flags=(-DCMAKE_BUILD_TYPE=Release)
    case $compiler in *clang*) flags=(-DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0") ;; esac
    folder=build/by-$(basename "$compiler")
    echo "Building by $compiler"
    if ! { cmake -S . -B "$folder" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DKELU_WARNINGS_AS_ERRORS=ON \
               -DKELU_TESTS=OFF "${flags[@]}" && cmake --build "$folder" -- -k 0; } >"$folder.log" 2>&1; then
        grep -E 'error:|warning:' "$folder.log" | sort -u || tail -n 40 "$folder.log"
        exit 1
    fi
done
