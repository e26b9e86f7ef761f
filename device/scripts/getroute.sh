#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Tells the default route through wlan0.
# Reads:    the kernel's routes.
# Writes:   /home/wifi/temp.txt: "default via ROUTER dev wlan0" (at most 39 characters); an empty file when there is none.
# Exit:     0 with a route, else 1.
# Bound:    waits for nothing.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh

# A route of half the address space (see udhcpc.sh) comes before one of all of it.
line=$(route -n | awk -v interface="$interface" '
    $1 == "0.0.0.0" && $8 == interface { router[$3] = $2 }
    END {
        if ("128.0.0.0" in router) half = router["128.0.0.0"]
        if (half || "0.0.0.0" in router) print "default via " (half ? half : router["0.0.0.0"]) " dev " interface
    }')
put "$answer" "$line"
[ -n "$line" ]
