// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "output.h"

#include <QJsonDocument>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

void write(int descriptor, const QByteArray& line)
{
    const QByteArray bytes = line + '\n';
    for (int done = 0; done < bytes.size();) {
        const auto step = ::write(descriptor, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (step <= 0) {
            return;
        }
        done += static_cast<int>(step);
    }
}

} // namespace

Output::Output(bool json, bool verbose)
    : m_json(json)
    , m_out(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3))
    , m_error(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3))
{
    std::fflush(stdout);
    if (verbose) {
        dup2(STDERR_FILENO, STDOUT_FILENO);
        return;
    }
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

void Output::line(const QString& text)
{
    if (!m_json) {
        write(m_out, text.toUtf8());
    }
}

void Output::object(const QJsonObject& object)
{
    if (m_json) {
        write(m_out, QJsonDocument(object).toJson(QJsonDocument::Compact));
    }
}

void Output::error(const QString& text)
{
    write(m_error, "rawifictl: " + text.toUtf8());
}

QString visible(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    const bool isText = text.toUtf8() == bytes;
    QString shown;
    if (isText) {
        for (const QChar c : text) {
            shown += c.category() == QChar::Other_Control || c.category() == QChar::Other_Format
                         ? QString::fromLatin1("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'))
                         : QString(c);
        }
        return shown;
    }
    for (const char byte : bytes) {
        const uchar code = static_cast<uchar>(byte);
        shown += code < 0x20 || code >= 0x7f ? QString::fromLatin1("\\x%1").arg(code, 2, 16, QLatin1Char('0'))
                                             : QString(QLatin1Char(byte));
    }
    return shown;
}

void addName(QJsonObject& object, const QByteArray& name)
{
    object.insert(QLatin1String("ssid"), QString::fromUtf8(name));
    object.insert(QLatin1String("ssid_hex"), QString::fromLatin1(name.toHex()));
}
