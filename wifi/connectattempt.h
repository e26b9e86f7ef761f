// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_CONNECTATTEMPT_H
#define RAWIFI_CONNECTATTEMPT_H

#include "raworkerthread.h"

#include <QObject>
#include <atomic>
#include <mutex>

class QTimer;

/**
 * What the threads of one connection attempt share beyond the interface's own flags. Lives on the thread of the
 * watchdog timer, which it does not own.
 */
class ConnectAttempt : public QObject
{
public:
    explicit ConnectAttempt(QTimer* watchdog);

    RaWorkerThread dhcpWorker;
    std::atomic<bool> dhcpEnded{true};

    /** Removals of the script marker by the address loop, each counted before and after: odd during one. */
    std::atomic<int> markerRemovals{0};

    /** Whether the address loop may have removed a marker since the count was \a removals. */
    bool mayHaveLostMarker(int removals) const { return removals % 2 == 1 || markerRemovals != removals; }

    /** Held while an attempt begins and while an expiry of the watchdog is judged and noted. */
    std::mutex mutex;

    /** Begins a new attempt: the watchdog of the one before is none of its business. Under the mutex. */
    void begin();

    /** Whether the watchdog was started for the attempt under way. Under the mutex. */
    bool isWatched() const;

    /** Starts the watchdog for the attempt under way, on the timer's thread: from another one by its event loop. */
    void armWatchdog(int milliseconds);

protected:
    void customEvent(QEvent* event) override;

private:
    void startWatchdog();

    QTimer* const m_watchdog;
    int m_number = 0;    ///< of the attempt under way
    int m_requested = 0; ///< the attempt that asked for the watchdog last
    int m_watched = 0;   ///< the attempt for which it was started last
    int m_milliseconds = 0;
};

#endif
