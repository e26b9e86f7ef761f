# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""The pictures of a tour: one file for each step, and all of them as one that moves."""

from PIL import Image, ImageChops, ImageDraw

from .device import HEIGHT, WIDTH, wait_until

STEP_SECONDS = 1.6
TOUCH_SECONDS = 0.25
FINGER_RADIUS = 16
COLOURS = 32


def _differ(one, other):
    return ImageChops.difference(one, other).getbbox() is not None


class Album:
    def __init__(self, directory):
        self._directory = directory
        self._frames = []
        self._device = None
        self._last = None

    def look_at(self, device):
        """From now on the pictures are of this device's screen; what it shows already is nothing new."""
        self._device = device
        self._last = device.screen.picture()

    def step(self, name):
        """Keeps the screen once it shows something new and has come to rest; False when that does not happen."""
        shown = wait_until(self._new_picture_at_rest, 30)
        self._last = shown or self._device.screen.picture()
        self._last.quantize(256).save(self._directory / f"{name}.png", optimize=True)
        self._frames.append((self._last, STEP_SECONDS))
        return bool(shown)

    def _new_picture_at_rest(self):
        before = self._device.screen.picture()
        if not _differ(self._last, before) or not self._device.is_at_rest():
            return None
        after = self._device.screen.picture()
        return None if _differ(before, after) else after

    def touch(self, place, seconds=TOUCH_SECONDS):
        """Keeps the screen as it is when a finger comes down on it, with the finger."""
        frame = self._device.screen.picture()
        mark = Image.new("RGBA", frame.size)
        x, y = place
        ImageDraw.Draw(mark).ellipse(
            (x - FINGER_RADIUS, y - FINGER_RADIUS, x + FINGER_RADIUS, y + FINGER_RADIUS),
            fill=(255, 255, 255, 110), outline=(255, 255, 255, 220), width=2)
        frame.paste(mark, mask=mark)
        self._frames.append((frame, seconds))

    def darkness(self):
        """The device is off."""
        self._frames.append((Image.new("RGB", (WIDTH, HEIGHT)), STEP_SECONDS))

    def save_animation(self, path):
        if not self._frames:
            return
        palette = self._common_palette()
        pictures = [frame.quantize(palette=palette, dither=Image.Dither.NONE).convert("RGB")
                    for frame, _ in self._frames]
        pictures[0].save(path, save_all=True, append_images=pictures[1:], loop=0,
                         lossless=True, minimize_size=True, method=4,
                         duration=[int(seconds * 1000) for _, seconds in self._frames])

    def _common_palette(self):
        """The few colours that the steps have in common: with them the file is half as large."""
        steps = [frame for frame, seconds in self._frames if seconds == STEP_SECONDS] or [self._frames[0][0]]
        together = Image.new("RGB", (WIDTH * len(steps), HEIGHT))
        for number, step in enumerate(steps):
            together.paste(step, (WIDTH * number, 0))
        return together.quantize(COLOURS)
