# shellcheck shell=sh disable=SC2154,SC2016
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# One attempt to join: callwpaconf.sh, dhcp_setip.sh with the client's events, getip.sh.

passphrase='correct horse'

# network NAME-AS-WRITTEN: /etc/wpa_supplicant.conf is for this network.
network() {
    printf 'ctrl_interface=/var/run/wpa_supplicant\nap_scan=1\nnetwork={\n\tssid=%s\n\tpsk="%s"\n}\n' "$1" "$passphrase" \
        >/etc/wpa_supplicant.conf
}

# scanned NAME FREQUENCY...: the last scan has seen this name on these channels, and "other" on 5180.
scanned() {
    mkdir -p "$run"
    printf '02:00:00:00:09:00\t5180\t40\t[ESS]\tother\n' >"$run/scan"
    name=$1
    shift
    for frequency; do
        printf '02:00:00:00:01:00\t%s\t40\t[WPA2-PSK-CCMP][ESS]\t%s\n' "$frequency" "$name" >>"$run/scan"
    done
}

# The supplicant has started, and nothing else has happened: dhcp_setip.sh takes this to its end by itself.
supplicant_started() {
    [ -d "$run" ] || mkdir -m 700 "$run"
    does wpa_cli-list_networks "cat $recorded/list_networks-current.txt"
}

# An attempt is under way in somebody else's hands.
attempt_begun() {
    supplicant_started
    cat /proc/sys/kernel/random/uuid >"$run/attempt"
    echo joining >"$run/link.$(cat "$run/attempt")"
}

# The client's events, as udhcpc gives them.
lease='ip=10.9.0.42 subnet=255.255.255.0 mask=24 router=10.9.0.1 dns=10.9.0.1'
events=/usr/share/rawifi/udhcpc.sh

# dhcp_gives LEASE: the client gets this lease, and stays.
dhcp_gives() {
    does udhcpc "export interface=wlan0; PATH=/fake/bin:/fake/$flavour
        /fake/sh $events deconfig; /usr/bin/env $1 /fake/sh $events bound"
    mkdir -p "$run"
    ln -sf /fake/bin/udhcpc "$run/udhcpc"
}

client_event() { # EVENT [VARIABLE=VALUE...]
    word=$1
    shift
    env "RAWIFI_ATTEMPT=$(cat "$run/attempt")" interface=wlan0 "PATH=/fake/bin:/fake/$flavour" "$@" /fake/sh "$events" "$word" \
        >/fake/output 2>&1 || problem "$word: $(cat /fake/output)"
}

link_state() { cat "$run/link.$(cat "$run/attempt")"; }

expect_link() { [ "$(link_state)" = "$1" ] || problem "the state is $(link_state), not $1"; }

# --- callwpaconf.sh --------------------------------------------------------------------------------------------------

test_the_supplicant_starts_on_the_configuration_that_is_there() {
    rm -r "$control"
    network '"home"'
    cp /etc/wpa_supplicant.conf /fake/before
    device_to_the_end callwpaconf.sh
    expect_run '-c /etc/wpa_supplicant.conf'
    cmp -s /fake/before /etc/wpa_supplicant.conf || problem 'the configuration has changed'
    expect_no_file "$answer"
}

test_the_caller_does_not_wait_for_the_supplicant_to_come_up() {
    rm -r "$control"
    network '"home"'
    mkfifo /fake/go
    does wpa_supplicant 'read -r _ </fake/go; echo up >/fake/victim/file'
    device callwpaconf.sh
    expect_result 0
    expect_time 0 0
    expect_no_file /fake/victim/file
    echo >/fake/go
    until [ "$(link_state)" = 'failed association' ]; do :; done
    rm /fake/go
}

test_the_attempt_goes_on_to_a_lease_by_itself() {
    rm -r "$control"
    network '"home"'
    interface_is up
    dhcp_gives "$lease"
    device_to_the_end callwpaconf.sh
    expect_link 'bound 10.9.0.42'
    : >/fake/log
    device dhcp_setip.sh
    expect_result 0
    expect_time 0 0
    expect_file /fake/log ''
}

