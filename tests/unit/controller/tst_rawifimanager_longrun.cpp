// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiManager.h"

#include "filecommands.h"
#include "heapgrowth.h"
#include "latch.h"
#include "managertest.h"
#include "processusage.h"
#include "rawifimonitor.h"
#include "silence.h"

#include <QtTest>

// A thousand joins and ten thousand polls of the monitor leave nothing behind in the process.

using namespace managertest;

namespace {

const APData openNetwork = network(1, "Open", false);
const APData lockedNetwork = network(2, "Locked", true, 3, "password");

QList<APData> air()
{
    return QList<APData>() << openNetwork << lockedNetwork;
}

/** What a process may lose piece by piece, besides memory, once its workers have ended. */
QByteArray held()
{
    waitForWorkers();
    return QByteArray::number(processusage::descriptorCount()) + " descriptors, "
           + QByteArray::number(processusage::threads().size()) + " threads, "
           + QByteArray::number(processusage::childCount()) + " children";
}

/** Scripts that work, and none of the commands before in the fakes' memory. */
void forgetCommands()
{
    fakesystem::reset();
    fakesystem::carryOutFilesBy(carryOutFilesHere);
    setScripts();
    setScan(air());
}

/** How many joins were started, and how many came to the end that was meant. */
struct Ends
{
    int started = 0;
    int joined = 0;
    int failed = 0;
    int cancelled = 0;
};

void join(Page& page, const APData& network)
{
    page->receiveAPManageInfo(3, network);
    waitForWorkers();
}

/** A scan takes the place of a join that hangs in its script: whether it did, and shows its rows. */
bool cancelJoin(Page& page)
{
    Latch hangs;
    Latch never;
    fakesystem::answer("callwpaconf.sh", [hangs, never]() mutable {
        hangs.open();
        never.wait();
    });
    page->receiveAPManageInfo(3, lockedNetwork);
    const bool isUnderWay = waitFor([&hangs] { return hangs.isOpen(); });
    page->recAPSwitch(false);
    page->recAPSwitch(true);
    return waitForWorkers() && isUnderWay && !getIsConnect() && page.rows().size() == 2;
}

/** One join, each kind of end in turn. */
void joinOnce(Page& page, Ends& ends)
{
    const int turn = ends.started++ % 4;
    forgetCommands();
    setLink(false);
    if (turn < 2) {
        join(page, turn == 0 ? lockedNetwork : openNetwork);
        ends.joined += getIsConnect() ? 1 : 0;
    } else if (turn == 2) {
        breakScript("getip.sh");
        join(page, openNetwork);
        ends.failed += getIsConnect() ? 0 : 1;
    } else {
        ends.cancelled += cancelJoin(page) ? 1 : 0;
    }
    sweep(); // the rows of the scan before, as an event loop would
}

/** A monitor that polls without a pause, through everything that a poll may find. */
class Watch : public QObject
{
    Q_OBJECT
public:
    explicit Watch(RaWifiMonitor* monitor) : m_monitor(monitor)
    {
        connect(monitor, SIGNAL(sendNetWorkStatus(int,int,QString)), this, SLOT(status(int,int)));
        connect(monitor, SIGNAL(sendMonitorConMsg(QString)), this, SLOT(confirmed()));
        monitor->setTimerRun(0);
        monitor->recCheckAPConnect(QLatin1String(openNetwork.macAddr), 3);
    }

    void pollTenTimes()
    {
        forgetCommands();
        fakesystem::answer("getconnectstatus.sh", [this] { writeStatus(polls++ % 10); });
        const int goal = polls + 10;
        waitFor([this, goal] {
            if (!g_monitorStatus) {
                m_monitor->setWifiConnectStatus(1, 1);
            }
            return polls >= goal;
        });
        m_monitor->timerStop();
    }

    int polls = 0;
    int ups = 0;
    int ends = 0;

private Q_SLOTS:
    void status(int, int connectStatus) { ++(connectStatus == 2 ? ups : ends); }
    void confirmed() { ++ups; }

private:
    // Of ten polls the second that misses and the one that cannot be read end the watch.
    static void writeStatus(int turn)
    {
        const QByteArray state = turn == 3 || turn == 7 ? "SCANNING" : "COMPLETED";
        if (turn == 9) {
            QFile::remove(QLatin1String(answer));
        } else {
            fakesystem::writeFile(answer, "bssid=" + QByteArray(openNetwork.macAddr)
                                              + "\nssid=Open\nid=0\nkey_mgmt=NONE\nwpa_state=" + state
                                              + "\nip_address=192.168.7.23\n");
        }
    }

    RaWifiMonitor* m_monitor;
};

} // namespace

class TestRaWifiManagerLongRun : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aThousandJoinsLeaveNothingBehind();
    void tenThousandPollsLeaveNothingBehind();
};

void TestRaWifiManagerLongRun::initTestCase()
{
    prepare();
}

void TestRaWifiManagerLongRun::init()
{
    freshDevice();
    forgetCommands();
}

void TestRaWifiManagerLongRun::cleanup()
{
    RaWifiManager::close();
    QVERIFY(isIdle());
}

void TestRaWifiManagerLongRun::aThousandJoinsLeaveNothingBehind()
{
    ShownPage page(air());
    Ends ends;
    long growth = 0;
    QByteArray before;
    QByteArray after;
    {
        const Silence silence;
        for (int i = 0; i < 20; ++i) {
            joinOnce(page, ends);
        }
        before = held();
        growth = heapGrowth([&] { joinOnce(page, ends); });
        after = held();
    }
    QCOMPARE(after, before);
    QVERIFY2(growth < HeapNoise, QByteArray::number(int(growth)).constData());
    QVERIFY(ends.started >= 1000);
    QCOMPARE(ends.joined + ends.failed + ends.cancelled, ends.started);
    qInfo("%d joins: %d joined, %d failed, %d cancelled; %ld bytes of growth in 1000; %s", ends.started, ends.joined,
          ends.failed, ends.cancelled, growth, before.constData());
}

void TestRaWifiManagerLongRun::tenThousandPollsLeaveNothingBehind()
{
    ShownPage page(air());
    Watch watch(page->findChild<RaWifiMonitor*>());
    long growth = 0;
    QByteArray before;
    QByteArray after;
    {
        const Silence silence;
        watch.pollTenTimes();
        before = held();
        growth = heapGrowth([&watch] { watch.pollTenTimes(); });
        after = held();
    }
    QCOMPARE(after, before);
    QVERIFY2(growth < HeapNoise, QByteArray::number(int(growth)).constData());
    QVERIFY(watch.polls >= 10000);
    QCOMPARE(watch.ups * 10, watch.polls * 7);
    QCOMPARE(watch.ends * 10, watch.polls * 2);
    qInfo("%d polls: %d found the link, %d its end; %ld bytes of growth in 10000; %s", watch.polls, watch.ups,
          watch.ends, growth, before.constData());
}

int main(int argc, char** argv)
{
    return run<TestRaWifiManagerLongRun>(argc, argv);
}

#include "tst_rawifimanager_longrun.moc"
