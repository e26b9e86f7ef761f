#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""
mishaps.py LIBRARY [EVIDENCE]: what happens to people who touch a Wi-Fi page, on the virtual device's real screen: switching off and
on during a scan, two taps at once, the page closed during a join, a network that goes away, a supplicant that dies, and
more networks than the screen holds. What came of it is seen from outside the library: the access point, the status
files, the messages on the bus, the screen. Prints a line a check and ends with "N passed, N failed".

LIBRARY   where the library and the host are installed
EVIDENCE  directory for the screen and the log at the end of each story (default out/mishaps)
"""

import pathlib
import shutil
import sys
import tempfile

from touch.accesspoints import access_point
from touch.checks import Checks
from touch.device import HEIGHT, TREE, Device, DeviceGone, wait_until
from touch.wifipage import BACK, OK, ROW_HEIGHT, TITLE_HEIGHT, WifiPage

LOCKED = access_point("workshop")
OPEN = access_point("open")
POWER_ON_SECONDS = 420
JOINED = r"\.\.\.result = 0"
FAILED = r"errflag = -2"
ATTEMPT_SECONDS = 60
MANY = 60

MANY_NETWORKS = f"""cat >/run/many.sh <<'.'
seq {MANY} | awk '{{ printf "02:00:00:00:09:%02x\\t2412\\t%d\\t[WPA2-PSK-CCMP][ESS]\\tNetwork %d\\n", $1, 99 - $1, $1 }}' \\
    >/home/wifi/temp.txt
