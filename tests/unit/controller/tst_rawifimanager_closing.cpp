// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiManager.h"

#include "latch.h"
#include "managertest.h"
#include "trace.h"

#include <QtTest>
#include <atomic>
#include <dlfcn.h>
#include <pthread.h>

// The manager is closed in the middle of a worker's work, and workers' reports that come too late.

using namespace managertest;

namespace {

const APData openNetwork = network(1, "Open", false);
const APData otherNetwork = network(2, "Other", false);

QList<APData> air()
{
    return QList<APData>() << openNetwork << otherNetwork;
}

const QByteArray dhcpBegins = "run rm /home/wifi/temp.txt -f;rm /home/wifi/result3 -f";
const QByteArray addressScript = "run sh /usr/bin/getip.sh;touch /home/wifi/result3";

const pthread_t g_mainThread = pthread_self();
std::atomic<int> g_workerWaits{0};

/** Whether the calling thread has no name of its own: those of the toolkit have one. */
bool isWorkerThread()
{
    char name[16] = "";
    char mainName[16] = "";
    pthread_getname_np(pthread_self(), name, sizeof name);
    pthread_getname_np(g_mainThread, mainName, sizeof mainName);
    return !pthread_equal(pthread_self(), g_mainThread) && qstrcmp(name, mainName) == 0;
}

/** Returns once a worker waits for another thread, which it did not when there were \a waits; no event is handled. */
bool waitUntilAWorkerWaits(int waits)
{
    return waitWithoutEvents([waits] { return g_workerWaits > waits; });
}

/** What each thread of a join does; the DHCP stage is known by its first step. */
class JoinTrace
{
public:
    enum Side { Connecting, Dhcp };
    typedef std::function<void(Side side, int step, const QByteArray& entry)> Hook;

    explicit JoinTrace(const Hook& hook)
    {
        m_trace.onEntry([this, hook](const QByteArray& entry) {
            if (isGuiThread() || entry == "sync") {
                return; // no point at which a worker can be stopped
            }
            thread_local int step = 0;
            thread_local Side side = entry == dhcpBegins ? Dhcp : Connecting;
            {
                const std::lock_guard<std::mutex> lock(m_mutex);
                m_steps[side] << entry;
            }
            hook(side, step++, entry);
        });
    }

    Lines steps(Side side) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_steps[side];
    }

private:
    Trace m_trace;
    mutable std::mutex m_mutex;
    Lines m_steps[2];
};

Lines connectingSteps()
{
    return killing() << "run rm -f /etc/wpa_supplicant.conf"
                     << "sleep 5"
                     << "run sh /usr/bin/callwpaconf.sh;touch /home/wifi/result3"
                     << "sleep 5"
                     << "run wpa_cli -i wlan0 status"
                     << "run rm /home/wifi/result3 -f"
                     << "sleep 5" << dhcpBegins << dhcpBegins << "sleep 5" << addressScript << "sleep 5"
                     << "run rm /home/wifi/result3 -f"
                     << "run route add default gw 192.168.7.1"
                     << "sleep 1000"
                     << "run echo 192.168.7.23 >/home/wifi/ipinfo.txt"
                     << "run echo 3 >/home/wifi/signal.txt"
                     << "sleep 1000"
                     << "run echo 1 >/home/wifi/linkap.txt"
                     << "run echo 02:00:00:00:00:01 >/home/wifi/curmac.txt"
                     << "sleep 1000"
                     << "run route add default gw 192.168.7.1";
}

Lines dhcpSteps()
{
    return Lines() << dhcpBegins << "sleep 1000"
                   << "run sh /usr/bin/dhcp_setip.sh;touch /home/wifi/result3"
                   << "sleep 1000"
                   << "run rm /home/wifi/result3 -f";
}

void addRows(const Lines& steps)
{
    QTest::addColumn<int>("step");
    for (int i = 0; i < steps.size(); ++i) {
        QTest::newRow((QByteArray::number(i) + ' ' + steps.at(i)).constData()) << i;
    }
}

/** Shows the page with the rows of the air, without a scan. */
void showRows(const Page& page)
{
    setAir(air());
    page->show();
    page->recRefreshList();
}

/** Whether a new manager scans as the first one did. */
bool worksAnew()
{
    fakesystem::reset();
    setScripts();
    setScan(air());
    Page page;
    return scan(page) && page.rows().size() == 2;
}

} // namespace

