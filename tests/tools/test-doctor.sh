# shellcheck shell=bash disable=SC2016,SC2154
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# What the doctor finds, one thing wrong at a time.

# A device as it should be, with the real scripts.
healthy_device() {
    cp "$here"/../../device/scripts/*.sh /usr/bin
    cp -r "$here/../../device/scripts/share" /usr/share/rawifi
    saved_networks 'Kitchen|02:00:00:00:00:01'
    install -m 600 /dev/null /etc/wpa_supplicant.conf
}

# expect_finding SUBJECT PROBLEM ADVICE: this is the one problem, in text and in JSON.
expect_finding() {
    run doctor
    expect_result 1
    expect_in_out "PROBLEM $1 $2"
    expect_in_out "        -> $3"
    [ "$(grep -c PROBLEM /tmp/out)" = 1 ] || problem "more than that: $(grep PROBLEM /tmp/out)"
    run doctor --json
    expect_result 1
    expect_json "[(f['subject'], f['problem'], f['advice']) for f in d if not f['ok']] == [('$1', '$2', '$3')]"
}

install='install the scripts: cmake --install BUILD --prefix /usr --component device'

test_nothing_is_wrong_with_a_device_in_order() {
    healthy_device
    run doctor
    expect_result 0
    expect_not_in_out PROBLEM
    for subject in $scripts; do
        expect_in_out "/usr/bin/$subject.sh"
    done
    for subject in /usr/share/rawifi/udhcpc.sh /home/wifi /apps/config "$store" /etc/wpa_supplicant.conf wpa_supplicant \
        udhcpc wlan0 'message bus'; do
        expect_in_out "ok      $subject"
    done
    run doctor --json
    expect_result 0
    expect_json 'len(d) > 25 and all(f["ok"] and not f["problem"] and not f["advice"] for f in d)'
}

test_a_client_that_is_not_where_the_library_calls_it_is_found() {
    healthy_device
    rm /usr/bin/wpa_cli
    expect_finding /usr/bin/wpa_cli 'is no program: closing Wi-Fi would keep the link' \
        'ln -s "$(command -v wpa_cli)" /usr/bin/wpa_cli'
}

test_a_bus_of_the_users_session_is_found() {
    healthy_device
    address=${DBUS_SESSION_BUS_ADDRESS#unix:path=}
    mkdir -p /tmp/session
    ln -f "${address%%,*}" /tmp/session/bus
    run_in=$(XDG_RUNTIME_DIR=/tmp/session env -u DBUS_SESSION_BUS_ADDRESS "$RAWIFICTL" doctor)
    result=$?
    [ $result = 0 ] || problem "ended with $result: $(grep -A1 PROBLEM <<<"$run_in")"
}

test_scripts_of_the_devices_own_need_no_shared_ones() {
    run doctor
    expect_result 0
    expect_not_in_out /usr/share/rawifi
}

test_every_missing_script_is_found() {
    for name in $scripts; do
        rm "/usr/bin/$name.sh"
    done
    run doctor
    expect_result 1
    for name in $scripts; do
        expect_in_out "PROBLEM /usr/bin/$name.sh is missing"
    done
}

test_a_missing_script_is_found() {
    healthy_device
    rm /usr/bin/getip.sh
    expect_finding /usr/bin/getip.sh 'is missing' "$install"
}

test_a_script_that_cannot_be_read_is_found() {
    healthy_device
    rm /usr/bin/getip.sh
    mkdir /usr/bin/getip.sh
    expect_finding /usr/bin/getip.sh 'cannot be read' 'chmod 755 /usr/bin/getip.sh'
}

test_a_script_with_a_mistake_is_found() {
    healthy_device
    echo 'if true; then' >>/usr/bin/getroute.sh
    expect_finding /usr/bin/getroute.sh 'is no valid shell script' "see sh -n /usr/bin/getroute.sh, or $install"
}

test_a_missing_shared_script_is_found() {
    healthy_device
    rm /usr/share/rawifi/attempt.sh
    expect_finding /usr/share/rawifi/attempt.sh 'is missing' "$install"
}

test_a_lease_script_that_cannot_be_run_is_found() {
    healthy_device
    chmod 644 /usr/share/rawifi/udhcpc.sh
    expect_finding /usr/share/rawifi/udhcpc.sh 'is not executable, the DHCP client has to run it' \
        'chmod 755 /usr/share/rawifi/udhcpc.sh'
}

test_a_missing_directory_is_found() {
    rm -r /apps/config
    expect_finding /apps/config 'is no directory' 'mkdir -p /apps/config'
}

test_a_directory_that_cannot_be_written_is_found() {
    mount -t tmpfs -o ro none /apps/config
    expect_finding /apps/config 'cannot be written' 'mount it read-write, and run the host as root'
    umount /apps/config
}

test_files_with_passwords_that_others_can_read_are_found() {
    for file in "$store" /etc/wpa_supplicant.conf /home/wifi/tmpnetwork.conf; do
        begin_test
        install -m 644 /dev/null "$file"
        expect_finding "$file" 'has mode 0644 instead of 0600' "chmod 600 $file"
    done
}

test_a_link_in_place_of_the_store_is_found() {
    ln -s /home/wifi/elsewhere "$store"
    expect_finding "$store" 'is no plain file' "rm -rf $store: the library makes it anew"
}

test_a_missing_program_is_found() {
    for name in wpa_supplicant wpa_cli udhcpc; do
        begin_test
        rm "/fake/bin/$name"
        expect_finding "$name" 'is not in PATH' "add $name to the image (busybox has all but those of the supplicant)"
    done
}

test_every_missing_program_is_found() {
    PATH=/nowhere run doctor
    expect_result 1
    for name in $programs awk cat grep head ln mkdir mv readlink rm timeout touch; do
        expect_in_out "PROBLEM $name is not in PATH"
    done
}

test_a_supplicant_that_answers_is_in_order() {
    printf '#!/bin/sh\n' >/fake/bin/pidof
    printf '#!/bin/sh\necho PONG\n' >/fake/bin/wpa_cli
    run doctor
    expect_result 0
    expect_in_out 'ok      supplicant'
}

test_a_supplicant_that_does_not_answer_is_found() {
    printf '#!/bin/sh\n' >/fake/bin/pidof
    expect_finding supplicant 'runs, but does not answer for wlan0' \
        'end it: the scripts start one with ctrl_interface=/var/run/wpa_supplicant'
}

test_a_missing_interface_is_found() {
    rmdir /sys/class/net/wlan0
    expect_finding wlan0 'there is no such interface' \
        'load the driver of the radio; an interface of another name: ip link set NAME name wlan0'
}

test_a_bus_that_does_not_answer_is_found() {
    for address in '' unix:path=/fake/no-bus; do
        DBUS_SESSION_BUS_ADDRESS=$address expect_finding 'message bus' \
            'cannot be reached: messages stay in the process of the host' \
            'start dbus-daemon, and give the host DBUS_SESSION_BUS_ADDRESS'
    done
}

test_the_doctor_changes_nothing() {
    healthy_device
    find /apps /home /etc/wpa_supplicant.conf -exec stat -c '%n %a %s %Z' {} + >/fake/before
    run doctor
    find /apps /home /etc/wpa_supplicant.conf -exec stat -c '%n %a %s %Z' {} + >/fake/after
    cmp -s /fake/before /fake/after || problem "$(diff /fake/before /fake/after)"
}
