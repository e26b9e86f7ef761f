// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RALOG_H
#define RAWIFI_RALOG_H

// The one log-line format, on standard error:
//   ESC[32m[hh:mm:ss tid:N D/LOG]  [file: line : (function)]  message ESC[0m
// (debug; warnings are ESC[33m and W/LOG). One line is one write, from any thread.

enum class RaLogLevel { Debug, Warning };

/**
 * Writes one log line. A line break at the very end of the message is kept; every other control character
 * in it is written as \xNN, so that a hostile name can neither forge a line nor drive a terminal.
 */
void raLog(RaLogLevel level, const char* file, int line, const char* function, const char* format, ...)
    __attribute__((format(printf, 5, 6)));

/** The part of \a path after its last '/'. */
constexpr const char* raFileName(const char* path)
{
    const char* name = path;
    for (const char* c = path; *c != '\0'; ++c) {
        if (*c == '/') {
            name = c + 1;
        }
    }
    return name;
}

#define RA_FILE raFileName(__FILE__)
#define RA_DEBUG(...) raLog(RaLogLevel::Debug, RA_FILE, __LINE__, __func__, __VA_ARGS__)
#define RA_WARN(...) raLog(RaLogLevel::Warning, RA_FILE, __LINE__, __func__, __VA_ARGS__)

#endif
