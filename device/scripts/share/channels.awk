# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Reads the lines of the last scan, then a supplicant configuration with one network, and prints the word "seen" or
# "unseen" and, after a blank, the supplicant's setting for the channels to search first. A network that was not seen may
# be hidden or new; one channel that the radio is known to have is searched first then, because the first search cannot
# call it by its name. Without any scan there is no setting. Needs names.awk.

function bytes(hexadecimal,    name, i) {
    for (i = 1; i < length(hexadecimal); i += 2)
        name = name byte_of[tolower(substr(hexadecimal, i, 2))]
    return name
}

# The three ways in which the supplicant takes a name: "literal", P"with escapes", hexadecimal.
function configured(value) {
    sub(/[ \t\r]+$/, "", value)
    if (value ~ /^".*"$/)
        return substr(value, 2, length(value) - 2)
    if (value ~ /^P".*"$/)
        return decoded(substr(value, 3, length(value) - 3))
    return bytes(value)
}

FILENAME ~ /\/scan$/ {
    split($0, column, "\t")
    frequency[++count] = column[2]
    for (i = 1; i <= 4; i++)
        sub(/^[^\t]*\t/, "")
    name[count] = $0
    next
}

/^[ \t]*ssid=/ && wanted == "" {
    sub(/^[ \t]*ssid=/, "")
    wanted = configured($0)
}

END {
    word = "unseen"
    for (i = 1; i <= count; i++) {
        if (wanted == "" || name[i] != wanted || index(channels " ", " " frequency[i] " "))
            continue
        channels = channels " " frequency[i]
        word = "seen"
    }
    if (channels == "" && count > 0)
        channels = " " frequency[1]
    if (channels != "")
        setting = "initial_freq_list=" substr(channels, 2)
    print word " " setting
}
