#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Is the virtual device itself in order? Scans, joins one network of each kind and provokes the faults, with the
# supplicant and the DHCP client alone: what fails here is no fault of the library or of the helper scripts.
# Run it with: device/vm/run -- device/vm/guest/selfcheck.sh
# shellcheck disable=SC2317 # many functions are called by name, through check and wait_until

guest=$(dirname "$(readlink -f "$0")")
# shellcheck source=ap-table.sh
. "$guest/ap-table.sh"
# shellcheck source=checks.sh
. "$guest/checks.sh"

conf=/run/selfcheck.conf
control="wpa_cli -i wlan0"

start_supplicant() { # one line of the network block each
    {
        echo "ctrl_interface=/var/run/wpa_supplicant"
        [ $# -eq 0 ] || echo "network={"
        [ $# -eq 0 ] || printf '\t%s\n' "$@"
        [ $# -eq 0 ] || echo "}"
    } >$conf
    wpa_supplicant -B -D nl80211 -i wlan0 -c $conf >/dev/null
}

stop_supplicant() {
    $control terminate >/dev/null
    wait_until 5 test ! -e /var/run/wpa_supplicant/wlan0
    ifconfig wlan0 0.0.0.0
}

has_state() { [ "$($control status 2>/dev/null | sed -n 's/^wpa_state=//p')" = "$1" ]; }
key_refused() { $control list_networks | grep -q 'TEMP-DISABLED'; }

expected_list() { # bssid, name in hex, level, kind; sorted
    ap_lines | awk '{ print $2, $6 == "hidden" ? "-" : $8, $4, $5 }' | sort
}

seen_list() { # the same from the supplicant's results, its escapes decoded
    $control scan_results | awk -F '\t' '
        BEGIN {
            for (i = 32; i < 127; i++) code[sprintf("%c", i)] = sprintf("%02x", i)
            escape["n"] = "0a"; escape["r"] = "0d"; escape["t"] = "09"; escape["e"] = "1b"
        }
        function hex(text,    i, c, out) {
            for (i = 1; i <= length(text); i++) {
                c = substr(text, i, 1)
                if (c != "\\") { out = out code[c]; continue }
                c = substr(text, ++i, 1)
                if (c == "x") { out = out substr(text, i + 1, 2); i += 2 }
                else out = out (c in escape ? escape[c] : code[c])
            }
            return out == "" ? "-" : out
        }
        function level(dbm) { return dbm < -84 ? 1 : dbm < -69 ? 2 : dbm < -54 ? 3 : 4 }
        function kind(flags) {
            if (flags ~ /WPA2/) return flags ~ /WPA-/ ? "MIXED" : "WPA2"
            return flags ~ /WPA-/ ? "WPA" : flags ~ /WEP/ ? "WEP" : "OPEN"
        }
        NR > 1 { print $1, hex($5), level($3), kind($4) }' | sort
}

check_scan() {
    start_supplicant
    $control scan >/dev/null
    wait_until 10 not has_state SCANNING
    check "every access point is seen with its name, level and kind" same "$(expected_list)" "$(seen_list)"
    stop_supplicant
}

heard() { # HANDLE...: those of them that a scan without the supplicant finds
    iw dev wlan0 scan flush >/tmp/heard
    for heard_handle; do
        ! grep -q "^BSS $(ap_field "$heard_handle" bssid)" /tmp/heard || echo "$heard_handle"
    done
}

hears() { [ -n "$(heard "$1")" ]; }

derived_key() { # HANDLE PASSPHRASE: in the form that needs no quoting
    name=$(printf '%b' "$(ap_field "$1" ssid | sed 's/../\\x&/g')")
    wpa_passphrase "$name" "$2" | sed -n 's/^[[:blank:]]psk=//p'
}

start_joining() { # HANDLE KEY: the channel is told, which saves scanning all of them
    case $(ap_field "$1" kind) in
        OPEN) set -- "$1" "key_mgmt=NONE" "" ;;
        WEP)
            case ${#2} in
                5 | 13) set -- "$1" "key_mgmt=NONE" "wep_key0=\"$2\"" ;;
                *) set -- "$1" "key_mgmt=NONE" "wep_key0=$2" ;;
            esac
            ;;
        *) set -- "$1" "psk=$(derived_key "$1" "$2")" "" ;;
    esac
    start_supplicant "ssid=$(ap_field "$1" ssid)" "bssid=$(ap_field "$1" bssid)" "scan_ssid=1" \
        "scan_freq=$(ap_frequency "$1")" "$2" "$3"
}

lease() { # HANDLE
    udhcpc -i wlan0 -n -q -t 3 -T 1 >/dev/null 2>&1
}

answers() { ping -q -c 1 -w 5 "$1" >/dev/null; }
gateway() { ip -4 route | awk '$1 == "default" { print $3 }'; }

check_join() { # HANDLE
    start_joining "$1" "$(ap_field "$1" key)"
    check "$1: joined" wait_until 10 has_state COMPLETED
    check "$1: the access point knows it" ap-joined "$1"
    check "$1: address by DHCP" lease
    check "$1: the default route leads to this radio's network" \
        same "192.168.$((10 + $(ap_radio "$1"))).1" "$(gateway)"
    check "$1: the gateway answers" answers "$(gateway)"
    stop_supplicant
}

check_wrong_key() {
    start_joining home not-the-key
    check "wrong key: refused" wait_until 10 key_refused
    stop_supplicant
}

check_faults() {
    start_joining home "$(ap_field home key)"
    wait_until 10 has_state COMPLETED

    dhcp-off home
    check "DHCP server off: no address" not lease
    dhcp-on home
    check "DHCP server on again: address" lease

    ap-off home
    check "access point off: the link is lost" wait_until 5 not has_state COMPLETED
    ap-on home
    check "access point on again: joined again" wait_until 20 has_state COMPLETED

    ap-off --silent home
    check "access point gone silently: the link is lost" wait_until 10 not has_state COMPLETED
    check "access point gone silently: it forgets the device" wait_until 5 not ap-joined home
    ap-on home
    stop_supplicant

    ap-off workshop
    check "access point on the same radio off: it alone is not heard" same home "$(heard home workshop)"
    ap-on workshop
    check "access point on the same radio on again: it is heard" wait_until 10 hears workshop
}

ifconfig wlan0 up
check_scan
for handle in home legacy mixed open wep40 wep104 chinese key-chars hidden home-far; do
    check_join "$handle"
done
check_wrong_key
check_faults
check "no name was run as a command" test ! -e /canary
checks_end
