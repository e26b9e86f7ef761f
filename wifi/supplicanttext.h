// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_SUPPLICANTTEXT_H
#define RAWIFI_SUPPLICANTTEXT_H

#include <QByteArray>

// Values of /etc/wpa_supplicant.conf: literally in double quotes wherever the supplicant reads that back as the
// same bytes, else in an unquoted form that means the same (wpa_supplicant.conf(5)).

/** Whether a password can stand in a configuration line at all: it holds no line break. */
bool fitsOneLine(const QByteArray& text);

QByteArray nameValue(const QByteArray& name);

/** A passphrase, quoted; 64 characters or more are a key in hexadecimal digits and stay bare. */
QByteArray pskValue(const QByteArray& psk, const QByteArray& name);

/** A WEP key: text of 5, 13 or 16 characters, quoted; any other length is hexadecimal digits and stays bare. */
QByteArray wepKeyValue(const QByteArray& key);

#endif
