#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Tells the state of the connection.
# Reads:    the supplicant's control socket.
# Writes:   /home/wifi/connectstatus.txt and /home/wifi/temp.txt, alike: those of the supplicant's lines bssid, ssid, id,
#           pairwise_cipher, group_cipher, key_mgmt, wpa_state, ip_address that there are, in this order; no files when
#           the supplicant does not answer.
# Exit:     0 when it answers, else 1.
# Bound:    3 s.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh

status=$(supplicant status | awk -f "$library/names.awk" -f "$library/status.awk")
if [ -z "$status" ]; then
    drop "$answer" "${answer%/*}/connectstatus.txt"
    exit 1
fi
put "${answer%/*}/connectstatus.txt" "$status"
put "$answer" "$status"
