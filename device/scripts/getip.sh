#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Tells the IPv4 address of wlan0. While an attempt to join is under way it waits for the address, as long as that can
# still come: all calls of one attempt wait 8 s together. An address of an earlier attempt is never told.
# Reads:    the attempt's state; without any attempt since power-on, the interface itself.
# Writes:   /home/wifi/temp.txt: the address; an empty file when there is none (yet).
# Exit:     0 with an address, else 1.
# Bound:    8 s.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh

address_of_interface() {
    ifconfig "$interface" 2>/dev/null | awk '/inet / { sub(/.*inet (addr:)?/, ""); print $1; exit }'
}

await_address() {
    clock
    since=$now
    waited=0
    { read -r waited <"$run/waited.$attempt"; } 2>/dev/null
    get_link
    while [ "$link" != bound ] && [ "$link" != failed ] && [ $((now - since + waited)) -lt 800 ]; do
        nap 030
        clock
        get_link
    done
    echo $((now - since + waited)) >|"$run/waited.$attempt"
    [ "$link" = bound ]
}

if ! current_attempt; then
    detail=$(address_of_interface)
elif ! await_address; then
    detail=
fi
put "$answer" "$detail"
[ -n "$detail" ]
