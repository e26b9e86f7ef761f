#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The device's first power-on: scan, join one network of every kind, and everything that can go wrong meanwhile.
# "quick" as the argument leaves the failures out.

tree=$(readlink -f "$(dirname "$0")/../../..")
. "$tree/tests/device/guest/checks.sh"

listed() { # listed HANDLE: as the scan shows it
    grep "\"bssid\":\"$(ap_field "$1" bssid)\"" /tmp/scan.json |
        sed 's/,"saved".*"ssid_hex"/,"ssid_hex"/; s/,$//'
}

shown_hex() { # shown_hex HANDLE: the name's bytes; what a line cannot carry stays in the supplicant's notation
    ap_field "$1" ssid | sed -e 's/0a/5c6e/' -e 's/00/5c783030/'
}

wanted() { # wanted HANDLE
    printf '{"bssid":"%s","kind":"%s","level":%s,"locked":%s,"ssid_hex":"%s"}' "$(ap_field "$1" bssid)" \
        "$(kind_of "$1")" "$(ap_field "$1" level)" "$(locked_of "$1")" "$(shown_hex "$1")"
}

# The radio passes quickly over a channel; while the host is busy, an access point may answer too late for that.
for _ in 1 2 3; do
    rawifictl --json scan >/tmp/scan.json
    scanned=$?
    [ "$(grep -c '^{' /tmp/scan.json)" -lt "$(handles | wc -l)" ] || break
done
check "the scan ends well" same 0 "$scanned"
for handle in $(handles); do
    check "the scan shows $handle with its kind, level, lock and name" same "$(wanted "$handle")" "$(listed "$handle")"
done
check "the scan shows no network that hides its name" same "" "$(listed hidden)"
check "the scan shows nothing else" same "$(handles | wc -l)" "$(grep -c '^{' /tmp/scan.json)"
check "nothing is saved yet" same "" "$(saved_handles)"

own_address_is() { ifconfig wlan0 | grep -qE "inet (addr:)?$1 "; }

for handle in home legacy mixed wep40 wep104 open chinese key-chars double-quote command quote-hash invalid-utf8; do
    join "$handle"
    check "$handle: joined" same 0 $?
    check "$handle: the messages are those of a success" same "$(joined_messages "$(text_of "$handle")")" \
        "$(cat /tmp/messages)"
    check "$handle: the access point sees the device" ap-joined "$handle"
    check "$handle: the gateway answers through the default route" pings_gateway "$handle"
    check "$handle: the status files say so" same "1 $(ap_field "$handle" bssid) $(ap_field "$handle" level)" \
        "$(cat /home/wifi/linkap.txt /home/wifi/curmac.txt /home/wifi/signal.txt | tr '\n' ' ' | sed 's/ $//')"
    check "$handle: the device's address stands in its file" own_address_is "$(cat /home/wifi/ipinfo.txt)"
    check "$handle: the configuration is the owner's alone" same 600 "$(mode_of /etc/wpa_supplicant.conf)"
    if [ "$handle" = home ]; then
        # Measured on the way: the time to the address and to the end of the procedure's fixed waits.
        echo "time join $(sed -n 3p /tmp/times) $(sed -n 4p /tmp/times)"
    fi
done
check "the store is the owner's alone" same 600 "$(mode_of /apps/config/network.conf)"
check "no name has reached a shell" test ! -e /canary

# Not "Home", which has a second access point to turn to.
join legacy
check "monitor: joined" same 0 $?
check "monitor: the first poll confirms, the next report the link up" same "confirmed up" \
    "$(rawifictl --json monitor --interval 300 --polls 2 | field event | tr '\n' ' ' | sed 's/ $//')"
check "monitor: the link stands in the status file" same 1 "$(cat /home/wifi/linkap.txt)"
rawifictl --json monitor --interval 1000 >/tmp/monitor.json &
monitor=$!
sleep 3
ap-off legacy
wait "$monitor"
check "monitor: the loss ends it with 1" same 1 $?
check "monitor: the loss is the last report" same lost "$(field event </tmp/monitor.json | tail -n 1)"
check "monitor: the loss stands in the status file" same 0 "$(cat /home/wifi/linkap.txt)"
ap-on legacy

[ "$1" != quick ] || exit 0

busy="Network connection error or the server is busy,please try again"

join mixed wrong-password
check "wrong key: not joined" same 1 $?
check "wrong key: the messages" same "$(failed_messages -2 "$busy")" "$(cat /tmp/messages)"

dhcp-off emoji
join emoji
check "no DHCP server: not joined" same 1 $?
check "no DHCP server: the messages" same "$(failed_messages -2 "$busy")" "$(cat /tmp/messages)"
check "no DHCP server: the network is not saved" sh -c "! rawifictl --json saved | grep -q $(ap_field emoji bssid)"
dhcp-on emoji

join chinese &
joining=$!
sleep 2 # the one before is being stopped, and nothing can be joined yet
ap-off --silent chinese
wait "$joining"
check "access point gone: not joined" same 1 $?
check "access point gone: the messages" same "$(failed_messages -2 "$busy")" "$(cat /tmp/messages)"
ap-on chinese

join home &
joining=$!
sleep 2 # the one before is being stopped
while kill -0 "$joining" 2>/dev/null; do
    killall -q wpa_supplicant
    sleep 0.1
done
wait "$joining"
check "supplicant killed: not joined" same 1 $?
check "supplicant killed: the messages" same "$(failed_messages -2 "$busy")" "$(cat /tmp/messages)"

mv /usr/bin/getip.sh /tmp/getip.sh
join home
check "script missing: not joined" same 1 $?
check "script missing: the messages" same "$(failed_messages -2 "$busy")" "$(cat /tmp/messages)"

# shellcheck disable=SC2016 # the script's own variable
echo 'kill -KILL $PPID' >/usr/bin/getip.sh # the shell that would leave the marker
join home
check "script without its marker: not joined" same 1 $?
check "script without its marker: the messages" same \
    "$(failed_messages -3 "Failed to obtain IP information")" "$(cat /tmp/messages)"
mv /tmp/getip.sh /usr/bin/getip.sh

mv /usr/bin/callwpaconf.sh /tmp/callwpaconf.sh
# shellcheck disable=SC2016 # the script's own variable
echo 'kill -KILL $PPID' >/usr/bin/callwpaconf.sh
join home
check "configuration not loaded: not joined" same 1 $?
check "configuration not loaded: the message" same "-2|Wifi network configuration information failed" \
    "$(cat /tmp/messages)"
mv /tmp/callwpaconf.sh /usr/bin/callwpaconf.sh

rm -f /etc/wpa_supplicant.conf
mkdir /etc/wpa_supplicant.conf
join home
check "configuration not writable: not joined" same 1 $?
check "configuration not writable: the message" same "-1|config wifi failed" "$(cat /tmp/messages)"
rmdir /etc/wpa_supplicant.conf

join home
check "joined again after all that" same 0 $?
check "the gateway answers again" pings_gateway home
