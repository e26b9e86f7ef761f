#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Waits for the end of the attempt that callwpaconf.sh has begun, and ends as soon as the lease is there or cannot come any
# more. Without an attempt under way it takes the connection that there is to a lease itself.
# Reads:    the attempt's state, and what share/attempt.sh reads.
# Writes:   the attempt's state, for getip.sh; never /home/wifi/temp.txt.
# Exit:     0 with a lease, else 1.
# Bound:    25 s.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh
# shellcheck source=share/attempt.sh
. /usr/share/rawifi/attempt.sh

await_end() {
    clock
    give_up=$((now + 2500))
    while [ "$link" != bound ] && [ "$link" != failed ]; do
        if [ "$now" -ge "$give_up" ]; then
            set_link failed late
        fi
        nap 030
        clock
        get_link
    done
    [ "$link" = bound ]
}

if current_attempt; then
    get_link
else
    link=lost
fi
if [ "$link" = lost ]; then
    begin_attempt
    take_attempt_to_its_end
else
    await_end
fi
