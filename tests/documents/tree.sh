# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# A tree in which the commands of the documents can be run. Sourced from the root of the real one, never run.

# block LANGUAGE FILE: the first fenced block of a language.
block() {
    awk -v fence="\`\`\`$1" '$0 == fence && !seen { inside = seen = 1; next } /^```/ { inside = 0 } inside' "$2"
}

# make_tree TREE BUILD: TREE is like this tree, has the build tree BUILD as build/qt6 and the host of docs/embedding.md
# where that puts it, and takes what commands make.
make_tree() {
    mkdir -p "$1/build/hello"
    find . -mindepth 1 -maxdepth 1 ! -name build ! -name out ! -name .git -exec ln -s "$PWD/{}" "$1/" \;
    ln -s "$2" "$1/build/qt6"
    block cpp docs/embedding.md >"$1/build/hello/main.cpp"
    block cmake docs/embedding.md >"$1/build/hello/CMakeLists.txt"
}

# run_command TREE COMMAND
run_command() {
    local compiler_launcher=()
    ! command -v ccache >/dev/null || compiler_launcher=(CMAKE_CXX_COMPILER_LAUNCHER=ccache)
    (cd "$1" && env "${compiler_launcher[@]}" bash -e -o pipefail -c "$2")
}
