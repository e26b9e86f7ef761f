// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_OUTPUT_H
#define RAWIFICTL_OUTPUT_H

#include "exitstatus.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/**
 * The program's own standard output and error, kept apart from what the library and the device's scripts
 * print there: that goes nowhere, or with \a verbose to standard error.
 */
class Output
{
public:
    enum Colour { Red = 31, Green = 32, Yellow = 33 };

    Output(bool json, bool verbose);

    /** One line of text for a person; nothing in JSON mode. */
    void line(const QString& text);
    /** \a text in a colour where standard output is a terminal that shows colours, and NO_COLOR is not set. */
    QString painted(Colour colour, const QString& text) const;

    /** One JSON document on a line; nothing in text mode. */
    void document(const QJsonObject& object);
    /** One JSON document, a list with an element on each line; nothing in text mode. */
    void document(const QJsonArray& list);

    /** What went wrong, on standard error, in either mode. */
    void error(const QString& text);
    /** The same for a command that has no other result: the JSON document says it, too. Returns \a status. */
    ExitStatus failure(ExitStatus status, const QString& text);

    /** The program's exit status: \a status, but when standard output took not everything, which is told, too. */
    int end(int status);

private:
    void print(const QByteArray& line);

    const bool m_json;
    const bool m_coloured;
    const int m_out;
    const int m_error;
    int m_outError = 0;
};

/** Bytes as text for a person: what cannot be seen becomes \uNNNN, bytes that are not UTF-8 \xNN. */
QString visible(const QByteArray& bytes);

/** "ssid" as visible text and "ssid_hex" as exact bytes. */
void addName(QJsonObject& object, const QByteArray& name);

#endif
