#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Power off and on again: what was joined is still known, and comes back without its password.

tree=$(readlink -f "$(dirname "$0")/../../..")
. "$tree/tests/device/guest/checks.sh"

check "the joined networks are marked as saved" same \
    "chinese command double-quote home invalid-utf8 key-chars legacy mixed open quote-hash wep104 wep40 " "$(saved_handles)"
for handle in home wep40; do
    join "$handle" ""
    check "$handle: joined with the saved password" same 0 $?
    check "$handle: the gateway answers" pings_gateway "$handle"
done
check "a saved network is forgotten" rawifictl forget Home
check "the forgotten one is no longer marked" same \
    "chinese command double-quote invalid-utf8 key-chars legacy mixed open quote-hash wep104 wep40 " "$(saved_handles)"
