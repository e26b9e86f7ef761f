#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# mishaps.sh [EVIDENCE]: mishaps.py with the library as it was built for Qt 6. Ends with "N passed, N failed".
set -eu
cd "$(dirname "$0")/../.."
cmake --install build/qt6 --prefix build/device-root >/dev/null
exec tests/device/mishaps.py build/device-root "$@"
