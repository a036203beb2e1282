#!/usr/bin/env bash
# Makes the Debian package and puts it to the test as its users will: package_test.sh [WORK]
#   looks       lintian (pedantic), appstreamcli and desktop-file-validate have nothing to say
#   life        in a bare Debian: installed, started by an ordinary user, upgraded, removed
# Needs root for the bare system, and its packages from the registry that apt uses here. WORK, build/package_test by
# default, keeps the bare system for the next time. Takes about four minutes beside the build, so ./test.sh leaves it out.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
. tools/virtual_display.sh
work=$(realpath -m "${1:-build/package_test}")

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

need_packages "${build_packages[@]}" "${display_packages[@]}" "${package_packages[@]}"
build_preset package
package_folder=$PWD/build/package
rm -f "$package_folder"/*.deb
(cd "$package_folder" && SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null || echo 0) cpack -G DEB >cpack.log) ||
    fail "cpack: $package_folder/cpack.log"
package=$(echo "$package_folder"/*.deb)
echo "The package is $package"

# How it looks.
files=$scratch/files
dpkg-deb -x "$package" "$files"
lintian --pedantic --allow-root --fail-on error,warning,info,pedantic --display-info "$package" || fail 'lintian'
# Without the net: the project's pictures aren't published yet.
appstreamcli validate --pedantic --no-net "$files"/usr/share/metainfo/*.xml >"$scratch/appstream" 2>&1 ||
    { cat "$scratch/appstream"; fail 'appstreamcli'; }
! grep -E '^[A-Z]: ' "$scratch/appstream" || fail 'appstreamcli has something to say'
desktop-file-validate "$files/usr/share/applications/kelu.desktop"
for library in liballegro4.4 libfreetype6 libjpeg62-turbo zlib1g libx11-6; do
    dpkg-deb -f "$package" Depends | grep -q "$library" || fail "no dependency on $library"
done
echo 'lintian, appstreamcli and desktop-file-validate have nothing to say'

# A bare system. It shares no files with ours; its apt takes what ours takes.
root=$work/root bare=$work/bare.tar
leave_root() { ! mountpoint -q "$root/proc" || umount "$root/proc"; }
leave_root
rm -rf --one-file-system "$root"
mkdir -p "$root"
trap 'leave_root; clean_up' EXIT
if [ ! -s "$bare" ]; then
    mirror=$(sed -n 's/^URIs: *//p; s/^deb \([^ ]*\) .*/\1/p' /etc/apt/sources.list /etc/apt/sources.list.d/* 2>/dev/null | head -n 1)
    debootstrap --variant=minbase bookworm "$root" "$mirror" >"$work/debootstrap.log"
    tar -C "$root" -cf "$bare.new" .
    mv "$bare.new" "$bare"
else
    tar -C "$root" -xf "$bare"
fi
for settings in /etc/resolv.conf /etc/hosts $(grep -il proxy /etc/apt/apt.conf.d/* /etc/apt/apt.conf 2>/dev/null); do
    cp --parents "$settings" "$root" 2>/dev/null || true
done
mount -t proc proc "$root/proc"
inside() { env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C DEBIAN_FRONTEND=noninteractive chroot "$root" "$@"; }
install_package() {
    cp "$1" "$root/kelu.deb"
    inside apt-get install -y -qq --no-install-recommends /kelu.deb >"$work/apt.log" 2>&1 || { cat "$work/apt.log"; fail "apt: $1"; }
}
inside apt-get update -qq
inside useradd --create-home painter
before=$(inside dpkg-query -W | cksum)
install_package "$package"
[ "$(inside dpkg-query -W | cksum)" != "$before" ] || fail 'nothing was installed'
inside dpkg --verify kelu
inside /usr/bin/kelu --version || fail 'no version'

# An ordinary user of it. The display is ours: both systems share the network's names, and so the server's socket.
start_display 1300x1000
app=$root/home/painter/.local/share/kelu
start_inside() {
    inside su painter -c 'mkdir -p ~/.local/share/kelu'
    start_program "$app" env -i PATH=/usr/bin:/bin chroot "$root" su painter -c "DISPLAY=$DISPLAY exec kelu"
}
stop_inside() {
    local pid
    pid=$(xprop -id "$window" _NET_WM_PID | grep -o '[0-9]*$')
    kill -TERM "$pid"
    end_program || fail "result $?"
}
start_inside
stroke 90 40 170 60
stop_inside
for made in config.def resource/user.def WORKSPACE/current.000 WORKSPACE/current.spa; do
    [ -s "$app/$made" ] || fail "no $made"
done
drawn=$(cksum <"$app/WORKSPACE/current.000")
[ "$drawn" != "$(cksum <"$root/usr/share/kelu/defaults/WORKSPACE/current.000")" ] || fail 'nothing was drawn'
printf 2 >"$app/config.def"

# An upgrade: the same files, a higher version, another default.
dpkg-deb -R "$package" "$scratch/next"
sed -i 's/^Version: .*/&+1/' "$scratch/next/DEBIAN/control"
printf other >"$scratch/next/usr/share/kelu/defaults/resource/user.def"
(cd "$scratch/next" && find usr -type f -exec md5sum {} + >DEBIAN/md5sums)
dpkg-deb --root-owner-group -b "$scratch/next" "$scratch/next.deb" >/dev/null
install_package "$scratch/next.deb"
start_inside
[ "$scale" = 2 ] || fail 'the upgrade has changed the size of the window'
[ "$(cksum <"$app/WORKSPACE/current.000")" = "$drawn" ] || fail 'the upgrade has changed the work'
stop_inside

# Removed, with what came with it; the work stays.
inside apt-get purge -y -qq kelu >/dev/null 2>&1
inside apt-get autoremove --purge -y -qq >/dev/null 2>&1
left=$(find "$root" -path "$root/home" -prune -o -path "$root/proc" -prune -o -iname '*kelu*' -not -path '*/apt/*' -print | grep -v '/kelu.deb$' || true)
[ -z "$left" ] || fail "left over: $left"
[ "$(inside dpkg-query -W | cksum)" = "$before" ] || fail 'packages are left over'
[ "$(cksum <"$app/WORKSPACE/current.000")" = "$drawn" ] || fail 'the work is gone'
echo 'Installed, started by an ordinary user, upgraded and removed: the package is good'
