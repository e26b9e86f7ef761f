// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiManager.h"

#include "latch.h"
#include "loggedmessages.h"
#include "managertest.h"
#include "trace.h"

#include <QtTest>
#include <atomic>

// The workers: how they are started and what they do, and one that comes in another's way.

using namespace managertest;

namespace {

const APData openNetwork = network(1, "Open", false);
const APData otherNetwork = network(2, "Other", false);

QList<APData> air()
{
    return QList<APData>() << openNetwork << otherNetwork;
}

const QByteArray noHandle = "Not a valid thread handle.";
const QByteArray hasEnded = "thread is not exist or already exit";
const QByteArray isAlive = "pthread is alive";
const QByteArray starting = "call pthread thread_scanap ";

/** What the start of a worker says. */
template<typename Work>
Lines startMessages(Work work)
{
    return only(Lines() << noHandle << hasEnded << "signal is invaild" << isAlive << starting, loggedMessages(work));
}

/** Holds a worker at one point, as a trace has it, until it is let go or cancelled. */
class Hold
{
public:
    Hold(Trace& trace, const QByteArray& point) : m_point(point)
    {
        trace.onEntry([this](const QByteArray& entry) {
            if (!isGuiThread() && entry == m_point && !m_there.isOpen()) {
                m_there.open();
                m_go.wait();
            }
        });
    }

    bool isReached() { return m_there.isOpen(); }
    void letGo() { m_go.open(); }

private:
    const QByteArray m_point;
    Latch m_there;
    Latch m_go;
};

const char scanning[] = "run sh /usr/bin/getfirstaplist.sh;touch /home/wifi/result3";
const char configuring[] = "run sh /usr/bin/callwpaconf.sh;touch /home/wifi/result3";

/** The threads on which widgets get events. */
class WidgetWatch : public QObject
{
public:
    WidgetWatch() { qApp->installEventFilter(this); }
    ~WidgetWatch() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent*) override
    {
        if (watched->isWidgetType()) {
            ++(isGuiThread() ? here : elsewhere);
        }
        return false;
    }

    std::atomic<int> here{0};
    std::atomic<int> elsewhere{0};
};

} // namespace

class TestRaWifiManagerWorkers : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theFirstScanHasNoHandleToProbe();
    void aScanAfterAnEndedWorkerIsToldSo_data();
    void aScanAfterAnEndedWorkerIsToldSo();
    void aScanDuringAScanTakesItsPlace();
    void aJoinIsStartedWithoutAWord_data();
    void aJoinIsStartedWithoutAWord();
    void theHandleIsThatOfTheLastStart();

    void theScanWorkerOpensWifiAndRefreshesThePage();
    void theScanWorkerFindsALink();
    void theScanFunctionLogsItsSteps();
    void theScanFunctionWithoutAManagerGivesUp();
    void theConnectFunctionLogsItsSteps();
    void theConnectFunctionWithoutWorkGivesUp_data();
    void theConnectFunctionWithoutWorkGivesUp();
    void theWorkBlockDuringAJoinAndAfterIt();
    void theExportedMutexIsReleased_data();
    void theExportedMutexIsReleased();
    void joiningReturnsTheServicesResult_data();
    void joiningReturnsTheServicesResult();
    void windowsAreTouchedOnTheGuiThreadOnly();
    void theLocalAddressIsFetchedByTheWorker();

    void aJoinDuringAScanTakesItsPlace();
    void ofTwoJoinsAtOnceTheLaterCounts_data();
    void ofTwoJoinsAtOnceTheLaterCounts();
    void aScanDuringAJoinReleasesTheList();
    void aLinkFoundAfterSwitchingOffDoesNotSwitchOn();
    void aRefreshOnItsWayShowsNoRowsAfterSwitchingOff_data();
    void aRefreshOnItsWayShowsNoRowsAfterSwitchingOff();
    void aScanThatEndsAfterSwitchingOffIsNotShown_data();
    void aScanThatEndsAfterSwitchingOffIsNotShown();

    void everyCallJoinsTheNextSavedNetwork_data();
    void everyCallJoinsTheNextSavedNetwork();
    void withALinkNoSavedNetworkIsTried();
    void withoutACandidateTheListIsShown_data();
    void withoutACandidateTheListIsShown();
    void aSavedNetworkTakesAJoinsPlace();
    void automaticModeIsNotAUsersPick();
};

