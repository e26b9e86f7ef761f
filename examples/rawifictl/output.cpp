// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "output.h"

#include <QJsonDocument>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

/** 0, or errno. */
int write(int descriptor, const QByteArray& line)
{
    const QByteArray bytes = line + '\n';
    for (int done = 0; done < bytes.size();) {
        const auto step = ::write(descriptor, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (step >= 0) {
            done += static_cast<int>(step);
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

bool showsColours()
{
    return isatty(STDOUT_FILENO) && qgetenv("NO_COLOR").isEmpty() && qgetenv("TERM") != "dumb";
}

bool isInvisible(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

} // namespace

Output::Output(bool json, bool verbose)
    : m_json(json),
      m_coloured(!json && showsColours()),
      m_out(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3)),
      m_error(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3))
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
        print(text.toUtf8());
    }
}

QString Output::painted(Colour colour, const QString& text) const
{
    return m_coloured ? QString::fromLatin1("\033[%1m%2\033[0m").arg(QString::number(colour), text) : text;
}

void Output::document(const QJsonObject& object)
{
    if (m_json) {
        print(QJsonDocument(object).toJson(QJsonDocument::Compact));
    }
}

void Output::document(const QJsonArray& list)
{
    if (!m_json) {
        return;
    }
    QByteArray lines;
    for (const auto& element : list) {
        lines += lines.isEmpty() ? "\n" : ",\n";
        lines += QJsonDocument(element.toObject()).toJson(QJsonDocument::Compact);
    }
    print('[' + lines + "\n]");
}

void Output::error(const QString& text)
{
    write(m_error, "rawifictl: " + text.toUtf8());
}

int Output::end(int status)
{
    if (m_outError == 0) {
        return status;
    }
    error(QString::fromLatin1("standard output: %1").arg(QString::fromLocal8Bit(std::strerror(m_outError))));
    return status == Done ? Failed : status;
}

void Output::print(const QByteArray& line)
{
    const int problem = write(m_out, line);
    if (m_outError == 0) {
        m_outError = problem;
    }
}

ExitStatus Output::failure(ExitStatus status, const QString& text)
{
    error(text);
    QJsonObject object;
    object.insert(QLatin1String("error"), text);
    document(object);
    return status;
}

QString visible(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    QString shown;
    if (text.toUtf8() == bytes) {
        for (const QChar c : text) {
            shown +=
                isInvisible(c) ? QString::fromLatin1("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0')) : QString(c);
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
    object.insert(QLatin1String("ssid"), visible(name));
    object.insert(QLatin1String("ssid_hex"), QString::fromLatin1(name.toHex()));
}
