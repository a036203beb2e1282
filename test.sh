#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, builds the suites and passes all tests, headless. The last line is ctest's.
#   program  the order of the source, and stories of the real program on a virtual display
#   asan     unit tests, sessions and a few seconds of each fuzz target under AddressSanitizer and UBSan
#   tsan     the program with its timers on a thread of their own, under ThreadSanitizer
# The fuzz targets for libFuzzer are built too, by clang, and not run.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")"
. tools/packages.sh

need_packages "${build_packages[@]}" "${display_packages[@]}" "${test_packages[@]}"

suites=(program asan tsan)
mkdir -p build/all
: >build/all/CTestTestfile.cmake
for suite in "${suites[@]}"; do
    build_preset "$suite"
    echo "subdirs(\"$PWD/build/$suite\")" >>build/all/CTestTestfile.cmake
done
build_preset clang tests/fuzz/all
ctest --test-dir build/all -j"$(nproc)" --output-on-failure --no-tests=error
