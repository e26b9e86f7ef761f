// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
//
// A device without a clock of its own starts in 1970, and is set, back or forth, when it has joined a network.
#include "joining.h"
#include "rawifimonitor.h"

#include <QSignalSpy>
#include <QtTest>
#include <atomic>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

const time_t year2100 = 4102444800;
const time_t hour = 3600;

std::atomic<int> g_looks{0};
std::atomic<time_t> g_start{0}; // 0: the real time
std::atomic<time_t> g_step{0};  // added at each look at the clock

time_t now()
{
    return g_start + g_step * ++g_looks;
}

/** What the library leaves behind and reads again, as old as it can be. */
void setAgeOfFiles(time_t seconds)
{
    for (const char* path : {joining::answer, joining::marker, "/home/wifi/result", joining::store}) {
        if (!fakesystem::exists(path)) {
            fakesystem::writeFile(path, QByteArray());
        }
        const timespec times[2] = {{seconds, 0}, {seconds, 0}};
        QCOMPARE(utimensat(AT_FDCWD, path, times, 0), 0);
    }
}

} // namespace

// The calls that tell the time of day; what counts from power-on is left alone.
extern "C" {

time_t time(time_t* out) noexcept
{
    timespec real;
    syscall(SYS_clock_gettime, CLOCK_REALTIME, &real);
    const time_t seconds = g_start != 0 ? now() : real.tv_sec;
    if (out) {
        *out = seconds;
    }
    return seconds;
}

int clock_gettime(clockid_t clock, timespec* out) noexcept
{
    const int result = static_cast<int>(syscall(SYS_clock_gettime, clock, out));
    if (g_start != 0 && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE)) {
        out->tv_sec = now();
    }
    return result;
}

int gettimeofday(timeval* out, void*) noexcept
{
    out->tv_sec = time(nullptr);
    out->tv_usec = 0;
    return 0;
}
}

class TestClockSetBack : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void scanJoinAndPollsGoOn_data();
    void scanJoinAndPollsGoOn();
};

void TestClockSetBack::scanJoinAndPollsGoOn_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("step");
    QTest::addColumn<qint64>("filesFrom");
    QTest::newRow("as it should be") << qint64(0) << qint64(0) << qint64(hour);
    QTest::newRow("an hour back at each look") << qint64(year2100) << qint64(-hour) << qint64(year2100);
    QTest::newRow("a day forth at each look") << qint64(hour) << qint64(24 * hour) << qint64(hour);
    QTest::newRow("stopped in 1970") << qint64(1) << qint64(0) << qint64(year2100);
}

void TestClockSetBack::scanJoinAndPollsGoOn()
{
    QFETCH(qint64, start);
    QFETCH(qint64, step);
    QFETCH(qint64, filesFrom);
    joining::freshDevice();
    joining::goodScripts();
    const auto scan = [] {
        fakesystem::writeFile(joining::answer, "00:1a:2b:3c:4d:5e\t2412\t-45\t[WPA2-PSK-CCMP][ESS]\tHome\n");
    };
    fakesystem::answer("getfirstaplist.sh", scan);
    fakesystem::answer("getaplist.sh", scan);
    fakesystem::answer("getconnectstatus.sh", [] {
        fakesystem::writeFile(joining::answer, "bssid=00:1a:2b:3c:4d:5e\nkey_mgmt=WPA2-PSK\nwpa_state=COMPLETED\n");
    });
    setAgeOfFiles(static_cast<time_t>(filesFrom));
    g_looks = 0;
    g_step = static_cast<time_t>(step);
    g_start = static_cast<time_t>(start);

    RaWifiService service(0, nullptr);
    service.loadAPList();
    const int networks = service.getwifilistcount();
    setAgeOfFiles(static_cast<time_t>(filesFrom));
    const int joined = joining::joinToTheEnd(service, joining::Request());

    // The watchdog counts from power-on: it expires when it is due.
    QTimer* const watchdog = joining::watchdogOf(service);
    joining::expire(watchdog);

    // So does the monitor: three polls, each armed by the one before.
    RaWifiMonitor monitor(nullptr);
    QSignalSpy confirmed(&monitor, SIGNAL(sendNetWorkStatus(int, int, QString)));
    monitor.recCheckAPConnect(joining::Request().mac, 3);
    monitor.setTimerRun(0);
    monitor.setWifiConnectStatus(2, 1);
    QTRY_VERIFY(confirmed.count() >= 2);
    const int looks = g_looks;
    g_start = 0;

    QCOMPARE(networks, 1);
    QCOMPARE(joined, 0);
    QCOMPARE(fakesystem::readFile("/home/wifi/linkap.txt"), QByteArray("1\n"));
    QVERIFY(start == 0 || looks > 0); // the clock was really asked
}

QTEST_MAIN(TestClockSetBack)
#include "tst_clocksetback.moc"