void TestRaWifiManagerWorkers::initTestCase()
{
    prepare();
}

void TestRaWifiManagerWorkers::init()
{
    freshDevice();
}

void TestRaWifiManagerWorkers::cleanup()
{
    RaWifiManager::close();
    QVERIFY(waitWithoutEvents(isIdle));
    fakesystem::reset();
    QCOMPARE(unexpectedWarnings(), QStringList());
}

// --- Starting --------------------------------------------------------------------------------------------

void TestRaWifiManagerWorkers::theFirstScanHasNoHandleToProbe()
{
    Page page;
    setScan(air());
    QCOMPARE(startMessages([&] { page->recAPSwitch(true); }), Lines() << noHandle << starting);
    QVERIFY(waitForWorkers());
    QCOMPARE(static_cast<int>(APDataArray.size()), 2);
}

void TestRaWifiManagerWorkers::aScanAfterAnEndedWorkerIsToldSo_data()
{
    QTest::addColumn<bool>("wasAJoin");
    QTest::addColumn<bool>("ofAnotherManager");
    QTest::newRow("a scan") << false << false;
    QTest::newRow("a join") << true << false;
    QTest::newRow("a scan of a manager that is gone") << false << true;
}

void TestRaWifiManagerWorkers::aScanAfterAnEndedWorkerIsToldSo()
{
    QFETCH(bool, wasAJoin);
    QFETCH(bool, ofAnotherManager);
    Page page;
    if (wasAJoin) {
        breakScript("callwpaconf.sh");
        page->receiveAPManageInfo(0, openNetwork);
        QVERIFY(waitForWorkers());
    } else {
        QVERIFY(scan(page));
        page->recAPSwitch(false);
    }
    if (ofAnotherManager) {
        RaWifiManager::close();
    }
    setScan(air());
    RaWifiManager* const manager = RaWifiManager::instance();
    QCOMPARE(startMessages([&] { manager->recAPSwitch(true); }), Lines() << hasEnded << starting);
    QVERIFY(waitForWorkers());
    QCOMPARE(static_cast<int>(APDataArray.size()), 2);
}

void TestRaWifiManagerWorkers::aScanDuringAScanTakesItsPlace()
{
    Trace trace;
    Hold first(trace, scanning);
    Page page;
    page->show();
    QSignalSpy refreshes(page.get(), SIGNAL(sendRefreshList()));
    page->recAPSwitch(true);
    QVERIFY(waitFor([&] { return first.isReached(); }));
    page->recAPSwitch(false);
    setScan(air());
    QCOMPARE(startMessages([&] { page->recAPSwitch(true); }), Lines() << isAlive << starting);
    QVERIFY(page.saysDiscovering());
    QVERIFY(waitForWorkers());
    Lines steps = opening(true);
    steps.removeLast(); // the first one did not get past its script
    QCOMPARE(trace.elsewhere(), steps + opening(false));
    QCOMPARE(static_cast<int>(refreshes.size()), 1);
    QCOMPARE(static_cast<int>(page.rows().size()), 2);
    QVERIFY(!page.saysDiscovering());
    QVERIFY(page.isSwitchOn());
}

void TestRaWifiManagerWorkers::aJoinIsStartedWithoutAWord_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::newRow("never a worker") << QByteArray();
    QTest::newRow("after a scan") << QByteArray("ended");
    QTest::newRow("during a scan") << QByteArray("alive");
}

void TestRaWifiManagerWorkers::aJoinIsStartedWithoutAWord()
{
    QFETCH(QByteArray, before);
    Trace trace;
    Hold scan(trace, before == "alive" ? scanning : "");
    Page page;
    if (!before.isEmpty()) {
        page->recAPSwitch(true);
        QVERIFY(before == "alive" ? waitFor([&] { return scan.isReached(); }) : waitForWorkers());
    }
    QCOMPARE(startMessages([&] { page->receiveAPManageInfo(3, openNetwork); }), Lines());
    QVERIFY(waitForWorkers());
    QVERIFY(getIsConnect()); // joined
}

