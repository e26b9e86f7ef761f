// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_TRACE_H
#define RAWIFI_TRACE_H

#include "fakesystem.h"

#include <QByteArray>
#include <QList>
#include <functional>
#include <mutex>
#include <thread>

/**
 * What each thread did, in order: "run COMMAND", "sleep MILLISECONDS", "sync", and what a test adds, such as
 * signals. Takes the hooks of fakesystem until that is reset; must outlive the threads that it watches.
 */
class Trace
{
public:
    typedef std::function<void(const QByteArray& entry)> Hook;

    Trace()
    {
        fakesystem::beforeCommand([this](const QByteArray& command) { add("run " + command); });
        fakesystem::onSleep([this](int milliseconds) { add("sleep " + QByteArray::number(milliseconds)); });
        fakesystem::onSync([this] { add("sync"); });
    }
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    /** Called after each entry, on the thread that made it. */
    void onEntry(const Hook& hook)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_hook = hook;
    }

    void add(const QByteArray& entry)
    {
        Hook hook;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_entries.append(Entry{std::this_thread::get_id(), entry});
            hook = m_hook;
        }
        if (hook) {
            hook(entry);
        }
    }

    QList<QByteArray> here() const { return entries(true); }
    QList<QByteArray> elsewhere() const { return entries(false); }

private:
    struct Entry
    {
        std::thread::id thread;
        QByteArray text;
    };

    QList<QByteArray> entries(bool ofThisThread) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        QList<QByteArray> texts;
        for (const Entry& entry : m_entries) {
            if ((entry.thread == std::this_thread::get_id()) == ofThisThread) {
                texts.append(entry.text);
            }
        }
        return texts;
    }

    mutable std::mutex m_mutex;
    QList<Entry> m_entries;
    Hook m_hook;
};

#endif