test_the_channels_of_the_last_scan_come_first() {
    while IFS='|' read -r written name; do
        rm -rf "$control"
        network "$written"
        # shellcheck disable=SC2059 # the table holds bytes in octal
        scanned "$(printf "$name")" 2412 2437 2412
        device_to_the_end callwpaconf.sh
        expect_file "$run/channels.conf" "initial_freq_list=2412 2437$newline"
        expect_run "-I $run/channels.conf"
        expect_not_run scan_ssid
    done <<'END'
"home"|home
"a" # "b"|a" # "b
"\x41"|\134x41
" blanks "| blanks 
686f6d65|home
E4B8ADe69687|\344\270\255\346\226\207
P"\xe4\xb8\xad\xe6\x96\x87"|\344\270\255\346\226\207
P"a\"b"|a"b
END
}

test_a_network_that_was_not_seen_is_called_by_its_name() {
    rm -r "$control"
    network '"hidden"'
    scanned home 2412
    device_to_the_end callwpaconf.sh
    expect_file "$run/channels.conf" "initial_freq_list=5180$newline"
    expect_run 'set_network 0 scan_ssid 1'
}

test_without_a_scan_all_channels_are_searched() {
    rm -r "$control"
    network '"home"'
    device_to_the_end callwpaconf.sh
    expect_file "$run/channels.conf" "$newline"
    expect_run 'set_network 0 scan_ssid 1'
}

test_an_older_supplicant_searches_all_channels() {
    rm -r "$control"
    network '"home"'
    scanned home 2412
    does wpa_supplicant 'case $* in *" -I "*) exit 255 ;; esac; echo started >/fake/victim/file'
    device_to_the_end callwpaconf.sh
    expect_file /fake/victim/file "started$newline"
    expect_link 'failed association'
}

test_a_supplicant_that_does_not_start_ends_the_attempt() {
    for behaviour in 'exit 255' "$hang"; do
        begin_test
        rm -r "$control"
        network '"home"'
        does wpa_supplicant "$behaviour"
        device_to_the_end callwpaconf.sh
        expect_link 'failed supplicant'
    done
    begin_test
    rm -r "$control"
    network '"home"'
    missing wpa_supplicant
    device_to_the_end callwpaconf.sh
    expect_link 'failed supplicant'
    device getip.sh
    expect_time 0 0
    device dhcp_setip.sh
    expect_time 0 20
    expect_result 1
}

test_no_password_is_in_any_argument_or_open_file() {
    rm -r "$control"
    network '"home"'
    device_to_the_end callwpaconf.sh
    expect_not_run "$passphrase"
    ! grep -rqF "$passphrase" "$run" /home/wifi || problem "$(grep -rF "$passphrase" "$run" /home/wifi)"
    [ "$(stat -c %a "$run")" = 700 ] || problem "$run is open"
}

test_the_addresses_of_the_network_before_are_taken_off() {
    rm -r "$control"
    network '"home"'
    device_to_the_end callwpaconf.sh
    expect_run 'ip -4 addr flush dev wlan0'
}

test_without_ip_the_address_is_taken_off_by_ifconfig() {
    rm -r "$control"
    network '"home"'
    does ip 'exit 127'
    device_to_the_end callwpaconf.sh
    expect_run 'ifconfig wlan0 0.0.0.0'
}

test_a_client_that_was_left_is_ended() {
    rm -r "$control"
    network '"home"'
    process_named udhcpc
    device_to_the_end callwpaconf.sh
    kill "$process" 2>/dev/null
    wait "$process"
    [ $? -eq 137 ] || problem 'it was not ended'
}

test_another_process_with_the_number_of_the_client_is_left_alone() {
    rm -r "$control"
    network '"home"'
    process_named something
    mv "$run/something.pid" "$run/udhcpc.pid"
    device_to_the_end callwpaconf.sh
    kill -0 "$process" || problem 'it was ended'
    kill "$process"
    wait "$process" 2>/dev/null
}

test_a_supplicant_that_was_left_is_ended_first() {
    network '"home"'
    does wpa_cli-terminate 'echo OK'
    at 40 'rm /var/run/wpa_supplicant/wlan0'
    does wpa_supplicant 'test ! -e /var/run/wpa_supplicant/wlan0 && echo after >/fake/victim/file'
    device_to_the_end callwpaconf.sh
    expect_file /fake/victim/file "after$newline"
}