void TestRaWifiManagerWorkers::theHandleIsThatOfTheLastStart()
{
    Page page;
    QCOMPARE(p_thread_msg, pthread_t(0));
    Latch go;
    pthread_t self = 0;
    fakesystem::answerCommand("ifconfig wlan0 down", [&] {
        go.wait();
        self = pthread_self();
    });
    page->recAPSwitch(true);
    const pthread_t scan = p_thread_msg;
    go.open();
    QVERIFY(waitForWorkers());
    QCOMPARE(scan, self);
    fakesystem::answer("callwpaconf.sh", [&] { self = pthread_self(); });
    page->receiveAPManageInfo(3, openNetwork);
    const pthread_t join = p_thread_msg;
    QVERIFY(waitForWorkers());
    QCOMPARE(join, self);
    QCOMPARE(p_thread_connectap, pthread_t(0));
}

// --- At work ---------------------------------------------------------------------------------------------

void TestRaWifiManagerWorkers::theScanWorkerOpensWifiAndRefreshesThePage()
{
    Page page;
    setScan(air());
    const Trace trace;
    bool isRefreshedHere = false;
    QThread* emittedOn = nullptr;
    connect(
        page.get(), &RaWifiManager::sendRefreshList, page.get(), [&] { emittedOn = QThread::currentThread(); },
        Qt::DirectConnection);
    connect(page.get(), &RaWifiManager::sendRefreshList, page.get(), [&] { isRefreshedHere = isGuiThread(); });
    QVERIFY(scan(page));
    QCOMPARE(trace.elsewhere(), opening(true));
    QCOMPARE(trace.here(), Lines());
    QVERIFY(emittedOn && emittedOn != QThread::currentThread());
    QVERIFY(isRefreshedHere);
    QCOMPARE(static_cast<int>(page.rows().size()), 2);
    QVERIFY(!page.list()->isHidden());
}

void TestRaWifiManagerWorkers::theScanWorkerFindsALink()
{
    Page page;
    setLink(true);
    setAir(air());
    page->show();
    const Trace trace;
    QVERIFY(scan(page));
    QCOMPARE(trace.elsewhere(), Lines());
    QVERIFY(page.isSwitchOn());
    QVERIFY(!page.saysDiscovering());
    QCOMPARE(static_cast<int>(page.rows().size()), 2);
}

void TestRaWifiManagerWorkers::theScanFunctionLogsItsSteps()
{
    const Page page;
    QSignalSpy refreshes(page.get(), SIGNAL(sendRefreshList()));
    const QByteArray where =
        QByteArray::number(static_cast<uint>(reinterpret_cast<quintptr>(page.get())), 16).toUpper().rightJustified(4);
    const Lines steps = Lines() << "call pthread scan dev "
                                << "--thread_scanap point =" + where + "--"
                                << "--RaWifiManager point =" + where + "--"
                                << "data.size is 0";
    void* result = this;
    const Lines log = loggedMessages([&] { result = thread_scanap(page.get()); });
    QVERIFY(!result);
    QCOMPARE(only(steps, log), steps);
    QCOMPARE(static_cast<int>(refreshes.size()), 1);
}

void TestRaWifiManagerWorkers::theScanFunctionWithoutAManagerGivesUp()
{
    const Page page;
    const Lines commands = fakesystem::commands();
    const Lines log = loggedMessages([] { thread_scanap(nullptr); });
    QCOMPARE(log.first(), QByteArray("call pthread scan dev "));
    QCOMPARE(log.last(), QByteArray("pWnd == NULL"));
    QCOMPARE(fakesystem::commands(), commands);
}

void TestRaWifiManagerWorkers::theConnectFunctionLogsItsSteps()
{
    const Page page;
    APData wep = network(7, "Old", true, 2, "abcde");
    wep.encry[0] = WEP;
    wep.authMode = 1;
    wep.keyIndex = 2;
    const Lines steps = Lines() << "value =1\n"
                                << "Call connectUserSelectAP"
                                << " -encry 2 \n"
                                << " macAddr =02:00:00:00:00:07\n"
                                << " essid =Old\n"
                                << " password = abcde\n"
                                << " sigquality = 2 \n"
                                << " authMode =1\n"
                                << " keyindex = 2\n"
                                << "ssid =02:00:00:00:00:07,psk= abcde \n"
                                << " CALL connectCertainAP fun \n"
                                << "-encry 2 ,macAddr =02:00:00:00:00:07,essid =Old,password = abcde,sigquality = 2 "
                                   "authMode =1,keyindex = 2"
                                << "...result = 0\n";
    const Lines log = loggedMessages([&] {
        page->receiveAPManageInfo(3, wep);
        waitForWorkers();
    });
    QCOMPARE(only(steps, log), steps);
    const QByteArray config = fakesystem::readFile("/etc/wpa_supplicant.conf");
    QVERIFY(config.contains("\"Old\"") && config.contains("wep_key2") && config.contains("abcde"));
}

