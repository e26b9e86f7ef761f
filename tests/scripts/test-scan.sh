# shellcheck shell=sh disable=SC2154,SC2016
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# getaplist.sh and getfirstaplist.sh.

does_scan() {
    does wpa_cli-scan 'echo OK'
    does wpa_cli-radio_work :
}

# knows FILE: the supplicant's table of access points; a reply holds at most 4095 bytes of it, as the real one's.
knows() {
    does_scan
    does wpa_cli-bss "first=\${2#RANGE=}
        awk -v first=\"\${first%-}\" '
            function end_of_account() {
                if (id >= first + 0 && length(account) > 0 && (room -= length(account)) >= 0) printf \"%s\", account
            }
            BEGIN { room = 4095 }
            /^id=/ { end_of_account(); id = substr(\$0, 4) + 0; account = \"\" }
            { account = account \$0 \"\\n\" }
            END { end_of_account() }' $1"
}

# one_point LINE...: the table has one access point, a good one but for these lines.
one_point() {
    {
        printf '%s\n' id=0 bssid=02:00:00:00:01:00 freq=2412 level=-50 'flags=[WPA2-PSK-CCMP][ESS]' ssid=home |
            awk -v replaced="$(printf '%s\n' "$@" | sed 's/=.*//' | tr '\n' ' ')" '
                { key = $0; sub(/=.*/, "", key) } !index(" " replaced, " " key " ")'
        printf '%s\n' "$@"
    } >/fake/table
    does_scan
    does wpa_cli-bss 'if [ "$2" = RANGE=0- ]; then cat /fake/table; fi'
}

test_a_recorded_scan_becomes_lines() {
    for scan in everything names; do
        knows "$data/$scan.bss"
        device getaplist.sh
        expect_result 0
        expect_file "$answer" "$(cat "$data/$scan.lines")$newline"
        expect_no_leftovers
    done
}

test_a_hundred_access_points_need_several_replies_and_all_arrive() {
    knows "$data/many.bss"
    device getaplist.sh
    [ "$(sort -u "$answer" | wc -l)" = 102 ] || problem "$(wc -l <"$answer") lines"
    [ "$(grep -c bss /fake/log)" = 4 ] || problem "$(grep bss /fake/log)"
}

test_the_answer_is_for_root_only() {
    one_point
    device getaplist.sh
    [ "$(stat -c %a "$answer")" = 600 ] || problem "mode $(stat -c %a "$answer")"
}

test_level_becomes_quality() {
    while read -r level quality; do
        one_point "level=$level"
        device getaplist.sh
        expect_file "$answer" "02:00:00:00:01:00${tab}2412$tab$quality$tab""[WPA2-PSK-CCMP][ESS]${tab}home$newline"
    done <<END
-200 0
-101 0
-100 0
-85 15
-84 16
-69 31
-55 45
-54 46
-1 99
0 0
1 1
60 60
100 99
255 99
END
}

test_names_are_decoded_once() {
    while IFS='|' read -r text octal; do
        one_point "ssid=$text"
        device getaplist.sh
        # shellcheck disable=SC2059 # the table holds the bytes in octal
        printf "$octal" >/fake/expected
        cut -f5- "$answer" | head -c -1 | cmp -s - /fake/expected ||
            problem "$text became $(cut -f5- "$answer" | od -An -c)"
    done <<'END'
home|home
\xe4\xb8\xad\xe6\x96\x87\xe7\xbd\x91|\344\270\255\346\226\207\347\275\221
\x80\x81\x82\x83\x84\x85\x86\x87\x88\x89\x8f\x98\xff|\200\201\202\203\204\205\206\207\210\211\217\230\377
\"q\"|"q"
\\|\134
\\x41\\n|\134x41\134n
\\\\|\134\134
a\tb\e\x01c|a\011b\033\001c
a\rb|a\015b
 a  b  | a  b  
`id`$(id)'#;|`id`$(id)'#;
%s%n|%%s%%n
ssid=id=bssid=|ssid=id=bssid=
\xE4|\344
\x7f|\177
END
}

test_what_a_line_cannot_carry_stays_as_it_is_printed() {
    while IFS='|' read -r text expected; do
        one_point "ssid=$text"
        device getaplist.sh
        expect_file "$answer" "02:00:00:00:01:00${tab}2412${tab}50${tab}[WPA2-PSK-CCMP][ESS]$tab$expected$newline"
    done <<'END'
line\nbreak|line\nbreak
\n|\n
a\x00b|a\x00b
\tab|\tab
\t\tab|\t	ab
ab\r|ab\r
\r|\r
\x01|\x01
\x0a\x00|\n\x00
bad\q|bad\q
bad\x4|bad\x4
bad\xzz|bad\xzz
bad\|bad\
END
}

test_a_hidden_name_is_empty() {
    for text in '' '\x00' '\x00\x00\x00\x00'; do
        one_point "ssid=$text"
        device getaplist.sh
        expect_file "$answer" "02:00:00:00:01:00${tab}2412${tab}50${tab}[WPA2-PSK-CCMP][ESS]$tab$newline"
    done
}

test_a_name_has_at_most_32_bytes_and_no_broken_character() {
    while IFS='|' read -r text expected; do
        one_point "ssid=$text"
        device getaplist.sh
        [ "$(cut -f5- "$answer")" = "$expected" ] || problem "$text became $(cut -f5 "$answer")"
    done <<'END'
abcdefghijklmnopqrstuvwxyz012345|abcdefghijklmnopqrstuvwxyz012345
abcdefghijklmnopqrstuvwxyz0123456|abcdefghijklmnopqrstuvwxyz012345
abcdefghijklmnopqrstuvwxyz0123\xe4\xb8\xad|abcdefghijklmnopqrstuvwxyz0123
abcdefghijklmnopqrstuvwxyz01234\xe4\xb8\xad|abcdefghijklmnopqrstuvwxyz01234
abcdefghijklmnopqrstuvwxyz01\xe4\xb8\xad\xe4\xb8\xad|abcdefghijklmnopqrstuvwxyz01中
abcdefghijklmnopqrstuvwxyz01234\n|abcdefghijklmnopqrstuvwxyz01234
END
}

test_flags_pass_as_they_are() {
    for flags in '[WPA3-SAE-CCMP][ESS]' '[WPA2-EAP-CCMP][ESS]' '[WPA-PSK-CCMP+TKIP][WPA2-PSK-CCMP+TKIP-preauth][WPS][ESS]' \
        '[WPA2-PSK+SAE-CCMP][ESS][UTF-8]' '[ESS]' '[WEP][ESS]' ''; do
        one_point "flags=$flags"
        device getaplist.sh
        expect_file "$answer" "02:00:00:00:01:00${tab}2412${tab}50$tab$flags${tab}home$newline"
    done
}

test_a_line_is_never_too_long_for_its_reader() {
    flags=
    while [ ${#flags} -lt 1000 ]; do flags="${flags}[WPA2-PSK-CCMP]"; done
    one_point "flags=$flags" 'ssid=abcdefghijklmnopqrstuvwxyz012345'
    device getaplist.sh
    length=$(wc -c <"$answer")
    if [ "$length" -lt 200 ] || [ "$length" -gt 255 ]; then problem "$length characters"; fi
    cut -f4 "$answer" | grep -q '^\(\[WPA2-PSK-CCMP\]\)*$' || problem "$(cat "$answer")"
}

test_an_account_that_is_not_whole_is_dropped() {
    for line in bssid=02:00:00:00:01 bssid=02:00:00:00:01:0g bssid=02:00:00:00:01:00:00 'bssid=$(id)' freq= freq=24x level= \
        level=-5x 'flags=no brackets' "flags=[A${tab}B]" 'flags=[ESS'; do
        one_point "$line"
        device getaplist.sh
        expect_result 0
        expect_file "$answer" ''
    done
}

test_an_account_without_a_name_is_dropped() {
    does_scan
    does wpa_cli-bss "if [ \$2 = RANGE=0- ]; then sed '/^ssid=/d; s/00\$/99/' $data/one.bss; sed s/id=7/id=8/ $data/one.bss; fi"
    device getaplist.sh
    expect_file "$answer" "02:00:00:00:01:00${tab}2412${tab}70${tab}[WPA2-PSK-CCMP][ESS]${tab}home$newline"
}

test_no_access_point_gives_an_empty_file() {
    does_scan
    device getaplist.sh
    expect_result 0
    expect_file "$answer" ''
}

test_a_scan_that_runs_is_waited_for() {
    does wpa_cli-scan 'echo OK'
    does wpa_cli-radio_work 'echo scan@wlan0:0:1:0.223677'
    at 420 "echo : >/fake/does/wpa_cli-radio_work; cp $data/one.bss /fake/table"
    : >/fake/table
    does wpa_cli-bss 'if [ "$2" = RANGE=0- ]; then cat /fake/table; fi'
    device getaplist.sh
    expect_time 420 440
    expect_file "$answer" "02:00:00:00:01:00${tab}2412${tab}70${tab}[WPA2-PSK-CCMP][ESS]${tab}home$newline"
}

test_another_use_of_the_radio_is_not_waited_for() {
    one_point
    does wpa_cli-radio_work 'echo connect@wlan0:2412:1:0.2'
    device getaplist.sh
    expect_time 0 20
}

test_a_busy_supplicant_is_asked_again() {
    one_point
    does wpa_cli-scan 'echo FAIL-BUSY'
    at 300 "echo 'echo OK' >/fake/does/wpa_cli-scan"
    device getaplist.sh
    expect_result 0
    expect_time 300 320
}

test_a_scan_that_never_ends_is_listed_as_far_as_it_got() {
    one_point
    does wpa_cli-radio_work 'echo scan@wlan0:0:1:0.223677'
    device getaplist.sh
    expect_result 0
    expect_time 2000 2300
    grep -q home "$answer" || problem "$(cat "$answer")"
}

test_a_refused_scan_leaves_no_answer() {
    echo stale >"$answer"
    does wpa_cli-scan 'echo FAIL-BUSY'
    device getaplist.sh
    expect_result 1
    expect_no_file "$answer"
    expect_time 2000 2300
}

test_a_silent_supplicant_leaves_no_answer_soon() {
    echo stale >"$answer"
    does wpa_cli-scan :
    device getaplist.sh
    expect_result 1
    expect_no_file "$answer"
    expect_time 200 500
}

test_a_hanging_supplicant_is_bounded_in_every_question() {
    for word in scan radio_work bss; do
        begin_test
        one_point
        does "wpa_cli-$word" "$hang"
        device getaplist.sh
        expect_time 300 3000
    done
}

test_a_missing_wpa_cli_leaves_no_answer() {
    missing wpa_cli
    echo stale >"$answer"
    device getaplist.sh
    expect_result 1
    expect_no_file "$answer"
}

test_garbage_for_a_list_gives_no_line() {
    does_scan
    for reply in 'echo FAIL' 'head -c 100000000 /dev/zero' 'yes id=1' 'yes' "yes 'ssid=' | tr -d '\n'" \
        'head -c 4000 /bin/busybox'; do
        does wpa_cli-bss "$reply"
        device getaplist.sh
        expect_result 0
        expect_file "$answer" ''
    done
}

test_a_page_that_comes_again_and_again_ends() {
    does_scan
    does wpa_cli-bss "cat $data/one.bss"
    device getaplist.sh
    expect_result 0
    [ "$(grep -c bss /fake/log)" -le 3 ] || problem "$(grep -c bss /fake/log) questions"
}

test_the_first_scan_waits_for_the_supplicant() {
    one_point
    rm -r "$control"
    at 250 make-socket
    does wpa_cli-ping :
    at 400 "echo 'echo PONG' >/fake/does/wpa_cli-ping"
    device getfirstaplist.sh
    expect_result 0
    expect_time 400 420
    grep -q home "$answer" || problem "$(cat "$answer")"
}

test_the_first_scan_does_not_wait_for_ever() {
    rm -r "$control"
    does wpa_cli-scan :
    device getfirstaplist.sh
    expect_result 1
    expect_time 1000 1600
}

test_what_is_planted_at_the_answer_is_replaced_and_never_followed() {
    for planted in 'ln -s /fake/victim/file' 'ln -s /fake/victim' 'mkfifo' 'mkdir' 'ln -s /fake/nowhere/file'; do
        begin_test
        knows "$data/names.bss"
        echo precious >/fake/victim/file
        $planted "$answer"
        device getaplist.sh
        expect_file "$answer" "$(cat "$data/names.lines")$newline"
        expect_file /fake/victim/file "precious$newline"
        [ "$(ls -A /fake/victim)" = file ] || problem "$planted: $(ls -A /fake/victim)"
        expect_no_leftovers
    done
}
