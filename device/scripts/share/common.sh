# shellcheck shell=sh disable=SC2034
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# What the helper scripts share; installed as /usr/share/rawifi/common.sh and sourced, never run.
# Needs wpa_supplicant 2.2 or later and busybox 1.30 or later, or the tools of a full system.

umask 077
set -C # ">" only ever creates; ">|" is for this system's own files in $run
LC_ALL=C
export LC_ALL
PATH=$PATH:/usr/sbin:/usr/bin:/sbin:/bin

interface=wlan0
answer=/home/wifi/temp.txt
control=/var/run/wpa_supplicant
library=/usr/share/rawifi
run=/var/run/rawifi
newline='
'

# Where others may write to /var/run, one of them could have been here first.
# shellcheck disable=SC3067 # busybox and dash both know -O
if [ ! -O "$run" ] || [ -L "$run" ]; then
    rm -rf "$run"
    mkdir -p "$run"
fi

# Puts the time since power-on, in hundredths of a second, into $now.
clock() {
    read -r now _ </proc/uptime
    fraction=${now#*.}
    now=$((${now%.*} * 100 + ${fraction#0}))
}

# nap MILLISECONDS: sleeps so long (three digits) by the cheapest means there is.
if command -v usleep >/dev/null; then
    nap() { usleep "${1}000"; }
elif command -v busybox >/dev/null; then
    nap() { busybox usleep "${1}000"; }
else
    nap() { sleep "0.$1" 2>/dev/null || sleep 1; }
fi

# put FILE TEXT: FILE holds TEXT, all of it or not at all. The directory may be open to everybody, so the text goes
# into a new file under a name that nobody can have planted, and what stands at FILE is replaced, never opened.
put() {
    read -r unique </proc/sys/kernel/random/uuid
    private=${1%/*}/.$unique
    if [ -d "$1" ]; then
        rm -rf "$1" # mv would move into it
    fi
    if printf '%s' "${2:+$2$newline}" >"$private" && mv -f "$private" "$1"; then
        return 0
    fi
    rm -f "$private"
    return 1
}

# drop FILE...: no stale answer stays behind.
drop() {
    rm -rf "$@"
}

# supplicant COMMAND...: prints the reply, at most 8 kB of it, within 3 s; prints nothing when there is none.
supplicant() {
    timeout -s KILL 3 wpa_cli -p "$control" -i "$interface" "$@" 2>/dev/null | head -c 8192
}

supplicant_answers() {
    [ "$(supplicant ping)" = PONG ]
}

# await_supplicant HUNDREDTHS: waits so long at most.
await_supplicant() {
    clock
    give_up=$((now + $1))
    until [ -S "$control/$interface" ] && supplicant_answers; do
        clock
        [ "$now" -lt "$give_up" ] || return 1
        nap 100
    done
}

# start_supplicant OPTION...: within 10 s; it is in the background and its control socket is there on return.
start_supplicant() {
    timeout -s KILL 10 wpa_supplicant -B -i "$interface" -D nl80211,wext -P "$run/wpa_supplicant.pid" "$@" \
        </dev/null >/dev/null 2>&1
}

# end_process NAME: ends the process of $run/NAME.pid, if that is still the process of this name.
end_process() {
    { read -r pid <"$run/$1.pid" && read -r name <"/proc/$pid/comm"; } 2>/dev/null || return 0
    if [ "$name" = "$1" ]; then
        kill -9 "$pid"
    fi
}

# Ends a supplicant that was left on the interface, also one that answers no more; within 8 s. One that is only just
# coming up ($run/starting holds a word, see callwpaconf.sh) could not be told to end, and is waited for.
stop_supplicant() {
    clock
    give_up=$((now + 300))
    while [ -s "$run/starting" ] && [ "$now" -lt "$give_up" ]; do
        nap 100
        clock
    done
    [ -S "$control/$interface" ] || return 0
    if [ "$(supplicant terminate)" = OK ]; then
        clock
        give_up=$((now + 200))
        while [ -S "$control/$interface" ] && [ "$now" -lt "$give_up" ]; do
            nap 100
            clock
        done
    fi
    end_process wpa_supplicant
}

# Takes every IPv4 address off the interface; its routes go with them.
forget_addresses() {
    ip -4 addr flush dev "$interface" 2>/dev/null || ifconfig "$interface" 0.0.0.0
}

# An attempt to join has a name of its own, and its state is one line of a file of that name, so that what is left of an
# earlier attempt can never speak for this one: "joining", "bound ADDRESS", "lost" (a lease that ran out) or
# "failed REASON".
begin_attempt() {
    read -r attempt </proc/sys/kernel/random/uuid
    set_link joining
    echo "$attempt" >|"$run/attempt"
}

current_attempt() {
    { read -r attempt <"$run/attempt"; } 2>/dev/null
}

set_link() {
    echo "$*" >|"$run/link.$attempt"
}

# Puts the state's words into $link and $detail; both are empty while it is being written.
get_link() {
    { read -r link detail <"$run/link.$attempt"; } 2>/dev/null || {
        link=
        detail=
    }
}

link_is_up() {
    { read -r operstate <"/sys/class/net/$interface/operstate"; } 2>/dev/null && [ "$operstate" = up ]
}
