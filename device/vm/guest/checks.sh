# shellcheck shell=sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Counting checks in a script that runs on the device; sourced. End with `checks_end`.

checks_passed=0
checks_failed=0

check() { # TEXT COMMAND...: passed when COMMAND succeeds
    check_text=$1
    shift
    if "$@"; then
        checks_passed=$((checks_passed + 1))
        printf "%7s ok: %s\n" "$(cut -d " " -f 1 /proc/uptime)" "$check_text"
    else
        checks_failed=$((checks_failed + 1))
        echo "FAILED: $check_text"
    fi
}

same() { # EXPECTED SEEN: for check; shows what differs
    [ "$1" = "$2" ] && return
    printf '  expected: %s\n  seen:     %s\n' "$1" "$2"
    return 1
}

not() { ! "$@"; } # for check and wait_until

uptime_tenths() {
    read -r uptime_now _ </proc/uptime
    echo "${uptime_now%.*}${uptime_now#*.}" | sed 's/.$//'
}

wait_until() { # SECONDS COMMAND...: polls until COMMAND succeeds; fails when the time is up
    wait_end=$(($(uptime_tenths) + $1 * 10))
    shift
    until "$@"; do
        [ "$(uptime_tenths)" -lt "$wait_end" ] || return 1
        sleep 0.1
    done
}

checks_end() { # prints the counts and exits
    echo "$checks_passed passed, $checks_failed failed"
    [ "$checks_failed" -eq 0 ]
    exit
}
