// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raguithread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

RaGuiThread::RaGuiThread(QObject* parent) : QObject(parent) {}

RaGuiThread::~RaGuiThread()
{
    close();
}

bool RaGuiThread::run(const std::function<void()>& work)
{
    if (QThread::currentThread() == thread()) {
        work();
        return true;
    }
    Call call = {&work, Progress::Waiting};
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_closed) {
        return false;
    }
    // cppcheck-suppress danglingLifetime ; taken out again before this returns
    m_waiting.push_back(&call);
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    while (call.progress == Progress::Waiting || call.progress == Progress::Running) {
        m_changed.wait(lock);
    }
    return call.progress == Progress::Done;
}

void RaGuiThread::close()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_closed = true;
    for (Call* call : m_waiting) {
        call->progress = Progress::Refused;
    }
    m_waiting.clear();
    m_changed.notify_all();
}

void RaGuiThread::customEvent(QEvent*)
{
    Call* call = nullptr;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_waiting.empty()) {
            return;
        }
        call = m_waiting.front();
        m_waiting.pop_front();
        call->progress = Progress::Running;
    }
    (*call->work)();
    const std::lock_guard<std::mutex> lock(m_mutex);
    call->progress = Progress::Done;
    m_changed.notify_all();
}
