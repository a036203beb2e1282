#!/usr/bin/env bash
# Lets clang read all that the preset fuzz builds, with its warnings as errors: check_clang.sh BUILD [CLANG...]
# It makes no code, and headers that most units read are read once, so that this takes a minute and not five. BUILD is
# any build folder, for what is generated. Compilers that aren't installed are left out; one at least must be.
set -euo pipefail
build=$(realpath "$1")
shift
[ $# -gt 0 ] || set -- clang++ clang++-14 clang++-15 clang++-16
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT

cat >"$out/flags" <<END
-std=c++20 -O1 -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Werror
-DALLEGRO_NO_COMPATIBILITY -DALLEGRO_NO_FIX_CLASS -DFUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
-DKELU_VERSION=\\"0\\" -DKELU_BUILD_DATE=\\"0\\"
-Isrc -Itools -Itests/fuzz -I$build/generated $(pkg-config --cflags freetype2 | sed 's/-I/-isystem /g')
END
printf '#include <%s>\n' allegro.h algorithm array cstdint cstdio cstdlib cstring functional memory span string utility \
    vector >"$out/common.h"

# read_files CLANG FOLDERS OPTION...: reads the sources of folders, a few in each process.
read_files() {
    local clang=$1 folders=$2
    shift 2
    find $folders -name '*.cpp' -print0 | sort -z | xargs -0 -n 8 -P "$(nproc)" "$clang" -fsyntax-only "@$out/flags" "$@"
}

read_all() {
    "$1" -x c++-header "@$out/flags" "$out/common.h" -o "$out/common.pch"
    # X11's headers want to be read before Allegro's, and src/platform does so.
    read_files "$1" src/platform
    read_files "$1" "$(echo src/*/ tools tests/fuzz | sed 's,src/platform/,,')" -include-pch "$out/common.pch"
}

tried=()
for clang in "$@"; do
    command -v "$clang" >/dev/null || continue
    version=$("$clang" -dumpversion)
    [[ " ${tried[*]} " != *" $version "* ]] || continue
    read_all "$clang"
    tried+=("$version")
done
[ ${#tried[@]} -gt 0 ] || { echo "none of $* is installed"; exit 1; }
echo "clang ${tried[*]} has nothing to say"
