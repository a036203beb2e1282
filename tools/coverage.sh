#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Measures which lines and branches of src/ the unit tests and sessions reach: coverage.sh
# Prints a table by file and the sums; build/coverage/index.html shows each line.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
need_packages "${build_packages[@]}" "${display_packages[@]}" "${test_packages[@]}" gcovr

build_preset coverage
find build/coverage -name '*.gcda' -delete
ctest --test-dir build/coverage -j"$(nproc)" --output-on-failure --no-tests=error
# Branches that only an exception takes are left out: the program throws none of its own.
gcovr --root . --filter src/ --exclude-throw-branches --txt - --html-details build/coverage/index.html build/coverage
