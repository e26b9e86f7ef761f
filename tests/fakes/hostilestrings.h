// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_HOSTILESTRINGS_H
#define RAWIFI_HOSTILESTRINGS_H

#include <QByteArray>
#include <QList>
#include <QSet>
#include <cstdint>

/**
 * Names and passwords as nobody means them well: the same list on every machine, no string twice, the
 * longest of them of 300 bytes. What a shell made of one of them would leave the file hostileCanary behind.
 */
const char hostileCanary[] = "/canary";

namespace hostilestrings {

typedef QList<QByteArray> List;

template<std::size_t N>
List list(const char* const (&texts)[N])
{
    List all;
    for (const char* text : texts) {
        all << text;
    }
    return all;
}

/** What is special to some reader of a string: a shell, a parser, a formatter, a terminal, a renderer. */
inline List particles()
{
    const char* const texts[] = {
        // shells
        "$(touch /canary)", "`touch /canary`", ";touch /canary;", "|touch /canary", "&touch /canary&",
        "&&touch /canary", "||touch /canary", "\ntouch /canary\n", "\rtouch /canary\r", "'; touch /canary; '",
        "\"; touch /canary; \"", "\\\"$(touch /canary)", "$(>/canary)", ">/canary", ">>/canary", "<(touch /canary)",
        "${IFS}touch${IFS}/canary", "$IFS", "$0", "$$", "${PATH}", "*", "?", "[a-z]*", "~", "!!", "{a,b}", "-rf /",
        "--help", "-", "#", " #", "a b", " ", "  ", "'", "''", "\"", "\"\"", "`", "$", "\\", "\\\\", "\\'", "\\\"",
        "\\\n", ";", "|", "&", "(", ")", "<", ">", "^",
        // the supplicant's configuration
        "\"#", "\" #\"", "a\" b#", "\"\nkey_mgmt=NONE\n\"", "\n}\nnetwork={\n", "}", "}\n", "network={", "\tpsk=\"x\"",
        "P\"x\"", "\"\n\tpriority=9", "\r\n}\r\n", "ssid=", "bssid=", "00:11:22:33:44:55", "wpa_state=COMPLETED",
        "id=1\nssid=x",
        // formats and placeholders
        "%s", "%n", "%s%s%s%s%s%s", "%n%n%n%n", "%1", "%2", "%1%2", "%L1", "%%", "%", "%d", "%x", "%*d", "%.9999s",
        "%1$s", "%s %n %1 %2", "{0}", "{}", "$1", "&1",
        // rich text, markup, mnemonics, translations
        "<b>x</b>", "<img src=/canary>", "<a href=\"x\">y</a>", "<!--", "]]>", "<br>", "&lt;", "&amp;", "&&", "&x",
        "<html>", "<script>", "<font color=red>", "<h1>", "<table>", "\x9c",
        // control characters, terminals
        "\n", "\r", "\r\n", "\t", "\v", "\f", "\b", "\a", "\033", "\033[31m", "\033[2J", "\033]0;x\007", "\033P",
        "\177", "\001", "\037", "a\nb", "a\tb", "\t\t", "\\n", "\\x00", "\\x41", "\\033", "\\t",
        "x\033[0m\n\033[32m[00:00:00 tid:1 D/LOG]  ",
        // unicode: direction, width, combination, breaks, planes
        "\xe2\x80\xae"
        "fdp.exe",
        "\xe2\x80\xad", "\xe2\x80\xaa", "\xe2\x80\xab", "\xe2\x80\xac", "\xe2\x80\x8e", "\xe2\x80\x8f", "\xe2\x81\xa6",
        "\xe2\x81\xa7", "\xe2\x81\xa8", "\xe2\x81\xa9", "\xd8\x9c", "\xe2\x80\x8b", "\xe2\x80\x8d", "\xef\xbb\xbf",
        "\xe2\x80\xa8", "\xe2\x80\xa9", "\xc2\x85", "\xc2\xa0", "\xc2\xad", "e\xcc\x81\xcc\x82\xcc\x83\xcc\x84\xcc\x85",
        "\xcc\x81", "\xf0\x9f\x8e\x89", "\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x92\xbb", "\xe5\xae\xb6",
        "\xd7\xa9\xd7\x9c", "\xe0\xb8\x81\xe0\xb9\x89", "\xef\xbf\xbd", "\xef\xbf\xbe", "\xf4\x8f\xbf\xbf",
        "\xee\x80\x80", "\xf0\x90\x80\x80",
        // not UTF-8
        "\xff", "\xfe", "\x80", "\xbf", "\xc3", "\xc3\x28", "\xc0\xaf", "\xc0\x80", "\xe2\x82", "\xe2\x28\xa1",
        "\xf0\x9f\x8e", "\xf0\x80\x80\x80", "\xed\xa0\x80", "\xed\xb0\x80", "\xf4\x90\x80\x80", "\xf8\x88\x80\x80\x80",
        "\xff\xfe\xfd",
        // paths and names with a meaning
        "../../canary", "/", "//", ".", "..", "./x", "/etc/passwd", "/home/wifi/temp.txt", "file:///", ":/images",
        "qrc:/x", "~root", "NULL", "null", "nan", "0", "-1", "4294967296", "true", "any", "0x", "3xxxx", "BS", "ABC",
        "RI", "SUCCESS", "IPFAILED"};
    List all = list(texts);
    all << QByteArray(1, '\0') << QByteArray("a\0b", 3) << QByteArray("a\0", 2) << QByteArray("\0$(touch /canary)", 17);
    return all;
}

/** Each particle alone, within a word, between quotes, and at the end of 32 bytes. */
inline List embedded()
{
    List all;
    for (const QByteArray& particle : particles()) {
        all << particle << "Home" + particle + "Home" << '"' + particle + '"'
            << (QByteArray(32, 'x') + particle).right(32);
    }
    return all;
}

/** Every byte at both ends. */
inline List everyByte()
{
    List all;
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray one(1, static_cast<char>(byte));
        all << one + "middle" + one;
    }
    return all;
}

