// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raworkerthread.h"

#include "fakesystem.h"
#include "latch.h"
#include "rashell.h"

#include <QtTest>
#include <atomic>
#include <cerrno>
#include <dlfcn.h>
#include <functional>
#include <pthread.h>
#include <thread>

namespace {

std::atomic<bool> g_noThreads{false};

typedef std::function<void()> Work;

/** Routine of every worker here: runs the Work that its argument points to. */
void* runWork(void* work)
{
    (*static_cast<Work*>(work))();
    return nullptr;
}

/** Counts how many of its kind have been destroyed, on whatever way out of a routine. */
struct Counted
{
    explicit Counted(std::atomic<int>& counter) : destroyed(counter) {}
    ~Counted() { ++destroyed; }
    std::atomic<int>& destroyed;
};

} // namespace

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                              void* argument)
{
    typedef int (*Create)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const Create real = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    return g_noThreads ? EAGAIN : real(thread, attributes, routine, argument);
}

class TestRaWorkerThread : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void withoutAWorkerNothingIsAlive();
    void theRoutineRunsOnADetachedThreadOfItsOwn();
    void aliveUntilTheRoutineHasEnded();
    void everyWayOutIsAnEnd_data();
    void everyWayOutIsAnEnd();
    void cancelEndsAWorkerWhereItMayBeInterrupted_data();
    void cancelEndsAWorkerWhereItMayBeInterrupted();
    void aCancelledWorkerStartsNoFurtherCommand();
    void betweenInterruptiblePointsAWorkerGoesOn();
    void aWorkerWithoutInterruptiblePointsComesToItsEnd();
    void cancellingAnEndedWorkerHitsNoOtherThread();
    void cancellingTwiceIsOneCancellation();
    void aNewStartForgetsTheEarlierWorker();
    void aFailedStartKeepsTheEarlierWorker();
    void destroyingTheHandleLeavesTheWorkerRunning();
    void otherThreadsAreNeverMadeInterruptible();
    void theHandleMayBeUsedFromSeveralThreads();
    void tenThousandStartsCancelsAndEndsLeaveNothingBehind();
};

void TestRaWorkerThread::init()
{
    fakesystem::reset();
    g_noThreads = false;
}

void TestRaWorkerThread::withoutAWorkerNothingIsAlive()
{
    RaWorkerThread worker;
    QVERIFY(!worker.wasStarted());
    QVERIFY(!worker.isAlive());
    worker.cancel();
    worker.waitUntilEnded();
    QVERIFY(!worker.wasStarted());
}

void TestRaWorkerThread::theRoutineRunsOnADetachedThreadOfItsOwn()
{
    std::thread::id thread;
    int detached = -1;
    Work work = [&] {
        thread = std::this_thread::get_id();
        pthread_attr_t attributes;
        pthread_getattr_np(pthread_self(), &attributes);
        pthread_attr_getdetachstate(&attributes, &detached);
        pthread_attr_destroy(&attributes);
    };
    RaWorkerThread worker;
    QCOMPARE(worker.start(runWork, &work), 0);
    worker.waitUntilEnded();
    QVERIFY(thread != std::thread::id());
    QVERIFY(thread != std::this_thread::get_id());
    QCOMPARE(detached, static_cast<int>(PTHREAD_CREATE_DETACHED));
}

void TestRaWorkerThread::aliveUntilTheRoutineHasEnded()
{
    Latch goOn;
    Work work = [&goOn] { goOn.wait(); };
    RaWorkerThread worker;
    worker.start(runWork, &work);
    QVERIFY(worker.wasStarted());
    QVERIFY(worker.isAlive());
    goOn.open();
    worker.waitUntilEnded();
    QVERIFY(!worker.isAlive());
    QVERIFY(worker.wasStarted());
    worker.waitUntilEnded(); // a second time, at once
}

void TestRaWorkerThread::everyWayOutIsAnEnd_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("return") << QStringLiteral("return");
    QTest::newRow("exit") << QStringLiteral("exit");
    QTest::newRow("cancellation") << QStringLiteral("cancel");
}

void TestRaWorkerThread::everyWayOutIsAnEnd()
{
    QFETCH(QString, way);
    std::atomic<int> destroyed{0};
    Latch never;
    Work work = [&] {
        const Counted outer(destroyed);
        const auto inner = [&] {
            const Counted counted(destroyed);
            if (way == QLatin1String("exit")) {
                pthread_exit(nullptr);
            } else if (way == QLatin1String("cancel")) {
                const RaWorkerThread::Interruptible interruptible;
                never.wait();
            }
        };
        inner();
    };
    RaWorkerThread worker;
    worker.start(runWork, &work);
    if (way == QLatin1String("cancel")) {
        worker.cancel();
    }
    worker.waitUntilEnded();
    QVERIFY(!worker.isAlive());
    QCOMPARE(destroyed.load(), 2);
}

