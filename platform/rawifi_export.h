// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_EXPORT_H
#define RAWIFI_EXPORT_H

/** \def RAWIFI_EXPORT
 * Everything is compiled with hidden visibility; this marks what the library offers. Empty with RAWIFI_STATIC. */
#if defined(RAWIFI_STATIC)
#    define RAWIFI_EXPORT
#else
#    define RAWIFI_EXPORT __attribute__((visibility("default")))
#endif

#endif
