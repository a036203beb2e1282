# SPDX-License-Identifier: MIT
# Debian packages that the project needs, and the way to have them. To be sourced by bash.

# To build and to run. xmessage of x11-utils shows the message boxes.
build_packages=(g++ cmake ninja-build pkg-config liballegro4-dev libx11-dev libjpeg62-turbo-dev zlib1g-dev
                libfreetype-dev x11-utils)
# To run without a display, with real mouse events and a screenshot.
display_packages=(xvfb xauth xdotool x11-xkb-utils x11-apps imagemagick)
# To pass the tests.
test_packages=(libgtest-dev python3 xclip netpbm icoutils libjpeg-turbo-progs apngdis openbox
               x11-xserver-utils clang)
# To measure beside others.
bench_packages=(libbenchmark-dev libpng-dev libgif-dev libopencv-imgproc-dev libpixman-1-dev)
# To try the Debian package, by package_test.sh.
package_packages=(git file man-db dpkg-dev fakeroot lintian appstream desktop-file-utils debootstrap)

# need_packages NAME...: installs what is missing, as root or by sudo. Where neither works it prints the one line to
# run and fails. On a system without apt-get it leaves the matter to the build, which names what it doesn't find.
need_packages() {
    command -v apt-get >/dev/null && command -v dpkg-query >/dev/null || return 0
    local name missing=()
    for name in "$@"; do
        dpkg-query -W -f '${Status}' "$name" 2>/dev/null | grep -q ' installed$' || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        # Without a terminal sudo can't ask for a password, and would fail or wait.
        if command -v sudo >/dev/null && { sudo -n true 2>/dev/null || [ -t 0 ]; }; then root=(sudo); else root=(false); fi
    fi
    [ "${root[*]}" = false ] || echo "Installing ${missing[*]}"
    if ! { "${root[@]}" apt-get update -qq &&
           "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
               "${missing[@]}" >/dev/null; }; then
        echo "Packages are missing. Please run, as root:"
        echo "    apt-get update && apt-get install -y --no-install-recommends ${missing[*]}"
        return 1
    fi
}

# build_preset NAME [TARGET...]: configures and builds a preset, quietly but for what goes wrong. A build folder that
# was made at another place is made anew.
build_preset() {
    local preset=$1 log
    shift
    mkdir -p build
    log=build/$preset.log
    echo "Building $preset"
    if ! { cmake --preset "$preset" || cmake --fresh --preset "$preset"; } >"$log" 2>&1 ||
       ! cmake --build --preset "$preset" ${1:+--target "$@"} >>"$log" 2>&1; then
        tail -n 60 "$log"
        echo "The build of $preset failed; the whole log is $PWD/$log"
        return 1
    fi
}
