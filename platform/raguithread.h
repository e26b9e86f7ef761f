// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAGUITHREAD_H
#define RAWIFI_RAGUITHREAD_H

#include <QObject>
#include <QThread>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

/**
 * Stands at the entries of what is for the GUI thread only: a debug build ends there when \a object lives on another
 * thread than the calling one.
 */
inline void raAssertOwnThread(const QObject* object)
{
    Q_ASSERT_X(QThread::currentThread() == object->thread(), object->metaObject()->className(), "used off its thread");
    Q_UNUSED(object);
}

/**
 * The one way from a worker to the GUI thread: a gate that lives on the GUI thread (where it is constructed)
 * and runs what workers hand it there, in order, while they wait.
 *
 * The owner calls close() before it waits for its workers, so that a worker that is waiting for the GUI thread
 * while the GUI thread waits for the worker is answered; and it destroys the gate after its workers have ended.
 */
class RaGuiThread : public QObject
{
public:
    explicit RaGuiThread(QObject* parent = nullptr);
    ~RaGuiThread() override;

    /**
     * Runs \a work on the gate's thread and waits until it is done; on that thread itself, at once. Any thread.
     * Returns false, without having run it, when the gate was closed before its turn came.
     */
    bool run(const std::function<void()>& work);

    /** Refuses every waiting and every later call. Gate's thread. */
    void close();

protected:
    void customEvent(QEvent* event) override;

private:
    enum class Progress { Waiting, Running, Done, Refused };
    struct Call
    {
        const std::function<void()>* work;
        Progress progress;
    };

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Call*> m_waiting;
    bool m_closed = false;
};

#endif
