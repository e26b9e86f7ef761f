// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "fakesystem.h"

#include <QFile>
#include <QMap>
#include <atomic>
#include <csignal>
#include <dlfcn.h>
#include <mutex>
#include <pthread.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

namespace {

struct Answer
{
    fakesystem::Script script;
    bool comesToEnd;
};

struct State
{
    std::recursive_mutex mutex;
    QList<QByteArray> commands;
    QList<int> sleeps;
    QMap<QByteArray, Answer> answers;
    QMap<QByteArray, fakesystem::Script> wholeCommands;
    std::function<bool(const QByteArray&)> fileCarrier;
    std::function<void(const QByteArray&)> beforeCommand;
    std::function<void(int)> onSleep;
    std::function<void()> onSync;
    int syncs = 0;
    int status = 0;
    unsigned generation = 0;
};

State& state()
{
    static State* instance = new State; // outlives every static object of the library
    return *instance;
}

typedef std::lock_guard<std::recursive_mutex> Lock;

thread_local QList<int> t_sleeps;
thread_local unsigned t_generation = 0;

QList<int>& sleepsOfThisThread()
{
    if (t_generation != state().generation) {
        t_generation = state().generation;
        t_sleeps.clear();
    }
    return t_sleeps;
}

std::atomic<int> g_endedThreads{0};

/** Counts a thread that has run a command, when it ends. */
struct EndMark
{
    bool isSet = false;
    ~EndMark() { ++g_endedThreads; }
};

thread_local EndMark t_endMark;

thread_local int t_callersCancelState = -1; // -1 outside of the fakes

/** The fakes' own C++ is no place to be cancelled at: only a wait and a real command in it are, as in a real command. */
class Uninterrupted
{
public:
    Uninterrupted() : m_callersBefore(t_callersCancelState)
    {
        pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &m_before);
        if (t_callersCancelState == -1) {
            t_callersCancelState = m_before;
        }
    }
    ~Uninterrupted()
    {
        t_callersCancelState = m_callersBefore;
        pthread_setcancelstate(m_before, nullptr);
    }
    Uninterrupted(const Uninterrupted&) = delete;
    Uninterrupted& operator=(const Uninterrupted&) = delete;

private:
    int m_callersBefore;
    int m_before = 0;
};

int runForReal(const QByteArray& command)
{
    const fakesystem::Interruptible interruptible;
    typedef int (*System)(const char*);
    static const System real = reinterpret_cast<System>(dlsym(RTLD_NEXT, "system"));
    return real(command.constData());
}

int runFileCommand(const QByteArray& command)
{
    std::function<bool(const QByteArray&)> carrier;
    {
        const Lock lock(state().mutex);
        carrier = state().fileCarrier;
    }
    return carrier && carrier(command) ? 0 : runForReal(command);
}

bool isFileCommand(const QByteArray& command)
{
    const char* const tools[] = {"rm ", "echo ", "touch ", "mkdir ", "chmod ", "cat ", "cp "};
    for (const char* tool : tools) {
        if (command.startsWith(tool)) {
            return true;
        }
    }
    return false;
}

int runCommand(const QByteArray& command)
{
    t_endMark.isSet = true;
    std::function<void(const QByteArray&)> hook;
    {
        const Lock lock(state().mutex);
        hook = state().beforeCommand;
    }
    if (hook) {
        hook(command);
    }
    fakesystem::Script whole;
    {
        const Lock lock(state().mutex);
        state().commands.append(command);
        whole = state().wholeCommands.value(command);
    }
    if (whole) {
        whole();
        return 0;
    }
    Answer answer = {fakesystem::Script(), true};
    {
        const Lock lock(state().mutex);
        if (isFileCommand(command)) {
            return runFileCommand(command);
        }
        const QByteArray prefix = "sh /usr/bin/";
        if (!command.startsWith(prefix)) {
            return state().status;
        }
        const QByteArray name = command.mid(prefix.size()).split(';').first();
        if (state().answers.contains(name)) {
            answer = state().answers.value(name);
        }
    }
    if (answer.script) {
        answer.script();
    }
    const auto rest = command.indexOf(';');
    if (rest < 0) {
        return 0;
    }
    const int killed = SIGKILL; // as wait(2) tells it
    return answer.comesToEnd ? runFileCommand(command.mid(rest + 1)) : killed;
}

