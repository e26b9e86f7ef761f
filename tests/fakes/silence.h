// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_SILENCE_H
#define RAWIFI_SILENCE_H

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

/** Sends what the library prints and logs to nowhere while it lives, for thousands of attempts. */
class Silence
{
public:
    Silence() : m_nowhere(open("/dev/null", O_WRONLY | O_CLOEXEC))
    {
        std::fflush(stdout);
        for (int i = 0; i < 2; ++i) {
            m_saved[i] = dup(i + 1);
            dup2(m_nowhere, i + 1);
        }
    }
    ~Silence()
    {
        std::fflush(stdout);
        for (int i = 0; i < 2; ++i) {
            dup2(m_saved[i], i + 1);
            close(m_saved[i]);
        }
        close(m_nowhere);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    const int m_nowhere;
    int m_saved[2];
};

#endif
