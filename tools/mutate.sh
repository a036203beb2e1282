#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Plants small faults one at a time and names those that no test notices: mutate.sh [--count N] [--seed S] FILE...
# Works on a copy of the tree in build/mutate, so that the sources stay as they are.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
need_packages "${build_packages[@]}" "${display_packages[@]}" "${test_packages[@]}"
exec python3 tools/mutate.py "$@"
