#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Makes the Debian packages and tries them in a clean root (in-root.sh).
set -u
here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.." || exit 2
packages=build/packages-made

scripts/setup root || exit 2
as_root=
[ "$(id -u)" -eq 0 ] || as_root=sudo
if ! scripts/package "$packages"; then
    echo "FAIL: the packages are made, and lintian finds no error"
    echo "0 passed, 1 failed"
    exit 1
fi
echo "ok: the packages are made, and lintian finds no error"
exec $as_root unshare --mount --propagation private "$here/in-root.sh" "$packages"
