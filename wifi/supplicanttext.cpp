// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "supplicanttext.h"

#include <nettle/pbkdf2.h>

namespace {

const int rawKeyDigits = 64;

QByteArray quoted(const QByteArray& text)
{
    return '"' + text + '"';
}

// The supplicant pairs the quotes of a line off from the left, and takes a '#' outside a pair for a comment.
// It refuses control characters in a passphrase; a line break would end the line.
bool readsBackFromQuotes(const QByteArray& text)
{
    bool insideQuotes = true;
    for (int i = 0; i < text.size(); ++i) {
        const unsigned char byte = static_cast<unsigned char>(text.at(i));
        if (byte == '"') {
            insideQuotes = !insideQuotes;
        }
        if (byte < 0x20 || byte == 0x7f || (byte == '#' && !insideQuotes)) {
            return false;
        }
    }
    return true;
}

const uint8_t* bytesOf(const QByteArray& text)
{
    return reinterpret_cast<const uint8_t*>(text.constData());
}

/** The key that a passphrase stands for: PBKDF2 with HMAC-SHA-1, the name as salt, 4096 rounds (IEEE 802.11, J.4). */
QByteArray derivedKey(const QByteArray& passphrase, const QByteArray& name)
{
    QByteArray key(32, '\0');
    pbkdf2_hmac_sha1(static_cast<std::size_t>(passphrase.size()), bytesOf(passphrase), 4096,
                     static_cast<std::size_t>(name.size()), bytesOf(name), static_cast<std::size_t>(key.size()),
                     reinterpret_cast<uint8_t*>(key.data()));
    return key.toHex();
}

} // namespace

bool fitsOneLine(const QByteArray& text)
{
    return !text.contains('\n') && !text.contains('\r');
}

QByteArray nameValue(const QByteArray& name)
{
    return readsBackFromQuotes(name) ? quoted(name) : name.toHex();
}

QByteArray pskValue(const QByteArray& psk, const QByteArray& name)
{
    if (psk.size() >= rawKeyDigits) {
        return psk;
    }
    return readsBackFromQuotes(psk) ? quoted(psk) : derivedKey(psk, name);
}

QByteArray wepKeyValue(const QByteArray& key)
{
    const bool isText = key.size() == 5 || key.size() == 13 || key.size() == 16;
    if (!isText) {
        return key;
    }
    return readsBackFromQuotes(key) ? quoted(key) : key.toHex();
}
