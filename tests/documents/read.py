#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""read.py commands FILE...: the commands of all fenced sh blocks, one a line, a backslash at a line's end joined.
read.py names FILE...: every link, file of this tree and case of a test that a document names and that is not there, one
a line.
read.py saved FILE: writes a store with one network to FILE, as docs/files.md describes it."""
import glob
import os
import re
import struct
import sys

ROOMS = ("benchmarks cmake debian device docs examples fuzz include keyboard packaging platform resources screens scripts tests "
         "translations widgets wifi").split()


def blocks(path, language):
    """The texts of the fenced blocks of a language."""
    with open(path, encoding="utf-8") as document:
        return re.findall(r"^```%s\n(.*?)^```$" % language, document.read(), re.S | re.M)


def commands(path):
    for block in blocks(path, "sh"):
        for line in block.replace("\\\n", " ").splitlines():
            command = re.sub(r"\s+#.*", "", line).strip()
            if command and not command.startswith("#"):
                yield re.sub(r"  +", " ", command)


def anchor(heading):
    """What a heading is called in a link."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def anchors(path):
    with open(path, encoding="utf-8") as document:
        return [anchor(heading) for heading in re.findall(r"^#+ (.*)$", document.read(), re.M)]


def missing_links(path, text):
    for target in re.findall(r"\]\(([^)\s]+)\)", text):
        if re.match(r"https?:", target):
            continue
        name, _, fragment = target.partition("#")
        file = os.path.normpath(os.path.join(os.path.dirname(path), name)) if name else path
        if not os.path.exists(file):
            yield target
        elif fragment and fragment not in anchors(file):
            yield target


def missing_files(text):
    """Names in backticks that begin with a folder of the tree, or end like a file of its root."""
    for words in re.findall(r"`([^`\n]+)`", text):
        name = words.split()[0]
        in_tree = name.split("/")[0] in ROOMS and "/" in name
        if in_tree and re.fullmatch(r"[\w./*-]+", name) and not glob.glob(name):
            yield name


def missing_cases(text):
    """Cases of test programs, suite::case."""
    for suite, case in re.findall(r"`(?!std::)([a-z_]+)::(\w+)`", text):
        programs = glob.glob(f"tests/**/tst_{suite}.cpp", recursive=True)
        if not any(f"void {case}();" in open(program, encoding="utf-8").read() for program in programs):
            yield f"{suite}::{case}"


def names(path):
    with open(path, encoding="utf-8") as document:
        text = document.read()
    prose = re.sub(r"^```.*?^```$", "", text, flags=re.S | re.M)
    return list(missing_links(path, prose)) + list(missing_files(prose)) + list(missing_cases(prose))


def saved(path):
    record = struct.pack("=40s18s100s200s2x7i", b"Cafe", b"02:00:00:00:00:01", b"NOENCRY", b"", 1, 1, 3, 999, 1, 0, 0)
    with open(path, "wb") as store:
        store.write(b"1xxxx" + record)


def main():
    what, files = sys.argv[1], sys.argv[2:]
    if what == "saved":
        saved(files[0])
        return 0
    found = [(file, item) for file in files for item in {"commands": commands, "names": names}[what](file)]
    for file, item in found:
        print(item if what == "commands" else file + ": " + item)
    return 0


if __name__ == "__main__":
    sys.exit(main())
