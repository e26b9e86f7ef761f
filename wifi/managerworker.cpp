// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "managerworker.h"

#include "ralog.h"
#include "rawifiManager.h"
#include "rawifiglobals.h"
#include "raworkerthread.h"
#include "recordtext.h"
#include "sharedstate.h"

#include <atomic>
#include <cstdint>
#include <memory>

RaWifiManager* pWnd = nullptr;
pthread_t p_thread_msg = 0;
pthread_t p_thread_connectap = 0;
pthread_attr_t attr;
pthread_mutex_t mutex;
QMutex m_conMux;

namespace {

struct Worker
{
    explicit Worker(RaWorkerThread::Routine work) : routine(work) {}
    const RaWorkerThread::Routine routine;
    RaWorkerThread thread;
    std::atomic<bool> isOutdated{false};
};

typedef std::shared_ptr<Worker> WorkerPointer;

WorkerPointer s_worker; ///< the one started last; null before the first

thread_local const std::atomic<bool>* t_isOutdated = nullptr;

/** What a new worker gets to do: wait for the one before it to end, then its routine. */
struct Job
{
    WorkerPointer predecessor;
    WorkerPointer worker;
    void* argument;
};

void* runAfterPredecessor(void* argument)
{
    const std::unique_ptr<Job> job(static_cast<Job*>(argument));
    if (job->predecessor) {
        job->predecessor->thread.waitUntilEnded();
        job->predecessor.reset();
    }
    { // cancelled while it waited: the manager may be gone
        const RaWorkerThread::Interruptible interruptible;
    }
    t_isOutdated = &job->worker->isOutdated;
    return job->worker->routine(job->argument);
}

unsigned shortened(const void* pointer)
{
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(pointer));
}

bool start(RaWorkerThread::Routine routine, void* argument)
{
    const WorkerPointer next = std::make_shared<Worker>(routine);
    std::unique_ptr<Job> job(new Job{s_worker, next, argument});
    if (next->thread.start(runAfterPredecessor, job.get()) != 0) {
        RA_WARN("cannot start a worker");
        return false;
    }
    job.release();
    s_worker = next;
    p_thread_msg = next->thread.handle();
    return true;
}

void cancelLast()
{
    if (s_worker) {
        s_worker->isOutdated = true;
        s_worker->thread.cancel();
    }
}

void probeLast()
{
    if (!s_worker || p_thread_msg == 0) {
        RA_WARN("Not a valid thread handle.");
    } else if (!s_worker->thread.isAlive()) {
        RA_WARN("thread is not exist or already exit");
    } else {
        RA_WARN("pthread is alive");
    }
}

} // namespace

namespace managerworker {

// The mutex is gone before the worker could lock it; what keeps the workers apart is that each waits for the last.
bool startScan(RaWifiManager* manager)
{
    pthread_attr_init(&attr);
    pthread_mutex_init(&mutex, nullptr);
    pthread_attr_setdetachstate(&attr, PTHREAD_CREATE_DETACHED);
    probeLast();
    cancelLast();
    RA_WARN("call pthread thread_scanap ");
    const bool isStarted = start(thread_scanap, manager);
    pthread_mutex_destroy(&mutex);
    pthread_attr_destroy(&attr);
    return isStarted;
}

bool startConnect()
{
    pthread_attr_init(&attr);
    pthread_attr_setdetachstate(&attr, PTHREAD_CREATE_DETACHED);
    cancelLast();
    const bool isStarted = start(thread_connectuseap, reinterpret_cast<void*>(1));
    pthread_attr_destroy(&attr);
    return isStarted;
}

void dropScan()
{
    if (s_worker && s_worker->routine == thread_scanap) {
        s_worker->isOutdated = true;
    }
}

const std::atomic<bool>* outdatedMark()
{
    return t_isOutdated;
}

void cancelAndWait()
{
    cancelLast();
    if (s_worker) {
        s_worker->thread.waitUntilEnded();
    }
}

} // namespace managerworker

void* thread_scanap(void* arg)
{
    RA_DEBUG("call pthread scan dev ");
    RaWifiManager* const manager = static_cast<RaWifiManager*>(arg);
    RA_DEBUG("--thread_scanap point =%4X--", shortened(arg));
    RA_DEBUG("--RaWifiManager point =%4X--", shortened(manager));
    if (manager) {
        manager->openWifi(1);
        if (!t_isOutdated || !*t_isOutdated) {
            manager->callSendRefreshList();
        }
    } else {
        RA_DEBUG("pWnd == NULL");
    }
    return nullptr;
}

void* thread_connectuseap(void* arg)
{
    RA_DEBUG("value =%d\n", static_cast<int>(reinterpret_cast<std::intptr_t>(arg)));
    RaWifiManager* manager = nullptr;
    APData record = freshRecord();
    {
        const SharedStateLock lock(sharedStateMutex());
        manager = g_PassParam.owner;
        pWnd = manager;
        if (g_PassParam.pinfo) {
            record = *g_PassParam.pinfo;
        } else {
            RA_DEBUG("g_PassParam.pinfo == NULL");
            manager = nullptr;
        }
    }
    RA_DEBUG("Call connectUserSelectAP");
    if (manager) {
        RA_DEBUG(" -encry %d \n", record.encry[0]);
        RA_DEBUG(" macAddr =%s\n", record.macAddr);
        RA_DEBUG(" essid =%s\n", record.essid);
        RA_DEBUG(" password = %s\n", raSecret(record.psk));
        RA_DEBUG(" sigquality = %d \n", record.sigquality);
        RA_DEBUG(" authMode =%d\n", record.authMode);
        RA_DEBUG(" keyindex = %d\n", record.keyIndex);
        const long result = manager->connectUserSelectAP(record.macAddr, record.encry[0], record.essid, record.psk,
                                                         record.sigquality, record.authMode, record.keyIndex);
        if (result == 0) {
            manager->SetSuccessFlag(&record);
        }
        RA_DEBUG("...result = %ld\n", result);
    }
    {
        const SharedStateLock lock(sharedStateMutex());
        g_PassParam.text.clear();
    }
    releaseMutex(m_conMux);
    return nullptr;
}
