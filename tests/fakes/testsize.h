// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_TESTSIZE_H
#define RAWIFI_TESTSIZE_H

#include <QtGlobal>

/**
 * How often to repeat: \a full times with Qt 6; \a less often with an older toolkit or under a sanitizer, where
 * RAWIFI_LONG=1 asks for all.
 */
inline int repetitions(int full, int less)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || QT_VERSION < 0x060000
    return qEnvironmentVariableIntValue("RAWIFI_LONG") == 1 ? full : less;
#else
    Q_UNUSED(less);
    return full;
#endif
}

#endif
