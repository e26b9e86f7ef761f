#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# long-run.sh PROGRAM JOINS: one process joins so many networks, of every kind in turn, and must hold no more after the
# last than after the tenth.

tree=$(readlink -f "$(dirname "$0")/../../..")
. "$tree/tests/device/guest/checks.sh"
program=$1
joins=$2
first_look=10

descriptors() { find "/proc/$process/fd" -type l | wc -l; }
threads() { find "/proc/$process/task" -maxdepth 1 -mindepth 1 | wc -l; }
children() { grep -lx "PPid:[[:space:]]*$process" /proc/[0-9]*/status 2>/dev/null | wc -l; }
held() { echo "$(descriptors) descriptors, $(threads) threads, $(children) children"; }
resident() { sed -n 's/^VmRSS:[[:space:]]*\([0-9]*\) kB/\1/p' "/proc/$process/status"; } # in KiB

is_joined() { # is_joined HANDLE: for the library, the access point and the gateway
    same "1 $(ap_field "$1" bssid)" "$(cat /home/wifi/linkap.txt /home/wifi/curmac.txt 2>/dev/null | tr '\n' ' ' | sed 's/ $//')" &&
        ap-joined "$1" && pings_gateway "$1"
}

not() { ! "$@"; }

join_once() { # join_once HANDLE
    echo "$(ap_field "$1" bssid) $(ap_field "$1" key)" >&3
    read -r _ <&4
    is_joined "$1"
}

# An attempt may fail while the host is busy with other things: the access point waits for its answers in real time.
join_patiently() { # join_patiently HANDLE: a second time if need be
    join_once "$1" && return
    repeated=$((repeated + 1))
    echo "not joined: $(cat /var/run/rawifi/link.* | tr '\n' ' ')"
    tail -n 30 $log
    join_once "$1"
}

log=/tmp/long-run.log
repeated=0
mkfifo /tmp/orders /tmp/answers
QT_QPA_PLATFORM=offscreen "$program" /tmp/answers </tmp/orders >$log 2>&1 &
process=$!
exec 3>/tmp/orders 4</tmp/answers
read -r answer <&4
check "the page is ready" same ready "$answer"

# What a failure makes for good, such as the window with its message, is there from the beginning.
mkdir /etc/wpa_supplicant.conf
check "a network whose configuration cannot be written is not joined" not join_once workshop
rmdir /etc/wpa_supplicant.conf

number=0
while [ "$number" -lt "$joins" ]; do
    for handle in workshop legacy open mixed wep40 chinese wep104 command; do
        number=$((number + 1))
        [ "$number" -le "$joins" ] || break
        check "join $number, $handle: joined, and the gateway answers" join_patiently "$handle"
        if [ "$number" -eq $first_look ]; then
            held=$(held)
            resident=$(resident)
            echo "after $number joins: $held, $resident KiB resident"
        fi
    done
done

echo "after $joins joins: $(held), $(resident) KiB resident"
check "after $joins joins: as many descriptors, threads and children as after $first_look" same "$held" "$(held)"
check "after $joins joins: at most 1 % more memory than after $first_look" \
    test "$(resident)" -le $((resident + resident / 100))
check "$repeated joins needed a second attempt: at most one in ten" test $((repeated * 10)) -le "$joins"
exec 3>&-
wait "$process"
check "the process ends well" same 0 $?
