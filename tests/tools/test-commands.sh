# shellcheck shell=bash disable=SC2034,SC2154
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# What the commands print and end with.

escape=$'\033'

test_help_names_every_command() {
    run --help
    expect_result 0
    for command in scan join status saved forget monitor doctor; do
        expect_in_out "  $command"
    done
    expect_in_out 'exit status: 0 done, 1 failed, 2 wrong usage, 3 not found'
}

test_version_is_told() {
    run --version
    expect_result 0
    expect_out "rawifictl $(cat "$here/../../version.txt")"
}

test_output_that_cannot_be_written_is_a_failure() {
    air "$kitchen"
    "$RAWIFICTL" scan >/dev/full 2>/tmp/err </dev/null
    result=$?
    expect_result 1
    expect_in_err 'standard output: No space left on device'
    "$RAWIFICTL" --json scan >&- 2>/tmp/err </dev/null
    result=$?
    expect_result 1
    expect_in_err 'standard output: Bad file descriptor'
}

test_wrong_usage_ends_with_2() {
    for line in '' shout 'scan more' 'scan --polls 3' 'status --polls 3' join forget 'forget a b' 'monitor --interval x' \
        'monitor --interval 99' 'join a - b' 'join a --key-index 4' --shout 'doctor --watch'; do
        # shellcheck disable=SC2086 # words
        run $line
        expect_result 2
        expect_out ''
        expect_in_err usage:
    done
}

test_a_password_is_not_taken_from_the_command_line() {
    air "$kitchen"
    run join Kitchen opensesame
    expect_result 2
    expect_not_in_out opensesame
    expect_in_err usage:
}

test_scan_lists_what_is_in_reach() {
    saved_networks 'Kitchen|02:00:00:00:00:01'
    air "$guests" "$kitchen"
    run scan
    expect_result 0
    expect_out '02:00:00:00:00:01  4  WPA2-PSK  saved  Kitchen
02:00:00:00:00:02  2  NOENCRY          Guests'
    run --json scan
    expect_result 0
    expect_json '[(ap["ssid"], ap["bssid"], ap["kind"], ap["level"], ap["locked"], ap["saved"]) for ap in d] == [
        ("Kitchen", "02:00:00:00:00:01", "WPA2-PSK", 4, True, True),
        ("Guests", "02:00:00:00:00:02", "NOENCRY", 2, False, False)]'
}

test_a_name_that_is_no_text_is_made_visible_and_told_in_hexadecimal() {
    air "$broken"
    run scan
    expect_in_out 'a\xff\x1b[31mb'
    expect_not_in_out "$escape"
    run scan --json
    expect_json '(d[0]["ssid"], d[0]["ssid_hex"]) == (r"a\xff\x1b[31mb", "61ff1b5b33316d62")'
}

test_an_empty_scan_ends_with_3() {
    run scan
    expect_result 3
    expect_out ''
    expect_in_err 'no access points found'
    run scan --json
    expect_result 3
    expect_json 'd == []'
}

test_status_of_a_link() {
    linked
    run status
    expect_result 0
    expect_out 'state    COMPLETED
network  Kitchen
bssid    02:00:00:00:00:01
address  192.168.9.5'
    run status --json
    expect_result 0
    expect_json '(d["supplicant"], d["connected"], d["state"], d["ssid"], d["ssid_hex"], d["bssid"], d["ip"]) == (
        True, True, "COMPLETED", "Kitchen", "4b69746368656e", "02:00:00:00:00:01", "192.168.9.5")'
}

test_status_without_a_link_ends_with_3() {
    not_linked
    run status
    expect_result 3
    expect_out 'state    SCANNING'
    run status --json
    expect_result 3
    expect_json 'd["supplicant"] and not d["connected"] and d["ssid"] == ""'
}

test_status_without_a_supplicant_ends_with_1() {
    run status
    expect_result 1
    expect_in_err 'the supplicant does not answer'
    run status --json
    expect_result 1
    expect_json 'not d["supplicant"] and not d["connected"]'
}

test_saved_networks_are_listed_without_their_passwords() {
    saved_networks 'Kitchen|02:00:00:00:00:01' '咖啡|02:00:00:00:00:04'
    run saved
    expect_result 0
    expect_out '02:00:00:00:00:01  3  WPA2-PSK  saved  Kitchen
02:00:00:00:00:04  3  WPA2-PSK  saved  咖啡'
    run saved --json
    expect_result 0
    expect_json '[ap["ssid"] for ap in d] == ["Kitchen", "咖啡"]'
    expect_not_in_out opensesame
}

