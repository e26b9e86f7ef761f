#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Scans on wlan0 and lists the access points when the scan has ended.
# Reads:    the supplicant's control socket.
# Writes:   /home/wifi/temp.txt: a line for each access point, in the supplicant's order: BSSID, frequency in MHz, quality
#           (dBm + 100, within 0..99), flags, name; separated by tabs, no header. An empty file when none was seen, no
#           file when there was no scan. The same lines in /var/run/rawifi/scan, for callwpaconf.sh.
# Exit:     0 after a scan, else 1.
# Bound:    30 s: 20 s for the scan (about 4 s on an idle radio, 11 s beside a connection), of which at most 2 s for a
#           supplicant that does not answer; 3 s for the list; 3 s more for the last question in each. A scan that is
#           not over by then is listed as far as it got.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh

# Asks for a scan that neither starts nor moves a connection. The supplicant refuses it while it scans for itself and
# while the interface is coming up.
start_scan() {
    until reply=$(supplicant scan TYPE=ONLY) && [ "$reply" = OK ]; do
        clock
        [ "$now" -lt "$give_up" ] || return 1
        [ -n "$reply" ] || [ "$now" -lt "$silence" ] || return 1
        nap 200
    done
}

# The supplicant's own account of what the radio is doing has the scan in it until the results are in.
await_scan_end() {
    while supplicant radio_work show | grep -q "^scan@$interface:"; do
        clock
        [ "$now" -lt "$give_up" ] || return 1
        nap 200
    done
}

# Prints all that the supplicant knows. A reply has room for some 45 access points, so it is asked page by page.
access_points() {
    from=0
    while page=$newline$(supplicant bss "RANGE=$from-" MASK=0x1887); do
        last=${page##*"${newline}id="}
        last=${last%%"$newline"*}
        case $last in
        '' | *[!0-9]* | ?????????*) return ;;
        esac
        [ "$last" -ge "$from" ] || return
        clock
        [ "$now" -lt "$give_up" ] || return
        printf '%s\n' "$page"
        from=$((last + 1))
    done
}

clock
silence=$((now + 200))
give_up=$((now + 2000))
if ! start_scan; then
    drop "$answer"
    exit 1
fi
await_scan_end
clock
give_up=$((now + 300))
list=$(access_points | awk -f "$library/names.awk" -f "$library/accesspoints.awk")
put "$answer" "$list"
printf '%s\n' "$list" >|"$run/scan"
