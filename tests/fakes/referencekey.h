// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_REFERENCEKEY_H
#define RAWIFI_REFERENCEKEY_H

#include <QByteArray>
#include <QMessageAuthenticationCode>

/**
 * The key of a passphrase with a network's name as its salt, in hexadecimal digits: PBKDF2 with HMAC-SHA-1 and
 * 4096 rounds, worked out without the library that the product uses.
 */
inline QByteArray referenceKey(const QByteArray& passphrase, const QByteArray& name)
{
    QByteArray key;
    for (char block = 1; block <= 2; ++block) {
        QByteArray round = name + QByteArray(3, '\0') + block;
        QByteArray sum(20, '\0');
        for (int i = 0; i < 4096; ++i) {
            round = QMessageAuthenticationCode::hash(round, passphrase, QCryptographicHash::Sha1);
            for (int j = 0; j < 20; ++j) {
                sum[j] = static_cast<char>(sum.at(j) ^ round.at(j));
            }
        }
        key += sum;
    }
    return key.left(32).toHex();
}

#endif
