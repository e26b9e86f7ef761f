// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "steppedworkers.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <atomic>
#include <dlfcn.h>
#include <pthread.h>

namespace {

std::atomic<int> g_living{0}; ///< threads that the library has started

/** Has untilTrue() look again. */
void tellGuiThread()
{
    QCoreApplication::eventDispatcher()->wakeUp();
}

bool isOfTheLibrary(void* (*routine)(void*))
{
    Dl_info place;
    return dladdr(reinterpret_cast<void*>(routine), &place) != 0
           && QByteArray(place.dli_fname).contains("librawificontrol");
}

struct Start
{
    void* (*routine)(void*);
    void* argument;
};

void* countAndRun(void* argument)
{
    const std::unique_ptr<Start> start(static_cast<Start*>(argument));
    struct EndMark // on every way out
    {
        ~EndMark()
        {
            --g_living;
            tellGuiThread();
        }
    };
    const EndMark mark;
    return start->routine(start->argument);
}

} // namespace

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                              void* argument)
{
    typedef int (*Create)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const Create real = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    if (!isOfTheLibrary(routine)) {
        return real(thread, attributes, routine, argument);
    }
    std::unique_ptr<Start> start(new Start{routine, argument});
    ++g_living;
    const int error = real(thread, attributes, countAndRun, start.get());
    if (error == 0) {
        start.release();
    } else {
        --g_living;
    }
    return error;
}

/** A worker's stay at one of its points; it goes with the worker, too. */
struct SteppedWorkers::Visit
{
    Visit(SteppedWorkers& stage, Side side) : m_stage(stage), m_side(side), m_gate(std::make_shared<Latch>())
    {
        const std::lock_guard<std::mutex> lock(stage.m_mutex);
        if (stage.m_isStopping) {
            stage.m_gates[side] = m_gate;
        } else {
            m_gate->open();
        }
        tellGuiThread();
    }
    ~Visit()
    {
        const std::lock_guard<std::mutex> lock(m_stage.m_mutex);
        if (m_stage.m_gates[m_side] == m_gate) {
            m_stage.m_gates[m_side].reset();
        }
    }

    void wait() { m_gate->wait(); }

    SteppedWorkers& m_stage;
    const Side m_side;
    const std::shared_ptr<Latch> m_gate;
};

SteppedWorkers::SteppedWorkers()
{
    m_clock.start(1000); // so that untilTrue() looks at the time even when nothing happens
}

SteppedWorkers::~SteppedWorkers()
{
    finish();
    fakesystem::reset();
}

void SteppedWorkers::begin()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
    }
    fakesystem::beforeCommand([this](const QByteArray& command) { stopAt(command); });
    fakesystem::onSleep([this](int milliseconds) { stopAt("sleep " + QByteArray::number(milliseconds)); });
}

void SteppedWorkers::stopAt(const QByteArray& entry)
{
    if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
        return;
    }
    // The DHCP stage is known by its first step.
    thread_local const Side side = entry == "rm /home/wifi/temp.txt -f;rm /home/wifi/result3 -f" ? DhcpStage : Worker;
    thread_local int number = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (number == 0) {
            number = side == Worker ? ++m_workers : m_workers;
        }
        ++m_points;
        watch(side, number, entry);
    }
    Visit(*this, side).wait();
}

// Each worker waits for the one before it, and whoever runs a script for the DHCP stage of the join before it.
void SteppedWorkers::watch(Side side, int number, const QByteArray& entry)
{
    const bool isScript = entry.startsWith("sh ");
    const bool isTooLate = side == Worker ? number != m_workers : isScript && number < m_scriptsBy;
    if (isTooLate && m_collision.isEmpty()) {
        m_collision = QByteArray(side == Worker ? "a worker" : "a DHCP stage") + " of before came to \"" + entry + '"';
    }
    if (side == Worker && isScript) {
        m_scriptsBy = number;
    }
}

bool SteppedWorkers::isAnyAlive() const
{
    return g_living > 0;
}

bool SteppedWorkers::stands(Side side) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_gates[side] != nullptr;
}

bool SteppedWorkers::letGo(Side side)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_gates[side]) {
        return false;
    }
    m_gates[side]->open();
    m_gates[side].reset();
    return true;
}

bool SteppedWorkers::settle()
{
    return untilTrue([this] { return g_living == (stands(Worker) ? 1 : 0) + (stands(DhcpStage) ? 1 : 0); });
}

bool SteppedWorkers::finish()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = false;
    }
    letGo(Worker);
    letGo(DhcpStage);
    const bool haveEnded = untilTrue([this] { return !isAnyAlive(); });
    QCoreApplication::processEvents(); // what they have handed over
    return haveEnded;
}

bool SteppedWorkers::untilTrue(const std::function<bool()>& isTrue)
{
    QElapsedTimer time;
    time.start();
    while (!isTrue()) {
        if (time.elapsed() > 20000) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

QByteArray SteppedWorkers::collision() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_collision;
}

int SteppedWorkers::pointCount() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_points;
}
