// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_DISPLAYNAME_H
#define RAWIFI_DISPLAYNAME_H

#include "rawifirecords.h"

#include <QByteArray>
#include <QString>

// A network's name is any bytes that somebody sends. These make a line of plain text of it.

/**
 * The name \a bytes for a person: UTF-8 where they are that, else in the local 8-bit codec. Control characters,
 * line and paragraph separators, characters that change the direction of text and lone surrogates each become a
 * visible U+FFFD.
 */
QString displayName(const QByteArray& bytes);

/** The name of a record. */
QString displayName(const APData& record);

/** \a name as a row shows it: from 21 characters on, its first 20 and "...". A surrogate pair is never split. */
QString shortenedName(const QString& name);

#endif
