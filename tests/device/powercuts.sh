#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# powercuts.sh [BUILD]: powercuts.py with the library of a build directory (default build/qt6): 10 power cuts, or 100
# with RAWIFI_LONG=1. Ends with "N passed, N failed".
set -eu
cd "$(dirname "$0")/../.."
device/vm/prepare
cuts=10
[ "${RAWIFI_LONG:-}" != 1 ] || cuts=100
exec tests/device/powercuts.py "$(realpath -e "${1:-build/qt6}")/tests/saver" $cuts
