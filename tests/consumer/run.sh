#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Installs the library into a scratch directory and builds a program against what is there: by the CMake package
# and by pkg-config, with both toolkits.
set -u
here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.." || exit 2

passed=0
failed=0
check() { # check NAME COMMAND...
    local name=$1
    shift
    if "$@" >"$log" 2>&1; then
        passed=$((passed + 1))
    else
        echo "FAIL: $name"
        cat "$log"
        failed=$((failed + 1))
    fi
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
log=$scratch/log

by_pkgconfig() { # by_pkgconfig PREFIX
    local flags
    flags=$(PKG_CONFIG_PATH="$(dirname "$(find "$1" -name rawificontrol.pc)")" \
        pkg-config --cflags --libs rawificontrol) || return
    # shellcheck disable=SC2086 # a list of options
    c++ -std=c++17 -fPIC -Wall -Wextra "$here/main.cpp" -o "$1/by-pkgconfig" $flags &&
        LD_LIBRARY_PATH="$(dirname "$(find "$1" -name librawificontrol.so)")" "$1/by-pkgconfig"
}

builds_host() { # builds_host PREFIX
    cmake -G Ninja -S examples/host -B "$1/host" -DCMAKE_PREFIX_PATH="$1" && cmake --build "$1/host"
}

# What the device image gets is what the sources have: the same files, executable where they are.
installs_device() { # installs_device DIRECTORY
    local source=device/scripts installed
    DESTDIR=$1 cmake --install build/qt6 --prefix /usr --component device &&
        diff -r --exclude=share --exclude=.shellcheckrc --exclude=wpa_cli $source "$1/usr/bin" && diff -r $source/share "$1/usr/share/rawifi" || return
    for installed in "$1"/usr/bin/*.sh "$1/usr/share/rawifi/udhcpc.sh"; do
        [ -x "$installed" ] || { echo "$installed is not executable"; return 1; }
    done
    [ "$(readlink "$1/usr/bin/wpa_cli")" = ../sbin/wpa_cli ]
}

# needs NUMBER LIBRARY: the toolkit's modules that are used, and no other library.
needs() {
    diff <(printf '%s\n' ld-linux libQt"$1"{Core,DBus,Gui,Widgets} libc libgcc_s libnettle 'libstdc++') \
        <(readelf -d "$2" | sed -n 's/.*NEEDED.*\[\([^.-]*\(-linux\)\{0,1\}\).*/\1/p' | LC_ALL=C sort)
}

check "device component: scripts are installed as they are" installs_device "$scratch/device"
for qt in qt6 qt5; do
    prefix=$scratch/$qt
    check "$qt: install" cmake --install "build/$qt" --prefix "$prefix"
    check "$qt: soname" sh -c "readelf -d '$prefix'/lib*/librawificontrol.so '$prefix'/lib*/*/librawificontrol.so \
        2>/dev/null | grep -q 'SONAME.*librawificontrol.so.1]'"
    check "$qt: the library needs no other libraries" needs "${qt#qt}" "$(find "$prefix" -name librawificontrol.so)"
    check "$qt: CMake package configures" cmake -G Ninja -S "$here" -B "$prefix/build" -DCMAKE_PREFIX_PATH="$prefix"
    check "$qt: CMake package builds" cmake --build "$prefix/build"
    check "$qt: CMake package's program runs" "$prefix/build/consumer"
    check "$qt: the reference host builds against the installed library" builds_host "$prefix"
    check "$qt: pkg-config builds and runs" by_pkgconfig "$prefix"
done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
