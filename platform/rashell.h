// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RASHELL_H
#define RAWIFI_RASHELL_H

// The library's only caller of system(), and every fixed wait. These are the points at which a RaWorkerThread can be
// cancelled; on any other thread they are never cancellation points of this library's making.

/**
 * Runs one shell command line and waits for it. \a command is a fixed text or made of parts that were
 * checked by raIsMacAddress() or raIsIpv4Address(). Any thread. Returns what system() returns; a shell that
 * could not be started is logged.
 */
int raRunCommand(const char* command);

/** As raRunCommand(), with printf-style parts, which must have been checked; at most 255 bytes in all. */
int raRunCommandF(const char* format, ...) __attribute__((format(printf, 1, 2)));

/** Blocks the calling thread for \a milliseconds (0 or more). */
void raSleepMs(int milliseconds);

/** Whether \a text is six two-digit hexadecimal numbers with colons between (17 characters). */
bool raIsMacAddress(const char* text);

/** Whether \a text is a dotted IPv4 address as inet_pton(3) takes it. */
bool raIsIpv4Address(const char* text);

#endif