/** Full and overfull fields: names of 1 to 40 bytes, passwords around the lengths that have a meaning. */
inline List lengths()
{
    QList<int> sizes;
    for (int size = 1; size <= 40; size += 3) {
        sizes << size;
    }
    sizes << 31 << 32 << 33 << 62 << 63 << 64 << 65 << 127 << 128 << 198 << 199 << 200 << 201 << 255 << 256 << 300;
    const List pieces = List() << "A"
                               << "0"
                               << "\""
                               << "\\"
                               << "%s"
                               << "\xff"
                               << "\xe5\xae\xb6"
                               << "$(id)"
                               << "\n";
    List all;
    for (const QByteArray& piece : pieces) {
        for (const int size : sizes) {
            all << piece.repeated(size).left(size);
        }
    }
    return all;
}

/** Any bytes at all, those with a meaning more often than the others. */
inline List random(int count)
{
    const QByteArray meaning = "\"#\\'`$();|&<>%{}\n\r\t\033 =/";
    std::uint32_t state = 20261121;
    const auto draw = [&state](int below) {
        state = state * 1664525u + 1013904223u;
        return static_cast<int>((state >> 8) % static_cast<std::uint32_t>(below));
    };
    List all;
    for (int i = 0; i < count; ++i) {
        QByteArray bytes;
        for (int left = 1 + draw(i % 4 == 0 ? 199 : 32); left > 0; --left) {
            bytes += draw(3) == 0 ? meaning.at(draw(int(meaning.size()))) : static_cast<char>(draw(256));
        }
        all << bytes;
    }
    return all;
}

} // namespace hostilestrings

/** All of them. */
inline QList<QByteArray> hostileStrings()
{
    using namespace hostilestrings;
    List all;
    QSet<QByteArray> known;
    for (const QByteArray& bytes : embedded() + everyByte() + lengths() + random(150)) {
        if (!known.contains(bytes)) {
            known.insert(bytes);
            all << bytes;
        }
    }
    return all;
}

#endif
