// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raworkerthread.h"

#include <condition_variable>
#include <pthread.h>

namespace {

thread_local bool t_isWorker = false;

} // namespace

struct RaWorkerThread::State
{
    Routine routine = nullptr;
    void* argument = nullptr;
    std::mutex mutex;
    std::condition_variable ended;
    pthread_t thread = pthread_t();
    bool alive = true;
};

RaWorkerThread::RaWorkerThread() {}

RaWorkerThread::~RaWorkerThread() {}

int RaWorkerThread::start(Routine routine, void* argument)
{
    const std::shared_ptr<State> state = std::make_shared<State>();
    state->routine = routine;
    state->argument = argument;

    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    // The new thread owns a reference of its own, handed over through the void pointer.
    std::unique_ptr<std::shared_ptr<State>> reference(new std::shared_ptr<State>(state));
    int error = 0;
    {
        const std::lock_guard<std::mutex> lock(state->mutex);
        error = pthread_create(&state->thread, &attributes, &RaWorkerThread::run, reference.get());
    }
    pthread_attr_destroy(&attributes);
    if (error == 0) {
        reference.release();
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_state = state;
    }
    return error;
}

std::shared_ptr<RaWorkerThread::State> RaWorkerThread::current() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_state;
}

bool RaWorkerThread::wasStarted() const
{
    return current() != nullptr;
}

bool RaWorkerThread::isAlive() const
{
    const std::shared_ptr<State> state = current();
    if (!state) {
        return false;
    }
    const std::lock_guard<std::mutex> lock(state->mutex);
    return state->alive;
}

pthread_t RaWorkerThread::handle() const
{
    const std::shared_ptr<State> state = current();
    return state ? state->thread : pthread_t();
}

void RaWorkerThread::cancel()
{
    const std::shared_ptr<State> state = current();
    if (!state) {
        return;
    }
    // The worker marks its end under the same lock, so the thread id is valid here.
    const std::lock_guard<std::mutex> lock(state->mutex);
    if (state->alive) {
        pthread_cancel(state->thread);
    }
}

void RaWorkerThread::waitUntilEnded()
{
    const std::shared_ptr<State> state = current();
    if (!state) {
        return;
    }
    std::unique_lock<std::mutex> lock(state->mutex);
    while (state->alive) {
        state->ended.wait(lock);
    }
}

void* RaWorkerThread::run(void* argument)
{
    int previous = 0;
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &previous);
    t_isWorker = true;

    const std::unique_ptr<std::shared_ptr<State>> reference(static_cast<std::shared_ptr<State>*>(argument));
    const std::shared_ptr<State> state = *reference;
    // Marks the end on every way out: return, pthread_exit and cancellation unwind this frame.
    struct EndMark
    {
        State& state;
        ~EndMark()
        {
            const std::lock_guard<std::mutex> lock(state.mutex);
            state.alive = false;
            state.ended.notify_all();
        }
    };
    const EndMark mark = {*state};
    return state->routine(state->argument);
}

RaWorkerThread::Interruptible::Interruptible()
{
    if (t_isWorker) {
        int previous = 0;
        pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, &previous);
        pthread_testcancel(); // a command that has once been started would leave its children behind
    }
}

RaWorkerThread::Interruptible::~Interruptible()
{
    if (t_isWorker) {
        int previous = 0;
        pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &previous);
    }
}
