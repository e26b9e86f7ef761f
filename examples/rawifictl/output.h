// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_OUTPUT_H
#define RAWIFICTL_OUTPUT_H

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/**
 * The program's own standard output and error, kept apart from what the library and the device's scripts print
 * there: that goes nowhere, or with \a verbose to standard error.
 */
class Output
{
public:
    Output(bool json, bool verbose);

    bool isJson() const { return m_json; }

    /** One line of text for a person; nothing in JSON mode. */
    void line(const QString& text);
    /** One JSON document on a line; nothing in text mode. */
    void object(const QJsonObject& object);
    /** What went wrong, on standard error, in either mode. */
    void error(const QString& text);

private:
    const bool m_json;
    const int m_out;
    const int m_error;
};

/** Bytes as text for a person: control characters and bytes that are not UTF-8 become \xNN. */
QString visible(const QByteArray& bytes);

/** "ssid" as text and "ssid_hex" as exact bytes. */
void addName(QJsonObject& object, const QByteArray& name);

#endif
