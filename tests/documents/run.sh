#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# run.sh [BUILD]: the documents say what is so. Every command that they show in an sh block is run, or named in
# elsewhere.txt with the test that runs it; links, names of files and tests lead somewhere; the host of docs/embedding.md
# compiles with the build tree BUILD (default build/qt6) and brings a saved network back; the reference of the interface
# covers what is installed; the man pages are clean. Needs scripts/packages/checks.txt.
set -u
here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.." || exit 2
root=$PWD
build=$(realpath -e "${1:-build/qt6}") || exit 2
documents=(README.md CONTRIBUTING.md CHANGELOG.md docs/*.md device/vm/README.md)

# Below the project, since that is what an isolated program sees of this machine.
mkdir -p "$root/build"
scratch=$(mktemp -d "$root/build/documents.XXXXXX")
trap 'rm -rf "$scratch"' EXIT

passed=0
failed=0
verdict() { # verdict STATUS NAME LOG
    if [ "$1" -eq 0 ]; then
        passed=$((passed + 1))
    else
        echo "FAIL: $2"
        tail -n 40 "$3"
        failed=$((failed + 1))
    fi
}
check() { # check NAME COMMAND...
    local name=$1
    shift
    "$@" >"$scratch/log" 2>&1
    verdict $? "$name" "$scratch/log"
}
empty() { # empty COMMAND...: succeeds when the command prints nothing
    ! "$@" 2>&1 | grep .
}

shown_without_warning() { # shown_without_warning PAGE
    local shown
    shown=$(MANWIDTH=80 man -l --warnings=all "$1" 2>&1 >"$scratch/page")
    echo "$shown"
    [ -s "$scratch/page" ] && [ -z "$shown" ]
}
describes() { # describes PAGE PROGRAM: every option and command that PROGRAM --help names is in the page
    local word missing=0
    man -l "$1" >"$scratch/page" 2>/dev/null
    for word in $("$2" --help | grep -oE -- '--[a-z][a-z-]*|^  [a-z]+'); do
        grep -qE -- "(^|[^a-z-])$word([^a-z-]|$)" "$scratch/page" || { echo "not in the page: $word"; missing=1; }
    done
    return $missing
}

# shellcheck source=tree.sh
. "$here/tree.sh"
tree=$scratch/tree
make_tree "$tree" "$build"
export PATH=$tree/build/device-root/bin:$PATH

elsewhere() { # elsewhere COMMAND: the test that runs it
    awk -F '\t' -v command="$1" '$1 == command { print $2; found = 1 } END { exit !found }' "$here/elsewhere.txt"
}

for document in "${documents[@]}"; do
    check "$document: links, names of files and tests lead somewhere" empty "$here/read.py" names "$document"
done
"$here/read.py" commands "${documents[@]}" | awk '!seen[$0]++' >"$scratch/commands"
while IFS= read -r command <&3; do
    if test=$(elsewhere "$command"); then
        check "$command: $test is there to run it" test -x "$test"
    else
        check "$command" run_command "$tree" "$command"
    fi
done 3<"$scratch/commands"
while IFS=$'\t' read -r command test; do
    case $command in '#'* | '') continue ;; esac
    check "elsewhere.txt: \"$command\" ($test) is still in a document" grep -qxF -- "$command" "$scratch/commands"
done <"$here/elsewhere.txt"

# In a network and among processes of its own; takes some seconds, so the checks below go on meanwhile.
"$here/read.py" saved "$scratch/saved"
library=$(dirname "$(find "$tree/build/device-root" -name librawificontrol.so | head -n 1)")
own_user=()
[ "$(id -u)" -eq 0 ] || own_user=(--map-root-user)
unshare "${own_user[@]}" --net --pid --fork --kill-child tests/run-isolated "$here/start-host.sh" \
    "$tree/build/device-root/bin/hello" "$library" "$scratch/saved" >"$scratch/host.log" 2>&1 &
host=$!

installed_headers() { find "$tree/build/device-root/include/rawificontrol" -type f -printf '%f\n' | sort; }
documented_headers() { # what docs/Doxyfile reads
    sed -n '/^INPUT  *=/,/[^\\]$/p' docs/Doxyfile | grep -oE '[a-zA-Z_/]+(\.h|QCopChannel)|include ' |
        sed 's,^include ,include/rawificontrol.h,; s,.*/,,' | sort
}
check "docs/Doxyfile reads every header that is installed, and no other" diff <(documented_headers) <(installed_headers)
check "the reference of the interface has no gap" scripts/doc
for page in docs/man/*; do
    check "$page: mandoc finds nothing to say" mandoc -T lint -W warning "$page"
    check "$page: man shows it without a warning" shown_without_warning "$page"
    program=$(basename "$page" .1)
    check "$page: has every command and option of $program --help" describes "$page" "$program"
done
check "CHANGELOG.md has the version of version.txt" grep -qF "## [$(cat version.txt)]" CHANGELOG.md

wait $host
verdict $? "the host of docs/embedding.md brings a saved network back, offscreen" "$scratch/host.log"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