test_nothing_saved_is_an_empty_list() {
    run saved
    expect_result 0
    expect_out ''
    run saved --json
    expect_result 0
    expect_json 'd == []'
}

test_saved_networks_that_cannot_be_read_end_with_1() {
    mkdir "$store"
    for command in saved 'forget Kitchen'; do
        # shellcheck disable=SC2086 # words
        run $command
        expect_result 1
        expect_in_err 'the saved networks cannot be read'
        # shellcheck disable=SC2086 # words
        run --json $command
        expect_result 1
        expect_json 'd == {"error": "the saved networks cannot be read"}'
    done
}

test_networks_are_forgotten_by_name_or_bssid() {
    saved_networks 'Kitchen|02:00:00:00:00:01' 'Guests|02:00:00:00:00:02' 'Attic|02:00:00:00:00:03'
    run forget Guests
    expect_result 0
    expect_out 'forgotten: Guests'
    run forget 02:00:00:00:00:03 --json
    expect_result 0
    expect_json '[ap["ssid"] for ap in d] == ["Attic"]'
    run saved --json
    expect_json '[ap["ssid"] for ap in d] == ["Kitchen"]'
}

test_forgetting_what_is_not_saved_ends_with_3() {
    saved_networks 'Kitchen|02:00:00:00:00:01'
    run forget Cellar
    expect_result 3
    expect_in_err 'no saved network is called so'
    run forget Cellar --json
    expect_result 3
    expect_json 'd == {"error": "no saved network is called so"}'
}

test_a_join_reports_its_stages() {
    air "$guests"
    answer getip 192.168.9.5
    answer getroute 'default via 192.168.9.1 dev wlan0'
    run join Guests --json
    expect_result 0
    expect_json '[m["message"] for m in d] == ["verifying information", "Retrieving the IP information",
        "Setting  Network information", "GuestsSuccessful connection"]'
    expect_json 'all(m["errflag"] == 0 and m["ms"] >= 0 for m in d)'
}

test_a_join_that_fails_ends_with_1() {
    air "$guests"
    mkdir /etc/wpa_supplicant.conf
    run join 02:00:00:00:00:02
    expect_result 1
    expect_in_out ' s  config wifi failed'
}

test_a_locked_network_needs_a_password() {
    air "$kitchen"
    run join Kitchen
    expect_result 1
    expect_in_err 'this network needs a password'
    run join Kitchen --json
    expect_result 1
    expect_json 'd == {"error": "this network needs a password"}'
}

# A join that ends as soon as it has written the configuration: callwpaconf.sh leaves no marker.
join_ends_early() {
    # shellcheck disable=SC2016 # the script's own variable
    echo 'cp /etc/wpa_supplicant.conf /fake/configuration; kill -KILL $PPID' >/usr/bin/callwpaconf.sh
}

test_a_password_is_read_from_standard_input() {
    air "$kitchen"
    join_ends_early
    printf 'opensesame\nmore\n' | "$RAWIFICTL" --verbose join Kitchen - >/tmp/out 2>/tmp/err
    result=$?
    expect_result 1
    grep -q 'psk="opensesame"' /fake/configuration || problem "the configuration is: $(cat /fake/configuration)"
    expect_not_in_out opensesame
}

test_a_saved_password_is_not_asked_for() {
    saved_networks 'Kitchen|02:00:00:00:00:01'
    air "$kitchen"
    join_ends_early
    on_terminal join Kitchen
    expect_not_in_out 'Password: '
    expect_not_in_out opensesame
    grep -q 'psk="opensesame"' /fake/configuration || problem "the configuration is: $(cat /fake/configuration)"
}

test_a_password_is_asked_for_without_echo() {
    saved_networks 'Kitchen|02:00:00:00:00:01'
    air "$kitchen"
    join_ends_early
    on_terminal --type 'Password: ' $'anotherone\n' join Kitchen --ask
    expect_result 1
    expect_in_out 'Password: '
    expect_not_in_out anotherone
    grep -q 'psk="anotherone"' /fake/configuration || problem "the configuration is: $(cat /fake/configuration)"
}

test_an_interrupted_question_leaves_the_terminal_with_its_echo() {
    local key
    air "$kitchen"
    for key in $'\003 130' $'\034 131'; do # Ctrl-C, Ctrl-\
        "$here/terminal.py" --type 'Password: ' "${key% *}" \
            bash -c "trap : INT QUIT; $RAWIFICTL join Kitchen; echo ended with \$?; stty -a" >/tmp/out
        grep -q '[^-]echo ' /tmp/out || problem "no echo: $(cat /tmp/out)"
        expect_in_out "ended with ${key#* }"
    done
}