extern "C" int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex)
{
    typedef int (*Wait)(pthread_cond_t*, pthread_mutex_t*);
    static const Wait real = reinterpret_cast<Wait>(dlsym(RTLD_NEXT, "pthread_cond_wait"));
    g_workerWaits += isWorkerThread() ? 1 : 0;
    return real(condition, mutex);
}

class TestRaWifiManagerClosing : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void atEachStepOfAScan_data();
    void atEachStepOfAScan();
    void atEachStepOfAJoin_data();
    void atEachStepOfAJoin();
    void atEachStepOfTheDhcpStage_data();
    void atEachStepOfTheDhcpStage();
    void whileAWorkerWaitsForTheGuiThread_data();
    void whileAWorkerWaitsForTheGuiThread();
    void whileAWorkerWaitsForTheOneBefore();
    void atOnceAfterAStart_data();
    void atOnceAfterAStart();
    void whileAnErrorIsShown();
    void whenTheEndOfAScanIsAnnounced();
    void whenThePageIsLeft_data();
    void whenThePageIsLeft();

    void aJoinsSuccessThatComesTooLateIsNotShown();
    void aScansEndThatComesTooLateIsNotShown();
};

void TestRaWifiManagerClosing::initTestCase()
{
    prepare();
}

void TestRaWifiManagerClosing::init()
{
    freshDevice();
}

void TestRaWifiManagerClosing::cleanup()
{
    RaWifiManager::close();
    QVERIFY(waitWithoutEvents(isIdle));
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    QVERIFY(!pWnd);
    QVERIFY(!g_PassParam.owner);
    QCoreApplication::processEvents(); // nothing is left for the manager
    fakesystem::reset();
    QCOMPARE(unexpectedWarnings(), QStringList());
}

// --- Closing ---------------------------------------------------------------------------------------------

void TestRaWifiManagerClosing::atEachStepOfAScan_data()
{
    addRows(opening(true));
}

void TestRaWifiManagerClosing::atEachStepOfAScan()
{
    QFETCH(int, step);
    Latch there;
    Latch never;
    std::atomic<int> steps{0};
    Trace trace;
    trace.onEntry([&](const QByteArray&) {
        if (!isGuiThread() && steps++ == step) {
            there.open();
            never.wait();
        }
    });
    {
        const Page page;
        page->show();
        page->recAPSwitch(true);
        QVERIFY(waitFor([&] { return there.isOpen(); }));
    }
    QVERIFY(waitWithoutEvents(isIdle));
    QCOMPARE(trace.elsewhere(), opening(true).mid(0, step + 1)); // and nothing more
    QVERIFY(worksAnew());
}

void TestRaWifiManagerClosing::atEachStepOfAJoin_data()
{
    addRows(connectingSteps());
}

void TestRaWifiManagerClosing::atEachStepOfAJoin()
{
    QFETCH(int, step);
    Latch there;
    Latch never;
    JoinTrace trace([&](JoinTrace::Side side, int at, const QByteArray&) {
        if (side == JoinTrace::Dhcp) {
            never.wait(); // out of the other's way
        } else if (at == step) {
            there.open();
            never.wait();
        }
    });
    {
        const Page page;
        showRows(page);
        page->receiveAPManageInfo(3, openNetwork);
        QVERIFY(waitFor([&] { return there.isOpen(); }));
    }
    QVERIFY(waitWithoutEvents(isIdle));
    QCOMPARE(trace.steps(JoinTrace::Connecting), connectingSteps().mid(0, step + 1));
    QVERIFY(trace.steps(JoinTrace::Dhcp).size() <= 1);
    QVERIFY(worksAnew());
}

void TestRaWifiManagerClosing::atEachStepOfTheDhcpStage_data()
{
    addRows(dhcpSteps());
}

void TestRaWifiManagerClosing::atEachStepOfTheDhcpStage()
{
    QFETCH(int, step);
    Latch there;
    Latch never;
    JoinTrace trace([&](JoinTrace::Side side, int at, const QByteArray& entry) {
        if (side == JoinTrace::Dhcp && at == step) {
            there.open();
            never.wait();
        } else if (side == JoinTrace::Connecting && entry == addressScript) {
            never.wait(); // out of the other's way
        }
    });
    {
        const Page page;
        showRows(page);
        page->receiveAPManageInfo(3, openNetwork);
        QVERIFY(waitFor([&] { return there.isOpen(); }));
    }
    QVERIFY(waitWithoutEvents(isIdle));
    QCOMPARE(trace.steps(JoinTrace::Dhcp), dhcpSteps().mid(0, step + 1));
    QVERIFY(worksAnew());
}

