# shellcheck shell=sh disable=SC2154,SC2016
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# The scripts that tell how things stand: getwifistatus.sh, getconnectstatus.sh, getwpastatus.sh, getlocalmac.sh,
# getroute.sh; and calldefaultconf.sh.

stale_answers() {
    echo stale >"$answer"
    echo stale >"$status"
}

# expect_status LINE...: both files hold these lines.
expect_status() {
    expect_file "$status" "$(printf '%s\n' "$@")$newline"
    expect_file "$answer" "$(printf '%s\n' "$@")$newline"
    expect_no_leftovers
}

test_a_recorded_status_is_cut_down_to_the_connection() {
    for script in getwifistatus.sh getconnectstatus.sh; do
        stale_answers
        does wpa_cli-status "cat $recorded/status-completed-chinese.txt"
        device "$script"
        expect_result 0
        expect_status bssid=02:00:00:00:02:00 ssid=宝贝的家 id=0 pairwise_cipher=CCMP group_cipher=CCMP key_mgmt=WPA2-PSK \
            wpa_state=COMPLETED ip_address=192.168.12.100
    done
}

test_a_recorded_status_tells_how_far_the_connection_is() {
    while read -r situation lines state; do
        does wpa_cli-status "cat $recorded/status-$situation.txt"
        device getwifistatus.sh
        expect_result 0
        [ "$(grep '^wpa_state=' "$status")" = "wpa_state=$state" ] || problem "$situation: $(cat "$status")"
        [ "$(wc -l <"$status")" = "$lines" ] || problem "$situation: $(cat "$status")"
    done <<END
inactive 1 INACTIVE
scanning 1 SCANNING
authenticating 1 AUTHENTICATING
associated 7 ASSOCIATED
4way-handshake 7 4WAY_HANDSHAKE
completed-wpa2-no-address 7 COMPLETED
completed-open 8 COMPLETED
completed-wep40 8 COMPLETED
disconnected-after-wrong-key 1 DISCONNECTED
END
}

test_key_mgmt_comes_before_wpa_state() {
    does wpa_cli-status 'printf "wpa_state=COMPLETED\nkey_mgmt=WPA2-PSK\nssid=x\nbssid=02:00:00:00:01:00\n"'
    device getconnectstatus.sh
    expect_status bssid=02:00:00:00:01:00 ssid=x key_mgmt=WPA2-PSK wpa_state=COMPLETED
}

test_a_name_cannot_pass_for_another_line() {
    while IFS='|' read -r text expected; do
        does wpa_cli-status "cat <<'END'
bssid=02:00:00:00:01:00
ssid=$text
wpa_state=COMPLETED
END"
        device getwifistatus.sh
        expect_status bssid=02:00:00:00:01:00 "ssid=$expected" wpa_state=COMPLETED
    done <<'END'
bssid=66:66:66:66:66:66|bssid\x3d66:66:66:66:66:66
a\nwpa_state=SCANNING|a\nwpa_state=SCANNING
my ssid=x|my ssid=x
\xe4\xb8\xad\"\\|中"\
END
}

test_a_supplicant_without_status_leaves_no_stale_files() {
    for reply in "cat $recorded/status-no-supplicant.txt" : 'echo FAIL' "$hang" 'head -c 100000000 /dev/zero'; do
        begin_test
        stale_answers
        does wpa_cli-status "$reply"
        device getconnectstatus.sh
        expect_result 1
        expect_no_file "$answer"
        expect_no_file "$status"
        expect_time 0 300
    done
}

test_what_is_planted_at_the_status_is_replaced_and_never_followed() {
    for planted in 'ln -s /fake/victim/file' 'ln -s /fake/victim' mkfifo mkdir; do
        begin_test
        echo precious >/fake/victim/file
        $planted "$status"
        $planted "$answer"
        does wpa_cli-status "cat $recorded/status-inactive.txt"
        device getwifistatus.sh
        expect_status wpa_state=INACTIVE
        expect_file /fake/victim/file "precious$newline"
        [ "$(ls -A /fake/victim)" = file ] || problem "$planted: $(ls -A /fake/victim)"
    done
}

test_planted_things_do_not_outlive_a_failure() {
    for planted in 'ln -s /fake/victim/file' 'ln -s /fake/victim' mkfifo mkdir; do
        begin_test
        echo precious >/fake/victim/file
        $planted "$answer"
        does wpa_cli-ping :
        device getwpastatus.sh
        expect_result 1
        expect_no_file "$answer"
        expect_file /fake/victim/file "precious$newline"
    done
}

test_a_running_supplicant_is_told() {
    device getwpastatus.sh
    expect_result 0
    expect_file "$answer" "OK$newline"
}

