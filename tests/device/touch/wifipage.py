# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""Where things are on the screen, and a finger that uses them. What a touch has done is read from the library's log;
nothing waits for a time to pass."""

import re
import time

from .device import HEIGHT, wait_until

OPEN_PAGE = (160, 402)  # a row on the host's home page
LINK_SYMBOL = (160, 194)  # its dot, there too
ROW_COLOUR = (54, 54, 54)
LIT = (248, 129, 133)
MESSAGE_CORNER = (4, 104)  # of the message window, which is black like nothing else
BLACK = (0, 0, 0)

BACK = (25, 25)
LIST_TOP = 82
SWITCH_X, SWITCH_Y = 265, 29  # in the list
MARK_X = 264  # in a row's mark, beside its picture
FIRST_ROW, PITCH, ROW_HEIGHT = 57, 57, 60
TITLE_HEIGHT = 50

OK = (237, 174)
OK_CORNER = (240, 154)  # inside the button, above its text

KEYBOARD_TOP = HEIGHT - 262
SHIFT, LETTERS, DIGITS, SYMBOLS, BACKSPACE = range(5)
ROW_ONE = 5
NEXT_PAGE = 32
LETTER_KEYS = "abcdefghijklmnopqrstuvwxyz"
DIGIT_KEYS = "1234567890"
SYMBOL_KEYS = " .,?!`'\"-/:;()$&@#%^*+=_\\|~<>[]{}"
FIRST_SYMBOL_PAGE = SYMBOL_KEYS[:27]


def key_place(index):
    """The middle of a key: rows of five, and three in the last."""
    row, column = divmod(index, 5)
    keys = 3 if row == 6 else 5
    width = (314 - 4 * (keys - 1)) / keys
    return (int(3 + column * (width + 4) + width / 2), int(KEYBOARD_TOP + 2 + row * 35.5 + 18))


class WifiPage:
    """The page under a finger; the album, if any, gets a picture of every touch."""

    def __init__(self, device, album=None):
        self._device = device
        self._album = album
        self._keyboard_page = "letters"
        self._capitals = False

    # --- the finger -------------------------------------------------------------------------------------------

    def tap(self, place):
        """Touches a place; gives the log's position from before."""
        before = len(self._device.log())
        if self._album:
            self._album.touch(place)
        self._device.screen.press(place)
        time.sleep(0.08)  # a finger's time
        self._device.screen.release(place)
        return before

    def tap_until(self, place, pattern, seconds=20):
        """Touches a place, then waits for what that makes the library say."""
        before = self.tap(place)
        return self.wait_for(pattern, before, seconds)

    def wait_for(self, pattern, since=0, seconds=20):
        found = wait_until(lambda: re.search(pattern, self._device.log()[since:]), seconds)
        if not found:
            raise AssertionError(f"the library never said {pattern!r}")
        return found

    def drag(self, start, end, steps=12):
        x, y = start
        self._device.screen.press(start)
        for step in range(1, steps + 1):
            y = start[1] + (end[1] - start[1]) * step // steps
            if self._album:
                self._album.touch((x, y), 0.08)
            self._device.screen.move((x, y))
            time.sleep(0.03)
        self._device.screen.release((x, y))

    def _wait_for_colour(self, place, colour, what):
        if not wait_until(lambda: self._device.screen.picture().getpixel(place) == colour):
            raise AssertionError(f"{what} did not appear")

    def wait_for_home(self):
        self._wait_for_colour((5, OPEN_PAGE[1]), ROW_COLOUR, "the home page")

    def open(self):
        self.wait_for_home()
        self.tap(OPEN_PAGE)
        self.wait_for_list()

    def wait_for_list(self):
        self._wait_for_colour((1, LIST_TOP + SWITCH_Y), ROW_COLOUR, "the list")

    def wait_for_password_page(self):
        self._wait_for_colour(OK_CORNER, ROW_COLOUR, "the password page")

    def shows_message(self):
        return self._device.screen.picture().getpixel(MESSAGE_CORNER) == BLACK

    def is_marked(self, place):
        """Whether the row in the middle of which the place lies has the mark of the current one."""
        return self._device.screen.picture().getpixel((MARK_X, place[1])) == LIT

    def wait_for_link_at_home(self):
        self._wait_for_colour(LINK_SYMBOL, LIT, "the home page's link")

    # --- the list ---------------------------------------------------------------------------------------------

    def rows(self):
        """The names in the list, from top to bottom."""
        *_, last = re.finditer(r"nCount= (\d+)", self._device.log())
        log = self._device.log()[:last.end()]
        names = re.findall(r"\(addItemData\)\]  essid=([^\x1b]*)", log)
        return names[len(names) - int(last[1]):]

    def scrolled(self):
        """How far the list is scrolled, in pixels."""
        found = re.findall(r"new Value =(\d+)", self._device.log())
        return int(found[-1]) if found else 0

    def switch_place(self):
        return (SWITCH_X, LIST_TOP + SWITCH_Y - self.scrolled())

    def row_place(self, index):
        return (150, LIST_TOP + FIRST_ROW + index * PITCH + ROW_HEIGHT // 2 - self.scrolled())

    def scroll_to(self, place):
        """Drags the list until what is at the place that the function gives can be seen well; gives its place then."""
        for _ in range(60):
            y = place()[1]
            if TITLE_HEIGHT + 50 <= y <= HEIGHT - 40:
                return place()
            self.scroll(max(-240, min(240, 260 - y)))
        raise AssertionError("what the finger looks for cannot be dragged into view")

    def tap_row(self, name):
        """Touches a network in the list, wherever it is."""
        if name not in self.rows():
            raise AssertionError(f"{name} is not in the list")
        index = self.rows().index(name)
        self.password_page_opened()
        return self.tap(self.scroll_to(lambda: self.row_place(index)))

    def tap_switch(self):
        return self.tap(self.scroll_to(self.switch_place))

    def wait_for_message_to_go(self):
        if not wait_until(lambda: not self.shows_message()):
            raise AssertionError("the message stays on the screen")

    def scroll(self, way):
        """One stroke of the finger; down when positive."""
        start = (150, 180 if way > 0 else 420)
        self.drag(start, (150, start[1] + way))
        wait_until(self._device.is_at_rest)

    def scroll_to_end(self, way):
        """Strokes in one direction until nothing moves any more."""
        before = None
        while before != (before := self.scrolled()):
            self.scroll(way)

    # --- the password page ------------------------------------------------------------------------------------

    def type(self, text):
        for character in text:
            self._show_key_of(character)
            self.tap_until(key_place(self._key_index(character)), r"\(setTextSlot\)")

    def _key_index(self, character):
        for keys in (LETTER_KEYS, DIGIT_KEYS, FIRST_SYMBOL_PAGE, SYMBOL_KEYS[27:]):
            if character.lower() in keys:
                return ROW_ONE + keys.index(character.lower())
        raise ValueError(f"no key for {character!r}")

    def _show_key_of(self, character):
        if character.isalpha():
            self._turn_to("letters")
            if character.isupper() != self._capitals:
                self.tap_until(key_place(SHIFT), r"\(setSymbolPage\)")
                self._capitals = not self._capitals
        elif character.isdigit():
            self._turn_to("digits")
        elif character in FIRST_SYMBOL_PAGE:
            self._turn_to("symbols")
        elif self._keyboard_page != "more symbols":
            self._turn_to("symbols")
            self.tap_until(key_place(NEXT_PAGE), r"\(setSymbolPage\)")
            self._keyboard_page = "more symbols"

    def _turn_to(self, page):
        if self._keyboard_page != page:
            key = {"letters": LETTERS, "digits": DIGITS, "symbols": SYMBOLS}[page]
            self.tap_until(key_place(key), r"\(setSymbolPage\)")
            self._keyboard_page = page

    def password_page_opened(self):
        """It opens with letters; capitals stay as they were left."""
        self._keyboard_page = "letters"
