#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Every shell script of the project passes shellcheck.
set -u
cd "$(dirname "$0")/.." || exit 2

passed=0
failed=0
while IFS= read -r file; do
    if shellcheck -x -P SCRIPTDIR "$file"; then
        passed=$((passed + 1))
    else
        echo "FAIL: $file"
        failed=$((failed + 1))
    fi
done < <(git ls-files -z -co --exclude-standard | xargs -0 grep -lE '^#!/bin/(ba)?sh|^#!.*busybox sh' --)
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
