#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Tries the Debian package of the newest commit, as root: tools/package_test.sh
#
# Builds it twice, in two folders, and compares the bytes; has Debian's and AppStream's checkers look at it; installs it
# into a bare system, starts it there as an ordinary user on a virtual display, upgrades and removes it, and looks
# whether all of the user's work is there. The last line says that all of it went well.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# build_at FOLDER: the commit, built and packed there.
build_at() {
    git clone -q --no-checkout . "$1"
    (
        cd "$1"
        git checkout -q --detach "$commit"
        build_preset package
        cpack --preset package >build/cpack.log 2>&1 || { cat build/cpack.log; exit 1; }
    )
}

# --- in a bare system: what follows runs in namespaces of its own, so that its mounts and processes go with it

in_system() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@"; }

# apt ACTION WORD...: quiet unless it fails.
apt() {
    in_system apt-get -y -qq --no-install-recommends "$@" >"$scratch/apt" 2>&1 || { cat "$scratch/apt"; fail "apt-get $*"; }
}

start_installed() {
    rm -f "$data/FW_log.txt"
    "${as_user[@]}" kelu "$@" >"$scratch/output" 2>&1 &
    program=$!
    wait_for_input "$data" || { cat "$scratch/output"; fail 'the start'; }
}

finish() {
    kill -TERM "$program"
    end_program || fail "result $? at the end of the program"
}

# What the user has, as one word; the log isn't the user's.
users_files() { (cd "$data" && find . -type f ! -name FW_log.txt -print0 | sort -z | xargs -0 cksum | cksum); }

try_in_system() {
    root=$1 old=$2 new=$3
    data=$root/home/painter/.local/share/kelu
    . tools/virtual_display.sh
    mount -t proc proc "$root/proc"
    mkdir -p "$root/tmp/.X11-unix"
    mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
    in_system useradd -m painter
    cp "$old" "$root/old.deb"
    cp "$new" "$root/new.deb"
    start_display 1300x1000
    as_user=(chroot --userspec=painter:painter "$root" env -i HOME=/home/painter PATH=/usr/bin:/bin DISPLAY="$DISPLAY")

    echo 'Installing it, and the first start'
    apt update
    apt install /old.deb
    "${as_user[@]}" env -u DISPLAY kelu --version | grep -q '^kelu [0-9.]* ' || fail 'no version'
    start_installed
    stroke 90 40 170 60
    finish
    [ "$(stat -c %U:%a "$data/WORKSPACE/current.000")" = "$(stat -c %U "$root/home/painter"):644" ] || fail 'whose work is it?'

    echo 'Upgrading it while it runs'
    printf 2 >"$data/config.def"
    cp "$root/usr/share/kelu/fonts/system.ttf" "$data/fonts/mine.ttf"
    start_installed
    [ "$scale" = 2 ] || fail "a window of $scale times the size"
    stroke 100 80 160 90
    apt install /new.deb
    in_system dpkg --verify kelu | grep . && fail 'files that are not as delivered'
    stroke 100 100 160 110
    finish
    local work files file
    work=$(users_files)
    apt install --reinstall /new.deb
    start_installed
    screenshot "$scratch/before.png"
    [ "$scale" = 2 ] || fail "a window of $scale times the size after the upgrade"
    finish
    [ "$(users_files)" = "$work" ] || fail 'an upgrade changed the files of the user'

    echo 'Removing it, and a later start'
    mapfile -t files < <(in_system dpkg -L kelu)
    apt purge kelu
    for file in "${files[@]}"; do
        [ ! -f "$root$file" ] && [ ! -L "$root$file" ] || fail "left behind: $file"
    done
    [ ! -e "$root/usr/share/kelu" ] && [ ! -e "$root/usr/lib/kelu" ] || fail 'folders left behind'
    [ "$(users_files)" = "$work" ] || fail 'the removal changed the files of the user'
    apt install /new.deb
    start_installed
    screenshot "$scratch/after.png"
    [ "$(compare -metric AE "$scratch/before.png" "$scratch/after.png" null: 2>&1)" = 0 ] || fail 'another picture'
    finish
}

if [ "${1:-}" = --in-system ]; then
    try_in_system "${@:2}"
    exit
fi

[ "$(id -u)" = 0 ] || fail 'making a bare system needs root'
need_packages "${build_packages[@]}" "${display_packages[@]}" "${package_packages[@]}"
commit=$(git rev-parse HEAD)
work=$(mktemp -d)
trap 'rm -rf --one-file-system "$work"' EXIT

echo 'Building it in two folders'
build_at "$work/one"
build_at "$work/another folder"
version=$(sed -n 's/^project(kelu VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
package=kelu_${version}_$(dpkg --print-architecture).deb
diff -r "$work/one/build/package/app" "$work/another folder/build/package/app" || fail 'two programs of one commit'
cmp "$work"/*/build/package/"$package" || fail 'two packages of one commit'

echo 'Having it checked'
package=$work/one/build/package/$package
lintian --pedantic --display-info --fail-on error,warning,info,pedantic "$package" 2>&1 | grep -v '^running with root' &&
    fail 'lintian has words on it'
dpkg-deb -x "$package" "$work/files"
appstreamcli validate --pedantic --no-net "$work"/files/usr/share/metainfo/*.xml
desktop-file-validate "$work"/files/usr/share/applications/*.desktop
man --warnings -E UTF-8 -l -Tutf8 -Z "$work"/files/usr/share/man/man1/kelu.1.gz 2>&1 >/dev/null | grep . && fail 'the man page'

# A package that is older than this one, of the same files.
cpack --config "$work/one/build/package/CPackConfig.cmake" -G DEB -D CPACK_PACKAGE_VERSION=0.1 -B "$work/old" >/dev/null

echo 'Making a bare system'
# The system's own suite, and neither its updates nor others.
suite=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
mirror=$(apt-get indextargets --format '$(SITE) $(RELEASE)' 'Component: main' | sed -n "s/ $suite\$//p" | head -n 1)
debootstrap --variant=minbase "$suite" "$work/root" "$mirror" >"$work/debootstrap.log" 2>&1 ||
    { tail "$work/debootstrap.log"; fail 'debootstrap'; }
apt-config dump Acquire | grep -i '::proxy' >"$work/root/etc/apt/apt.conf.d/proxy" || true
unshare --mount --pid --fork --kill-child bash tools/package_test.sh --in-system \
    "$work/root" "$work"/old/*.deb "$package"
echo 'The package is in order.'
