# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""The virtual device's table of access points."""

from collections import namedtuple

from .device import TREE

AccessPoint = namedtuple("AccessPoint", "handle bssid key name gateway")


def access_point(wanted):
    for line in (TREE / "device/vm/access-points.conf").read_text().splitlines():
        fields = line.split()
        if fields and fields[0] == wanted:
            handle, bssid, _, _, _, _, key, name = fields
            radio = int(bssid.split(":")[4])
            return AccessPoint(handle, bssid, key, bytes.fromhex(name).decode(), f"192.168.{10 + radio}.1")
    raise ValueError(f"no access point {wanted!r}")
