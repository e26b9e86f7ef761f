#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Tells whether the supplicant of wlan0 is running.
# Reads:    the supplicant's control socket.
# Writes:   /home/wifi/temp.txt: "OK" when the supplicant answers; no file otherwise.
# Exit:     0 when the supplicant answers, else 1.
# Bound:    3 s.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh

if supplicant_answers; then
    put "$answer" OK
else
    drop "$answer"
    exit 1
fi
