#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""Draws the library's pictures from their SVG sources.

Writes images/ (the bundle, where every file has a fixed size in bytes) and ../device/res/ (the same pictures as
a device carries them in /apps/res). The results are kept in the tree: only a change of art needs this script.

Needs the Debian packages librsvg2-bin (2.54 or later), optipng and netpbm.
"""
import pathlib
import struct
import subprocess
import sys
import tempfile
import zlib

HERE = pathlib.Path(__file__).resolve().parent
BUNDLE = HERE / "images"
DEVICE = HERE.parent / "device" / "res"

DEVICE_PICTURES = ("item-unselected.png", "selectwifi.png", "wifiicon.png", "back-little.png")


def signal_style(level, locked=False):
    rules = [f".arc{arc}{{stroke-opacity:.3}}" for arc in (2, 3, 4) if arc > level]
    if level < 5:  # readings end at 4: the fifth arc is beyond the scale and has no dim form
        rules.append(".arc5{display:none}")
    if locked:
        rules += [".fan{mask:url(#beside-padlock)}", ".padlock{display:inline}"]
    return "".join(rules)


def plain(name, size):
    return name, name.split(".")[0], "", size


def signal(name, size, level, locked=False):
    return name, "wifi-signal", signal_style(level, locked), size


# file, source, style sheet laid over the source, bytes in the bundle
PICTURES = (
    plain("decrease_brightness.png", 3477),
    plain("increase_brightness.png", 3498),
    plain("wifizw.png", 3182),
    plain("shift-little.png", 786),
    plain("left-RGB60.png", 4927),
    plain("item-selected.png", 1369),
    plain("item-unselected.png", 1080),
    plain("sky_like.jpg", 94971),
    plain("bluetooth.png", 418),
    plain("back.png", 2905),
    plain("selectwifi.png", 2981),
    plain("backspace-little.png", 789),
    signal("wifie01.png", 2862, 1, locked=True),
    signal("wifie02.png", 2862, 2, locked=True),
    plain("back-little.png", 3008),
    plain("wifiicon.png", 3099),
    plain("increase_vol.png", 3346),
    plain("decrease_vol.png", 3307),
    signal("wifi1.png", 2828, 1),
    signal("wifi2.png", 2831, 2),
    signal("wifi3.png", 2837, 3),
    signal("wifi4.png", 2841, 4),
    signal("wifi5.png", 2846, 5),
    signal("wifie4.png", 2876, 4, locked=True),
    signal("wifie5.png", 2883, 5, locked=True),
    signal("wifie3.png", 2867, 3, locked=True),
    plain("wifi.png", 3099),
)


def render_png(source, style, target):
    with tempfile.NamedTemporaryFile("w", suffix=".css") as sheet:
        sheet.write(style)
        sheet.flush()
        subprocess.run(["rsvg-convert", "--stylesheet", sheet.name, "--output", target, HERE / "svg" / f"{source}.svg"],
                       check=True)
    subprocess.run(["optipng", "-quiet", "-o7", "-strip", "all", target], check=True)


def jpeg_of(png):
    pixels = subprocess.run(["pngtopnm", png], check=True, stdout=subprocess.PIPE).stdout
    return subprocess.run(["pnmtojpeg", "-quality=100", "-optimize", "-sample=1x1,1x1,1x1"],
                          input=pixels, check=True, stdout=subprocess.PIPE).stdout


def png_filler(length):
    """A chunk of our own, ancillary, private and safe to copy, that is `length` bytes long in all."""
    body = b"raFl" + bytes(length - 12)
    return struct.pack(">I", length - 12) + body + struct.pack(">I", zlib.crc32(body))


def jpeg_filler(length):
    """One comment segment; `length` bytes in all."""
    return b"\xff\xfe" + struct.pack(">H", length - 2) + b" " * (length - 4)


def fitted(name, data, size):
    """`data` brought to exactly `size` bytes by a part that every decoder skips."""
    missing = size - len(data)
    if missing == 0:
        return data
    is_png = name.endswith(".png")
    smallest, largest = (12, sys.maxsize) if is_png else (4, 65537)
    if not smallest <= missing <= largest:
        sys.exit(f"{name}: {len(data)} bytes cannot be filled up to {size}")
    if is_png:
        return data[:-12] + png_filler(missing) + data[-12:]  # before the closing IEND chunk
    after_header = 4 + struct.unpack(">H", data[4:6])[0]  # JFIF wants its own segment first
    return data[:after_header] + jpeg_filler(missing) + data[after_header:]


def main():
    with tempfile.TemporaryDirectory() as scratch:
        for name, source, style, size in PICTURES:
            png = pathlib.Path(scratch) / "picture.png"
            render_png(source, style, png)
            data = png.read_bytes() if name.endswith(".png") else jpeg_of(png)
            (BUNDLE / name).write_bytes(fitted(name, data, size))
            if name in DEVICE_PICTURES:
                (DEVICE / name).write_bytes(data)


if __name__ == "__main__":
    main()