void recordSleep(const timespec* duration)
{
    const Uninterrupted uninterrupted;
    const int milliseconds = static_cast<int>(duration->tv_sec * 1000 + duration->tv_nsec / 1000000);
    std::function<void(int)> hook;
    {
        const Lock lock(state().mutex);
        state().sleeps.append(milliseconds);
        sleepsOfThisThread().append(milliseconds);
        hook = state().onSleep;
    }
    if (hook) {
        hook(milliseconds);
    }
}

} // namespace

namespace fakesystem {

Interruptible::Interruptible()
{
    if (t_callersCancelState != -1) {
        pthread_setcancelstate(t_callersCancelState, &m_before);
    }
}

Interruptible::~Interruptible()
{
    if (m_before != -1) {
        pthread_setcancelstate(m_before, nullptr);
    }
}

void reset()
{
    const Lock lock(state().mutex);
    state().commands.clear();
    state().sleeps.clear();
    state().answers.clear();
    state().wholeCommands.clear();
    state().fileCarrier = nullptr;
    state().beforeCommand = nullptr;
    state().onSleep = nullptr;
    state().onSync = nullptr;
    state().syncs = 0;
    state().status = 0;
    ++state().generation;
}

void answer(const char* name, const Script& script)
{
    const Lock lock(state().mutex);
    state().answers.insert(name, Answer{script, true});
}

void answerWithoutEnd(const char* name, const Script& script)
{
    const Lock lock(state().mutex);
    state().answers.insert(name, Answer{script, false});
}

void answerCommand(const QByteArray& command, const Script& script)
{
    const Lock lock(state().mutex);
    state().wholeCommands.insert(command, script);
}

void carryOutFilesBy(const std::function<bool(const QByteArray&)>& carrier)
{
    const Lock lock(state().mutex);
    state().fileCarrier = carrier;
}

void beforeCommand(const std::function<void(const QByteArray&)>& hook)
{
    const Lock lock(state().mutex);
    state().beforeCommand = hook;
}

void onSleep(const std::function<void(int)>& hook)
{
    const Lock lock(state().mutex);
    state().onSleep = hook;
}

void onSync(const std::function<void()>& hook)
{
    const Lock lock(state().mutex);
    state().onSync = hook;
}

QList<QByteArray> commands()
{
    const Lock lock(state().mutex);
    return state().commands;
}

int count(const QByteArray& command)
{
    return static_cast<int>(commands().count(command));
}

QList<int> sleeps()
{
    const Lock lock(state().mutex);
    return state().sleeps;
}

QList<int> sleepsHere()
{
    const Lock lock(state().mutex);
    return sleepsOfThisThread();
}

int endedThreads()
{
    return g_endedThreads;
}

int syncs()
{
    const Lock lock(state().mutex);
    return state().syncs;
}

void setStatus(int status)
{
    const Lock lock(state().mutex);
    state().status = status;
}

int runForReal(const QByteArray& command)
{
    return ::runForReal(command);
}

void writeFile(const char* path, const QByteArray& bytes)
{
    QFile file(QString::fromLatin1(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write %s", path);
    }
}

QByteArray readFile(const char* path)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool exists(const char* path)
{
    struct stat about;
    return lstat(path, &about) == 0;
}

void removeFilesIn(const char* directory)
{
    ::runForReal(QByteArray("find ") + directory + " -mindepth 1 -delete");
}

} // namespace fakesystem

// The interposed functions; their declarations are the C library's.
extern "C" {

int system(const char* command)
{
    const Uninterrupted uninterrupted;
    return runCommand(command);
}

int nanosleep(const timespec* duration, timespec*)
{
    recordSleep(duration);
    return 0;
}

int clock_nanosleep(clockid_t, int, const timespec* duration, timespec*)
{
    recordSleep(duration);
    return 0;
}

int usleep(useconds_t microseconds)
{
    const timespec duration = {static_cast<time_t>(microseconds / 1000000), (microseconds % 1000000) * 1000L};
    recordSleep(&duration);
    return 0;
}

void sync() noexcept
{
    std::function<void()> hook;
    {
        const Lock lock(state().mutex);
        ++state().syncs;
        hook = state().onSync;
    }
    if (hook) {
        hook();
    }
}
}
