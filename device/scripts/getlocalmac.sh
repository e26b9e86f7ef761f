#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Tells the MAC address of wlan0.
# Reads:    /sys/class/net/wlan0/address.
# Writes:   /home/wifi/temp.txt: six lower-case hexadecimal pairs with colons; no file when there is no wlan0.
# Exit:     0 with an address, else 1.
# Bound:    waits for nothing.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh

mac=
{ read -r mac <"/sys/class/net/$interface/address"; } 2>/dev/null
pair='[0-9a-f][0-9a-f]'
# shellcheck disable=SC2254 # the pattern is ours
case $mac in
$pair:$pair:$pair:$pair:$pair:$pair)
    put "$answer" "$mac"
    ;;
*)
    drop "$answer"
    exit 1
    ;;
esac