test_a_supplicant_that_does_not_answer_is_not_running() {
    for reply in : 'echo FAIL' 'echo UNKNOWN COMMAND' "$hang" 'yes PONG'; do
        begin_test
        stale_answers
        does wpa_cli-ping "$reply"
        device getwpastatus.sh
        expect_result 1
        expect_no_file "$answer"
        expect_time 0 300
    done
    begin_test
    stale_answers
    missing wpa_cli
    device getwpastatus.sh
    expect_result 1
    expect_no_file "$answer"
}

test_the_mac_address_is_told() {
    echo 02:ab:cd:ef:00:19 >/sys/class/net/wlan0/address
    device getlocalmac.sh
    expect_result 0
    expect_file "$answer" "02:ab:cd:ef:00:19$newline"
}

test_without_a_mac_address_there_is_no_answer() {
    for address in '' garbage 02:ab:cd:ef:00 02:ab:cd:ef:00:19:20 '$(id)'; do
        echo stale >"$answer"
        echo "$address" >/sys/class/net/wlan0/address
        device getlocalmac.sh
        expect_result 1
        expect_no_file "$answer"
    done
    rm /sys/class/net/wlan0/address
    echo stale >"$answer"
    device getlocalmac.sh
    expect_result 1
    expect_no_file "$answer"
}

test_the_default_route_is_told() {
    does route "cat $recorded/route-n-default.txt"
    device getroute.sh
    expect_result 0
    expect_file "$answer" "default via 192.168.11.1 dev wlan0$newline"
}

test_two_half_routes_come_before_a_default_route() {
    does route 'cat <<END
Kernel IP routing table
Destination     Gateway         Genmask         Flags Metric Ref    Use Iface
0.0.0.0         10.9.0.1        0.0.0.0         UG    0      0        0 wlan0
0.0.0.0         10.9.0.254      128.0.0.0       UG    0      0        0 wlan0
128.0.0.0       10.9.0.254      128.0.0.0       UG    0      0        0 wlan0
END'
    device getroute.sh
    expect_file "$answer" "default via 10.9.0.254 dev wlan0$newline"
}

test_a_route_through_another_interface_is_none() {
    does route 'echo "0.0.0.0         10.9.0.1        0.0.0.0         UG    0      0        0 eth0"'
    device getroute.sh
    expect_result 1
    expect_file "$answer" ''
}

test_without_a_route_the_answer_is_empty() {
    echo stale >"$answer"
    does route "cat $recorded/route-n-empty.txt"
    device getroute.sh
    expect_result 1
    expect_file "$answer" ''
}

test_a_supplicant_that_runs_is_left_alone() {
    device calldefaultconf.sh
    expect_result 0
    expect_file "$answer" "OK$newline"
    expect_not_run 'wpa_supplicant -B'
}

test_the_supplicant_is_started_without_a_network() {
    printf 'precious\n' >/etc/wpa_supplicant.conf
    rm -r "$control"
    does wpa_cli-ping :
    does wpa_supplicant 'make-socket
        echo "echo PONG" >/fake/does/wpa_cli-ping
        while [ "$1" != -c ]; do shift; done
        cp "$2" /fake/configuration'
    device calldefaultconf.sh
    expect_result 0
    expect_file "$answer" "OK$newline"
    expect_file /fake/configuration "ctrl_interface=/var/run/wpa_supplicant${newline}ap_scan=1$newline"
    expect_file /etc/wpa_supplicant.conf "precious$newline"
}

test_a_supplicant_that_cannot_be_started_leaves_no_answer() {
    for behaviour in 'exit 255' : "$hang"; do
        begin_test
        rm -r "$control"
        echo stale >"$answer"
        does wpa_cli-ping :
        does wpa_supplicant "$behaviour"
        device calldefaultconf.sh
        expect_result 1
        expect_no_file "$answer"
        expect_time 0 2500
    done
    begin_test
    missing wpa_supplicant
    does wpa_cli-ping :
    echo stale >"$answer"
    device calldefaultconf.sh
    expect_result 1
    expect_no_file "$answer"
}

test_a_supplicant_that_hangs_is_ended_before_a_new_one_starts() {
    does wpa_cli-ping "$hang"
    does wpa_cli-terminate "$hang"
    mkdir -p "$run"
    process_named wpa_supplicant
    does wpa_supplicant "case \$(cat /proc/$process/stat) in '' | *') Z '*) echo gone >/fake/order ;; esac"
    device calldefaultconf.sh
    wait "$process" 2>/dev/null
    expect_file /fake/order "gone$newline"
    expect_time 0 2500
}
