#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# on-device.sh [BUILD]: what the documents do with the virtual device. The host of docs/embedding.md, built by the commands
# that are there with the build tree BUILD (default build/qt6), is worked by a finger (on-device.py) and shown in the
# window; the commands of device/vm/README.md end well. Ends with "N passed, N failed".
set -eu
here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.."
build=$(realpath -e "${1:-build/qt6}")
mkdir -p build
scratch=$(mktemp -d build/documents.XXXXXX)
trap 'rm -rf "$scratch"' EXIT
export RAWIFI_VM_DIR=${RAWIFI_VM_DIR:-$PWD/build/vm}

# shellcheck source=tree.sh
. "$here/tree.sh"
tree=$PWD/$scratch/tree
make_tree "$tree" "$build"
log=$scratch/log
passed=0
failed=0
verdict() { # verdict STATUS NAME
    if [ "$1" -eq 0 ]; then
        echo "ok $2"
        passed=$((passed + 1))
    else
        cat "$log"
        echo "FAIL $2"
        failed=$((failed + 1))
    fi
}
commands() { # commands PATTERN DOCUMENT
    "$here/read.py" commands "$2" | grep -E "$1"
}
runs() { # runs COMMAND
    local status=0
    run_command "$tree" "$1" >"$log" 2>&1 </dev/null || status=$?
    verdict $status "$1"
}

# A command that goes on until its window is closed: ended once the host on the device has heard the library.
shows_a_window() { # shows_a_window COMMAND
    local heard="host heard linkend" run
    set -m
    run_command "$tree" "xvfb-run -a $1" >"$log" 2>&1 </dev/null &
    run=$!
    set +m
    for _ in $(seq 600); do
        if grep -qs "$heard" "$log" || ! kill -0 $run; then break; fi
        sleep 0.2
    done
    kill -- -$run || :
    wait $run || :
    verdict "$(grep -qs "$heard" "$log"; echo $?)" "$1"
}

while IFS= read -r command <&3; do
    runs "$command"
done 3< <(commands '^(scripts/setup|cmake .*(--install|hello))' docs/embedding.md)
while IFS= read -r command <&3; do
    shows_a_window "$command"
done 3< <(commands '^device/vm/run --window' docs/embedding.md)
while IFS= read -r command <&3; do
    runs "$command"
done 3< <(commands '^device/vm/run' device/vm/README.md)

status=0
"$here/on-device.py" "$tree/build/device-root" >"$log" 2>&1 || status=$?
cat "$log"
verdict $status "the host of docs/embedding.md is worked by a finger"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
