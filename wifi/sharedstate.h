// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_SHAREDSTATE_H
#define RAWIFI_SHAREDSTATE_H

#include <QMutex>
#include <mutex>

/**
 * Guards APDataArray, g_linkAPList, g_linkAPIndex, g_PassParam and the service's records. Held only for work
 * in memory, never across a command, a wait or a signal.
 */
std::mutex& sharedStateMutex();

typedef std::lock_guard<std::mutex> SharedStateLock;

/** Leaves \a mutex unlocked, whether it was locked (by any thread) or not. */
void releaseMutex(QMutex& mutex);

// The process-wide flags are plain integers for a host's sake; threads of the library read and write them whole.
template<typename Flag>
Flag loadFlag(const Flag& flag)
{
    Flag value;
    __atomic_load(&flag, &value, __ATOMIC_SEQ_CST);
    return value;
}

template<typename Flag>
void storeFlag(Flag& flag, Flag value)
{
    __atomic_store(&flag, &value, __ATOMIC_SEQ_CST);
}

#endif
