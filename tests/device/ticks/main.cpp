// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// ticks BSSID PASSWORD: opens the page, scans by its switch and joins, and prints "ticks scan N join N draw N": the longest
// time in milliseconds for which the GUI thread did not answer during the scan with its list and during the join, without
// the commands that it is to run itself and without drawing; and the longest drawing.

#include <rawificontrol.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <QTimer>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <unistd.h>

namespace {

const int tickMs = 5;
const qint64 patienceMs = 90000;
const qint64 listMs = 1500; // many times what the list needs even in an emulator

qint64 s_excused = 0; // nanoseconds since the last tick that the GUI thread spent on its own commands and on drawing
qint64 s_longestDrawing = 0;

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

class Application : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        bool isTaken = false;
        if (event->type() != QEvent::UpdateRequest) {
            return QApplication::notify(receiver, event);
        }
        const qint64 taken = nanoseconds([&] { isTaken = QApplication::notify(receiver, event); });
        s_excused += taken;
        s_longestDrawing = taken > s_longestDrawing ? taken : s_longestDrawing;
        return isTaken;
    }
};

template<typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/** Runs the event loop until \a isDone; the longest silence between two ticks in milliseconds, -1 when time is up. */
template<typename Done>
double longestSilence(Done isDone)
{
    double longest = 0;
    QElapsedTimer whole;
    QElapsedTimer sinceTick;
    QTimer ticker;
    s_excused = 0;
    QObject::connect(&ticker, &QTimer::timeout, [&] {
        const double silence = static_cast<double>(sinceTick.nsecsElapsed() - s_excused) / 1e6 - tickMs;
        longest = silence > longest ? silence : longest;
        s_excused = 0;
        sinceTick.start();
    });
    whole.start();
    sinceTick.start();
    ticker.start(tickMs);
    while (!isDone()) {
        if (whole.elapsed() > patienceMs) {
            return -1;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return longest;
}

bool isLinked()
{
    QFile file(QLatin1String("/home/wifi/linkap.txt"));
    return file.open(QIODevice::ReadOnly) && file.readAll().startsWith('1');
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

int main(int argc, char** argv)
{
    Application application(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: ticks BSSID PASSWORD\n");
        return 2;
    }
    RaWifiManager* const page = RaWifiManager::instance();
    RaWifiManager::setMainAppObj(&application);
    page->resize(320, 480);
    page->show();
    QCoreApplication::processEvents();

    page->recAPSwitch(true);
    bool isScanned = false;
    QObject::connect(page, &RaWifiManager::sendRefreshList, [&] { isScanned = true; });
    QElapsedTimer sinceScan;
    const double scan = longestSilence([&] {
        if (isScanned && !sinceScan.isValid()) {
            sinceScan.start();
        }
        return isScanned && sinceScan.elapsed() > listMs;
    });

    APData network;
    std::memset(&network, 0, sizeof network);
    for (const APData* entry : APDataArray) {
        if (std::strcmp(entry->macAddr, argv[1]) == 0) {
            network = *entry;
        }
    }
    std::strncpy(network.psk, argv[2], sizeof network.psk - 1);
    page->receiveAPManageInfo(3, network);
    const double join = longestSilence(isLinked);

    std::printf("ticks scan %.1f join %.1f draw %.1f\n", scan, join, static_cast<double>(s_longestDrawing) / 1e6);
    std::fflush(stdout);
    RaWifiManager::close();
    return scan >= 0 && join >= 0 ? 0 : 1;
}