void TestRaWorkerThread::cancelEndsAWorkerWhereItMayBeInterrupted_data()
{
    QTest::addColumn<bool>("command");
    QTest::newRow("in a command") << true;
    QTest::newRow("in a wait") << false;
}

void TestRaWorkerThread::cancelEndsAWorkerWhereItMayBeInterrupted()
{
    QFETCH(bool, command);
    Latch there;
    Latch never;
    const auto hang = [&] {
        there.open();
        never.wait();
    };
    fakesystem::beforeCommand([&hang](const QByteArray&) { hang(); });
    fakesystem::onSleep([&hang](int) { hang(); });
    std::atomic<int> destroyed{0};
    bool wentOn = false;
    Work work = [&] {
        const Counted counted(destroyed);
        if (command) {
            raRunCommand("ifconfig");
        } else {
            raSleepMs(1000);
        }
        wentOn = true;
    };
    RaWorkerThread worker;
    worker.start(runWork, &work);
    there.wait();
    worker.cancel();
    worker.waitUntilEnded();
    QCOMPARE(destroyed.load(), 1);
    QVERIFY(!wentOn);
}

void TestRaWorkerThread::aCancelledWorkerStartsNoFurtherCommand()
{
    Latch started;
    Latch cancelled;
    Work work = [&] {
        started.open();
        cancelled.wait(); // not interruptible here
        raRunCommand("ifconfig");
    };
    RaWorkerThread worker;
    worker.start(runWork, &work);
    started.wait();
    worker.cancel();
    cancelled.open();
    worker.waitUntilEnded();
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

void TestRaWorkerThread::betweenInterruptiblePointsAWorkerGoesOn()
{
    Latch started;
    Latch cancelled;
    int steps = 0;
    Work work = [&] {
        raSleepMs(1);
        started.open();
        cancelled.wait(); // a cancellation point to the C library, but not to a worker
        ++steps;
        pthread_testcancel();
        ++steps;
        raSleepMs(2);
        ++steps;
    };
    RaWorkerThread worker;
    worker.start(runWork, &work);
    started.wait();
    worker.cancel();
    QVERIFY(worker.isAlive());
    cancelled.open();
    worker.waitUntilEnded();
    QCOMPARE(steps, 2);
    QCOMPARE(fakesystem::sleeps(), QList<int>() << 1);
}

void TestRaWorkerThread::aWorkerWithoutInterruptiblePointsComesToItsEnd()
{
    Latch started;
    Latch cancelled;
    bool atTheEnd = false;
    Work work = [&] {
        started.open();
        cancelled.wait();
        atTheEnd = true;
    };
    RaWorkerThread worker;
    worker.start(runWork, &work);
    started.wait();
    worker.cancel();
    cancelled.open();
    worker.waitUntilEnded();
    QVERIFY(atTheEnd);
}

namespace {

/** Cancels a worker that has ended, beside threads of which one may have its id. Whether one had. */
bool cancelAnEndedWorkerBeside(int others)
{
    pthread_t id = pthread_t();
    Work work = [&id] { id = pthread_self(); };
    RaWorkerThread worker;
    worker.start(runWork, &work);
    worker.waitUntilEnded();

    Latch cancelled;
    std::atomic<int> unharmed{0};
    std::atomic<bool> sameId{false};
    std::vector<std::thread> threads;
    for (int i = 0; i < others; ++i) {
        threads.emplace_back([&] {
            if (pthread_equal(pthread_self(), id)) {
                sameId = true;
            }
            cancelled.wait();
            pthread_testcancel();
            ++unharmed;
        });
    }
    worker.cancel();
    cancelled.open();
    for (std::thread& thread : threads) {
        thread.join();
    }
    return unharmed == others && sameId;
}

} // namespace

// The C library gives the memory, and with it the id, of an ended detached thread to a later one, once it is quite gone.
void TestRaWorkerThread::cancellingAnEndedWorkerHitsNoOtherThread()
{
    int tries = 1;
    while (!cancelAnEndedWorkerBeside(8) && tries < 1000) {
        ++tries;
    }
    QVERIFY(tries < 1000);
    qInfo("the id was used again at try %d", tries);
}

void TestRaWorkerThread::cancellingTwiceIsOneCancellation()
{
    std::atomic<int> destroyed{0};
    Latch there;
    Latch never;
    Work work = [&] {
        const Counted counted(destroyed);
        const RaWorkerThread::Interruptible interruptible;
        there.open();
        never.wait();
    };
    RaWorkerThread worker;
    worker.start(runWork, &work);
    there.wait();
    worker.cancel();
    worker.cancel();
    worker.waitUntilEnded();
    worker.cancel();
    QCOMPARE(destroyed.load(), 1);
}

void TestRaWorkerThread::aNewStartForgetsTheEarlierWorker()
{
    Latch firstThere;
    Latch goOn;
    Latch firstEnded;
    bool firstWentOn = false;
    Work first = [&] {
        {
            const RaWorkerThread::Interruptible interruptible;
            firstThere.open();
            goOn.wait();
        }
        firstWentOn = true;
        firstEnded.open();
    };
    Latch never;
    Work second = [&never] {
        const RaWorkerThread::Interruptible interruptible;
        never.wait();
    };
    RaWorkerThread worker;
    worker.start(runWork, &first);
    firstThere.wait();
    worker.start(runWork, &second);
    worker.cancel();
    worker.waitUntilEnded();
    QVERIFY(!worker.isAlive());
    goOn.open();
    firstEnded.wait();
    QVERIFY(firstWentOn);
}

void TestRaWorkerThread::aFailedStartKeepsTheEarlierWorker()
{
    Latch goOn;
    Work work = [&goOn] { goOn.wait(); };
    RaWorkerThread worker;
    g_noThreads = true;
    QCOMPARE(worker.start(runWork, &work), EAGAIN);
    QVERIFY(!worker.wasStarted());
    g_noThreads = false;
    worker.start(runWork, &work);
    g_noThreads = true;
    QCOMPARE(worker.start(runWork, &work), EAGAIN);
    QVERIFY(worker.isAlive());
    goOn.open();
    worker.waitUntilEnded();
    QVERIFY(!worker.isAlive());
}

void TestRaWorkerThread::destroyingTheHandleLeavesTheWorkerRunning()
{
    Latch goOn;
    Latch ended;
    Work work = [&] {
        goOn.wait();
        raRunCommand("ifconfig");
        ended.open();
    };
    {
        RaWorkerThread worker;
        worker.start(runWork, &work);
    }
    goOn.open();
    ended.wait();
    QCOMPARE(fakesystem::count("ifconfig"), 1);
}

void TestRaWorkerThread::otherThreadsAreNeverMadeInterruptible()
{
    int stateInside = -1;
    std::thread thread([&stateInside] {
        int before = 0;
        pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before);
        const RaWorkerThread::Interruptible interruptible;
        pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &stateInside);
    });
    thread.join();
    QCOMPARE(stateInside, static_cast<int>(PTHREAD_CANCEL_DISABLE));
}