.
mount -o bind /run/many.sh /usr/bin/getfirstaplist.sh
mount -o bind /run/many.sh /usr/bin/getaplist.sh"""
REAL_NETWORKS = "umount /usr/bin/getfirstaplist.sh; umount /usr/bin/getaplist.sh"
FRESH_DEVICE = "killall -q wpa_supplicant udhcpc; ip addr flush dev wlan0; rm -rf /apps/config/*"


class Mishaps:
    def __init__(self, device, checks, evidence):
        self._device = device
        self._checks = checks
        self._evidence = evidence
        self._story = ""
        self._heard_before = 0

    def run(self):
        for story in (self._many_networks, self._off_and_on_during_a_scan, self._two_taps_at_once,
                      self._page_closed_during_a_join, self._supplicant_killed_during_a_join,
                      self._network_gone_while_its_password_is_typed):
            self._story = story.__name__.replace("_", " ").strip()
            self._device.stop()
            self._device.sh(FRESH_DEVICE)
            self._device.start("rawifihost")
            page = WifiPage(self._device)
            try:
                page.open()
                self._heard_before = len(self._device.messages())
                story(page)
            except AssertionError as error:
                self._check(str(error), False)
            self._check("the host still runs", self._device.is_running())
            name = self._story.replace(" ", "-")
            self._device.screen.picture().save(self._evidence / f"{name}.png")
            (self._evidence / f"{name}.log").write_text(self._device.log())

    def _check(self, name, is_so):
        self._checks.check(f"{self._story}: {name}", is_so)

    # --- what is seen from outside ----------------------------------------------------------------------------

    def _check_joined(self, network):
        self._check("the access point knows the device",
                    wait_until(lambda: self._device.holds(f"ap-joined {network.handle}")))
        self._check("the gateway answers",
                    wait_until(lambda: self._device.holds(f"ping -c 1 -w 5 {network.gateway}")))
        self._check("the status file says so", self._link_file() == "1")

    def _check_not_joined(self):
        self._check("no link is claimed", self._link_file() != "1")

    def _link_file(self):
        return self._device.sh("cat /home/wifi/linkap.txt")

    def _is_saved(self, network):
        return self._device.holds(f"grep -q {network.bssid} /apps/config/network.conf")

    def _check_heard(self, *wanted):
        heard = wait_until(lambda: self._heard() == list(wanted), 5)
        self._check("the host hears " + ", ".join(wanted), heard)
        if not heard:
            print("heard:", *self._heard())

    def _heard(self):
        return self._device.messages()[self._heard_before:]

    # --- what a person does -----------------------------------------------------------------------------------

    def _switch_on(self, page):
        page.wait_for(r"nCount= [1-9]", page.tap_switch(), 40)

    def _start_joining(self, page):
        page.tap_row(LOCKED.name)
        page.wait_for_password_page()
        page.type(LOCKED.key)
        return page.tap(OK)

    # --- the stories ------------------------------------------------------------------------------------------

    def _many_networks(self, page):
        self._device.sh(MANY_NETWORKS)
        try:
            self._switch_on(page)
        finally:
            self._device.sh(REAL_NETWORKS)
        last = MANY - 1
        self._check("all are listed", page.rows() == [f"Network {number + 1}" for number in range(MANY)])
        page.scroll_to_end(-240)
        self._check("the last row can be dragged wholly into view",
                    TITLE_HEIGHT <= page.row_place(last)[1] - ROW_HEIGHT // 2 <= HEIGHT - ROW_HEIGHT)
        tapped = page.wait_for(r"clicked\((\d+)\)", page.tap(page.row_place(last)))
        self._check("a tap on the last row means the last network", tapped[1] == str(last))
        page.wait_for_password_page()
        page.tap(BACK)
        page.wait_for_list()
        page.scroll_to_end(240)
        self._check("and back to the first", page.scrolled() == 0)

    def _off_and_on_during_a_scan(self, page):
        before = page.tap_switch()
        page.wait_for("call pthread scan dev", before)
        page.wait_for(r"recAPSwitch\(0\)", page.tap_switch())
        again = page.tap_switch()
        page.wait_for(r"recAPSwitch\(1\)", again)
        page.wait_for(r"nCount= [1-9]", again, 40)
        self._check("one list comes of it", self._device.log()[before:].count("nCount=") == 1)
        self._check("it is whole", {LOCKED.name, OPEN.name} <= set(page.rows()))
        self._check("one supplicant runs", len(self._device.sh("pidof wpa_supplicant").split()) == 1)
        self._check_heard("linkend", "linkend", "linkend")
        self._check_not_joined()

    def _two_taps_at_once(self, page):
        self._switch_on(page)
        place = page.scroll_to(lambda: page.row_place(page.rows().index(OPEN.name)))
        before = page.tap(place)
        page.tap(place)
        page.wait_for(JOINED, before, ATTEMPT_SECONDS)
        self._check("one join is started", self._device.log()[before:].count("  Call connectUserSelectAP") == 1)
        self._check_joined(OPEN)
        self._check_heard("linkend", "APLINKSTART")

    def _page_closed_during_a_join(self, page):
        self._switch_on(page)
        before = self._start_joining(page)
        page.wait_for("verifying information", before)
        page.tap(BACK)
        page.wait_for_home()
        page.wait_for(JOINED, before, ATTEMPT_SECONDS)
        self._check_joined(LOCKED)
        page.wait_for_link_at_home()
        self._check_heard("linkend", "APLINKSTART")
        self._check("the network is saved", self._is_saved(LOCKED))
        page.open()
        place = page.scroll_to(lambda: page.row_place(page.rows().index(LOCKED.name)))
        self._check("opened again, its row is marked", wait_until(lambda: page.is_marked(place)))

    def _supplicant_killed_during_a_join(self, page):
        self._switch_on(page)
        before = self._start_joining(page)
        page.wait_for(r"\(writeConfig\)", before)  # the old supplicant is gone by then
        # For a while, because the script starts another one when the first does not come up.
        self._device.sh("for _ in $(seq 60); do killall -KILL wpa_supplicant; sleep 0.1; done")
        page.wait_for(FAILED, before, ATTEMPT_SECONDS)
        self._check("the message is on the screen", wait_until(page.shows_message))
        self._check("the network is not saved", not self._is_saved(LOCKED))
        self._check_not_joined()
        page.wait_for_message_to_go()
        page.wait_for(JOINED, self._start_joining(page), ATTEMPT_SECONDS)
        self._check_joined(LOCKED)
        self._check_heard("linkend", "APLINKSTART")

    def _network_gone_while_its_password_is_typed(self, page):
        self._switch_on(page)
        page.tap_row(LOCKED.name)
        page.wait_for_password_page()
        page.type(LOCKED.key[:6])
        self._device.sh(f"ap-off --silent {LOCKED.handle}")
        page.type(LOCKED.key[6:])
        page.wait_for(FAILED, page.tap(OK), ATTEMPT_SECONDS)
        self._check("the message is on the screen", wait_until(page.shows_message))
        self._check("the network is not saved", not self._is_saved(LOCKED))
        self._check_heard("linkend")
        self._check_not_joined()


def main():
    if not 2 <= len(sys.argv) <= 3:
        print(__doc__.strip(), file=sys.stderr)
        return 2
    evidence = pathlib.Path(sys.argv[2]) if len(sys.argv) == 3 else TREE / "out/mishaps"
    shutil.rmtree(evidence, ignore_errors=True)
    evidence.mkdir(parents=True)
    checks = Checks()
    with tempfile.TemporaryDirectory() as directory:
        try:
            with Device(pathlib.Path(sys.argv[1]), pathlib.Path(directory) / "apps.img", POWER_ON_SECONDS) as device:
                device.listen()
                Mishaps(device, checks, evidence).run()
        except DeviceGone as error:
            checks.check(f"the device stays on: {error}", False)
    return checks.end()


if __name__ == "__main__":
    sys.exit(main())
