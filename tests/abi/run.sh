#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# run.sh [--accept] [LIBRARY]: compares the library, as built with Qt 6 in build/qt6, with the binary interface that
# programs in use were built against: the functions and their arguments, and the layout of every class and record.
# Something new is fine; a change is not. --accept makes the library at hand the new baseline, which is right before
# a release, and with a new SONAME.
set -u
cd "$(dirname "$0")/../.." || exit 2
baseline=tests/abi/librawificontrol.abi.gz
accept=
[ "${1:-}" = --accept ] && { accept=yes; shift; }
library=${1:-build/qt6/include/librawificontrol.so.1}
scripts/setup abi || exit 2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
if ! abidw --no-corpus-path --no-comp-dir-path --no-show-locs --suppressions tests/abi/toolkit.abignore \
    --out-file "$scratch/new.abi" "$library" || [ ! -s "$scratch/new.abi" ]; then
    echo "FAIL: the library's binary interface can be read"
    echo "0 passed, 1 failed"
    exit 1
fi
if [ "$accept" ]; then
    gzip -9nc "$scratch/new.abi" >"$baseline"
    exit
fi

gunzip -c "$baseline" >"$scratch/old.abi"
if abidiff --no-added-syms "$scratch/old.abi" "$scratch/new.abi"; then
    echo "ok: programs in use find the functions and the records that they were built for"
    echo "1 passed, 0 failed"
else
    echo "FAIL: programs in use find the functions and the records that they were built for"
    echo "0 passed, 1 failed"
    exit 1
fi
