#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The first scan of a process: waits until the supplicant is ready (at most 10 s), then does what getaplist.sh does.
# Reads, writes, exit: as getaplist.sh.
# Bound:    13 s more than getaplist.sh.

# shellcheck source=share/common.sh
. /usr/share/rawifi/common.sh

await_supplicant 1000
# shellcheck source=getaplist.sh
. "${0%/*}/getaplist.sh"
