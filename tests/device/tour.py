#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""
tour.py LIBRARY [PICTURES]: a finger goes through the whole cycle on the virtual device's real screen, with the host
application on it and real access points around it: Wi-Fi on, a wrong password, the right one, joined, off; power off
and on, and the network comes back by itself. Prints a line a check and ends with "N passed, N failed".

LIBRARY   where the library and the host are installed
PICTURES  directory for a picture of each step and tour.webp (default out/tour)
"""

import pathlib
import re
import shutil
import sys
import tempfile

from touch.album import Album
from touch.checks import Checks
from touch.device import TREE, Device, DeviceGone, wait_until
from touch.wifipage import BACK, OK, OPEN_PAGE, WifiPage
from touch.accesspoints import access_point

TARGET = access_point("workshop")
WRONG_PASSWORD = "sesame99"
POWER_ON_SECONDS = 200
TICKS = TREE / "build/qt6/tests/libticks.so"


class Tour:
    def __init__(self, library, pictures):
        self._library = library
        self._pictures = pictures
        self._album = Album(pictures)
        self._step = 0
        self._checks = Checks()

    def run(self):
        with tempfile.TemporaryDirectory() as directory:
            disk = pathlib.Path(directory) / "apps.img"
            try:
                self._power_on(disk, self._first_power_on)
                self._album.darkness()
                self._power_on(disk, self._second_power_on)
            except (AssertionError, DeviceGone) as error:
                self._checks.check(f"the tour goes on: {error}", False)
        self._album.save_animation(self._pictures / "tour.webp")
        return self._checks.end()

    def _power_on(self, disk, story):
        with Device(self._library, disk, POWER_ON_SECONDS) as device:
            self._album.look_at(device)
            device.start("rawifihost", TICKS)
            try:
                story(device, WifiPage(device, self._album))
            except AssertionError:
                self._see("where it stopped")
                raise
            finally:
                (self._pictures / f"{story.__name__.strip('_')}.log").write_text(device.log())

    def _see(self, name):
        self._step += 1
        shown = self._album.step(f"{self._step:02}-{name.replace(' ', '-')}")
        self._checks.check(f"seen: {name}", shown)

    def _tell_silence(self, device, what, since):
        """The GUI thread's, since a position in the log."""
        silences = re.findall(r"ticks: silent for ([0-9.]+) ms", device.log()[since:])
        longest = max(map(float, silences), default=0)
        print(f"GUI thread: silent for at most {longest:.1f} ms during {what} (limit 50)", flush=True)

    def _check_joined(self, device, network):
        check = self._checks.check
        check("the access point knows the device", wait_until(lambda: device.holds(f"ap-joined {network.handle}")))
        check("the gateway answers", wait_until(lambda: device.holds(f"ping -c 1 -w 5 {network.gateway}")))
        check("the default route leads there",
              device.sh("route -n | awk '$1 == \"0.0.0.0\" { print $2 }'") == network.gateway)
        check("the status file says so", device.sh("cat /home/wifi/linkap.txt") == "1")

    def _first_power_on(self, device, page):
        check = self._checks.check
        page.wait_for_home()
        self._see("home page")
        page.tap(OPEN_PAGE)
        self._see("Wi-Fi page")

        before = page.tap_switch()
        self._see("looking for networks")
        page.wait_for(r"nCount= [1-9]", before, 40)
        self._see("networks")
        self._tell_silence(device, "a scan", before)
        rows = page.rows()
        check("the list holds every network that shows its name", "Home" in rows and TARGET.name in rows)

        page.scroll(-240)
        self._see("list dragged")
        page.tap_row(TARGET.name)
        self._see("password page")

        page.type(WRONG_PASSWORD)
        self._see("wrong password")
        before = page.tap(OK)
        self._see("joining")
        page.wait_for(r"errflag = -2", before, 60)
        self._see("wrong password told")
        check("not joined", device.sh("cat /home/wifi/linkap.txt") != "1")

        page.wait_for_message_to_go()
        page.tap_row(TARGET.name)
        self._see("asked again")
        page.type(TARGET.key)
        self._see("right password")
        before = page.tap(OK)
        page.wait_for(r"\.\.\.result = 0", before, 60)
        self._see("joined")
        self._tell_silence(device, "a join", before)
        self._check_joined(device, TARGET)
        *_, drawing = re.findall(r"ticks: drew for ([0-9.]+) ms", device.log())
        print(f"GUI thread: longest drawing {drawing} ms by the emulated processor", flush=True)
        page.tap(BACK)
        page.wait_for_link_at_home()
        self._see("home page with the link")

        page.tap(OPEN_PAGE)
        self._see("Wi-Fi page again")
        page.tap_switch()
        check("switched off, the access point loses the device",
              wait_until(lambda: not device.holds(f"ap-joined {TARGET.handle}")))
        self._see("switched off")
        page.tap(BACK)
        self._see("home page without a link")

    def _second_power_on(self, device, page):
        check = self._checks.check
        page.wait_for_home()
        self._see("powered on again")
        check("after power-on the link comes up by itself",
              wait_until(lambda: device.sh("cat /home/wifi/linkap.txt") == "1", 60))
        page.wait_for_link_at_home()
        self._see("link back by itself")
        self._check_joined(device, TARGET)
        page.tap(OPEN_PAGE)
        self._see("network that came back")


def main():
    if not 2 <= len(sys.argv) <= 3:
        print(__doc__.strip(), file=sys.stderr)
        return 2
    pictures = pathlib.Path(sys.argv[2]) if len(sys.argv) == 3 else TREE / "out/tour"
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    return Tour(pathlib.Path(sys.argv[1]), pictures).run()


if __name__ == "__main__":
    sys.exit(main())
