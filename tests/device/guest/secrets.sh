#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# A password on a device: while a network is joined with it, it is in no process's arguments or environment, in no log that
# is to be without secrets, and only in files that are their owner's alone.

tree=$(readlink -f "$(dirname "$0")/../../..")
. "$tree/tests/device/guest/checks.sh"

password=$(ap_field workshop key)
bssid=$(ap_field workshop bssid)

watch_processes() {
    while [ ! -e /tmp/join-over ]; do
        cat /proc/[0-9]*/cmdline /proc/[0-9]*/environ 2>/dev/null | tr '\0' '\n'
        sleep 0.2
    done >/tmp/processes
}

lines_with() { # lines_with TEXT FILE: how many; binary files count, too
    tr '\0' '\n' <"$2" | grep -acF -e "$1"
}

have() { # have TEXT FILE
    [ "$(lines_with "$1" "$2")" -gt 0 ]
}

files_with_password() { # "MODE FILE" of each, but for the access point's own, on one line
    for file in /apps/config/* /etc/wpa_supplicant.conf* /home/wifi/* /var/run/rawifi/*; do
        if [ -f "$file" ] && have "$password" "$file"; then
            echo "$(mode_of "$file") $file"
        fi
    done | tr '\n' ' ' | sed 's/ $//'
}

rm -f /tmp/join-over
watch_processes &
watching=$!
printf '%s\n' "$password" | RAWIFI_LOG_SECRETS=0 rawifictl --verbose join "$bssid" - >/tmp/log 2>&1
check "secrets: joined" same 0 $?
touch /tmp/join-over
wait "$watching"

check "secrets: the supplicant was watched" have wpa_supplicant /tmp/processes
check "secrets: the DHCP client was watched" have udhcpc /tmp/processes
check "secrets: environments were watched" have RAWIFI_LOG_SECRETS=0 /tmp/processes
check "secrets: the password is in no argument and no environment" same 0 "$(lines_with "$password" /tmp/processes)"
check "secrets: the joining line is without it" have 'password = ***,' /tmp/log
check "secrets: no other line has it" same 0 "$(lines_with "$password" /tmp/log)"
check "secrets: only their owner may read the files that have it" \
    same "600 /apps/config/network.conf 600 /etc/wpa_supplicant.conf 600 /home/wifi/tmpnetwork.conf" \
    "$(files_with_password)"
