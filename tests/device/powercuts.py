#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""powercuts.py SAVER CUTS: cuts the virtual device's power CUTS times while it saves networks on an ext4 disk.

Each time a small guest (the device's kernel, no radios) mounts the disk, says what the store holds, and saves one list
after the other; QEMU is killed at a random moment after the first save. The next power-on must find the list whose
save was reported last, or the one behind it: never an older one, never anything else.

What a cut loses: all that the guest had in memory, and of what it had written to the disk since the last flush each
write or not, by chance: QEMU's blklogwrites keeps a log of writes and flushes, and the disk of the next power-on is
made from that. Out of the same log come further cuts, at random places of it, whose file systems are read on the host
(journal replayed by e2fsck). What it does not lose: parts of one write (a torn block), and writes that reached the disk
while a flush was on its way count as flushed.

Ends with "N passed, N failed"."""

import os
import pathlib
import random
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import threading

TREE = pathlib.Path(__file__).resolve().parents[2]
PIECES = pathlib.Path(os.environ.get("RAWIFI_VM_DIR", TREE / "build/vm"))
POWER_ON_SECONDS = 120
REPLAYS_A_CUT = 10
NETWORKS = 12
SECTOR = 512


class Checks:
    def __init__(self):
        self.passed = self.failed = 0

    def check(self, what, holds):
        print("ok  " if holds else "FAIL", what, flush=True)
        self.passed += bool(holds)
        self.failed += not holds


class WriteLog:
    """What blklogwrites has kept: [(position, bytes or None for a flush, is kept at once)]."""

    FLUSH, FORCED, DISCARD = 1, 2, 4

    def __init__(self, path):
        log = path.read_bytes()
        self.entries = []
        at = SECTOR  # behind the superblock, whose count is as old as the last flush
        while at + SECTOR <= len(log):
            sector, count, flags, _ = struct.unpack_from("<QQQQ", log, at)
            if not count and not flags:
                break
            at += SECTOR
            size = 0 if flags & self.DISCARD else count * SECTOR
            if at + size > len(log):
                break
            if size:
                self.entries.append((sector * SECTOR, log[at:at + size], bool(flags & self.FORCED)))
            elif flags & self.FLUSH:
                self.entries.append((0, None, True))
            at += size

    def flushes(self):
        return sum(data is None for _, data, _ in self.entries)

    def disk_after_cut(self, base, end, rng):
        """The disk when the power goes after the first END entries: unflushed writes are there or not."""
        disk = bytearray(base)
        flushed = max((i for i in range(end) if self.entries[i][1] is None), default=0)
        lost = 0
        for i, (position, data, forced) in enumerate(self.entries[:end]):
            if data is None:
                continue
            if i > flushed and not forced and rng.random() < 0.5:
                lost += 1
                continue
            disk[position:position + len(data)] = data
        return bytes(disk), lost


def qemu(disk, log, job):
    blocks = [f"driver=file,node-name=disk,filename={disk}", f"driver=file,node-name=log,filename={log}",
              f"driver=blklogwrites,node-name=logged,file=disk,log=log,log-sector-size={SECTOR}"]
    command = ["qemu-system-x86_64", "-nodefaults", "-no-user-config", "-display", "none", "-net", "none", "-no-reboot",
               "-accel", "tcg,thread=multi", "-smp", "1", "-m", "256", "-cpu", "max",
               "-kernel", PIECES / "vmlinux", "-initrd", PIECES / "initramfs",
               "-append", "console=ttyS0 loglevel=3 panic=-1 random.trust_cpu=on mitigations=off",
               "-serial", "stdio", "-fw_cfg", f"name=opt/org.rawificontrol/job,file={job}",
               "-virtfs", "local,path=/,mount_tag=hostroot,security_model=none,readonly=on,multidevs=remap"]
    for block in blocks:
        command += ["-blockdev", block]
    command += ["-device", "virtio-blk-pci,drive=logged,write-cache=on"]
    return subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, errors="replace")


def power_on_and_cut(disk, log, job, moment):
    """Kills the device MOMENT seconds after its first save. What it said: list held, last list saved, complaint."""
    device = qemu(disk, log, job)
    held = saved = complaint = None
    power = threading.Timer(POWER_ON_SECONDS, device.kill)
    power.start()
    for line in device.stdout:
        if found := re.search(r"\b(holds|saved) (\d+)\r?\n", line):
            if found[1] == "holds":
                held = int(found[2])
            else:
                if saved is None:
                    power.cancel()
                    power = threading.Timer(moment, device.kill)
                    power.start()
                saved = int(found[2])
        elif "FAIL" in line:
            complaint = line.strip()
    power.cancel()
    device.kill()
    device.wait()
    return held, saved, complaint


def list_on(image):
    """The number of the list in the store on a disk, 0 for none; a text that says what is wrong."""
    subprocess.run(["e2fsck", "-y", "-E", "journal_only", image], check=False, capture_output=True)
    store = subprocess.run(["debugfs", "-R", "cat /config/network.conf", image], check=False, capture_output=True).stdout
    if not store:
        return 0
    count = re.match(rb"(\d+)x+", store[:5])
    if not count or len(store) != 5 + int(count[1]) * 388:
        return f"{len(store)} bytes, header {store[:5]!r}"
    saves = [int(re.match(rb"password (\d+)\0", store[5 + 388 * i + 158:])[1]) for i in range(int(count[1]))]
    if saves != [saves[0] - i for i in range(min(saves[0], NETWORKS))]:
        return f"networks of the saves {saves}"
    return saves[0]


def main():
    if len(sys.argv) != 3:
        print(__doc__.strip(), file=sys.stderr)
        return 2
    saver, cuts = pathlib.Path(sys.argv[1]), int(sys.argv[2])
    rng = random.Random(20261121)
    checks = Checks()
    lost_writes = replays = last_saved = 0
    with tempfile.TemporaryDirectory() as directory:
        place = pathlib.Path(directory)
        base, disk, log, job = (place / name for name in ("base.img", "disk.img", "log", "job"))
        subprocess.run(["mke2fs", "-q", "-t", "ext4", base, "16M"], check=True, stdout=subprocess.DEVNULL)
        script = TREE / "tests/device/guest/save-until-power-cut.sh"
        job.write_text(f"exec chroot /device /bin/sh '{script}' '{saver}'\n")
        for cut in range(1, cuts + 2):  # the last power-on only looks
            shutil.copy(base, disk)
            log.write_bytes(b"")
            held, saved, complaint = power_on_and_cut(disk, log, job, rng.uniform(0, 0.7))
            holds = held is not None and saved is not None and complaint is None and last_saved <= held <= last_saved + 1
            checks.check(f"power-on {cut}: said to be saved {last_saved}, held {held}"
                         + (f": {complaint}" if complaint else ""), holds)
            if held is None or saved is None or cut > cuts:
                break
            writes = WriteLog(log)
            bytes_before = base.read_bytes()
            wrong = []
            for _ in range(REPLAYS_A_CUT):
                end = rng.randrange(len(writes.entries) + 1)
                disk.write_bytes(writes.disk_after_cut(bytes_before, end, rng)[0])
                found = list_on(disk)
                replays += 1
                if not isinstance(found, int) or not held <= found <= saved + 1:
                    wrong.append(f"after {end} of {len(writes.entries)}: {found}")
            checks.check(f"cut {cut} during save {saved + 1}: {len(writes.entries)} writes and {writes.flushes()} flushes,"
                         f" cut at {REPLAYS_A_CUT} more places of them: old or new {'; '.join(wrong)}", not wrong)
            after, lost = writes.disk_after_cut(bytes_before, len(writes.entries), rng)
            base.write_bytes(after)
            lost_writes += lost
            last_saved = saved
    print(f"power cuts: {cuts} of the running device, with {lost_writes} unflushed writes lost, and {replays} on paper")
    print(f"{checks.passed} passed, {checks.failed} failed")
    return 1 if checks.failed or not checks.passed else 0


if __name__ == "__main__":
    sys.exit(main())
