// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_LOGGEDMESSAGES_H
#define RAWIFI_LOGGEDMESSAGES_H

#include "capturedoutput.h"

#include <QList>

/** The messages of the log lines that \a work writes, without what the format puts before and behind them. */
template<typename Work>
QList<QByteArray> loggedMessages(Work work)
{
    const QByteArray before = ")]  ";
    const QByteArray behind = "\033[0m\n";
    const QByteArray text = capturedOutput(stderr, work);
    QList<QByteArray> messages;
    for (auto start = text.indexOf(before); start >= 0; start = text.indexOf(before, start)) {
        start += before.size();
        messages << text.mid(start, text.indexOf(behind, start) - start);
    }
    return messages;
}

#endif