test_a_supplicant_that_is_only_coming_up_is_waited_for_and_ended() {
    rm -r "$control"
    network '"home"'
    mkdir -m 700 "$run"
    echo supplicant >"$run/starting"
    at 120 'make-socket; : >/var/run/rawifi/starting'
    does wpa_cli-terminate 'rm /var/run/wpa_supplicant/wlan0; echo OK'
    does wpa_supplicant 'test ! -e /var/run/wpa_supplicant/wlan0 && echo after >/fake/victim/file'
    device_to_the_end callwpaconf.sh
    expect_run terminate
    expect_file /fake/victim/file "after$newline"
    expect_file "$run/starting" ''
}

test_a_supplicant_that_never_comes_up_is_not_waited_for_long() {
    rm -r "$control"
    network '"home"'
    mkdir -m 700 "$run"
    echo supplicant >"$run/starting"
    does wpa_supplicant 'exit 255'
    device callwpaconf.sh
    expect_time 300 320
    until [ "$(link_state)" = 'failed supplicant' ]; do :; done
}

# --- dhcp_setip.sh ---------------------------------------------------------------------------------------------------

test_the_end_of_an_attempt_under_way_is_waited_for() {
    while IFS='|' read -r end outcome; do
        begin_test
        attempt_begun
        at 300 "echo '$end' >/var/run/rawifi/link.\$(cat /var/run/rawifi/attempt)"
        device dhcp_setip.sh
        expect_result "$outcome"
        expect_time 300 303
        expect_not_run udhcpc
    done <<'END'
bound 10.9.0.42|0
failed lease|1
END
}

test_an_attempt_that_never_ends_is_given_up() {
    attempt_begun
    device dhcp_setip.sh
    expect_result 1
    expect_time 2500 2510
    expect_link 'failed late'
}

test_a_lost_lease_is_asked_for_again() {
    attempt_begun
    echo lost >"$run/link.$(cat "$run/attempt")"
    interface_is up
    dhcp_gives "$lease"
    device dhcp_setip.sh
    expect_result 0
    expect_link 'bound 10.9.0.42'
}

test_another_attempt_ends_the_wait_for_the_association() {
    supplicant_started
    at 200 'echo another >/var/run/rawifi/attempt'
    device dhcp_setip.sh
    expect_result 1
    expect_time 200 300
    expect_not_run udhcpc
}

test_another_attempt_ends_the_client() {
    supplicant_started
    interface_is up
    dhcp_gives ''
    does udhcpc "echo \$\$ >/fake/client; $hang"
    at 200 'echo another >/var/run/rawifi/attempt'
    device dhcp_setip.sh
    expect_result 1
    expect_time 200 203
    read -r client </fake/client
    ! kill "$client" 2>/dev/null || problem 'it was not ended'
}

test_a_lease_is_taken_at_once_on_a_link_that_is_up() {
    supplicant_started
    interface_is up
    dhcp_gives "$lease"
    device dhcp_setip.sh
    expect_result 0
    expect_link 'bound 10.9.0.42'
    expect_run 'ifconfig wlan0 10.9.0.42 netmask 255.255.255.0'
    expect_not_run 'route add'
    expect_file /etc/resolv.conf "nameserver 10.9.0.1$newline"
    expect_no_file "$answer"
}

test_the_association_is_waited_for() {
    supplicant_started
    dhcp_gives "$lease"
    at 150 'echo up >/sys/class/net/wlan0/operstate'
    device dhcp_setip.sh
    expect_result 0
    expect_time 150 700
}

test_a_wrong_key_ends_it_when_the_supplicant_knows() {
    supplicant_started
    at 400 "echo 'cat $recorded/list_networks-temp-disabled-wrong-key.txt' >/fake/does/wpa_cli-list_networks"
    device dhcp_setip.sh
    expect_result 1
    expect_time 400 500
    expect_link 'failed association'
    expect_not_run udhcpc
    device getip.sh
    expect_result 1
    expect_time 0 0
    expect_file "$answer" ''
}

test_a_name_cannot_pass_for_a_wrong_key() {
    supplicant_started
    does wpa_cli-list_networks 'printf "network id / ssid / bssid / flags\n0\t[TEMP-DISABLED]\tany\t[CURRENT]\n"'
    dhcp_gives "$lease"
    at 300 'echo up >/sys/class/net/wlan0/operstate'
    device dhcp_setip.sh
    expect_result 0
}

