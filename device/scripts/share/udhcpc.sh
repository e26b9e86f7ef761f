#!/bin/sh
# shellcheck disable=SC2154 # ip, subnet, router, dns: the lease
#
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The DHCP client's events: udhcpc runs this with the event as argument and the lease in the environment.
# Sets the address and the name servers. The default route through the first host of the network is the library's to
# set; when the server names another router, two routes of half the address space each lead there, and being more
# specific they win. After a lease was lost or the address has changed, nobody else sets the route, so it is done here.
# Reads:    the lease, the attempt's state.
# Writes:   the attempt's state, /etc/resolv.conf or what it points to (mode 644).
# Exit:     0.

# shellcheck source=common.sh
. /usr/share/rawifi/common.sh

is_dotted() {
    case $1 in
    *[!0-9.]* | .* | *..* | *. | *.*.*.*.*) return 1 ;;
    *.*.*.*) return 0 ;;
    *) return 1 ;;
    esac
}

set_address() {
    get_link
    before=$link
    [ "$before $detail" != "bound $ip" ] || return 0
    ifconfig "$interface" "$ip" netmask "$subnet" || return 1
    first_router=${router%% *}
    if is_dotted "$first_router"; then
        if [ "$before" != joining ]; then
            route add default gw "$first_router" dev "$interface"
        elif [ "$first_router" != "${ip%.*}.1" ]; then
            route add -net 0.0.0.0 netmask 128.0.0.0 gw "$first_router" dev "$interface"
            route add -net 128.0.0.0 netmask 128.0.0.0 gw "$first_router" dev "$interface"
        fi
    fi
    set_link bound "$ip"
}

set_name_servers() {
    servers=
    remaining="$dns "
    while [ -n "$remaining" ]; do
        if is_dotted "${remaining%% *}"; then
            servers="$servers${newline}nameserver ${remaining%% *}"
        fi
        remaining=${remaining#* }
    done
    [ -n "$servers" ] || return 0
    file=/etc/resolv.conf
    if [ -L "$file" ]; then
        file=$(readlink -f "$file")
    fi
    umask 022
    put "$file" "${servers#"$newline"}"
}

attempt=$RAWIFI_ATTEMPT
read -r current <"$run/attempt" && [ "$current" = "$attempt" ] || exit 0
case $1 in
deconfig)
    get_link
    if [ "$link" = bound ]; then
        set_link lost
        forget_addresses
    fi
    ;;
bound | renew)
    if is_dotted "$ip" && is_dotted "${subnet:=255.255.255.0}" && set_address; then
        set_name_servers
    fi
    ;;
esac
exit 0
