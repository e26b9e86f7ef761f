#!/bin/bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# on-device.sh [BUILD]: the host of docs/embedding.md, built by the commands that are there with the build tree BUILD
# (default build/qt6), on the screen of the virtual device. Ends with "N passed, N failed".
set -eu
here=$(cd "$(dirname "$0")" && pwd)
cd "$here/../.."
build=$(realpath -e "${1:-build/qt6}")
mkdir -p build
scratch=$(mktemp -d build/documents.XXXXXX)
trap 'rm -rf "$scratch"' EXIT

# shellcheck source=tree.sh
. "$here/tree.sh"
tree=$PWD/$scratch/tree
make_tree "$tree" "$build"
"$here/read.py" commands docs/embedding.md | grep -E '^cmake .*(--install|hello)' >"$scratch/commands"
while IFS= read -r command <&3; do
    run_command "$tree" "$command" >"$scratch/log" || { cat "$scratch/log"; echo "0 passed, 1 failed"; exit 1; }
done 3<"$scratch/commands"
"$here/on-device.py" "$tree/build/device-root"
