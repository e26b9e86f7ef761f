#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# exported-names.sh LIBRARY: shows that the library offers the names of include/exported-names.txt, all of them and no
# other, and that the Debian package promises the same.
set -u
library=$1
cd "$(dirname "$0")/../.." || exit 2

# A list of values has another name in Qt 5 than in Qt 6; it is the same function.
alike() { sed 's/QVector</QList</g' | LC_ALL=C sort -u; }
wanted() { grep -v '^#' include/exported-names.txt | alike; }
offered() { nm -DC --defined-only "$library" | cut -d ' ' -f 3- | alike; }
promised() { sed -nE 's/^ (\(c\+\+\)")?([^@]+)@Base"? .*/\2/p' debian/librawificontrol1.symbols | alike; }

passed=0
failed=0
check_none() { # check_none NAME LINES
    if [ -z "$2" ]; then
        echo "PASS   : $1"
        passed=$((passed + 1))
    else
        echo "FAIL!  : $1"
        printf '%s\n' "$2"
        failed=$((failed + 1))
    fi
}

[ -n "$(offered)" ] || exit 2
check_none "no name leaves the library but those listed" "$(LC_ALL=C comm -13 <(wanted) <(offered))"
check_none "no name that is listed is missing" "$(LC_ALL=C comm -23 <(wanted) <(offered))"
check_none "the Debian package promises the names listed" "$(LC_ALL=C comm -3 <(wanted) <(promised))"
echo "Totals: $passed passed, $failed failed, $(offered | wc -l) names offered"
[ "$failed" -eq 0 ]
