// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_LATCH_H
#define RAWIFI_LATCH_H

#include "fakesystem.h"

#include <cerrno>
#include <memory>
#include <pthread.h>
#include <sched.h>
#include <semaphore.h>

/**
 * Holds threads up until it is opened, for good. Waiting is a cancellation point, as a real command is.
 * Copies are the same latch, which lives until the last of them and the last open() are gone.
 */
class Latch
{
public:
    void open()
    {
        const std::shared_ptr<Semaphore> semaphore = m_semaphore; // who is let through may destroy the latch
        sem_post(&semaphore->value);
    }

    void wait()
    {
        const fakesystem::Interruptible interruptible;
#ifdef __SANITIZE_THREAD__
        // The sanitizer loses track of a thread that is cancelled inside one of the calls that it watches.
        while (sem_trywait(&m_semaphore->value) == -1) {
            pthread_testcancel();
            sched_yield();
        }
#else
        while (sem_wait(&m_semaphore->value) == -1 && errno == EINTR) {
        }
#endif
        open(); // for the next one
    }

    bool isOpen()
    {
        int value = 0;
        sem_getvalue(&m_semaphore->value, &value);
        return value > 0;
    }

private:
    struct Semaphore
    {
        Semaphore() { sem_init(&value, 0, 0); }
        ~Semaphore() { sem_destroy(&value); }
        sem_t value;
    };

    std::shared_ptr<Semaphore> m_semaphore = std::make_shared<Semaphore>();
};

#endif
