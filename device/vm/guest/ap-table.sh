# shellcheck shell=sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Reads access-points.conf; sourced by the guest's commands and by tests. Set guest to this file's directory first.

# shellcheck disable=SC2154 # guest: set by whoever sources this
ap_table=${guest%/guest}/access-points.conf
# shellcheck disable=SC2034 # for whoever sources this
device_mac=02:00:00:00:00:00

ap_lines() { # every access point, one a line
    grep -v -e '^#' -e '^$' "$ap_table"
}

ap_lines_of() { # RADIO
    ap_lines | awk -v radio="$1" '{ split($2, byte, ":") } byte[5] + 0 == radio'
}

# ap_field HANDLE COLUMN: one field of one access point; COLUMN is a name from the table's head.
# Fails when there is no such access point or column.
ap_field() {
    ap_lines | awk -v handle="$1" -v column="$2" '
        BEGIN {
            count = split("handle bssid channel level kind seen key ssid", name, " ")
            for (i = 1; i <= count; i++) number[name[i]] = i
        }
        $1 == handle && column in number { print $number[column]; found = 1 }
        END { exit !found }'
}

ap_radios() { # the numbers of the radios that carry access points
    ap_lines | awk '{ split($2, byte, ":"); print byte[5] + 0 }' | sort -nu
}

ap_radio() { # HANDLE
    ap_bssid=$(ap_field "$1" bssid) && echo "$ap_bssid" | awk -F: '{ print $5 + 0 }'
}

ap_interface() { # HANDLE: its network interface, inside the radio's network namespace
    ap_bssid=$(ap_field "$1" bssid) &&
        echo "$ap_bssid" | awk -F: '{ print "wlan" ($5 + 0) ($6 == "00" ? "" : "_" $6) }'
}

ap_frequency() { # HANDLE: in MHz
    ap_channel=$(ap_field "$1" channel) && echo $((2407 + 5 * ap_channel))
}

in_radio() { # RADIO COMMAND...: run in the radio's network namespace
    ap_namespace=/run/netns/ap$1
    shift
    nsenter --net="$ap_namespace" "$@"
}
