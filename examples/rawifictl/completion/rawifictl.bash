# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Completion of rawifictl in bash.

_rawifictl() {
    local command='' candidates='' i
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
        -*) ;;
        *)
            command=${COMP_WORDS[i]}
            break
            ;;
        esac
    done
    case $command in
    '') candidates='scan join status saved forget monitor doctor --json --verbose --help --version' ;;
    join) candidates='- --ask --shared --key-index' ;;
    status) candidates='--watch --interval' ;;
    monitor) candidates='--interval --polls' ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$candidates" -- "${COMP_WORDS[COMP_CWORD]}")
}
complete -F _rawifictl rawifictl