void TestRaWifiManagerClosing::whileAWorkerWaitsForTheGuiThread_data()
{
    QTest::addColumn<bool>("isJoin");
    QTest::addColumn<bool>("isAtItsEnd");
    QTest::newRow("a scan, for the windows to be made") << false << false;
    QTest::newRow("a scan, for its list to be taken") << false << true;
    QTest::newRow("a join, for its network to be noted") << true << false;
    QTest::newRow("a join, for its success to be shown") << true << true;
}

void TestRaWifiManagerClosing::whileAWorkerWaitsForTheGuiThread()
{
    QFETCH(bool, isJoin);
    QFETCH(bool, isAtItsEnd);
    const int last = static_cast<int>((isJoin ? connectingSteps() : opening(true)).size()) - 1;
    Latch there;
    Latch go;
    Latch never;
    JoinTrace trace([&](JoinTrace::Side side, int at, const QByteArray&) {
        if (side == JoinTrace::Dhcp) {
            never.wait();
        } else if (isAtItsEnd && at == last) {
            there.open();
            go.wait();
        }
    });
    {
        const Page page;
        showRows(page);
        int waits = g_workerWaits;
        isJoin ? page->receiveAPManageInfo(3, openNetwork) : void(page->recAPSwitch(true));
        if (isAtItsEnd) {
            QVERIFY(waitFor([&] { return there.isOpen(); }));
            waits = g_workerWaits;
            go.open();
        }
        QVERIFY(waitUntilAWorkerWaits(waits));
    }
    QVERIFY(waitWithoutEvents(isIdle));
    QVERIFY(worksAnew());
}

void TestRaWifiManagerClosing::whileAWorkerWaitsForTheOneBefore()
{
    {
        const Page page;
        page->show();
        const int waits = g_workerWaits;
        page->recAPSwitch(true);
        QVERIFY(waitUntilAWorkerWaits(waits)); // for this thread, so that it cannot be cancelled
        page->recAPSwitch(false);
        page->recAPSwitch(true);
        QVERIFY(waitUntilAWorkerWaits(waits + 1)); // the second one for the first
        page->receiveAPManageInfo(3, openNetwork);
        QVERIFY(waitUntilAWorkerWaits(waits + 2)); // and the third one for the second
    }
    QVERIFY(waitWithoutEvents(isIdle));
    QVERIFY(worksAnew());
}

void TestRaWifiManagerClosing::atOnceAfterAStart_data()
{
    QTest::addColumn<bool>("isJoin");
    QTest::newRow("of a scan") << false;
    QTest::newRow("of a join") << true;
}

void TestRaWifiManagerClosing::atOnceAfterAStart()
{
    QFETCH(bool, isJoin);
    for (int i = 0; i < 30; ++i) {
        const Page page;
        isJoin ? page->receiveAPManageInfo(3, openNetwork) : void(page->recAPSwitch(true));
        for (int wait = 0; wait < i; ++wait) {
            std::this_thread::yield();
            QCoreApplication::processEvents();
        }
    }
    QVERIFY(waitWithoutEvents(isIdle));
    QVERIFY(worksAnew());
}

void TestRaWifiManagerClosing::whileAnErrorIsShown()
{
    {
        const Page page;
        showRows(page);
        breakScript("getip.sh");
        page->receiveAPManageInfo(3, openNetwork);
        QVERIFY(waitForWorkers());
        QVERIFY(page.message()->isVisible());
    }
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    QVERIFY(worksAnew());
}

void TestRaWifiManagerClosing::whenTheEndOfAScanIsAnnounced()
{
    Page page;
    bool isClosed = false;
    connect(page.get(), &RaWifiManager::sendRefreshList, this, [&isClosed] {
        RaWifiManager::close();
        isClosed = true;
    });
    page->show();
    page->recAPSwitch(true);
    QVERIFY(waitFor([&] { return isClosed; }));
    QVERIFY(worksAnew());
}