test_a_network_that_is_not_found_is_looked_for_on_all_channels() {
    supplicant_started
    does wpa_cli-list_networks 'printf "network id / ssid / bssid / flags\n0\thome\tany\t\n"'
    dhcp_gives "$lease"
    does wpa_cli-scan 'test $# -eq 1 && echo up >/sys/class/net/wlan0/operstate'
    device dhcp_setip.sh
    expect_result 0
    expect_time 0 700
}

test_the_first_search_has_its_time() {
    supplicant_started
    does wpa_cli-list_networks 'printf "network id / ssid / bssid / flags\n0\thome\tany\t\n"'
    at 90 "echo 'cat $recorded/list_networks-current.txt' >/fake/does/wpa_cli-list_networks"
    at 150 'echo up >/sys/class/net/wlan0/operstate'
    dhcp_gives "$lease"
    device dhcp_setip.sh
    expect_result 0
    expect_not_run 'wlan0 scan'
}

test_a_supplicant_that_comes_up_slowly_is_waited_for() {
    supplicant_started
    does wpa_cli-list_networks :
    echo supplicant >"$run/starting"
    at 500 'echo up >/sys/class/net/wlan0/operstate'
    dhcp_gives "$lease"
    device dhcp_setip.sh
    expect_result 0
}

test_a_network_that_is_not_there_is_given_up() {
    supplicant_started
    does wpa_cli-list_networks 'printf "network id / ssid / bssid / flags\n0\thome\tany\t\n"'
    device dhcp_setip.sh
    expect_result 1
    expect_time 1200 1500
    expect_link 'failed association'
}

test_another_supplicant_without_networks_is_left_alone() {
    supplicant_started
    does wpa_cli-list_networks 'echo "network id / ssid / bssid / flags"'
    device dhcp_setip.sh
    expect_result 1
    expect_time 0 100
    expect_not_run 'wlan0 scan'
}

test_a_supplicant_that_died_is_not_waited_for() {
    supplicant_started
    does wpa_cli-list_networks :
    device dhcp_setip.sh
    expect_result 1
    expect_time 300 400
}

test_a_supplicant_that_hangs_is_not_waited_for() {
    supplicant_started
    does wpa_cli-list_networks "$hang"
    device dhcp_setip.sh
    expect_result 1
    expect_time 300 700
}

test_a_client_without_answer_ends_it() {
    supplicant_started
    interface_is up
    dhcp_gives ''
    does udhcpc 'exit 1'
    device dhcp_setip.sh
    expect_result 1
    expect_time 0 100
    expect_link 'failed lease'
}

test_a_client_that_never_ends_is_ended() {
    supplicant_started
    interface_is up
    dhcp_gives ''
    does udhcpc "echo \$\$ >/fake/client; $hang"
    device dhcp_setip.sh
    expect_result 1
    expect_time 800 820
    expect_link 'failed lease'
    read -r client </fake/client
    ! kill "$client" 2>/dev/null || problem 'it was not ended'
}

test_an_access_point_that_goes_away_during_dhcp_ends_it() {
    supplicant_started
    interface_is up
    dhcp_gives ''
    does udhcpc "$hang"
    at 100 'echo dormant >/sys/class/net/wlan0/operstate'
    device dhcp_setip.sh
    expect_result 1
    expect_time 290 320
    expect_link 'failed lease'
}

test_a_short_loss_of_the_link_does_not_end_it() {
    supplicant_started
    interface_is up
    dhcp_gives ''
    does udhcpc "$hang"
    at 100 'echo dormant >/sys/class/net/wlan0/operstate'
    at 250 'echo up >/sys/class/net/wlan0/operstate'
    device dhcp_setip.sh
    expect_time 800 820
}

test_no_client_at_all_ends_it() {
    supplicant_started
    interface_is up
    ln -sf /fake/nowhere "$run/udhcpc"
    missing udhcpc
    device dhcp_setip.sh
    expect_result 1
    expect_time 0 100
    expect_link 'failed lease'
}

test_the_state_of_earlier_attempts_is_swept_away() {
    supplicant_started
    : >"$run/link.old"
    : >"$run/waited.old"
    interface_is up
    dhcp_gives "$lease"
    device dhcp_setip.sh
    [ "$(echo "$run"/*.old)" = "$run/*.old" ] || problem "$(ls "$run")"
    expect_link 'bound 10.9.0.42'
}

# --- the client's events ---------------------------------------------------------------------------------------------

