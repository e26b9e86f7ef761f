// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_ARGUMENTS_H
#define RAWIFICTL_ARGUMENTS_H

#include <QByteArray>
#include <QList>

/** What the command line says. No password is ever on it. */
struct Arguments
{
    QList<QByteArray> words;   ///< the command and its operands
    QList<QByteArray> options; ///< as they were given, without their numbers
    bool wrong = false;
    int keyIndex = 0; ///< WEP: 0 to 3
    int interval = 0; ///< milliseconds; 0: the command's own
    int polls = 0;    ///< 0: no limit

    QByteArray operand(int index) const { return words.value(index + 1); }
    bool has(const char* option) const { return options.contains(option); }
};

/** \a all: the words after the program's name. */
Arguments parse(const QList<QByteArray>& all);

#endif
