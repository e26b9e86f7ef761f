// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "connectattempt.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <QTimer>

ConnectAttempt::ConnectAttempt(QTimer* watchdog) : m_watchdog(watchdog) {}

void ConnectAttempt::begin()
{
    ++m_number;
    markerRemovals = 0;
}

bool ConnectAttempt::isWatched() const
{
    return m_watched == m_number;
}

void ConnectAttempt::armWatchdog(int milliseconds)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        m_requested = m_number;
        m_milliseconds = milliseconds;
    }
    if (QThread::currentThread() == thread()) {
        startWatchdog();
    } else {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

void ConnectAttempt::customEvent(QEvent*)
{
    startWatchdog();
}

void ConnectAttempt::startWatchdog()
{
    const std::lock_guard<std::mutex> lock(mutex);
    m_watchdog->start(m_milliseconds);
    m_watched = m_requested;
}
