#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# longrun.sh [PROGRAM]: one process joins 50 real networks one after another (200 with RAWIFI_LONG=1) on the virtual
# device and holds no more at the end than at the beginning. PROGRAM is the longrun of another build than build/qt6.
# Ends with "N passed, N failed".
set -u
cd "$(dirname "$0")/../.." || exit 2
program=${1:-$PWD/build/qt6/tests/longrun}
joins=50
[ "${RAWIFI_LONG:-}" != 1 ] || joins=200

log=$(mktemp)
trap 'rm -f "$log"' EXIT
device/vm/run --timeout $((180 + 20 * joins)) -- "$PWD/tests/device/guest/long-run.sh" "$program" "$joins" | tee "$log"
status=${PIPESTATUS[0]}
[ "$status" -eq 0 ] || echo "FAIL power-on ended with $status" | tee -a "$log"

passed=$(grep -c '^ok ' "$log")
failed=$(grep -c '^FAIL ' "$log")
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
