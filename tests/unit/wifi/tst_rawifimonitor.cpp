// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifimonitor.h"

#include "declaredmethods.h"
#include "fakesystem.h"
#include "hostilefiles.h"
#include "qtwarnings.h"
#include "rawifiglobals.h"

#include <QDir>
#include <QTimer>
#include <QtTest>

namespace {

const char answer[] = "/home/wifi/temp.txt";
const char linkFile[] = "/home/wifi/linkap.txt";
const char pollCommand[] = "sh /usr/bin/getconnectstatus.sh;touch /home/wifi/result";

const QString expectedMac = QStringLiteral("00:1a:2b:3c:4d:5e");

/** What one poll finds. */
enum Poll { Good, OtherMac, Bad, Unreadable };

QByteArray statusText(Poll poll)
{
    const QByteArray mac = poll == OtherMac ? QByteArray("66:66:66:66:66:66") : expectedMac.toLatin1();
    return "bssid=" + mac + "\nssid=Home\nid=0\nkey_mgmt=WPA2-PSK\nwpa_state="
           + (poll == Bad ? "SCANNING" : "COMPLETED") + "\nip_address=192.168.7.23\n";
}

/** Has the next polls find this. */
void finding(Poll poll)
{
    if (poll == Unreadable) {
        fakesystem::answer("getconnectstatus.sh", [] { QFile::remove(QLatin1String(answer)); });
    } else {
        fakesystem::answer("getconnectstatus.sh", [poll] { fakesystem::writeFile(answer, statusText(poll)); });
    }
}

/** A monitor whose signals are noted as text. */
class WatchedMonitor : public RaWifiMonitor
{
public:
    WatchedMonitor() : RaWifiMonitor(nullptr)
    {
        connect(this, &RaWifiMonitor::sendNetWorkStatus, this, [this](int type, int status, const QString& mac) {
            note("status " + QByteArray::number(type) + ' ' + QByteArray::number(status) + ' ' + mac.toLatin1());
        });
        connect(this, &RaWifiMonitor::sendMonitorConMsg, this,
                [this](const QString& mac) { note("confirmed " + mac.toLatin1()); });
        connect(this, &RaWifiMonitor::sendAPIPMsg, this, [this] { note("ip"); });
    }

    QTimer* timer() { return findChild<QTimer*>(); }
    bool isArmed() { return timer()->isActive(); }

    QByteArray takeNotes()
    {
        const QByteArray notes = m_notes.join(',');
        m_notes.clear();
        return notes;
    }

private:
    void note(const QByteArray& text) { m_notes << text; }

    QList<QByteArray> m_notes;
};

} // namespace

class TestRaWifiMonitor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void signalsAndSlotsAreThoseOfTheInterface();
    void idleAfterConstruction();
    void pollsEveryEightSecondsUnlessToldOtherwise();
    void aNewIntervalTakesEffectAtTheNextStart();
    void startingAndStoppingTheTimer();
    void takingChargeOfALink_data();
    void takingChargeOfALink();
    void readsTheStatusFromTheScriptsAnswer_data();
    void readsTheStatusFromTheScriptsAnswer();
    void aStatusReadFailureIsSeenAsSuch();
    void aPollWritesToNothingPlanted();
    void pollsRunThroughTheirStates_data();
    void pollsRunThroughTheirStates();
    void everyPollRunsOneScriptAndStopsTheTimerMeanwhile();
    void aChangedLimitIsStillTwo();
    void theIntervalCallForgetsTheMisses();
    void stoppingTakesEffectWithTheNextExpiry();
    void anUnreadableStatusForgetsTheSignalAndEndsTheWatch();
    void theTimerItselfPolls();
    void theFirstConfirmationIsSentOnce();
    void anAddressOfAnotherLengthNeverMatches();
    void aHandlerMayStartTheMonitorAgain();
};

void TestRaWifiMonitor::initTestCase()
{
    QtWarnings::start();
}

void TestRaWifiMonitor::init()
{
    fakesystem::reset();
    QDir(QLatin1String("/home/wifi")).removeRecursively();
    QDir().mkpath(QLatin1String("/home/wifi"));
    g_monitorStatus = false;
}

void TestRaWifiMonitor::cleanup()
{
    QCOMPARE(QtWarnings::take(), QString());
}

