#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# regenerate.sh [FOLDER]: draws every reference picture anew with Qt 6, then with Qt 5 those that it draws differently.
# Look at each of them before keeping it: from then on it is what right looks like.
#   FOLDER   holds the builds qt6 and qt5; "build" if not given, where they are configured when they are missing
# Needs the Debian package optipng.
set -eu
cd "$(dirname "$0")/../.."
builds=${1:-build}

scripts/setup build test
tests=()
for source in tests/visual/tst_*.cpp; do
    tests+=("$(basename "$source" .cpp)")
done
for qt in qt6 qt5; do
    [ -f "$builds/$qt/build.ninja" ] || cmake --preset "$qt" -B "$builds/$qt"
    cmake --build "$builds/$qt" --target "${tests[@]}"
done

rm -rf tests/visual/references
mkdir tests/visual/references
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 RAWIFI_REGENERATE=1
for qt in qt6 qt5; do
    for test in "${tests[@]}"; do
        tests/run-isolated "$PWD/$builds/$qt/tests/visual/$test" -silent 2>/dev/null
    done
done
find tests/visual/references -name '*.png' -exec optipng -quiet -strip all -o4 {} +
du -sh tests/visual/references
