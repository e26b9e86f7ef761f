// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWORKERTHREAD_H
#define RAWIFI_RAWORKERTHREAD_H

#include <memory>
#include <mutex>
#include <pthread.h>

/**
 * A detached POSIX thread whose liveness is known, so that probing or cancelling one that has ended is
 * defined and does nothing. The handle may be used from any thread; destroying it leaves the worker running.
 */
class RaWorkerThread
{
public:
    /** The worker's body; its result is dropped. It may end by returning, pthread_exit(3) or cancellation. */
    typedef void* (*Routine)(void*);

    RaWorkerThread();
    ~RaWorkerThread();
    RaWorkerThread(const RaWorkerThread&) = delete;
    RaWorkerThread& operator=(const RaWorkerThread&) = delete;

    /**
     * Starts \a routine(\a argument) on a new detached thread; the handle forgets an earlier worker.
     * Returns 0 or the error number of pthread_create(3).
     */
    int start(Routine routine, void* argument);

    /** Whether a worker was ever started through this handle. */
    bool wasStarted() const;

    /** Whether the worker has been started and its routine has not ended yet. */
    bool isAlive() const;

    /** The thread's id, for comparison only: the thread may have ended. Valid once a worker was started. */
    pthread_t handle() const;

    /** Asks a living worker to end at its next command or wait. Does not wait for it. */
    void cancel();

    /** Waits until the worker's routine has ended. Must not be called by the worker itself. */
    void waitUntilEnded();

    /**
     * While one exists on a worker's stack, the worker can be cancelled; one that is asked to end already ends in
     * the constructor. No effect on other threads.
     */
    class Interruptible
    {
    public:
        Interruptible();
        ~Interruptible();
        Interruptible(const Interruptible&) = delete;
        Interruptible& operator=(const Interruptible&) = delete;
    };

private:
    struct State;
    static void* run(void* state);
    std::shared_ptr<State> current() const;

    mutable std::mutex m_mutex; ///< guards the pointer, not what it points to
    std::shared_ptr<State> m_state;
};

#endif