void TestRaWifiManagerWorkers::theConnectFunctionWithoutWorkGivesUp_data()
{
    QTest::addColumn<bool>("hasOwner");
    QTest::addColumn<bool>("hasRecord");
    QTest::newRow("no owner") << false << true;
    QTest::newRow("no record") << true << false;
    QTest::newRow("neither") << false << false;
}

void TestRaWifiManagerWorkers::theConnectFunctionWithoutWorkGivesUp()
{
    QFETCH(bool, hasOwner);
    QFETCH(bool, hasRecord);
    const Page page;
    g_PassParam.owner = hasOwner ? page.get() : nullptr;
    if (!hasRecord) {
        delete g_PassParam.pinfo;
        g_PassParam.pinfo = nullptr;
    }
    m_conMux.lock();
    const Lines commands = fakesystem::commands();
    const Lines log = loggedMessages([] { thread_connectuseap(reinterpret_cast<void*>(1)); });
    Lines expected = Lines() << "value =1\n";
    if (!hasRecord) {
        expected << "g_PassParam.pinfo == NULL";
    }
    QCOMPARE(log, expected << "Call connectUserSelectAP");
    QCOMPARE(fakesystem::commands(), commands);
    QCOMPARE(pWnd, g_PassParam.owner);
    QVERIFY(m_conMux.tryLock());
    m_conMux.unlock();
}

void TestRaWifiManagerWorkers::theWorkBlockDuringAJoinAndAfterIt()
{
    Trace trace;
    Hold join(trace, configuring);
    const Page page;
    const APData requested = network(5, "Locked", true, 4, "the password");
    page->receiveAPManageInfo(0, requested);
    QVERIFY(waitFor([&] { return join.isReached(); }));
    QCOMPARE(g_PassParam.text, QLatin1String("the password"));
    QCOMPARE(g_PassParam.owner, page.get());
    QCOMPARE(pWnd, page.get());
    QCOMPARE(std::memcmp(g_PassParam.pinfo, &requested, sizeof requested), 0);
    join.letGo();
    QVERIFY(waitForWorkers());
    QCOMPARE(g_PassParam.text, QString());
    QCOMPARE(QByteArray(g_PassParam.pinfo->essid), QByteArray("Locked"));
}

void TestRaWifiManagerWorkers::theExportedMutexIsReleased_data()
{
    QTest::addColumn<bool>("isLocked");
    QTest::newRow("locked by the host") << true;
    QTest::newRow("not locked") << false;
}

void TestRaWifiManagerWorkers::theExportedMutexIsReleased()
{
    QFETCH(bool, isLocked);
    const Page page;
    if (isLocked) {
        m_conMux.lock();
    }
    page->receiveAPManageInfo(0, openNetwork);
    QVERIFY(waitForWorkers());
    QVERIFY(m_conMux.tryLock());
    QVERIFY(!m_conMux.tryLock()); // not recursive
    m_conMux.unlock();
}

void TestRaWifiManagerWorkers::joiningReturnsTheServicesResult_data()
{
    QTest::addColumn<QByteArray>("deadScript");
    QTest::addColumn<int>("result");
    QTest::newRow("joined") << QByteArray() << 0;
    QTest::newRow("the supplicant does not start") << QByteArray("callwpaconf.sh") << -2;
    QTest::newRow("there is no address") << QByteArray("getip.sh") << -3;
}

