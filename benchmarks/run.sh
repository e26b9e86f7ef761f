#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Runs every benchmark of the Qt 6 build. A figure over its limit is marked, and fails nothing: machines differ.
set -u
cd "$(dirname "$0")/.." || exit 2

passed=0
failed=0
measure() { # measure COMMAND...
    if "$@" 2>/dev/null; then
        passed=$((passed + 1))
    else
        echo "FAIL: $*"
        failed=$((failed + 1))
    fi
}

for program in build/qt6/benchmarks/bench_*; do
    if [ -f "$program" ] && [ -x "$program" ]; then
        measure tests/run-isolated "$program"
    fi
done
# The list once more on a real display server, which shows what is painted.
measure env QT_QPA_PLATFORM=xcb tests/run-isolated xvfb-run --auto-servernum --server-args="-screen 0 320x480x24" \
    build/qt6/benchmarks/bench_networklist
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
