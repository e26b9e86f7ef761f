# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The supplicant's account of its access points (lines id=, bssid=, freq=, level=, flags=, ssid= for each), turned into
# one line for each. An account that is not whole is dropped. Needs names.awk.

function quality(level) {
    # A driver that reports dBm reports them negative; another one's quality stays.
    level = level < 0 ? level + 100 : level + 0
    return level < 0 ? 0 : level > 99 ? 99 : level
}

# A line may have 255 characters: a device that announces a great many abilities loses the last of them.
function short(flags) {
    while (length(flags) > 180)
        sub(/[^\[]*$/, "", flags) && sub(/\[$/, "", flags)
    return flags
}

function end_of_account(    pair) {
    pair = "[0-9a-f][0-9a-f]"
    if (bssid ~ "^" pair ":" pair ":" pair ":" pair ":" pair ":" pair "$" && freq ~ /^[0-9]+$/ && level ~ /^-?[0-9]+$/ &&
            flags ~ /^(\[[!-Z^-~]+\])*$/ && has_name)
        printf "%s\t%s\t%d\t%s\t%s\n", bssid, freq, quality(level), short(flags), decoded(name)
    bssid = freq = level = flags = name = ""
    has_name = 0
}

/^id=/ { end_of_account() }
/^bssid=/ { bssid = substr($0, 7) }
/^freq=/ { freq = substr($0, 6) }
/^level=/ { level = substr($0, 7) }
/^flags=/ { flags = substr($0, 7) }
/^ssid=/ { name = substr($0, 6); has_name = 1 }
END { end_of_account() }
