#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Starts wpa_supplicant on wlan0 without any network, so that it can scan; one that runs already is left alone.
# Reads:    the supplicant's control socket. /etc/wpa_supplicant.conf is neither read nor written.
# Writes:   /home/wifi/temp.txt: "OK" when the supplicant answers; no file otherwise.
# Exit:     0 when the supplicant answers, else 1.
# Bound:    30 s.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh

start_without_network() {
    stop_supplicant
    printf 'ctrl_interface=%s\nap_scan=1\n' "$control" >|"$run/default.conf"
    start_supplicant -c "$run/default.conf" && await_supplicant 300
}

if supplicant_answers || start_without_network; then
    put "$answer" OK
else
    drop "$answer"
    exit 1
fi
