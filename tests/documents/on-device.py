#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""on-device.py LIBRARY: the host "hello" of docs/embedding.md, installed in LIBRARY, is worked by a finger on the screen
of the virtual device. Prints a line a check and ends with "N passed, N failed"."""

import pathlib
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "device"))

from touch.checks import Checks  # noqa: E402
from touch.device import Device, DeviceGone, wait_until  # noqa: E402

SECONDS = 200
MIDDLE, BACK_MARK, CORNER = (160, 240), (24, 24), (310, 470)
PAGE_COLOUR = (0x1e, 0x21, 0x29)
ROW_COLOUR = (54, 54, 54)


def tap(device, place):
    device.screen.press(place)
    device.screen.release(place)


def colour(device, place):
    return device.screen.picture().getpixel(place)


def story(device, checks):
    device.start("hello")
    checks.check("the host hears that the library gives up what link there was",
                 wait_until(lambda: "host heard linkend" in device.log(), 60))
    checks.check("its own page is on the screen",
                 wait_until(lambda: min(colour(device, CORNER)) > 200, 30))
    tap(device, MIDDLE)
    checks.check("a tap shows the Wi-Fi page", wait_until(lambda: colour(device, (160, 5)) == PAGE_COLOUR))
    checks.check("the networks in reach are listed", wait_until(lambda: "...nCount= " in device.log(), 60))
    checks.check("there is a row at the bottom of the screen",
                 wait_until(lambda: colour(device, (150, 470)) == ROW_COLOUR))
    tap(device, BACK_MARK)
    checks.check("the back mark leads to the host's own page again",
                 wait_until(lambda: min(colour(device, CORNER)) > 200))


def main():
    checks = Checks()
    with tempfile.TemporaryDirectory() as directory:
        try:
            with Device(sys.argv[1], pathlib.Path(directory) / "apps.img", SECONDS) as device:
                story(device, checks)
        except DeviceGone as error:
            checks.check(f"the device goes on: {error}", False)
    return checks.end()


if __name__ == "__main__":
    sys.exit(main())
