// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_EXPORT_H
#define RAWIFI_EXPORT_H

// Everything is compiled with hidden visibility; RAWIFI_EXPORT marks what the shared library offers.
// RAWIFI_STATIC: built or used as a static library.
#if defined(RAWIFI_STATIC)
#    define RAWIFI_EXPORT
#else
#    define RAWIFI_EXPORT __attribute__((visibility("default")))
#endif

#endif
