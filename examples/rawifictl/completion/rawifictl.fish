# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Completion of rawifictl in fish.

complete -c rawifictl -f
complete -c rawifictl -n __fish_use_subcommand -a 'scan join status saved forget monitor doctor'
complete -c rawifictl -l json -d 'print JSON'
complete -c rawifictl -l verbose -d 'show what the library logs'
complete -c rawifictl -n __fish_use_subcommand -l help
complete -c rawifictl -n __fish_use_subcommand -l version
complete -c rawifictl -n '__fish_seen_subcommand_from join' -a - -d 'password from standard input'
complete -c rawifictl -n '__fish_seen_subcommand_from join' -l ask -d 'ask for the password'
complete -c rawifictl -n '__fish_seen_subcommand_from join' -l shared -d WEP
complete -c rawifictl -n '__fish_seen_subcommand_from join' -l key-index -x -a '0 1 2 3' -d WEP
complete -c rawifictl -n '__fish_seen_subcommand_from status' -l watch -d 'again whenever it changes'
complete -c rawifictl -n '__fish_seen_subcommand_from status monitor' -l interval -x -d milliseconds
complete -c rawifictl -n '__fish_seen_subcommand_from monitor' -l polls -x -d 'how many'
