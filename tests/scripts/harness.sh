# shellcheck shell=sh disable=SC2034,SC2016
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The device and the words that the tests of the helper scripts are written in; sourced by run.sh.

answer=/home/wifi/temp.txt
status=/home/wifi/connectstatus.txt
run=/var/run/rawifi
control=/var/run/wpa_supplicant
tools='wpa_cli wpa_supplicant udhcpc ifconfig ip route usleep sleep timeout'
tab='	'
newline='
'
passed=0
failed=0

# make_device DIRECTORY: installs the scripts and puts the fake tools, clock and interface in place.
make_device() {
    data=$1/data
    recorded=$1/../data/tools
    cp "$1"/../../device/scripts/*.sh /usr/bin
    rm -rf /usr/share/rawifi
    cp -r "$1/../../device/scripts/share" /usr/share/rawifi

    mkdir -p /fake/bin /fake/busybox /fake/full
    cp "$1"/fakes/* /fake/bin
    chmod 755 /fake/bin/*
    busybox --install -s /fake/busybox
    for tool in awk cat chmod grep head ln mkdir mv printf readlink rm; do
        ln -s "$(command -v "$tool")" "/fake/full/$tool"
    done
    mkdir -p /fake/real/busybox /fake/real/full
    ln -s "$(command -v busybox)" /fake/real/busybox/timeout
    mv "$(command -v timeout)" /fake/real/full
    for tool in $tools; do
        rm -f "/fake/busybox/$tool" "/usr/sbin/$tool" "/usr/bin/$tool"
        echo "$tool() { /fake/bin/$tool \"\$@\"; }"
    done >/fake/tools

    : >/fake/uptime
    mount --bind /fake/uptime /proc/uptime
    mount -t tmpfs none /sys/class/net
    mkdir /sys/class/net/wlan0
}

# use_tools busybox|full: what the scripts run with. A busybox shell may take its own tools before all others, so that
# the fake ones have to be functions there.
use_tools() {
    flavour=$1
    ln -sf "/fake/real/$flavour/timeout" /fake/real/timeout
    case $flavour in
    busybox) printf '%s\n' '#!/bin/dash' "exec /usr/bin/busybox sh -c '. /fake/tools; . \"\$0\"' \"\$@\"" >/fake/sh ;;
    full) printf '%s\n' '#!/bin/dash' 'exec /usr/bin/dash "$@"' >/fake/sh ;;
    esac
    chmod 755 /fake/sh
}

# device SCRIPT: runs a script as the library does; its status is in $result, the time it took in $took. A minute is
# only ever over when a script has no bound.
device() {
    script=$1
    since=$(clock_now)
    PATH=/fake/bin:/fake/$flavour /fake/real/full/timeout -s KILL 60 /fake/sh "/usr/bin/$script" >/fake/output 2>&1
    result=$?
    took=$(($(clock_now) - since))
}

# The same, and waits for what the script left in the background.
device_to_the_end() {
    echo '. "$script"; wait' >/fake/to-the-end
    script=/usr/bin/$1 PATH=/fake/bin:/fake/$flavour /fake/sh /fake/to-the-end >/fake/output 2>&1
}

# Every test begins with wlan0 down, a supplicant that answers a ping, and nothing left of the test before it.
begin_test() {
    rm -rf /home/wifi /run/rawifi "$control" /fake/does /fake/at /fake/victim /etc/resolv.conf /etc/wpa_supplicant.conf
    mkdir -p /fake/does /fake/at /fake/victim
    mkdir -m 777 /home/wifi
    for tool in $tools; do
        case $tool in
        usleep) cp /fake/bin/sleep /fake/bin/usleep ;;
        sleep | timeout) ;;
        *) cp /fake/bin/tool "/fake/bin/$tool" ;;
        esac
    done
    : >/fake/log
    echo 1000.00 0.00 >/fake/uptime
    echo 02:00:00:00:00:00 >/sys/class/net/wlan0/address
    interface_is down
    /fake/bin/make-socket
    does wpa_cli-ping 'echo PONG'
    problems=
}

run_test() {
    begin_test
    "$1"
    name=$(echo "${1#test_}" | tr _ ' ')
    if [ -z "$problems" ]; then
        passed=$((passed + 1))
        echo "ok     $flavour: $name"
    else
        failed=$((failed + 1))
        echo "FAILED $flavour: $name$problems"
    fi
}

finish() {
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
}

# --- what the world does ---------------------------------------------------------------------------------------------

# does TOOL COMMANDS: what the fake tool does; wpa_cli-WORD is wpa_cli with this command.
does() { printf '%s\n' "$2" >"/fake/does/$1"; }

# at HUNDREDTHS COMMANDS: happens so much time after the beginning of the test.
at() { printf '%s\n' "$2" >"/fake/at/$((100000 + $1))"; }

interface_is() { echo "$1" >/sys/class/net/wlan0/operstate; }

missing() { rm -f "/fake/bin/$1"; }

# process_named NAME: $process is a running process of that name, and its number is where the scripts look for it.
process_named() {
    mkdir -p "$run"
    perl -e 'open(F, ">", "/proc/self/comm"); print F $ARGV[0]; close F; sleep 1000' "$1" &
    process=$!
    echo "$process" >"$run/$1.pid"
    until [ "$(cat "/proc/$process/comm")" = "$1" ]; do :; done
}

# A tool that never ends.
hang='exec perl -e sleep'

# --- what is expected ------------------------------------------------------------------------------------------------

problem() { problems="$problems$newline       $*"; }

# expect_file FILE TEXT: exactly these bytes, each line ended.
expect_file() {
    if [ ! -f "$1" ] || [ -L "$1" ]; then
        problem "no regular file $1"
    elif ! printf '%s' "$2" | cmp -s - "$1"; then
        problem "$1 holds$newline$(cat -A "$1")$newline       instead of$newline$(printf '%s' "$2" | cat -A)"
    fi
}

expect_no_file() {
    if [ -e "$1" ] || [ -L "$1" ]; then
        problem "there is a $1"
    fi
}

expect_result() {
    [ "$result" -eq "$1" ] || problem "$script ended with $result instead of $1: $(cat /fake/output)"
}

# expect_time LEAST MOST: hundredths of a second that the script took.
expect_time() {
    if [ "$took" -lt "$1" ] || [ "$took" -gt "$2" ]; then
        problem "$script took $took instead of $1 to $2"
    fi
}

# expect_run TEXT: a tool was run with a command line that holds this text; expect_not_run the opposite.
expect_run() { grep -qF -- "$1" /fake/log || problem "not run: $1; run were:$newline$(cat /fake/log)"; }
expect_not_run() { ! grep -qF -- "$1" /fake/log || problem "run: $(grep -F -- "$1" /fake/log)"; }

# Nothing is left in the open directory but the answers.
expect_no_leftovers() {
    leftovers=$(find /home/wifi -mindepth 1 ! -name temp.txt ! -name connectstatus.txt)
    [ -z "$leftovers" ] || problem "left behind: $leftovers"
}