void TestRaWifiManagerWorkers::joiningReturnsTheServicesResult()
{
    QFETCH(QByteArray, deadScript);
    QFETCH(int, result);
    const ShownPage page(air());
    if (!deadScript.isEmpty()) {
        breakScript(deadScript.constData());
    }
    int got = 1;
    std::atomic<bool> isOver{false};
    std::thread worker([&] {
        got = page->connectUserSelectAP("02:00:00:00:00:01", NOENCRY, "Open", "", 3, 0, 0);
        isOver = true;
    });
    QVERIFY(waitFor([&] { return isOver.load(); }));
    worker.join();
    QCOMPARE(got, result);
    QCOMPARE(getIsConnect(), result == 0);
    QCOMPARE(page.state("Open"), QByteArray("idle")); // the success flag is the worker's business
}

void TestRaWifiManagerWorkers::windowsAreTouchedOnTheGuiThreadOnly()
{
    Page page;
    page->show();
    setScan(air());
    WidgetWatch watch;
    QVERIFY(scan(page));
    breakScript("getip.sh");
    page->receiveAPManageInfo(3, openNetwork); // shows the message window
    QVERIFY(waitForWorkers());
    setScripts();
    page->receiveAPManageInfo(3, openNetwork); // hides it, and marks the row
    page.message()->show();
    QVERIFY(waitForWorkers());
    QVERIFY(page.message()->isHidden());
    page->recAPSwitch(false);
    QVERIFY(scan(page)); // there is a link now
    QVERIFY(watch.here > 0);
    QCOMPARE(watch.elsewhere.load(), 0);
}

void TestRaWifiManagerWorkers::theLocalAddressIsFetchedByTheWorker()
{
    breakScript("getlocalmac.sh");
    Page page;
    setScripts();
    const Trace trace;
    QVERIFY(scan(page));
    QCOMPARE(trace.here(), Lines()); // a script would hold the windows up
    QCOMPARE(trace.elsewhere(), Lines() << "run rm -f /home/wifi/temp.txt"
                                        << "run sh /usr/bin/getlocalmac.sh;touch /home/wifi/result3"
                                        << "run rm /home/wifi/result3 -f" << opening(true));
}

// --- One worker in another's way -------------------------------------------------------------------------

void TestRaWifiManagerWorkers::aJoinDuringAScanTakesItsPlace()
{
    ShownPage page(air());
    page->recAPSwitch(false);
    Trace trace;
    Hold scan(trace, "run sh /usr/bin/getaplist.sh;touch /home/wifi/result3 ");
    QSignalSpy refreshes(page.get(), SIGNAL(sendRefreshList()));
    page->recAPSwitch(true);
    QVERIFY(waitFor([&] { return scan.isReached(); }));
    QVERIFY(page.saysDiscovering());
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(!page.saysDiscovering());
    QVERIFY(waitForWorkers());
    Lines steps = opening(false);
    steps.last() = "run killall udhcpc"; // the join's first step, once the scan has ended in its script
    QCOMPARE(trace.elsewhere().mid(0, steps.size()), steps);
    QCOMPARE(static_cast<int>(refreshes.size()), 0);
    QVERIFY(getIsConnect());
}

void TestRaWifiManagerWorkers::ofTwoJoinsAtOnceTheLaterCounts_data()
{
    QTest::addColumn<int>("msgid");
    QTest::newRow("both marked") << 3;
    QTest::newRow("the later one not marked") << 0;
}

void TestRaWifiManagerWorkers::ofTwoJoinsAtOnceTheLaterCounts()
{
    QFETCH(int, msgid);
    const ShownPage page(air());
    Trace trace;
    Hold first(trace, configuring);
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitFor([&] { return first.isReached(); }));
    page->receiveAPManageInfo(msgid, otherNetwork);
    QCOMPARE(page.state("Open"), QByteArray("idle"));
    QCOMPARE(page.state("Other"), QByteArray(msgid == 3 ? "joining" : "idle"));
    QCOMPARE(page.takesTaps(), msgid != 3);
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state("Open"), QByteArray("idle"));
    QCOMPARE(page.state("Other"), QByteArray("joined"));
    QVERIFY(page.takesTaps());
    QCOMPARE(fakesystem::readFile("/home/wifi/curmac.txt"), QByteArray("02:00:00:00:00:02\n"));
    QVERIFY(!fakesystem::readFile("/apps/config/network.conf").contains("Open"));
}