void TestRaWifiMonitor::signalsAndSlotsAreThoseOfTheInterface()
{
    QCOMPARE(declaredMethods(RaWifiMonitor::staticMetaObject),
             QList<QByteArray>() << "signal sendNetWorkStatus(int,int,QString) cmdtype,connectstatus,macAddr"
                                 << "signal sendMonitorConMsg(QString) linkmadress"
                                 << "signal sendAPIPMsg() "
                                 << "slot timeout() "
                                 << "slot recCheckAPConnect(QString,int) linkmadress,signalvalue");
}

void TestRaWifiMonitor::idleAfterConstruction()
{
    QWidget parent;
    RaWifiMonitor* monitor = new RaWifiMonitor(&parent);
    QCOMPARE(monitor->parentWidget(), &parent);
    const QList<QTimer*> timers = monitor->findChildren<QTimer*>();
    QCOMPARE(static_cast<int>(timers.size()), 1);
    QVERIFY(!timers.first()->isActive());
    QVERIFY(!g_monitorStatus);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

void TestRaWifiMonitor::pollsEveryEightSecondsUnlessToldOtherwise()
{
    WatchedMonitor monitor;
    monitor.timerStart();
    QCOMPARE(monitor.timer()->interval(), 8000);
}

void TestRaWifiMonitor::aNewIntervalTakesEffectAtTheNextStart()
{
    WatchedMonitor monitor;
    monitor.timerStart();
    QCOMPARE(monitor.setTimerRun(1234), 0);
    QCOMPARE(monitor.timer()->interval(), 8000);
    monitor.timerStart();
    QCOMPARE(monitor.timer()->interval(), 1234);
}

void TestRaWifiMonitor::startingAndStoppingTheTimer()
{
    WatchedMonitor monitor;
    QCOMPARE(monitor.timerStart(), 0);
    QVERIFY(monitor.isArmed());
    QVERIFY(g_monitorStatus);
    QCOMPARE(monitor.timerStop(), 0);
    QVERIFY(!monitor.isArmed());
    QVERIFY(!g_monitorStatus);
}

void TestRaWifiMonitor::takingChargeOfALink_data()
{
    QTest::addColumn<bool>("armedBefore");
    QTest::addColumn<int>("start");
    QTest::addColumn<bool>("armed");
    QTest::addColumn<bool>("status");
    QTest::newRow("idle, started") << false << 1 << true << true;
    QTest::newRow("idle, started by any number") << false << -3 << true << true;
    QTest::newRow("idle, not started") << false << 0 << false << false;
    QTest::newRow("polling, started again") << true << 1 << true << true;
    QTest::newRow("polling, not started: the timer stays as it was") << true << 0 << true << false;
}

void TestRaWifiMonitor::takingChargeOfALink()
{
    QFETCH(bool, armedBefore);
    QFETCH(int, start);
    QFETCH(bool, armed);
    QFETCH(bool, status);
    WatchedMonitor monitor;
    if (armedBefore) {
        monitor.timerStart();
    }
    QCOMPARE(monitor.setWifiConnectStatus(7, start), 0);
    QCOMPARE(monitor.isArmed(), armed);
    QCOMPARE(g_monitorStatus, status);
    // In charge in every case: a poll arms the timer again.
    finding(OtherMac);
    monitor.timeout();
    QVERIFY(monitor.isArmed());
    QVERIFY(g_monitorStatus);
}

void TestRaWifiMonitor::readsTheStatusFromTheScriptsAnswer_data()
{
    QTest::addColumn<int>("poll");
    QTest::addColumn<int>("result");
    QTest::newRow("linked") << static_cast<int>(Good) << 1;
    QTest::newRow("not linked") << static_cast<int>(Bad) << 1;
    QTest::newRow("no file") << static_cast<int>(Unreadable) << 0;
}

void TestRaWifiMonitor::readsTheStatusFromTheScriptsAnswer()
{
    QFETCH(int, poll);
    QFETCH(int, result);
    finding(static_cast<Poll>(poll));
    WatchedMonitor monitor;
    QCOMPARE(monitor.getAPStatus(), result);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << pollCommand);
    QCOMPARE(fakesystem::exists("/home/wifi/result"), true);
    QCOMPARE(fakesystem::sleeps(), QList<int>());
}

void TestRaWifiMonitor::aStatusReadFailureIsSeenAsSuch()
{
    fakesystem::answer("getconnectstatus.sh", [] {
        QFile::remove(QLatin1String(answer));
        QDir().mkpath(QLatin1String(answer)); // there, but no file to read
    });
    WatchedMonitor monitor;
    QCOMPARE(monitor.getAPStatus(), 0);
}

