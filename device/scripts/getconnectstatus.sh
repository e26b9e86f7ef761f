#!/bin/sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Tells the state of the connection, for the connection monitor. Everything is as with getwifistatus.sh.

# shellcheck source=getwifistatus.sh
. "${0%/*}/getwifistatus.sh"
