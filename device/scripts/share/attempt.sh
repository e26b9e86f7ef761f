# shellcheck shell=sh disable=SC2154 # the names of common.sh, which is sourced before
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# From a supplicant that has been started to a lease; installed as /usr/share/rawifi/attempt.sh and sourced, never run.
# Reads the attempt's state, /sys/class/net/wlan0/operstate and the supplicant's control socket; writes the attempt's
# state.

tab='	'

# Whether the supplicant has given up on the network. If it has not found it in the second that its own first search
# has, it is told to look on all channels.
association_failed() {
    networks=$(supplicant list_networks)
    clock
    case $networks in
    *"$newline"*) ;;
    ?*) return 0 ;; # another supplicant has taken its place, without any network
    esac
    case ${networks##*"$tab"} in
    *TEMP-DISABLED*) return 0 ;;
    *CURRENT*) return 1 ;;
    esac
    if [ -n "$networks" ]; then
        : "${search:=$((now + 100))}"
        [ "$now" -lt "$search" ] || supplicant scan >/dev/null
        return 1
    fi
    # No answer: it is still coming up, or it is no more.
    [ "$now" -gt "$silence" ] && [ ! -s "$run/starting" ]
}

await_association() {
    clock
    give_up=$((now + 1200))
    silence=$((now + 300))
    search=
    ask=$((now + 10))
    until link_is_up; do
        get_link
        [ "$link" != failed ] && is_current || return 1
        if [ "$now" -ge "$ask" ]; then
            ! association_failed || return 1
            clock
            ask=$((now + 40))
        fi
        [ "$now" -lt "$give_up" ] || return 1
        nap 030
        clock
    done
}

# Puts the client's path into $udhcpc. A client inside busybox gets a file of its own, for the process has to have the
# name by which it is stopped.
find_client() {
    udhcpc=$(command -v udhcpc)
    case $udhcpc in
    /*) ;;
    *)
        udhcpc=$run/udhcpc
        [ -L "$udhcpc" ] || ln -s /bin/busybox "$udhcpc"
        ;;
    esac
}

# Whether no other attempt has begun meanwhile.
is_current() {
    { read -r current <"$run/attempt"; } 2>/dev/null && [ "$current" = "$attempt" ]
}

# Runs the client until it has a lease and goes into the background, or until there is no use in waiting.
get_lease() {
    find_client
    RAWIFI_ATTEMPT=$attempt "$udhcpc" -n -t 8 -T 1 -i "$interface" -p "$run/udhcpc.pid" -s "$library/udhcpc.sh" \
        </dev/null >/dev/null 2>&1 &
    client=$!
    clock
    give_up=$((now + 800))
    last_up=$now
    while kill -0 "$client" 2>/dev/null && is_current && [ "$now" -lt "$give_up" ] && [ "$now" -lt $((last_up + 200)) ]; do
        nap 030
        clock
        ! link_is_up || last_up=$now
    done
    get_link
    if [ "$link" != bound ]; then
        kill -9 "$client" 2>/dev/null
        wait "$client" 2>/dev/null
        return 1
    fi
}

forget_other_attempts() {
    for file in "$run"/link.* "$run"/waited.*; do
        [ "${file##*.}" = "$attempt" ] || set -- "$@" "$file"
    done
    rm -f "$@"
}

# Takes the attempt to its end: waits until wlan0 is associated, runs the DHCP client, and ends as soon as the lease is
# there or cannot come any more (wrong key, access point not there or gone, no server) or another attempt has begun.
# Address, routes and name servers are set by udhcpc.sh. The client stays, to renew the lease. Within 23 s: 12 s for the
# association and 8 s for the lease, with 3 s more for the last question to the supplicant.
take_attempt_to_its_end() {
    if ! await_association; then
        set_link failed association
        return 1
    fi
    if ! get_lease; then
        set_link failed lease
        return 1
    fi
    forget_other_attempts
}
