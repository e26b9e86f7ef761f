// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// Preloaded into a host, lets a timer of the GUI thread tick. Whenever the thread has been silent for longer than a few
// milliseconds, without the commands that it is to run itself and without drawing, it says so on standard error:
// "ticks: silent for N ms"; and "ticks: drew for N ms" for each drawing that is longer than the ones before.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QThread>
#include <QTimerEvent>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <unistd.h>

namespace {

const int tickMs = 10;
const double worthSaying = 5; // milliseconds

qint64 s_excused = 0; // nanoseconds since the last tick that the GUI thread spent on its own commands and on drawing

template<typename Work>
qint64 nanoseconds(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed();
}

template<typename Work>
void excuseOnGuiThread(Work work)
{
    const bool isGuiThread = qApp && QThread::currentThread() == qApp->thread();
    const qint64 taken = nanoseconds(work);
    if (isGuiThread) {
        s_excused += taken;
    }
}

template<typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

class Ticker : public QObject
{
public:
    explicit Ticker(QCoreApplication* application) : QObject(application)
    {
        application->installEventFilter(this);
        m_sinceTick.start();
        startTimer(tickMs, Qt::PreciseTimer);
    }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() != QEvent::UpdateRequest) {
            return false;
        }
        const qint64 taken = nanoseconds([&] { receiver->event(event); });
        s_excused += taken;
        if (taken > m_longestDrawing) {
            m_longestDrawing = taken;
            std::fprintf(stderr, "ticks: drew for %.1f ms\n", static_cast<double>(taken) / 1e6);
        }
        return true;
    }

protected:
    void timerEvent(QTimerEvent*) override
    {
        const double silence = static_cast<double>(m_sinceTick.nsecsElapsed() - s_excused) / 1e6 - tickMs;
        s_excused = 0;
        m_sinceTick.start();
        if (silence > worthSaying) {
            std::fprintf(stderr, "ticks: silent for %.1f ms\n", silence);
        }
    }

private:
    QElapsedTimer m_sinceTick;
    qint64 m_longestDrawing = 0;
};

void startTicking()
{
    new Ticker(qApp);
}

__attribute__((constructor)) void preloaded()
{
    unsetenv("LD_PRELOAD"); // the host's own children need no toolkit
    qAddPreRoutine(startTicking);
}

} // namespace

extern "C" int system(const char* command)
{
    int status = 0;
    excuseOnGuiThread([&] { status = next<int(const char*)>("system")(command); });
    return status;
}

extern "C" void sync()
{
    excuseOnGuiThread([] { next<void()>("sync")(); });
}