void TestRaWifiManagerWorkers::aScanDuringAJoinReleasesTheList()
{
    const ShownPage page(air());
    Trace trace;
    Hold join(trace, configuring);
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitFor([&] { return join.isReached(); }));
    page->recAPSwitch(false);
    QCOMPARE(startMessages([&] { page->recAPSwitch(true); }), Lines() << isAlive << starting);
    QVERIFY(waitForWorkers());
    QCOMPARE(static_cast<int>(page.rows().size()), 2);
    QCOMPARE(page.state("Open"), QByteArray("idle"));
    QVERIFY(page.takesTaps());
    QVERIFY(!getIsConnect());
}

void TestRaWifiManagerWorkers::aLinkFoundAfterSwitchingOffDoesNotSwitchOn()
{
    Page page;
    page->show();
    setLink(true);
    QSignalSpy refreshes(page.get(), SIGNAL(sendRefreshList()));
    page->recAPSwitch(true);
    page->recAPSwitch(false); // the worker still waits for this thread to make the windows
    QVERIFY(waitForWorkers());
    QVERIFY(!page.isSwitchOn());
    QCOMPARE(static_cast<int>(refreshes.size()), 0);
}

void TestRaWifiManagerWorkers::aRefreshOnItsWayShowsNoRowsAfterSwitchingOff_data()
{
    QTest::addColumn<bool>("byTheSwitch");
    QTest::newRow("by the switch") << true;
    QTest::newRow("by the host") << false;
}

void TestRaWifiManagerWorkers::aRefreshOnItsWayShowsNoRowsAfterSwitchingOff()
{
    QFETCH(bool, byTheSwitch);
    Page page;
    page->show();
    setScan(air());
    connect(page.get(), &RaWifiManager::sendRefreshList, page.get(), [&] {
        QMetaObject::invokeMethod(page.get(), "recRefreshList", Qt::QueuedConnection); // as a worker's comes
        byTheSwitch ? page->recAPSwitch(false) : page->closeWifi();
    });
    QVERIFY(scan(page));
    QCoreApplication::processEvents();
    QVERIFY(page.rows().isEmpty());
    QVERIFY(!page.isSwitchOn());
    page->sendRefreshList();
    QVERIFY(page.rows().isEmpty());
}

void TestRaWifiManagerWorkers::aScanThatEndsAfterSwitchingOffIsNotShown_data()
{
    QTest::addColumn<bool>("byTheSwitch");
    QTest::newRow("by the switch") << true;
    QTest::newRow("by the host") << false;
}

void TestRaWifiManagerWorkers::aScanThatEndsAfterSwitchingOffIsNotShown()
{
    QFETCH(bool, byTheSwitch);
    Page page;
    page->show();
    setScan(air());
    Trace trace;
    Hold held(trace, scanning);
    QSignalSpy refreshes(page.get(), SIGNAL(sendRefreshList()));
    page->recAPSwitch(true);
    QVERIFY(waitFor([&] { return held.isReached(); }));
    byTheSwitch ? page->recAPSwitch(false) : page->closeWifi();
    held.letGo();
    QVERIFY(waitForWorkers());
    QCOMPARE(trace.elsewhere(), opening(true)); // it is not cut short
    QCOMPARE(static_cast<int>(refreshes.size()), 0);
    QVERIFY(page.rows().isEmpty());
    QVERIFY(!page.isSwitchOn());
    QVERIFY(!page.saysDiscovering());

    QVERIFY(scan(page));
    QCOMPARE(static_cast<int>(refreshes.size()), 1);
    QCOMPARE(static_cast<int>(page.rows().size()), 2);
}

// --- Saved networks --------------------------------------------------------------------------------------

void TestRaWifiManagerWorkers::everyCallJoinsTheNextSavedNetwork_data()
{
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<QList<int>>("resultsAfterTheLast");
    QTest::newRow("on: the list is made anew at once") << true << (QList<int>() << -1 << 0);
    QTest::newRow("off: they start over once it was told") << false << (QList<int>() << -1 << -1 << 0);
}

