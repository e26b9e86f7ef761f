// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raguithread.h"

#include "fakesystem.h"
#include "rashell.h"
#include "raworkerthread.h"

#include <QThread>
#include <QtTest>
#include <atomic>
#include <dlfcn.h>
#include <pthread.h>
#include <thread>
#include <vector>

namespace {

thread_local bool t_isCaller = false;
std::atomic<int> g_waitingCallers{0};

/** Returns once \a count callers in all have handed in their call and wait for the gate's thread. */
void awaitWaitingCallers(int count)
{
    while (g_waitingCallers < count) {
        std::this_thread::yield();
    }
}

} // namespace

// A caller begins to wait when its call has been handed in: that is the moment by which calls are in order.
extern "C" int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex)
{
    typedef int (*Wait)(pthread_cond_t*, pthread_mutex_t*);
    static const Wait real = reinterpret_cast<Wait>(dlsym(RTLD_NEXT, "pthread_cond_wait"));
    if (t_isCaller) {
        t_isCaller = false;
        ++g_waitingCallers;
    }
    return real(condition, mutex);
}

class TestRaGuiThread : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void onItsOwnThreadACallRunsAtOnce();
    void aCallRunsOnTheGatesThreadWhileTheCallerWaits();
    void callsRunInTheOrderInWhichTheyCame();
    void callsOfManyThreadsNeverOverlap();
    void closingRefusesWaitingAndLaterCalls();
    void closingDuringACallLetsItEnd();
    void aDyingWorkerIsAnswered();
    void aWorkerCancelledDuringItsCallEndsAfterIt();
};

void TestRaGuiThread::init()
{
    fakesystem::reset();
    g_waitingCallers = 0;
}

void TestRaGuiThread::onItsOwnThreadACallRunsAtOnce()
{
    RaGuiThread gate;
    bool ran = false;
    QVERIFY(gate.run([&ran] { ran = true; }));
    QVERIFY(ran);
}

void TestRaGuiThread::aCallRunsOnTheGatesThreadWhileTheCallerWaits()
{
    RaGuiThread gate;
    QThread* ranOn = nullptr;
    bool ranBeforeReturn = false;
    std::atomic<bool> returned{false};
    std::thread caller([&] {
        bool ran = false;
        const bool accepted = gate.run([&] {
            ranOn = QThread::currentThread();
            ran = true;
        });
        ranBeforeReturn = accepted && ran;
        returned = true;
    });
    QTRY_VERIFY(returned);
    caller.join();
    QCOMPARE(ranOn, QThread::currentThread());
    QVERIFY(ranBeforeReturn);
}

void TestRaGuiThread::callsRunInTheOrderInWhichTheyCame()
{
    RaGuiThread gate;
    QList<int> order;
    std::vector<std::thread> callers;
    const int count = 8;
    for (int i = 0; i < count; ++i) {
        callers.emplace_back([&gate, &order, i] {
            t_isCaller = true;
            gate.run([&order, i] { order.append(i); });
        });
        awaitWaitingCallers(i + 1);
    }
    QCOMPARE(order, QList<int>());
    QTRY_COMPARE(static_cast<int>(order.size()), count);
    for (std::thread& caller : callers) {
        caller.join();
    }
    QCOMPARE(order, QList<int>() << 0 << 1 << 2 << 3 << 4 << 5 << 6 << 7);
}

void TestRaGuiThread::callsOfManyThreadsNeverOverlap()
{
    RaGuiThread gate;
    std::atomic<int> inside{0};
    std::atomic<int> overlaps{0};
    std::atomic<int> done{0};
    const int callers = 4;
    const int calls = 200;
    std::vector<std::thread> threads;
    for (int i = 0; i < callers; ++i) {
        threads.emplace_back([&] {
            for (int call = 0; call < calls; ++call) {
                gate.run([&] {
                    overlaps += inside++ == 0 ? 0 : 1;
                    --inside;
                });
            }
            ++done;
        });
    }
    QTRY_COMPARE(done.load(), callers);
    for (std::thread& thread : threads) {
        thread.join();
    }
    QCOMPARE(overlaps.load(), 0);
}

void TestRaGuiThread::closingRefusesWaitingAndLaterCalls()
{
    RaGuiThread gate;
    std::atomic<int> refused{0};
    std::atomic<bool> ran{false};
    std::vector<std::thread> callers;
    for (int i = 0; i < 3; ++i) {
        callers.emplace_back([&] {
            t_isCaller = true;
            refused += gate.run([&ran] { ran = true; }) ? 0 : 1;
            refused += gate.run([&ran] { ran = true; }) ? 0 : 1;
        });
    }
    awaitWaitingCallers(3);
    gate.close();
    for (std::thread& caller : callers) {
        caller.join();
    }
    QCoreApplication::processEvents();
    QCOMPARE(refused.load(), 6);
    QVERIFY(!ran);
}

void TestRaGuiThread::closingDuringACallLetsItEnd()
{
    RaGuiThread gate;
    std::atomic<bool> firstAccepted{false};
    std::atomic<bool> secondAccepted{true};
    bool wentOn = false;
    std::atomic<int> returned{0};
    std::thread first([&] {
        t_isCaller = true;
        firstAccepted = gate.run([&] {
            gate.close();
            wentOn = true;
        });
        ++returned;
    });
    awaitWaitingCallers(1);
    std::thread second([&] {
        t_isCaller = true;
        secondAccepted = gate.run([] {});
        ++returned;
    });
    awaitWaitingCallers(2);
    QTRY_COMPARE(returned.load(), 2);
    first.join();
    second.join();
    QVERIFY(wentOn);
    QVERIFY(firstAccepted);
    QVERIFY(!secondAccepted);
}

void TestRaGuiThread::aDyingWorkerIsAnswered()
{
    RaGuiThread gate;
    struct Shared
    {
        RaGuiThread& gate;
        std::atomic<bool> ran;
        std::atomic<bool> accepted;
        std::atomic<bool> wentOn;
    } shared = {gate, {false}, {true}, {false}};
    RaWorkerThread worker;
    worker.start(
        [](void* argument) -> void* {
            Shared& its = *static_cast<Shared*>(argument);
            t_isCaller = true;
            its.accepted = its.gate.run([&its] { its.ran = true; });
            raSleepMs(1);
            its.wentOn = true;
            return nullptr;
        },
        &shared);
    awaitWaitingCallers(1);
    worker.cancel();
    gate.close();
    worker.waitUntilEnded(); // would wait for ever if the call had not been answered
    QCoreApplication::processEvents();
    QVERIFY(!shared.ran);
    QVERIFY(!shared.accepted);
    QVERIFY(!shared.wentOn);
}

void TestRaGuiThread::aWorkerCancelledDuringItsCallEndsAfterIt()
{
    RaGuiThread gate;
    struct Shared
    {
        RaGuiThread& gate;
        RaWorkerThread worker;
        std::atomic<int> steps;
        std::atomic<bool> accepted;
    } shared = {gate, {}, {0}, {false}};
    shared.worker.start(
        [](void* argument) -> void* {
            Shared& its = *static_cast<Shared*>(argument);
            its.accepted = its.gate.run([&its] {
                its.worker.cancel();
                ++its.steps;
            });
            raSleepMs(1);
            ++its.steps;
            return nullptr;
        },
        &shared);
    QTRY_VERIFY(!shared.worker.isAlive());
    QVERIFY(shared.accepted);
    QCOMPARE(shared.steps.load(), 1);
}

QTEST_GUILESS_MAIN(TestRaGuiThread)
#include "tst_raguithread.moc"