test_a_password_that_is_no_text_is_refused() {
    local password
    air "$kitchen"
    for password in 'caf\351pass' 'opensesame\0rest'; do
        # shellcheck disable=SC2059 # the bytes are meant
        printf "$password" | "$RAWIFICTL" join Kitchen - >/tmp/out 2>/tmp/err
        result=$?
        expect_result 1
        expect_in_err 'the password is no UTF-8 text'
    done
}

test_what_is_no_address_is_made_visible_as_well() {
    air "$(printf '\033]0;x\007 02:00:00:00\t2412\t-45\t[ESS]\tTrap')"
    run scan
    expect_not_in_out "$escape"
}

test_monitor_reports_the_link_until_its_loss() {
    linked
    echo 02:00:00:00:00:01 >/home/wifi/curmac.txt
    run monitor --interval 100 --polls 2
    expect_result 0
    expect_out 'confirmed 02:00:00:00:00:01
up 02:00:00:00:00:01'
    run --json monitor --interval 100 --polls 2
    expect_result 0
    expect_json_lines 'd == [{"event": event, "bssid": "02:00:00:00:00:01"} for event in ("confirmed", "up")]'
    not_linked
    run --json monitor --interval 100
    expect_result 1
    expect_json_lines '[event["event"] for event in d] == ["lost"]'
}

test_monitor_without_a_joined_network_ends_with_3() {
    run monitor --json
    expect_result 3
    expect_json 'd == {"error": "no network has been joined"}'
}

test_monitor_ends_on_a_signal_with_0() {
    linked
    echo 02:00:00:00:00:01 >/home/wifi/curmac.txt
    for signal in INT TERM; do
        in_background monitor --interval 1000
        until_lines 1
        ended_by "$signal"
        expect_result 0
    done
}

test_a_watched_status_is_told_when_it_changes() {
    not_linked
    in_background status --watch --interval 100
    until_lines 1
    linked
    until_lines 2
    answer getwifistatus
    until_lines 3
    ended_by TERM
    expect_result 0
    expect_out 'SCANNING
COMPLETED  02:00:00:00:00:01  192.168.9.5  Kitchen
the supplicant does not answer'
}

test_a_watched_status_is_a_json_document_a_line() {
    not_linked
    in_background --json status --watch --interval 1000
    until_lines 1
    linked
    until_lines 2
    ended_by INT
    expect_result 0
    expect_json_lines '[(status["state"], status["connected"]) for status in d] == [
        ("SCANNING", False), ("COMPLETED", True)]'
}

test_colours_are_shown_on_a_terminal_alone() {
    linked
    on_terminal status
    expect_in_out "${escape}[32mCOMPLETED${escape}[0m"
    run status
    expect_not_in_out "$escape"
    on_terminal status --json
    expect_not_in_out "$escape"
    NO_COLOR=1 on_terminal status
    expect_not_in_out "$escape"
    expect_in_out COMPLETED
    TERM=dumb on_terminal status
    expect_not_in_out "$escape"
    expect_in_out COMPLETED
}

completed() { # completed WORD...: what bash offers for the last word
    # shellcheck disable=SC2016 # the inner shell's own
    bash -c 'source "$1"; shift; COMP_WORDS=(rawifictl "$@"); COMP_CWORD=$#; _rawifictl; echo "${COMPREPLY[*]}"' \
        bash "$here/../../examples/rawifictl/completion/rawifictl.bash" "$@"
}

expect_completed() { # expect_completed OFFERED WORD...
    local offered=$1
    shift
    [ "$(completed "$@")" = "$offered" ] || problem "offered for $*: $(completed "$@")"
}

test_bash_completes_commands_and_their_options() {
    expect_completed 'scan status saved' s
    expect_completed 'doctor' --json d
    expect_completed '--json' --j
    expect_completed '--watch' status --w
    expect_completed '--interval --polls' monitor ''
    expect_completed '- --ask --shared --key-index' --verbose join ''
    expect_completed '' forget ''
    [ "$(bash -c "source '$here/../../examples/rawifictl/completion/rawifictl.bash'; complete -p rawifictl")" = \
        'complete -F _rawifictl rawifictl' ] || problem 'not registered'
}

test_every_shell_knows_every_command() {
    run --help
    sed -n 's/^  \([a-z][a-z]*\) .*/\1/p' /tmp/out >/fake/commands
    [ "$(wc -l </fake/commands)" -ge 7 ] || problem "the commands are: $(cat /fake/commands)"
    while read -r command; do
        for shell in bash zsh fish; do
            grep -qw "$command" "$here/../../examples/rawifictl/completion/rawifictl.$shell" || problem "$shell: $command"
        done
    done </fake/commands
}
