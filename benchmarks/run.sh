#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Runs every benchmark of the Qt 6 build. A figure over its limit is marked, and fails nothing: machines differ.
set -u
cd "$(dirname "$0")/.." || exit 2

passed=0
failed=0
for program in build/qt6/benchmarks/bench_*; do
    if [ ! -f "$program" ] || [ ! -x "$program" ]; then
        continue
    fi
    if tests/run-isolated "$program" 2>/dev/null; then
        passed=$((passed + 1))
    else
        echo "FAIL: $program"
        failed=$((failed + 1))
    fi
done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
