#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# update.sh [--check]: brings the catalogues up to date with the sources. Texts that are new are then marked as
# unfinished: translate them, by Qt Linguist or by hand.
#   --check   changes nothing; complains about catalogues that are not up to date or not finished
set -u
cd "$(dirname "$0")/.." || exit 2

lupdate=/usr/lib/qt6/bin/lupdate
[ -x "$lupdate" ] || lupdate=lupdate
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
passed=0
failed=0

verdict() { # verdict NAME COMMAND...
    name=$1
    shift
    if "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL: $name"
    fi
}

is_finished() { # is_finished CATALOGUE
    ! grep -n -B 1 'type="unfinished"' "$1"
}

# catalogue FILE SOURCES...
catalogue() {
    file=$1
    shift
    updated=$file
    if [ "$mode" = --check ]; then
        updated=$scratch/${file##*/}
        cp "$file" "$updated"
    fi
    "$lupdate" "$@" -silent -locations none -no-obsolete -disable-heuristic similartext -ts "$updated" \
        >/dev/null || exit
    if [ "$mode" = --check ]; then
        verdict "$file is up to date (run translations/update.sh)" diff -u "$file" "$updated"
        verdict "$file is complete" is_finished "$file"
    fi
}

mode=${1-}
case $mode in
'' | --check) ;;
*)
    echo "usage: translations/update.sh [--check]" >&2
    exit 2
    ;;
esac
for language in en zh_CN; do
    catalogue "translations/rawificontrol_$language.ts" keyboard screens widgets wifi
done
catalogue examples/host/rawifihost_zh_CN.ts examples/host
catalogue examples/gallery/rawifigallery_zh_CN.ts examples/gallery
[ -z "$mode" ] || echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