void TestRaWifiMonitor::aPollWritesToNothingPlanted()
{
    const char marker[] = "/home/wifi/result";
    HostileFiles hostile;
    WatchedMonitor monitor;
    finding(Good);
    for (const HostileFiles::Kind kind : HostileFiles::traps()) {
        hostile.plant(marker, kind, "as it was");
        QCOMPARE(monitor.getAPStatus(), 1);
        QVERIFY2(hostile.isUntouched(), HostileFiles::name(kind));
        QVERIFY2(QFileInfo(QLatin1String(marker)).isFile(), HostileFiles::name(kind));
    }
}

void TestRaWifiMonitor::pollsRunThroughTheirStates_data()
{
    struct Step
    {
        Poll poll;
        QByteArray notes;
        QByteArray file;
        bool armed;
    };
    const QByteArray mac = expectedMac.toLatin1();
    const Step confirmed = {Good, "confirmed " + mac, "1\n", true};
    const Step good = {Good, "status 0 2 " + mac, "1\n", true};
    const Step other = {OtherMac, "", "", true};
    const Step miss = {Bad, "", "", true};
    const Step lost = {Bad, "status 0 0 " + mac, "0\n", false};
    const Step unreadable = {Unreadable, "status 0 0 ", "", false};

    QTest::addColumn<QList<int>>("polls");
    QTest::addColumn<QList<QByteArray>>("notes");
    QTest::addColumn<QList<QByteArray>>("files");
    QTest::addColumn<QList<bool>>("armed");
    QTest::addColumn<bool>("nextMissIsTheFirst");
    const auto row = [](const char* name, const QList<Step>& steps, bool nextMissIsTheFirst = true) {
        QList<int> polls;
        QList<QByteArray> notes;
        QList<QByteArray> files;
        QList<bool> armed;
        for (const Step& step : steps) {
            polls << step.poll;
            notes << step.notes;
            files << step.file;
            armed << step.armed;
        }
        QTest::newRow(name) << polls << notes << files << armed << nextMissIsTheFirst;
    };
    row("the first miss is silent", QList<Step>() << miss, false);
    row("the second miss is a lost link", QList<Step>() << miss << lost);
    row("good polls", QList<Step>() << confirmed << good << good);
    row("a good poll does not forget a miss", QList<Step>() << miss << confirmed << good << lost);
    row("nor does one on another access point", QList<Step>() << miss << other << lost);
    row("another access point is silent", QList<Step>() << other << other);
    row("the confirmation waits for the right one", QList<Step>() << other << confirmed << other << good);
    row("unreadable ends at once", QList<Step>() << unreadable);
    row("unreadable after a miss", QList<Step>() << miss << unreadable, false);
    row("unreadable after good ones", QList<Step>() << confirmed << good << unreadable);
}

void TestRaWifiMonitor::pollsRunThroughTheirStates()
{
    QFETCH(QList<int>, polls);
    QFETCH(QList<QByteArray>, notes);
    QFETCH(QList<QByteArray>, files);
    QFETCH(QList<bool>, armed);
    QFETCH(bool, nextMissIsTheFirst);
    WatchedMonitor monitor;
    monitor.recCheckAPConnect(expectedMac, 3);
    QVERIFY(!monitor.isArmed());
    monitor.setWifiConnectStatus(1, 1);
    for (int i = 0; i < polls.size(); ++i) {
        QFile::remove(QLatin1String(linkFile));
        const int syncs = fakesystem::syncs();
        finding(static_cast<Poll>(polls.at(i)));
        monitor.timeout();
        QCOMPARE(monitor.takeNotes(), notes.at(i));
        QCOMPARE(fakesystem::readFile(linkFile), files.at(i));
        QCOMPARE(fakesystem::syncs() - syncs, files.at(i).isEmpty() ? 0 : 1);
        QCOMPARE(monitor.isArmed(), armed.at(i));
        QCOMPARE(g_monitorStatus, armed.at(i));
    }
    // A new start does not forget misses; only a link reported lost does.
    monitor.setWifiConnectStatus(1, 1);
    finding(Bad);
    monitor.timeout();
    QCOMPARE(monitor.isArmed(), nextMissIsTheFirst);
}

void TestRaWifiMonitor::everyPollRunsOneScriptAndStopsTheTimerMeanwhile()
{
    WatchedMonitor monitor;
    monitor.recCheckAPConnect(expectedMac, 3);
    monitor.setWifiConnectStatus(1, 1);
    finding(Good);
    bool armedMeanwhile = true;
    fakesystem::beforeCommand([&](const QByteArray&) { armedMeanwhile = monitor.isArmed(); });
    monitor.timeout();
    QVERIFY(!armedMeanwhile);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << pollCommand << "echo 1 >/home/wifi/linkap.txt");
}

