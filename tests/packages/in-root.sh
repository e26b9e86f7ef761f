#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# in-root.sh PACKAGES: installs the packages of that directory into a clean root - a minimal Debian with a compiler,
# made once, in build/packages-root -, builds and starts hosts there that know the library only by its packages, and
# takes the packages out again. The machine itself is left alone: run.sh gives this a mount namespace of its own, and
# programs get processes and a network of their own as well.
set -u
cd "$(dirname "$0")/../.." || exit 2
packages=$1
cache=$PWD/build/packages-root
root=/mnt/root

passed=1 # the packages were made, and lintian found no error
failed=0
log=$cache/log
check() { # check NAME COMMAND...
    local name=$1
    shift
    if "$@" >"$log" 2>&1; then
        echo "ok: $name"
        passed=$((passed + 1))
    else
        echo "FAIL: $name"
        tail -n 40 "$log"
        failed=$((failed + 1))
    fi
}

# Where this machine gets its Debian packages from is known to its own apt alone.
debian_sources() {
    apt-get indextargets --format "deb \$(REPO_URI) \$(CODENAME) \$(COMPONENT)" \
        'Created-By: Packages' 'Origin: Debian' | sort -u
}

make_base() {
    [ -n "$(debian_sources)" ] || apt-get -qq update
    rm -rf --one-file-system "$cache/new"
    apt-config dump | grep -E '^Acquire::(Check-|https?::|Retries)' >"$cache/apt.conf"
    debian_sources | mmdebstrap --quiet --mode=root --variant=minbase --include=g++,cmake,make \
        --aptopt="$cache/apt.conf" --skip=cleanup/apt/lists --format=directory \
        "$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)" "$cache/new" - && mv "$cache/new" "$cache/base"
}

mount_root() {
    mount -t tmpfs none /mnt && mkdir /mnt/upper /mnt/work /mnt/root &&
        mount -t overlay none -o "lowerdir=$cache/base,upperdir=/mnt/upper,workdir=/mnt/work" /mnt/root || return
    mount --rbind /dev $root/dev
    mount -t tmpfs none $root/tmp
    mount -t tmpfs none $root/run # the scripts' own state is there, and ends with the power
    mkdir -p "$cache/archives/partial" $root/tmp/made
    mount --bind "$cache/archives" $root/var/cache/apt/archives
    cp /etc/resolv.conf $root/etc/resolv.conf
    echo 'DPkg::Options {"--force-unsafe-io";}; APT::Keep-Downloaded-Packages "true";' >$root/etc/apt/apt.conf.d/90here
}

# Processes and network of the root's own, so that no command of a host can reach the machine's.
inside() { # inside COMMAND...
    unshare --pid --fork --kill-child --net --mount-proc=$root/proc \
        chroot $root /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive QT_QPA_PLATFORM=offscreen "$@"
}
with_network() { # with_network COMMAND...: for apt alone
    unshare --pid --fork --kill-child --mount-proc=$root/proc \
        chroot $root /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

names="librawificontrol1 librawificontrol-dev rawificontrol-device rawificontrol-tools"

installs() {
    find "$packages" -name '*.deb' ! -name '*-dbgsym_*' -exec cp -t $root/tmp/made {} + || return
    # An old base's lists name packages that are gone.
    # shellcheck disable=SC2016 # the inner shell expands its own variable
    with_network sh -c 'install="apt-get -qq install -y --no-install-recommends"
        $install /tmp/made/*.deb || { apt-get -qq update && $install /tmp/made/*.deb; }' || return
    # shellcheck disable=SC2086 # a list of names
    inside dpkg -L $names | sort -u >"$cache/files"
}

holds_what_the_tree_has() {
    local file
    for file in device/res/*; do
        cmp "$file" "$root/apps/res/${file##*/}" || return
    done
    for file in device/scripts/*.sh; do
        cmp "$file" "$root/usr/bin/${file##*/}" && [ -x "$root/usr/bin/${file##*/}" ] || return
    done
    inside /usr/bin/wpa_cli -v && # where the library calls it
        inside rawifictl --version
}

builds() { # builds DIRECTORY-IN-ROOT
    inside sh -c "cmake -S $1 -B $1/build && cmake --build $1/build"
}

# A host has started when its manager has made the directory that other processes look at; then it is ended.
starts() { # starts PROGRAM
    rm -rf $root/home/wifi
    # shellcheck disable=SC2016 # the inner shell expands its own arguments
    inside sh -c '
        "$1" & host=$!
        for try in $(seq 300); do
            [ -d /home/wifi ] && break
            kill -0 $host || exit 1
            sleep 0.1
        done
        [ "$(stat -c %a /home/wifi)" = 777 ] && kill $host; killed=$?
        wait $host
        [ $? -eq 143 ] && [ $killed -eq 0 ]' starts "$1"
}

# The first fenced block of a language in a document.
block() { # block LANGUAGE FILE
    awk -v fence="\`\`\`$1" '$0 == fence && !seen { inside = seen = 1; next } /^```/ { inside = 0 } inside' "$2"
}

draws_pictures() {
    mkdir $root/tmp/pictures && inside rawifigallery --save /tmp/pictures &&
        [ -n "$(find $root/tmp/pictures -name '*.png' -size +0)" ]
}

purges() {
    # shellcheck disable=SC2086 # a list of names
    inside dpkg --purge $names
}

leaves_nothing() {
    local left path
    left=$(while read -r path; do
        if [ -L "$root$path" ] || [ -f "$root$path" ]; then echo "$path"; fi
    done <"$cache/files"
    find $root -xdev -path $root/home -prune -o -iname '*rawifi*' -print -o -path $root/apps -print
    inside dpkg -l | grep -i rawifi
    inside ldconfig -p | grep rawifi)
    [ -z "$left" ] || { echo "left behind: $left"; return 1; }
}

mkdir -p "$cache"
[ -d "$cache/base" ] || check "a clean root is made" make_base
check "the clean root is mounted" mount_root
check "the packages install into it, with what they depend on" installs
check "scripts and pictures are those of the tree, and the programs are there" holds_what_the_tree_has

cp -r examples/host $root/tmp/host
check "the reference host builds with the installed packages" builds /tmp/host
check "the reference host that was built there starts" starts /tmp/host/build/rawifihost
check "the packaged reference host starts" starts rawifihost

mkdir $root/tmp/hello
block cpp docs/embedding.md >$root/tmp/hello/main.cpp
block cmake docs/embedding.md >$root/tmp/hello/CMakeLists.txt
check "the host of docs/embedding.md builds with the installed packages" builds /tmp/hello
check "the host of docs/embedding.md starts" starts /tmp/hello/build/hello
check "the packaged gallery draws its pictures" draws_pictures

check "the packages can be taken out" purges
check "nothing of them is left behind" leaves_nothing
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
