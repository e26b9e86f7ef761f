#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Tests the device's helper scripts as they are installed, in a root and network of their own, with fake tools and a
# fake clock: no test waits. Everything runs twice: with busybox as the shell and for all small tools, and with dash and
# the tools of a full system. run.sh [WORD] runs only the tests whose names hold the word.

set -u
here=$(cd "$(dirname "$0")" && pwd)
if [ "${RAWIFI_SCRIPT_TESTS:-}" != isolated ]; then
    RAWIFI_SCRIPT_TESTS=isolated exec "$here/../run-isolated" unshare --net "$here/run.sh" "$@"
fi
. "$here/harness.sh"
. "$here/fakes/clock"

make_device "$here"
for flavour in busybox full; do
    use_tools "$flavour"
    for file in "$here"/test-*.sh; do
        # shellcheck source=/dev/null
        . "$file"
        # shellcheck disable=SC2013 # the names are words
        for test in $(sed -n "s/^\(test_[a-z0-9_]*${1:-}[a-z0-9_]*\)() {.*/\1/p" "$file"); do
            run_test "$test"
        done
    done
done
finish
