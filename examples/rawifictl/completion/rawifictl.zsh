#compdef rawifictl
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Completion of rawifictl in zsh.

_rawifictl() {
    local state
    _arguments -C '--json[print JSON]' '--verbose[show what the library logs]' '--help' '--version' \
        '1:command:(scan join status saved forget monitor doctor)' '*::operand:->operands'
    [[ $state = operands ]] || return
    case $words[1] in
    join)
        _arguments '--ask[ask for the password]' '--shared[WEP]' '--key-index[WEP]:number:(0 1 2 3)' \
            '1:network:' '2::standard input:(-)'
        ;;
    status) _arguments '--watch[again whenever it changes]' '--interval[milliseconds]:milliseconds:' ;;
    monitor) _arguments '--interval[milliseconds]:milliseconds:' '--polls[how many]:number:' ;;
    esac
}
_rawifictl "$@"
