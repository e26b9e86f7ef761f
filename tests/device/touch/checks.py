# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""Counting checks: a line each, and the sum at the end."""


class Checks:
    def __init__(self):
        self._passed = 0
        self._failed = 0

    def check(self, name, is_so):
        if is_so:
            self._passed += 1
        else:
            self._failed += 1
        print("ok" if is_so else "FAIL", name, flush=True)

    def end(self):
        """Prints the sum; gives the exit status."""
        print(f"{self._passed} passed, {self._failed} failed")
        return 0 if self._passed > 0 and self._failed == 0 else 1
