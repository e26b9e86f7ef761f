# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# decoded(text): a network's name as the supplicant prints it (\" \\ \e \n \r \t \xNN), turned into its bytes.
# What a line of text cannot carry stays as it is printed: a line break, a NUL, a carriage return at the end, a tab at the
# beginning, byte 1 alone. A name of nothing but NULs is a hidden network's and becomes empty. At most 32 bytes, whole
# UTF-8 characters.

BEGIN {
    for (i = 1; i < 256; i++) {
        character = sprintf("%c", i)
        byte_of[sprintf("%02x", i)] = character
        code_of[character] = i
    }
    byte_of["0a"] = "\\n"
    byte_of["00"] = "\\x00"
    plain["\""] = "\""
    plain["\\"] = "\\"
    plain["e"] = "\033"
    plain["n"] = "\\n"
    plain["r"] = "\r"
    plain["t"] = "\t"
}

function is_continuation(piece) {
    return code_of[piece] >= 128 && code_of[piece] < 192
}

function without_broken_end(name) {
    while (is_continuation(substr(name, length(name))))
        name = substr(name, 1, length(name) - 1)
    return substr(name, 1, length(name) - 1)
}

function decoded(text,    rest, name, i, width, letter, piece) {
    rest = text
    gsub(/\\x00/, "", rest)
    if (rest == "" || text == "\\x01")
        return rest
    for (i = 1; i <= length(text); i += width) {
        width = 1
        piece = substr(text, i, 1)
        if (piece == "\\") {
            letter = substr(text, i + 1, 1)
            if (letter == "x" && (tolower(substr(text, i + 2, 2)) in byte_of)) {
                width = 4
                piece = byte_of[tolower(substr(text, i + 2, 2))]
            } else if (letter in plain) {
                width = 2
                piece = plain[letter]
            }
        }
        if (piece == "\t" && name == "")
            piece = "\\t"
        if (piece == "\r" && i + width > length(text))
            piece = "\\r"
        if (length(name) + length(piece) > 32)
            return is_continuation(piece) ? without_broken_end(name) : name
        name = name piece
    }
    return name
}
