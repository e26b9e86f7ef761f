# shellcheck shell=bash disable=SC2034,SC2154
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The device and the words that the tests of rawifictl are written in; sourced by run.sh.

scripts='calldefaultconf callwpaconf dhcp_setip getaplist getconnectstatus getfirstaplist getip getlocalmac getroute
    getwifistatus getwpastatus'
programs='wpa_supplicant wpa_cli udhcpc ifconfig route ping killall'
no_supplicant_runs() { printf '#!/bin/sh\nexit 1\n' >/fake/bin/pidof && chmod 755 /fake/bin/pidof; }
store=/apps/config/network.conf
passed=0
failed=0

make_device() {
    export LC_ALL=C.UTF-8 TERM=xterm PATH="/fake/bin:/usr/bin:/bin"
    export DBUS_SYSTEM_BUS_ADDRESS=unix:path=/fake/no-bus
    unset NO_COLOR
    mkdir -p /fake/bin /fake/answers
    mount -t tmpfs none /sys/class/net
    mkfifo /fake/nobody # a read from it waits
    DBUS_SESSION_BUS_ADDRESS=$(dbus-daemon --session --fork --print-address) # ends with the process table
    export DBUS_SESSION_BUS_ADDRESS
}

# Every test begins with a device in order: a bus, an interface, the programs, fake scripts that give the answers
# of /fake/answers, and nothing in the air or saved.
begin_test() {
    local name file
    rm -rf /home/wifi /apps/config/* /etc/wpa_supplicant.conf /usr/share/rawifi /fake/answers /fake/bin
    rm -rf /sys/class/net/wlan0
    mkdir -p /home/wifi /fake/answers /fake/bin /apps/config /sys/class/net/wlan0
    chmod 777 /home/wifi
    for name in $scripts; do
        rm -rf "/usr/bin/$name.sh"
        for file in temp.txt connectstatus.txt; do
            echo "cat /fake/answers/$name >/home/wifi/$file 2>/dev/null || rm -f /home/wifi/$file"
        done >"/usr/bin/$name.sh"
    done
    # shellcheck disable=SC2086 # a list of names
    for name in $programs; do
        printf '#!/bin/sh\n' >"/fake/bin/$name"
        chmod 755 "/fake/bin/$name"
    done
    ln -sf /fake/bin/wpa_cli /usr/bin/wpa_cli
    no_supplicant_runs
    answer getwpastatus OK
    answer calldefaultconf OK
    problems=
}

run_test() {
    begin_test
    "$1"
    local name=${1#test_}
    if [ -z "$problems" ]; then
        passed=$((passed + 1))
        echo "ok     ${name//_/ }"
    else
        failed=$((failed + 1))
        echo "FAILED ${name//_/ }$problems"
    fi
}

finish() {
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
}

# --- what the device is like -----------------------------------------------------------------------------------------

# answer SCRIPT LINE...: what the script answers from now on; no answer without lines.
answer() {
    local script=$1
    shift
    rm -f "/fake/answers/$script"
    [ $# -eq 0 ] || printf '%b\n' "$@" >"/fake/answers/$script"
}

# air LINE...: what a scan finds.
air() {
    answer getaplist "$@"
    answer getfirstaplist "$@"
}

kitchen='02:00:00:00:00:01\t2412\t60\t[WPA2-PSK-CCMP][ESS]\tKitchen'
guests='02:00:00:00:00:02\t2437\t20\t[ESS]\tGuests'
broken='02:00:00:00:00:03\t2437\t40\t[ESS]\ta\0377\0033[31mb'

linked() {
    answer getwifistatus bssid=02:00:00:00:00:01 "ssid=${1-Kitchen}" id=0 key_mgmt=WPA2-PSK wpa_state=COMPLETED \
        ip_address=192.168.9.5
    answer getconnectstatus bssid=02:00:00:00:00:01 "ssid=${1-Kitchen}" id=0 key_mgmt=WPA2-PSK wpa_state=COMPLETED \
        ip_address=192.168.9.5
}

not_linked() {
    answer getwifistatus wpa_state=SCANNING
    answer getconnectstatus wpa_state=SCANNING
}

# saved_networks "NAME|BSSID"...: what the store holds, each with the password "opensesame".
saved_networks() {
    python3 - "$store" "$@" <<'END'
import os, struct, sys
records = [entry.split("|") for entry in sys.argv[2:]]
with open(sys.argv[1], "wb") as store:
    os.chmod(sys.argv[1], 0o600)
    store.write(str(len(records)).encode().ljust(5, b"x"))
    for name, bssid in records:
        store.write(struct.pack("=40s18s100s200s2x7i", os.fsencode(name), bssid.encode(), b"WPA2-PSK", b"opensesame",
                                4, 1, 3, 0, 2, 0, 0))
END
}

# --- what is run and expected ----------------------------------------------------------------------------------------

# run ARGUMENT...: rawifictl without a terminal; $result is its status.
run() {
    "$RAWIFICTL" "$@" >/tmp/out 2>/tmp/err </dev/null
    result=$?
}

# on_terminal [--type PROMPT TEXT] ARGUMENT...: the same on a terminal.
on_terminal() {
    local typing=()
    if [ "$1" = --type ]; then
        typing=(--type "$2" "$3")
        shift 3
    fi
    "$here/terminal.py" "${typing[@]}" "$RAWIFICTL" "$@" >/tmp/out 2>/tmp/err </dev/null
    result=$?
}

# in_background ARGUMENT...: the same, and goes on beside the test.
in_background() {
    : >/tmp/out # the program comes to it later
    "$RAWIFICTL" "$@" >/tmp/out 2>/tmp/err </dev/null &
    process=$!
}

# ended_by SIGNAL: ends what runs in the background.
ended_by() {
    kill "-$1" "$process"
    wait "$process"
    result=$?
}

# until_lines NUMBER: the program in the background has printed so many lines. It is given up after ten seconds.
until_lines() {
    local i
    for ((i = 0; i < 200; i++)); do
        [ "$(wc -l </tmp/out)" -lt "$1" ] || return 0
        read -r -t 0.05 <>/fake/nobody
    done
    problem "only $(wc -l </tmp/out) lines instead of $1: $(cat /tmp/out)"
}

problem() { problems+=$'\n'"       $*"; }

expect_result() { [ "$result" -eq "$1" ] || problem "ended with $result instead of $1: $(cat /tmp/out /tmp/err)"; }

# expect_out TEXT: standard output is exactly this text; expect_in_out: it holds it; expect_not_in_out: it does not.
expect_out() { [ "$(cat /tmp/out)" = "$1" ] || problem "printed: $(cat -A /tmp/out)"$'\n'"       instead of: $1"; }
expect_in_out() { grep -qF -- "$1" /tmp/out || problem "not printed: $1, but: $(cat /tmp/out)"; }
expect_not_in_out() { ! grep -qF -- "$1" /tmp/out /tmp/err || problem "printed: $1"; }
expect_in_err() { grep -qF -- "$1" /tmp/err || problem "not complained: $1, but: $(cat /tmp/err)"; }

# expect_json EXPRESSION: standard output is one JSON document, d, of which the Python expression holds.
expect_json() {
    python3 -m json.tool </tmp/out >/tmp/pretty 2>&1 || problem "no JSON: $(cat /tmp/out)"
    is_true "d = json.load(open('/tmp/out'))" "$1"
}

# expect_json_lines EXPRESSION: the same with a list, d, of a document on each line.
expect_json_lines() { is_true "d = [json.loads(line) for line in open('/tmp/out')]" "$1"; }

is_true() { # is_true ASSIGNMENT EXPRESSION
    python3 -c "import json, sys
$1
sys.exit(0 if ($2) else 1)" 2>/tmp/traceback || problem "not so: $2, in: $(cat /tmp/out)"
}