void TestRaWifiManagerClosing::whenThePageIsLeft_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<int>("connection");
    QTest::newRow("by the back mark, at once") << false << int(Qt::DirectConnection);
    QTest::newRow("by the back mark, a little later") << false << int(Qt::QueuedConnection);
    QTest::newRow("by a key, at once") << true << int(Qt::DirectConnection);
    QTest::newRow("by a key, a little later") << true << int(Qt::QueuedConnection);
}

void TestRaWifiManagerClosing::whenThePageIsLeft()
{
    QFETCH(bool, byKey);
    QFETCH(int, connection);
    const Page page;
    page->resize(320, 480);
    page->show();
    connect(
        page.get(), &RaWifiManager::backPressed, this, [] { RaWifiManager::close(); }, Qt::ConnectionType(connection));
    const QPointer<RaWifiManager> watched(page.get());
    QWindow* const screen = page->windowHandle();
    if (byKey) {
        QTest::keyPress(screen, Qt::Key_Escape); // its release finds no window
    } else {
        QTest::mouseClick(screen, Qt::LeftButton, Qt::NoModifier, QPoint(25, 25));
    }
    QVERIFY(waitFor([&] { return watched.isNull(); }));
    QVERIFY(worksAnew());
}

// --- Too late --------------------------------------------------------------------------------------------

void TestRaWifiManagerClosing::aJoinsSuccessThatComesTooLateIsNotShown()
{
    const int last = static_cast<int>(connectingSteps().size()) - 1;
    std::atomic<bool> isSecond{false};
    Latch atTheEnd;
    Latch go;
    Latch inTheSecond;
    Latch goOn;
    JoinTrace trace([&](JoinTrace::Side side, int at, const QByteArray&) {
        if (side == JoinTrace::Connecting && !isSecond && at == last) {
            atTheEnd.open();
            go.wait();
        } else if (side == JoinTrace::Connecting && isSecond && at == 0) {
            inTheSecond.open();
            goOn.wait();
        }
    });
    const Page page;
    showRows(page);
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitFor([&] { return atTheEnd.isOpen(); }));
    const int waits = g_workerWaits;
    go.open();
    QVERIFY(waitUntilAWorkerWaits(waits));
    isSecond = true;
    page->receiveAPManageInfo(3, otherNetwork);
    QVERIFY(waitFor([&] { return inTheSecond.isOpen(); })); // the first one has been heard out
    QCOMPARE(page.state("Open"), QByteArray("idle"));
    QCOMPARE(page.state("Other"), QByteArray("joining"));
    QVERIFY(!page.takesTaps());
    goOn.open();
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state("Other"), QByteArray("joined"));
    QVERIFY(page.takesTaps());
}

void TestRaWifiManagerClosing::aScansEndThatComesTooLateIsNotShown()
{
    const int last = static_cast<int>(opening(true).size()) - 1;
    std::atomic<bool> isSecond{false};
    Latch atTheEnd;
    Latch go;
    Latch inTheSecond;
    Latch goOn;
    JoinTrace trace([&](JoinTrace::Side, int at, const QByteArray&) {
        if (!isSecond && at == last) {
            atTheEnd.open();
            go.wait();
        } else if (isSecond && at == 0) {
            inTheSecond.open();
            goOn.wait();
        }
    });
    const Page page;
    page->show();
    setScan(air());
    QSignalSpy refreshes(page.get(), SIGNAL(sendRefreshList()));
    page->recAPSwitch(true);
    QVERIFY(waitFor([&] { return atTheEnd.isOpen(); }));
    const int waits = g_workerWaits;
    go.open();
    QVERIFY(waitUntilAWorkerWaits(waits));
    isSecond = true;
    page->recAPSwitch(false);
    page->recAPSwitch(true);
    QVERIFY(waitFor([&] { return inTheSecond.isOpen(); }));
    QCOMPARE(static_cast<int>(refreshes.size()), 0);
    QVERIFY(page.saysDiscovering());
    goOn.open();
    QVERIFY(waitForWorkers());
    QCOMPARE(static_cast<int>(refreshes.size()), 1);
    QVERIFY(!page.saysDiscovering());
    QCOMPARE(static_cast<int>(page.rows().size()), 2);
}

int main(int argc, char** argv)
{
    return managertest::run<TestRaWifiManagerClosing>(argc, argv);
}

#include "tst_rawifimanager_closing.moc"