test_another_router_than_the_first_host_wins_by_two_half_routes() {
    attempt_begun
    client_event bound ip=10.9.0.42 subnet=255.255.255.0 'router=10.9.0.254 10.9.0.253'
    expect_run 'route add -net 0.0.0.0 netmask 128.0.0.0 gw 10.9.0.254 dev wlan0'
    expect_run 'route add -net 128.0.0.0 netmask 128.0.0.0 gw 10.9.0.254 dev wlan0'
    expect_not_run default
}

test_a_renewed_lease_with_the_same_address_touches_nothing() {
    attempt_begun
    client_event bound ip=10.9.0.42 subnet=255.255.255.0 router=10.9.0.1
    : >/fake/log
    client_event renew ip=10.9.0.42 subnet=255.255.255.0 router=10.9.0.1
    expect_file /fake/log ''
}

test_a_renewed_lease_with_another_address_sets_the_route_again() {
    attempt_begun
    client_event bound ip=10.9.0.42 subnet=255.255.255.0 router=10.9.0.1
    client_event renew ip=10.9.0.43 subnet=255.255.255.0 router=10.9.0.1
    expect_run 'ifconfig wlan0 10.9.0.43'
    expect_run 'route add default gw 10.9.0.1 dev wlan0'
    expect_link 'bound 10.9.0.43'
}

test_a_lost_lease_takes_the_address_off() {
    attempt_begun
    client_event bound ip=10.9.0.42 subnet=255.255.255.0 router=10.9.0.1
    : >/fake/log
    client_event deconfig
    expect_run 'addr flush'
    expect_link lost
    client_event bound ip=10.9.0.42 subnet=255.255.255.0 router=10.9.0.1
    expect_run 'route add default gw 10.9.0.1 dev wlan0'
}

test_the_first_event_of_a_client_costs_nothing() {
    attempt_begun
    : >/fake/log
    client_event deconfig
    expect_file /fake/log ''
    expect_link joining
}

test_a_client_of_an_earlier_attempt_has_no_say() {
    attempt_begun
    interface_is up
    old=$(cat "$run/attempt")
    attempt_begun
    : >/fake/log
    client_event bound "RAWIFI_ATTEMPT=$old" ip=10.9.0.13 subnet=255.255.255.0 router=10.9.0.1 dns=10.9.0.13
    expect_file /fake/log ''
    expect_link joining
    expect_no_file /etc/resolv.conf
}

test_a_lease_that_is_no_address_is_refused() {
    for bad in '10.9.0.42;id' '$(id)' '' 10.9.0 10.9.0.42.1 '-host' '10.9.0.42 up'; do
        attempt_begun
        client_event bound "ip=$bad" subnet=255.255.255.0 router=10.9.0.1
        expect_not_run 'ifconfig wlan0 '"$bad"
        expect_link joining
    done
}

test_a_router_or_name_server_that_is_no_address_is_passed_over() {
    attempt_begun
    client_event bound ip=10.9.0.42 subnet=255.255.255.0 'router=$(id)' 'dns=evil.example 10.9.0.2 ;id 10.9.0.3'
    expect_not_run 'route add'
    expect_file /etc/resolv.conf "nameserver 10.9.0.2${newline}nameserver 10.9.0.3$newline"
}

test_a_lease_without_mask_or_name_server_will_do() {
    attempt_begun
    echo precious >/etc/resolv.conf
    client_event bound ip=10.9.0.42
    expect_run 'ifconfig wlan0 10.9.0.42 netmask 255.255.255.0'
    expect_link 'bound 10.9.0.42'
    expect_file /etc/resolv.conf "precious$newline"
}

test_name_servers_go_where_a_link_leads_and_all_may_read_them() {
    attempt_begun
    ln -s /fake/victim/resolv.conf /etc/resolv.conf
    client_event bound ip=10.9.0.42 subnet=255.255.255.0 dns=10.9.0.1
    expect_file /fake/victim/resolv.conf "nameserver 10.9.0.1$newline"
    [ -L /etc/resolv.conf ] || problem 'the link is gone'
    [ "$(stat -c %a /fake/victim/resolv.conf)" = 644 ] || problem "mode $(stat -c %a /fake/victim/resolv.conf)"
}

# --- getip.sh --------------------------------------------------------------------------------------------------------

test_an_address_that_is_there_is_told_at_once() {
    attempt_begun
    client_event bound ip=10.9.0.42 subnet=255.255.255.0
    device getip.sh
    expect_result 0
    expect_time 0 0
    expect_file "$answer" "10.9.0.42$newline"
    expect_no_leftovers
}

