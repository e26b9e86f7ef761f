// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RECORDTEXT_H
#define RAWIFI_RECORDTEXT_H

#include "rawifirecords.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstring>

/** A record as every producer begins it: texts empty, both kinds NOENCRY, rank 999, all else 0. */
APData freshRecord();

/** Copies \a text into a record's field, cut to fit, the rest of the field zero. */
template<std::size_t N>
void setField(char (&field)[N], const char* text)
{
    const std::size_t length = strnlen(text, N - 1);
    std::memmove(field, text, length); // the text may be the field itself
    std::memset(field + length, 0, N - length);
}

template<std::size_t N>
void setField(char (&field)[N], const QByteArray& bytes)
{
    setField(field, bytes.constData());
}

/** Whether a kind needs a password: 1 open, 2 locked. */
inline int lockOf(int encry)
{
    return encry >= WEP ? 2 : 1;
}

// Names and passwords are bytes; between objects they travel as QString. The two functions are exact inverses
// for every byte string: text that is not UTF-8 becomes one character per byte, the bytes above 0x7f as the
// otherwise unused U+DC80 to U+DCFF.
QString textFromBytes(const QByteArray& bytes);
QByteArray bytesFromText(const QString& text);

#endif
