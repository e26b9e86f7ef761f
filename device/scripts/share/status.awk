# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The supplicant's status, cut down to the lines that tell of the connection. Readers look for "bssid=", "ssid=" and
# "id=" anywhere in a line, so no other line may hold these (uuid=, ...), and neither may a network's name hold the
# first. key_mgmt comes before wpa_state, which is read in its light. Needs names.awk.

{
    key = $0
    sub(/=.*/, "", key)
    if (!(key in value))
        value[key] = substr($0, length(key) + 2)
}

END {
    count = split("bssid ssid id pairwise_cipher group_cipher key_mgmt wpa_state ip_address", keys, " ")
    if (!("wpa_state" in value))
        exit
    if ("ssid" in value) {
        value["ssid"] = decoded(value["ssid"])
        gsub(/bssid=/, "bssid\\x3d", value["ssid"])
    }
    for (i = 1; i <= count; i++)
        if (keys[i] in value)
            print keys[i] "=" value[keys[i]]
}
