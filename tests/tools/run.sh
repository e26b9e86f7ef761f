#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# run.sh [WORD]: tests rawifictl in a root, network and process table of its own, with fake scripts; only the tests
# whose names hold the word. RAWIFICTL is the program to test.
set -u
here=$(cd "$(dirname "$0")" && pwd)
if [ "${RAWIFI_TOOL_TESTS:-}" != isolated ]; then
    RAWIFICTL=$(readlink -f "${RAWIFICTL:-$here/../../build/qt6/examples/rawifictl/rawifictl}")
    export RAWIFICTL RAWIFI_TOOL_TESTS=isolated
    exec "$here/../run-isolated" unshare --net --pid --fork --mount-proc "$here/run.sh" "$@"
fi
[ -x "$RAWIFICTL" ] || { echo "there is no $RAWIFICTL"; exit 2; }
. "$here/harness.sh"

make_device
for file in "$here"/test-*.sh; do
    # shellcheck source=/dev/null
    . "$file"
    # shellcheck disable=SC2013 # the names are words
    for test in $(sed -n "s/^\(test_[a-z0-9_]*${1:-}[a-z0-9_]*\)() {.*/\1/p" "$file"); do
        run_test "$test"
    done
done
finish
