#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Plants small faults and names those that no test notices: mutate.sh [--count N] [--seed S] [--jobs N] [--seconds N] PATH...
# PATH is a source file or a folder of them. Works on a copy of the tree in build/mutate, so that the sources stay as
# they are. With ccache it takes a build, a run of the tests, and some seconds a fault.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
need_packages "${build_packages[@]}" "${display_packages[@]}" "${test_packages[@]}" python3-clang
exec /usr/bin/python3 tools/mutate.py "$@"