void TestRaWifiMonitor::aChangedLimitIsStillTwo()
{
    WatchedMonitor monitor;
    QCOMPARE(monitor.setConnectNunmber(5), 0);
    monitor.setWifiConnectStatus(1, 1);
    finding(Bad);
    monitor.timeout();
    QCOMPARE(monitor.takeNotes(), QByteArray());
    monitor.timeout();
    QCOMPARE(monitor.takeNotes(), "status 0 0 " + expectedMac.toLatin1());
}

void TestRaWifiMonitor::theIntervalCallForgetsTheMisses()
{
    WatchedMonitor monitor;
    monitor.setWifiConnectStatus(1, 1);
    finding(Bad);
    monitor.timeout();
    monitor.setTimerRun(8000);
    monitor.timeout();
    QCOMPARE(monitor.takeNotes(), QByteArray());
    QVERIFY(monitor.isArmed());
}

void TestRaWifiMonitor::stoppingTakesEffectWithTheNextExpiry()
{
    WatchedMonitor monitor;
    monitor.recCheckAPConnect(expectedMac, 3);
    monitor.setWifiConnectStatus(1, 1);
    QCOMPARE(monitor.setStopFlag(), 0);
    QVERIFY(monitor.isArmed());
    finding(Good);
    monitor.timeout();
    QCOMPARE(monitor.takeNotes(), QByteArray()); // the expectation is forgotten, too
    QVERIFY(!monitor.isArmed());
    QVERIFY(!g_monitorStatus);
}

void TestRaWifiMonitor::anUnreadableStatusForgetsTheSignalAndEndsTheWatch()
{
    WatchedMonitor monitor;
    monitor.setWifiConnectStatus(1, 1);
    finding(Unreadable);
    monitor.timeout();
    monitor.takeNotes();
    // No longer in charge: a further poll does not arm the timer.
    finding(OtherMac);
    monitor.timeout();
    QVERIFY(!monitor.isArmed());
}

void TestRaWifiMonitor::theTimerItselfPolls()
{
    WatchedMonitor monitor;
    monitor.recCheckAPConnect(expectedMac, 3);
    monitor.setTimerRun(0);
    finding(Bad);
    monitor.setWifiConnectStatus(1, 1);
    QTRY_VERIFY(!monitor.isArmed());
    QCOMPARE(fakesystem::count(pollCommand), 2);
    QCOMPARE(monitor.takeNotes(), "status 0 0 " + expectedMac.toLatin1());
    QCOMPARE(fakesystem::readFile(linkFile), QByteArray("0\n"));
}

void TestRaWifiMonitor::theFirstConfirmationIsSentOnce()
{
    WatchedMonitor monitor;
    monitor.setWifiConnectStatus(1, 1);
    finding(Good);
    for (int round = 0; round < 2; ++round) {
        monitor.recCheckAPConnect(expectedMac, 3);
        monitor.timeout();
        QCOMPARE(monitor.takeNotes(), "confirmed " + expectedMac.toLatin1());
        monitor.timeout();
        QCOMPARE(monitor.takeNotes(), "status 0 2 " + expectedMac.toLatin1());
    }
}

void TestRaWifiMonitor::anAddressOfAnotherLengthNeverMatches()
{
    WatchedMonitor monitor;
    monitor.setWifiConnectStatus(1, 1);
    finding(Good);
    const QStringList others = QStringList() << QString() << expectedMac.left(16) << expectedMac + QLatin1Char('\n')
                                             << expectedMac.toUpper();
    for (const QString& other : others) {
        monitor.recCheckAPConnect(other, 3);
        monitor.timeout();
        QCOMPARE(monitor.takeNotes(), QByteArray());
    }
}

void TestRaWifiMonitor::aHandlerMayStartTheMonitorAgain()
{
    WatchedMonitor monitor;
    connect(&monitor, &RaWifiMonitor::sendNetWorkStatus, &monitor, [&monitor](int, int connected) {
        if (connected == 0) {
            monitor.setWifiConnectStatus(0, 1);
        }
    });
    monitor.setWifiConnectStatus(1, 1);
    finding(Unreadable);
    monitor.timeout();
    QVERIFY(monitor.isArmed());
    QVERIFY(g_monitorStatus);
    finding(OtherMac);
    monitor.timeout();
    QVERIFY(monitor.isArmed());
}

QTEST_MAIN(TestRaWifiMonitor)
#include "tst_rawifimonitor.moc"
