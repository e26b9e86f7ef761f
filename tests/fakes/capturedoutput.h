// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_CAPTUREDOUTPUT_H
#define RAWIFI_CAPTUREDOUTPUT_H

#include <QByteArray>
#include <QTemporaryFile>
#include <cstdio>
#include <unistd.h>

/** What \a work writes to \a stream (stdout or stderr), whichever thread writes it. */
template<typename Work>
QByteArray capturedOutput(std::FILE* stream, Work work)
{
    QTemporaryFile file;
    if (!file.open()) {
        qFatal("no temporary file");
    }
    std::fflush(stream);
    const int descriptor = fileno(stream);
    const int saved = dup(descriptor);
    dup2(file.handle(), descriptor);
    work();
    std::fflush(stream);
    dup2(saved, descriptor);
    close(saved);
    file.seek(0);
    return file.readAll();
}

#endif
