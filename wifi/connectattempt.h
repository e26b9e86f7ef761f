// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_CONNECTATTEMPT_H
#define RAWIFI_CONNECTATTEMPT_H

#include "raworkerthread.h"

#include <atomic>
#include <chrono>

/** What the threads of one connection attempt share beyond the interface's own flags. */
class ConnectAttempt
{
public:
    RaWorkerThread dhcpWorker;
    std::atomic<bool> dhcpEnded{true};

    /** Notes that the watchdog is about to be armed for \a milliseconds; the timer itself follows by the event loop. */
    void armWatchdog(int milliseconds)
    {
        m_earliestExpiry = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds)
                           - std::chrono::milliseconds(milliseconds) / coarseness;
    }

    /** Whether an expiry that arrives now is that of an earlier attempt, overtaken by this one's arming. */
    bool isStaleExpiry() const { return std::chrono::steady_clock::now() < m_earliestExpiry.load(); }

private:
    static const int coarseness = 10; // the toolkit's coarse timers may fire 5 % early

    std::atomic<std::chrono::steady_clock::time_point> m_earliestExpiry{std::chrono::steady_clock::time_point()};
};

#endif
