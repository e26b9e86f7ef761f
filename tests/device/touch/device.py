# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""The virtual device as somebody has it who stands before it: a power switch, a screen to touch and to look at, and
a shell to see from inside what is true."""

import io
import itertools
import json
import pathlib
import queue
import re
import shlex
import socket
import subprocess
import tempfile
import threading
import time

from PIL import Image

TREE = pathlib.Path(__file__).resolve().parents[3]
WIDTH, HEIGHT = 320, 480


class DeviceGone(Exception):
    """The device has ended, or does not answer any more."""


class Screen:
    """QEMU's machine protocol: pictures of the screen, and a finger on it."""

    FULL_SCALE = 0x8000

    def __init__(self, path):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.settimeout(30)
        self._socket.connect(str(path))
        self._lines = self._socket.makefile("rw")
        self._picture = pathlib.Path(path).with_name("picture.png")
        self._lines.readline()  # the greeting
        self._call("qmp_capabilities")

    def _call(self, command, **arguments):
        self._lines.write(json.dumps({"execute": command, "arguments": arguments}) + "\n")
        self._lines.flush()
        for line in self._lines:
            answer = json.loads(line)
            if "error" in answer:
                raise DeviceGone(answer["error"]["desc"])
            if "return" in answer:
                return
        raise DeviceGone("the screen is gone")

    def picture(self):
        self._call("screendump", filename=str(self._picture), format="png")
        return Image.open(io.BytesIO(self._picture.read_bytes())).convert("RGB")

    def _send(self, place, pressed=None):
        events = [{"type": "abs", "data": {"axis": axis, "value": int((at + 0.5) * self.FULL_SCALE / size)}}
                  for axis, at, size in (("x", place[0], WIDTH), ("y", place[1], HEIGHT))]
        if pressed is not None:
            events.append({"type": "btn", "data": {"button": "left", "down": pressed}})
        self._call("input-send-event", events=events)

    def press(self, place):
        # The kernel tells programs only what changes, and a program that has just started knows no place.
        self._send((place[0] - 1, place[1] - 1))
        self._send(place)
        time.sleep(0.03)
        self._send(place, True)

    def move(self, place):
        self._send(place)

    def release(self, place):
        self._send(place, False)


class Device:
    """One power-on. Use it in a with statement: its end is the power switch."""

    def __init__(self, library, disk, seconds):
        self._directory = tempfile.TemporaryDirectory()
        self._counter = itertools.count()
        self._lines = queue.Queue()
        self._log = ""
        self._log_bytes = 0
        path = pathlib.Path(self._directory.name) / "screen"
        self._run = subprocess.Popen(
            [TREE / "device/vm/run", "--screen", path, "--input", "--disk", disk, "--mount-lib", library,
             "--timeout", str(seconds), "--", "sh"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        threading.Thread(target=self._read, daemon=True).start()
        try:
            self.sh("true", seconds=120)  # it is up when its shell answers
            self.screen = Screen(path)
        except BaseException:
            self.power_off()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.power_off()

    def _read(self):
        for line in self._run.stdout:
            self._lines.put(line)
        self._lines.put(None)

    def ask(self, command, seconds=30):
        """Runs a command on the device: its exit status and what it printed."""
        mark = f"=== {next(self._counter)} "
        self._run.stdin.write(f"{{ {command}\n}} </dev/null 2>&1; printf '\\n{mark}%s\\n' $?\n".encode())
        self._run.stdin.flush()
        printed = b""
        end = time.monotonic() + seconds
        while True:
            try:
                line = self._lines.get(timeout=max(0, end - time.monotonic()))
            except queue.Empty:
                raise DeviceGone(f"no answer within {seconds} s: {command}") from None
            if line is None:
                raise DeviceGone("the device has ended")
            if line.startswith(mark.encode()):
                return int(line.split()[-1]), printed[:-1]
            printed += line

    def sh(self, command, seconds=30):
        """What a command prints, as text."""
        return self.ask(command, seconds)[1].decode(errors="replace").strip()

    def holds(self, command, seconds=30):
        """Whether a command succeeds."""
        return self.ask(command, seconds)[0] == 0

    def start(self, program, preloaded=""):
        """Starts a program on the screen, with a library put in front; what it writes is the log."""
        self._log = ""
        self._log_bytes = 0
        preload = shlex.quote(f"LD_PRELOAD={preloaded}")
        self.sh(f"on-screen env {preload} {shlex.quote(program)} >/run/log 2>&1 & echo $! >/run/program")

    def stop(self):
        """Ends the program that was started last, if any, and clears the screen."""
        self.sh("kill -KILL $(cat /run/program)")
        wait_until(lambda: not self.is_running())
        self.sh("cat /dev/zero >/dev/fb0")

    def is_running(self):
        return self.holds("ls /proc/$(cat /run/program)/exe")

    def listen(self):
        """Starts a message bus for the programs to come, and writes down what goes over it."""
        self.sh("export DBUS_SESSION_BUS_ADDRESS=unix:path=/run/bus\n"
                "dbus-daemon --session --address=$DBUS_SESSION_BUS_ADDRESS --fork --nopidfile\n"
                "dbus-monitor \"interface='org.rawificontrol.QCop'\" >/run/messages 2>&1 &")

    def messages(self):
        """The texts that were sent to the host since listen()."""
        return re.findall(r'string "mainprocess"\s+string "wifi\(QString\)"\s+array of bytes "(.*)"',
                          self.sh("cat /run/messages"))

    def is_at_rest(self):
        """Whether the program has done little for a while: a blinking caret alone may keep a busy machine's."""
        look = "awk '{ print $3, $14 + $15 }' /proc/$(cat /run/program)/stat"  # its state and the ticks it has run
        states = self.sh(f"{look}; sleep 0.3; {look}").split()
        return states[0] == states[2] == "S" and int(states[3]) - int(states[1]) <= 10

    def log(self):
        new = self.ask(f"tail -c +{self._log_bytes + 1} /run/log")[1]
        self._log_bytes += len(new)
        self._log += new.decode(errors="replace")
        return self._log

    def power_off(self):
        """Like pulling the plug: what was not written is lost."""
        if self._run.poll() is None:
            try:
                self._run.stdin.write(b"power-cut\n")
                self._run.stdin.close()
                self._run.wait(20)
            except (OSError, subprocess.TimeoutExpired):
                self._run.terminate()
                self._run.wait()
        self._directory.cleanup()


def wait_until(condition, seconds=20):
    """The condition's first true value; its last false one when the time is up."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value or time.monotonic() > end:
            return value
        time.sleep(0.1)
