// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RALOG_H
#define RAWIFI_RALOG_H

// The one log-line format, on standard error:
//   ESC[32m[hh:mm:ss tid:N D/LOG]  [file: line : (function)]  message ESC[0m
// (debug; warnings are ESC[33m and W/LOG). One line is one write, from any thread.

enum class RaLogLevel { Debug, Warning };

/**
 * Writes one log line. A line break at the very end of \a format is kept; every other control character in the
 * message, those beyond ASCII too, is written as \xNN, so that a hostile name can neither forge a line nor drive a
 * terminal.
 */
void raLog(RaLogLevel level, const char* file, int line, const char* function, const char* format, ...)
    __attribute__((format(printf, 5, 6)));

/**
 * Whether log lines may hold secrets: passwords, keys and what is typed on the on-screen keyboard. They do, unless the
 * environment variable RAWIFI_LOG_SECRETS is exactly "0". It is read once in a process, when the first line that would
 * hold a secret is due; a later change has no effect. Any thread.
 */
bool raLogsSecrets();

/**
 * \a secret as a log line may show it: as it is, or "***" for every text, also the empty one, when secrets stay out of
 * the log. Every argument of a log line that can be a password, a part of one or a key goes through this. Returns
 * \a secret itself or a constant.
 */
const char* raSecret(const char* secret);

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

/** A debug line that tells, be it by standing there, which key was pressed: none without secrets in the log. */
#define RA_DEBUG_KEY(...)          \
    do {                           \
        if (raLogsSecrets()) {     \
            RA_DEBUG(__VA_ARGS__); \
        }                          \
    } while (false)

#endif
