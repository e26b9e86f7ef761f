# shellcheck shell=sh
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# What the device's tests share: each check prints one line, "ok NAME" or "FAIL NAME". Sourced on the device.

guest=${tree:?}/device/vm/guest
# shellcheck source=../../../device/vm/guest/ap-table.sh
. "$guest/ap-table.sh"

check() { # check NAME COMMAND...
    check_name=$1
    shift
    if "$@"; then
        echo "ok $check_name"
    else
        echo "FAIL $check_name"
    fi
}

same() { # same WANTED GOT: complains when they differ
    [ "$1" = "$2" ] && return
    echo "wanted: $1"
    echo "got:    $2"
    return 1
}

field() { # field NAME: of the JSON object on standard input, one a line
    sed -n "s/.*\"$1\":\"\{0,1\}\([^,\"}]*\).*/\1/p"
}

mode_of() { # mode_of FILE
    stat -c %a "$1"
}

# join HANDLE [PASSWORD]: joins by BSSID as somebody would who types the password; the messages are left in
# /tmp/messages, "errflag|message" a line, and their times in /tmp/times.
join() {
    join_key=${2-$(ap_field "$1" key)}
    [ "$join_key" != - ] || join_key=
    printf '%s\n' "$join_key" | rawifictl --json join "$(ap_field "$1" bssid)" - >/tmp/join.json 2>/tmp/join.errors
    join_status=$?
    sed -n 's/\\"/"/g; s/.*"errflag":\([-0-9]*\),"message":"\(.*\)","ms":\([0-9]*\)},\{0,1\}$/\1|\2/p' /tmp/join.json >/tmp/messages
    field ms </tmp/join.json >/tmp/times
    return "$join_status"
}

joined_messages() { # joined_messages NAME: those of a success
    printf '0|verifying information\n0|Retrieving the IP information\n0|Setting  Network information\n'
    printf '0|%sSuccessful connection\n' "$1"
}

failed_messages() { # failed_messages ERRFLAG MESSAGE: those of a failure after the configuration was loaded
    printf '0|verifying information\n0|Retrieving the IP information\n%s|%s\n' "$1" "$2"
}

text_of() { # text_of HANDLE: the name as rawifictl shows it; what is not UTF-8 becomes U+FFFD
    ap_field "$1" ssid | sed -e 's/ff/efbfbd/; s/fe/efbfbd/; s/c328/efbfbd28/' -e 's/../\\x&/g' |
        while read -r escaped; do
            # shellcheck disable=SC2059 # the format is the text
            printf "$escaped"
        done
}

gateway_of() { # gateway_of HANDLE
    echo "192.168.$((10 + $(ap_radio "$1"))).1"
}

pings_gateway() { # pings_gateway HANDLE: through the default route alone
    route -n | grep -q "^0.0.0.0 *$(gateway_of "$1") .*wlan0$" && ping -c 1 -w 5 "$(gateway_of "$1")" >/dev/null
}

kind_of() { # kind_of HANDLE: in the library's words
    case $(ap_field "$1" kind) in
        OPEN) echo NOENCRY ;;
        WEP) echo WEP ;;
        WPA | MIXED) echo WPA-PSK ;;
        *) echo WPA2-PSK ;;
    esac
}

locked_of() { # locked_of HANDLE
    if [ "$(ap_field "$1" kind)" = OPEN ]; then echo false; else echo true; fi
}

handles() { # handles: of every access point that shows its name
    ap_lines | awk '$6 == "yes" { print $1 }'
}

saved_handles() { # saved_handles: of every access point that a scan marks as saved
    rawifictl --json scan 2>/dev/null | grep '"saved":true' | field bssid | while read -r bssid; do
        ap_lines | awk -v bssid="$bssid" '$2 == bssid { print $1 }'
    done | sort | tr '\n' ' '
}
