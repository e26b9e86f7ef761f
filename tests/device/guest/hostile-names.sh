#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The names of hostile-names.txt, on the air: the access points change theirs as often as it takes, each name is scanned
# and listed byte for byte, and the worst of them are joined. The access points keep the last names.
# shellcheck disable=SC2046 # many lists of words

tree=$(readlink -f "$(dirname "$0")/../../..")
. "$tree/tests/device/guest/checks.sh"

names=$tree/tests/device/guest/hostile-names.txt
worst="home legacy open workshop key-chars"

names_in_hex() { # names_in_hex FIRST COUNT
    grep -v '^#' "$names" | awk -v first="$1" -v count="$2" 'NR >= first && NR < first + count { print $1 }'
}

# rename ASSIGNMENT: the access points take the names of this file's lines "BSSID NAME".
rename() {
    for radio in $(ap_radios); do
        conf=/run/ap/hostapd$radio.conf
        awk -F = 'NR == FNR { split($0, word, " "); name[word[1]] = word[2]; next }
            $1 == "bssid" { bssid = $2 }
            $1 == "ssid2" && bssid in name { $0 = "ssid2=" name[bssid] }
            { print }' "$1" "$conf" >"$conf.new" && mv "$conf.new" "$conf"
        kill -HUP "$(cat "/run/ap/hostapd$radio.pid")"
    done
}

# shown_hex: the bytes on standard input as a line of text can carry them.
shown_hex() {
    sed -e 's/../& /g' | sed -e 's/ $//; s/^09/5c 74/; s/0d$/5c 72/; s/0a/5c 6e/g; s/00/5c 78 30 30/g; s/ //g'
}

# scan: leaves "BSSID NAME" of each network in /tmp/listed, the name's bytes in hexadecimal.
scan() {
    rawifictl --json scan 2>/dev/null |
        sed -n 's/.*"bssid":"\([^"]*\)".*"ssid_hex":"\([^"]*\)".*/\1 \2/p' | sort >/tmp/listed
}

# strangers: what is listed and has never been on the air. The supplicant remembers earlier names for a while, so those
# may be listed, too.
strangers() {
    { names_in_hex 1 "$total" && ap_lines | awk '{ print $8 }'; } | shown_hex >/tmp/known
    awk 'NR == FNR { known[$1] = 1; next } !($2 in known)' /tmp/known /tmp/listed
}

# join_by_name NAME KEY: the address is still that of the earlier names, too.
join_by_name() {
    [ "$2" != - ] || set -- "$1" ""
    # shellcheck disable=SC2059 # the format is the name
    printf '%s\n' "$2" | rawifictl --json join -- "$(printf "$(echo "$1" | sed 's/../\\x&/g')")" - >/dev/null 2>&1
}

total=$(names_in_hex 1 1000 | wc -l)
ap_lines | awk '$6 == "yes" { print $2 }' >/tmp/bssids
visible=$(wc -l </tmp/bssids)
found=0
first=1
while [ "$first" -le "$total" ]; do
    names_in_hex "$first" "$visible" | paste -d ' ' /tmp/bssids - >/tmp/assignment
    names_in_hex "$first" "$visible" | shown_hex | paste -d ' ' /tmp/bssids - | sort >/tmp/wanted
    rename /tmp/assignment
    for _ in 1 2 3; do # a beacon may be missed
        scan
        comm -23 /tmp/wanted /tmp/listed >/tmp/missing
        [ -s /tmp/missing ] || break
    done
    check "names from $first on: each is listed with its bytes" same "" "$(cat /tmp/missing)"
    check "names from $first on: nothing else is listed" same "" "$(strangers)"
    found=$((found + visible - $(wc -l </tmp/missing)))
    first=$((first + visible))
done
check "the names are as many as they ought to be" test "$found" -ge 100
echo "$found hostile names were on the air and listed byte for byte"

: >/tmp/joined
for handle in $worst; do
    name=$(awk -v bssid="$(ap_field "$handle" bssid)" '$1 == bssid { print $2 }' /tmp/assignment)
    join_by_name "$name" "$(ap_field "$handle" key)"
    check "$name: joined" same 0 $?
    check "$name: the access point sees the device" ap-joined "$handle"
    check "$name: the gateway answers" pings_gateway "$handle"
    echo "$name" >>/tmp/joined
done
rawifictl --json saved | field ssid_hex | sort >/tmp/saved
check "the joined names are saved with their bytes" same "" "$(sort /tmp/joined | comm -23 - /tmp/saved)"
check "no name has reached a shell" test ! -e /canary
