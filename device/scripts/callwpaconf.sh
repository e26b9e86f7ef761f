#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Begins an attempt to join the network of /etc/wpa_supplicant.conf: ends what is left of the attempt before it (DHCP
# client, supplicant, addresses, routes), starts wpa_supplicant on wlan0 and takes the attempt to a lease. All that goes on
# in the background, while the caller does its own waiting; dhcp_setip.sh tells how it went.
# Reads:    /etc/wpa_supplicant.conf, and the last scan in /var/run/rawifi/scan: the channels on which the network was
#           seen are searched first, all the others only if it is not there.
# Writes:   the attempt's state under /var/run/rawifi; never /home/wifi/temp.txt, never /etc/wpa_supplicant.conf.
# Exit:     0.
# Bound:    8 s, and that only when an old supplicant does not end; the background part 46 s.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh
# shellcheck source=share/attempt.sh
. /usr/share/rawifi/attempt.sh

configuration=/etc/wpa_supplicant.conf

start() {
    start_supplicant -c "$configuration" -I "$run/channels.conf" && return 0
    # A supplicant before 2.10 does not know how to begin with some channels.
    start_supplicant -c "$configuration" && return 0
    set_link failed supplicant
    return 1
}

join() {
    start
    started=$?
    if [ $started -eq 0 ] && [ "${found%% *}" != seen ]; then
        # Perhaps its name is hidden, and then it has to be called by it.
        supplicant set_network 0 scan_ssid 1
    fi
    : >|"$run/starting"
    [ $started -eq 0 ] && take_attempt_to_its_end
}

begin_attempt # first, so that the attempt before it starts no client any more
end_process udhcpc
stop_supplicant
forget_addresses

[ -f "$run/scan" ] || : >"$run/scan"
found=$(awk -f "$library/names.awk" -f "$library/channels.awk" "$run/scan" "$configuration" 2>/dev/null)
printf '%s\n' "${found#* }" >|"$run/channels.conf"
echo supplicant >|"$run/starting"
join </dev/null >/dev/null 2>&1 &