void TestRaWifiManagerWorkers::everyCallJoinsTheNextSavedNetwork()
{
    QFETCH(bool, isOn);
    QFETCH(QList<int>, resultsAfterTheLast);
    const APData first = network(3, "First", true, 3, "first password");
    const APData second = network(4, "Second", true, 3, "second password");
    saveNetworks(QList<APData>() << first << network(9, "Out of reach") << second);
    ShownPage page(QList<APData>() << second << openNetwork << first);
    if (!isOn) {
        page->recAPSwitch(false);
    }
    breakScript("callwpaconf.sh"); // no attempt succeeds
    Host host;
    const char* const expected[] = {"first password", "second password"};
    for (const char* password : expected) {
        const int attempts = fakesystem::count("killall udhcpc");
        g_isAutoMode = 0;
        QCOMPARE(page->connectCertainAP(), 0);
        QCOMPARE(g_isAutoMode, 1);
        QVERIFY(waitForWorkers());
        QCOMPARE(host.take(), Lines() << "linkend");
        QCOMPARE(fakesystem::count("killall udhcpc"), attempts + 1);
        QVERIFY(fakesystem::readFile("/etc/wpa_supplicant.conf").contains(password));
    }
    for (const int result : resultsAfterTheLast) {
        const int attempts = fakesystem::count("killall udhcpc");
        QCOMPARE(page->connectCertainAP(), result);
        QVERIFY(waitForWorkers());
        QCOMPARE(host.take(), Lines() << "linkend");
        QCOMPARE(fakesystem::count("killall udhcpc"), attempts + (result == 0 ? 1 : 0));
    }
    QVERIFY(fakesystem::readFile("/etc/wpa_supplicant.conf").contains("first password"));
}

void TestRaWifiManagerWorkers::withALinkNoSavedNetworkIsTried()
{
    saveNetworks(air());
    const ShownPage page(air());
    setLink(true);
    Host host;
    const Lines commands = fakesystem::commands();
    QCOMPARE(page->connectCertainAP(), -1);
    QVERIFY(waitForWorkers());
    QCOMPARE(host.take(), Lines());
    QCOMPARE(fakesystem::commands(), commands);
}

void TestRaWifiManagerWorkers::withoutACandidateTheListIsShown_data()
{
    QTest::addColumn<bool>("isOn");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestRaWifiManagerWorkers::withoutACandidateTheListIsShown()
{
    QFETCH(bool, isOn);
    Page page;
    page->show();
    setScan(QList<APData>() << openNetwork);
    isOn ? page->recAPSwitch(true) : page->openWifi(1);
    QVERIFY(waitForWorkers());
    page->recRefreshList();
    page.list()->recWifiListMsg(openNetwork, true);
    QCOMPARE(page.state("Open"), QByteArray("joined"));
    setAir(QList<APData>() << network(1, "Weak", true, 1) << network(2, "Strong", true, 4));
    page.list()->hide();
    QWidget above(page.get());
    above.show();

    Host host;
    QCOMPARE(page->connectCertainAP(), -1);
    QCOMPARE(host.take(), Lines() << "linkend");
    QCOMPARE(page.list()->isVisible(), isOn);
    QCOMPARE(QByteArray(APDataArray.first()->essid), QByteArray(isOn ? "Strong" : "Weak")); // the list's order
    QCOMPARE(page->children().last() == page.list(), isOn);                                 // raised
    QCOMPARE(page.state("Open"), QByteArray("idle"));
    QCOMPARE(g_isAutoMode, 0);
    QVERIFY(isIdle());
}

void TestRaWifiManagerWorkers::aSavedNetworkTakesAJoinsPlace()
{
    saveNetworks(QList<APData>() << otherNetwork);
    const ShownPage page(air());
    Trace trace;
    Hold first(trace, configuring);
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitFor([&] { return first.isReached(); }));
    QCOMPARE(page->connectCertainAP(), 0);
    QCOMPARE(page.state("Open"), QByteArray("idle"));
    QVERIFY(page.takesTaps());
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state("Other"), QByteArray("joined"));
}

void TestRaWifiManagerWorkers::automaticModeIsNotAUsersPick()
{
    saveNetworks(QList<APData>() << otherNetwork);
    const ShownPage page(air());
    QCOMPARE(page->connectCertainAP(), 0);
    QCOMPARE(g_isAutoMode, 1);
    page->receiveAPManageInfo(3, openNetwork);
    QCOMPARE(g_isAutoMode, 0);
    QVERIFY(waitForWorkers());
}

int main(int argc, char** argv)
{
    return managertest::run<TestRaWifiManagerWorkers>(argc, argv);
}

#include "tst_rawifimanager_workers.moc"