void TestRaWorkerThread::theHandleMayBeUsedFromSeveralThreads()
{
    RaWorkerThread worker;
    std::atomic<bool> over{false};
    std::thread watcher([&] {
        while (!over) {
            worker.cancel();
            if (worker.wasStarted() && !worker.isAlive()) {
                worker.waitUntilEnded();
            }
            std::this_thread::yield();
        }
    });
    std::atomic<int> begun{0};
    std::atomic<int> ended{0};
    Work work = [&] {
        ++begun;
        const Counted counted(ended);
        raSleepMs(1);
    };
    const int starts = 200;
    for (int i = 0; i < starts; ++i) {
        worker.start(runWork, &work);
        worker.waitUntilEnded();
    }
    over = true;
    watcher.join();
    QCOMPARE(begun.load(), starts);
    QCOMPARE(ended.load(), starts);
}

void TestRaWorkerThread::tenThousandStartsCancelsAndEndsLeaveNothingBehind()
{
    std::atomic<int> begun{0};
    std::atomic<int> ended{0};
    std::atomic<int> uncancelled{0};
    Work work = [&] {
        ++begun;
        const Counted counted(ended);
        for (int i = 0; i < 5; ++i) {
            raSleepMs(1);
            raRunCommand("ifconfig");
        }
        ++uncancelled;
    };
    const int count = 10000;
    unsigned pattern = 1;
    for (int i = 0; i < count; ++i) {
        if (i % 100 == 0) {
            fakesystem::reset(); // keeps a list of all commands
        }
        RaWorkerThread worker;
        const int before = begun;
        QCOMPARE(worker.start(runWork, &work), 0);
        pattern = pattern * 1664525u + 1013904223u;
        // Some are cancelled at once, some in the middle, some after their end, some not at all.
        const unsigned way = (pattern >> 16) % 4;
        if (way == 1) {
            while (begun == before) {
                std::this_thread::yield();
            }
        } else if (way == 2) {
            worker.waitUntilEnded();
        }
        if (way != 3) {
            worker.cancel();
        }
        worker.waitUntilEnded();
        QVERIFY(!worker.isAlive());
    }
    QCOMPARE(ended.load(), begun.load());
    qInfo("%d starts, of which %d came to their own end", count, uncancelled.load());
    QVERIFY(begun == count && uncancelled > count / 4 && uncancelled < count);
}

QTEST_APPLESS_MAIN(TestRaWorkerThread)
#include "tst_raworkerthread.moc"