test_an_address_that_comes_is_noticed_soon() {
    attempt_begun
    at 200 'echo "bound 10.9.0.42" >"/var/run/rawifi/link.$(cat /var/run/rawifi/attempt)"'
    device getip.sh
    expect_result 0
    expect_time 200 203
    expect_file "$answer" "10.9.0.42$newline"
}

test_all_calls_of_an_attempt_wait_8_seconds_together() {
    attempt_begun
    device getip.sh
    expect_result 1
    expect_time 800 803
    expect_file "$answer" ''
    device getip.sh
    expect_result 1
    expect_time 0 0
    expect_file "$answer" ''
    client_event bound ip=10.9.0.42 subnet=255.255.255.0
    device getip.sh
    expect_result 0
    expect_time 0 0
}

test_every_attempt_waits_anew() {
    attempt_begun
    device getip.sh
    attempt_begun
    device getip.sh
    expect_time 800 803
}

test_waiting_ends_when_the_attempt_has_failed() {
    attempt_begun
    at 300 'echo "failed lease" >"/var/run/rawifi/link.$(cat /var/run/rawifi/attempt)"'
    device getip.sh
    expect_result 1
    expect_time 300 303
    expect_file "$answer" ''
}

test_the_address_of_an_earlier_attempt_is_never_told() {
    attempt_begun
    client_event bound ip=10.9.0.42 subnet=255.255.255.0
    attempt_begun
    does ifconfig "cat $recorded/ifconfig-wlan0-with-address.txt"
    device getip.sh
    expect_result 1
    expect_file "$answer" ''
}

test_a_state_that_is_just_being_written_is_waited_for() {
    attempt_begun
    : >"$run/link.$(cat "$run/attempt")"
    at 3 'echo "bound 10.9.0.42" >"/var/run/rawifi/link.$(cat /var/run/rawifi/attempt)"'
    device getip.sh
    expect_file "$answer" "10.9.0.42$newline"
}

test_without_any_attempt_the_interface_is_asked() {
    while read -r file address; do
        does ifconfig "cat $file"
        device getip.sh
        expect_result 0
        expect_time 0 0
        expect_file "$answer" "$address$newline"
    done <<END
$recorded/ifconfig-wlan0-with-address.txt 192.168.11.100
$data/ifconfig-net-tools.txt 10.9.0.42
END
    does ifconfig "cat $recorded/ifconfig-wlan0-up-no-address.txt"
    device getip.sh
    expect_result 1
    expect_file "$answer" ''
}

test_only_getip_writes_the_answer_during_an_attempt() {
    rm -r "$control"
    network '"home"'
    echo untouched >"$answer"
    interface_is up
    dhcp_gives "$lease"
    device_to_the_end callwpaconf.sh
    device dhcp_setip.sh
    expect_file "$answer" "untouched$newline"
    device getip.sh
    expect_file "$answer" "10.9.0.42$newline"
}

test_what_is_planted_at_the_address_is_replaced_and_never_followed() {
    for planted in 'ln -s /fake/victim/file' 'ln -s /fake/victim' mkfifo mkdir; do
        attempt_begun
        client_event bound ip=10.9.0.42 subnet=255.255.255.0
        echo precious >/fake/victim/file
        rm -rf "$answer"
        $planted "$answer"
        device getip.sh
        expect_file "$answer" "10.9.0.42$newline"
        expect_file /fake/victim/file "precious$newline"
        [ "$(ls -A /fake/victim)" = file ] || problem "$planted: $(ls -A /fake/victim)"
        expect_no_leftovers
    done
}

# --- the state's directory -------------------------------------------------------------------------------------------

test_a_state_directory_that_somebody_planted_is_replaced() {
    for planted in 'ln -s /fake/victim' 'install -d -o nobody'; do
        begin_test
        rm -r "$control"
        network '"home"'
        $planted "$run"
        device_to_the_end callwpaconf.sh
        [ ! -L "$run" ] || problem "$planted: it is still a link"
        [ "$(stat -c '%U %a' "$run")" = 'root 700' ] || problem "$planted: $(stat -c '%U %a' "$run")"
        [ -z "$(ls -A /fake/victim)" ] || problem "$planted: $(ls -A /fake/victim)"
        expect_link 'failed association'
    done
}
