// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "capturedoutput.h"
#include "fakesystem.h"
#include "hostilefiles.h"
#include "joining.h"
#include "loggedmessages.h"
#include "qtwarnings.h"
#include "rawifidata.h"
#include "rawifiglobals.h"
#include "trace.h"

#include <QTimer>
#include <QtTest>
#include <algorithm>
#include <cstring>
#include <dlfcn.h>
#include <functional>
#include <memory>
#include <pthread.h>
#include <thread>

using namespace joining;

namespace {

typedef QList<QByteArray> Lines;

std::function<void()> g_afterThreadStart;

/** A sequence of trace entries in the making. */
class Steps
{
public:
    Steps& run(const QByteArray& command) { return add("run " + command); }
    Steps& sleep(int milliseconds) { return add("sleep " + QByteArray::number(milliseconds)); }
    Steps& tell(const QByteArray& text, int errflag = 0, const QByteArray& name = "Home")
    {
        return add("tell 0|" + name + '|' + text + '|' + QByteArray::number(errflag));
    }
    Steps& add(const QByteArray& entry)
    {
        lines << entry;
        return *this;
    }
    Lines lines;
};

Steps upToTheConfiguration()
{
    Steps steps;
    steps.run("killall udhcpc").sleep(1000).run("/usr/bin/wpa_cli -i wlan0 terminate").sleep(1000);
    steps.run("rm -f /etc/wpa_supplicant.conf");
    return steps;
}

Steps upToLoading(bool isWep = false)
{
    Steps steps = upToTheConfiguration().add("sync");
    if (isWep) {
        steps.run("cat /etc/wpa_supplican.conf");
    }
    return steps.sleep(5).run(loadConfig).sleep(5).run("wpa_cli -i wlan0 status");
}

Steps upToTheDhcpStage(bool isWep = false)
{
    Steps steps = upToLoading(isWep);
    return steps.run(removeMarker).sleep(5).tell("verifying information").run(removeAnswerAndMarker);
}

Steps upToTheAddressLoop(bool isWep = false)
{
    Steps steps = upToTheDhcpStage(isWep);
    return steps.tell("Retrieving the IP information").add("sendPrgStop").run(removeAnswerAndMarker).sleep(5);
}

/** One try without a marker, with what follows unless it was the last. */
void missedTry(Steps& steps, bool isLast = false)
{
    steps.run(getAddress).sleep(5);
    if (!isLast) {
        steps.sleep(2000);
    }
}

void failedRead(Steps& steps, bool isLast = false)
{
    steps.run(getAddress).sleep(5).run(removeMarker);
    if (!isLast) {
        steps.sleep(2000);
    }
}

void successfulTryToTheEnd(Steps& steps, const QByteArray& sigquality = "3")
{
    steps.run(getAddress).sleep(5).run(removeMarker);
    steps.tell("Setting  Network information").run("route add default gw 192.168.7.1").sleep(1000);
    steps.tell("HomeSuccessful connection");
    steps.run("echo 192.168.7.23 >/home/wifi/ipinfo.txt");
    steps.run("echo " + sigquality + " >/home/wifi/signal.txt").sleep(1000);
    steps.add("sync"); // the store
    steps.run("echo 1 >/home/wifi/linkap.txt").add("sync");
    steps.run("echo 00:1a:2b:3c:4d:5e >/home/wifi/curmac.txt").add("sync");
    steps.add("sync").sleep(1000).run("route add default gw 192.168.7.1");
    steps.add("sendCheckAPConnect 00:1a:2b:3c:4d:5e|" + sigquality);
    steps.add("sendSetStatusMsg 00:1a:2b:3c:4d:5e|true");
}

Lines dhcpStage()
{
    Steps steps;
    return steps.run(removeAnswerAndMarker).sleep(1000).run(runDhcp).sleep(1000).run(removeMarker).lines;
}

Lines dhcpStageWithoutMarker()
{
    Steps steps;
    return steps.run(removeAnswerAndMarker).sleep(1000).run(runDhcp).sleep(1000).lines;
}

QByteArray configuration(const Lines& settings)
{
    return "# Simple case: WPA-PSK, PSK as an ASCII passphrase, allow all valid ciphers\n"
           "ctrl_interface=/var/run/wpa_supplicant\n"
           "ctrl_interface_group=0\n"
           "ap_scan=1\n"
           "network={\n"
           "\tssid=\"Home\"\n"
           + settings.join('\n') + "\n}\n";
}

/**
 * Keeps the DHCP stage out of the connecting thread's way: it starts its work when the address is being
 * retrieved, and the connecting thread goes on when it has ended. So what each thread does has one order
 * only.
 */
class DhcpInBetween
{
public:
    explicit DhcpInBetween(Trace& trace) : m_connecting(std::this_thread::get_id())
    {
        trace.onEntry([this](const QByteArray& entry) { onEntry(entry); });
    }

private:
    struct EndMark
    {
        ~EndMark() { ended.open(); }
        Latch ended;
    };

    void onEntry(const QByteArray& entry)
    {
        if (std::this_thread::get_id() == m_connecting) {
            if (entry == "sendPrgStop") {
                m_mayBegin.open();
                m_ended.wait();
            }
            return;
        }
        thread_local EndMark mark{m_ended};
        m_mayBegin.wait();
    }

    const std::thread::id m_connecting;
    Latch m_mayBegin;
    Latch m_ended;
};

int savedCount()
{
    RaWifiData saved;
    saved.loadData();
    return saved.getDataCount();
}

APData savedNetwork(int index)
{
    RaWifiData saved;
    saved.loadData();
    APData network;
    std::memset(&network, '#', sizeof network);
    saved.getDataByIndex(&network, index);
    return network;
}

APData network(const char* name, const QString& mac, int encry = WPA2_PSK)
{
    APData record = APData();
    qstrcpy(record.essid, name);
    qstrncpy(record.macAddr, mac.toLatin1().constData(), sizeof record.macAddr);
    record.encry[0] = encry;
    record.encry[1] = NOENCRY;
    return record;
}

} // namespace

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                              void* argument)
{
    typedef int (*Create)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const Create real = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    const int error = real(thread, attributes, routine, argument);
    if (g_afterThreadStart) {
        g_afterThreadStart();
    }
    return error;
}

class TestRaWifiServiceConnect : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void joinsStepByStep_data();
    void joinsStepByStep();
    void theDhcpStageStepByStep();
    void theDhcpStageWithoutMarkerKeepsTheLock();
    void theRequestIsLogged();
    void turningPointsAreLogged_data();
    void turningPointsAreLogged();
    void failsStepByStep_data();
    void failsStepByStep();
    void aFailedReadForgetsTheMisses();
    void allTriesTogetherAreBounded();
    void onlyAnAddressIsTakenForOne_data();
    void onlyAnAddressIsTakenForOne();
    void textThatCannotBeWrittenIsRefusedUntouched_data();
    void textThatCannotBeWrittenIsRefusedUntouched();
    void aLineBreakInANameStaysOneSetting();
    void anUnknownKindOfSecurityIsRefused();
    void aLongNameIsCutToTheRow();
    void namesThatAreNotUtf8ComeThroughUnchanged();
    void onlyOneNetworkIsInHandAtATime();
    void aMacThatIsNoneIsNeverWrittenOrSaved_data();
    void aMacThatIsNoneIsNeverWrittenOrSaved();
    void nothingOfARequestReachesAShell_data();
    void nothingOfARequestReachesAShell();
    void nothingOfAnAnswerReachesAShell();
    void aRecordChangedMeanwhileReachesNoShell();
    void aJoinWritesToNothingPlanted_data();
    void aJoinWritesToNothingPlanted();

    void theLockAtEachPoint();
    void theMutexMayBeLockedOrNot_data();
    void theMutexMayBeLockedOrNot();
    void theWatchdogIsArmedForAMinuteOnItsOwnThread();
    void anExpiredWatchdogEndsTheAttempt_data();
    void anExpiredWatchdogEndsTheAttempt();
    void anExpiryWhileTheAddressIsReadDoesNotEndTheAttempt();
    void anEarlierAttemptsExpiryIsNotThisOnes_data();
    void anEarlierAttemptsExpiryIsNotThisOnes();
    void aNewAttemptEndsTheDhcpStageOfTheOneBefore_data();
    void aNewAttemptEndsTheDhcpStageOfTheOneBefore();
    void aScanEndsTheDhcpStageOfAnAttempt_data();
    void aScanEndsTheDhcpStageOfAnAttempt();
    void theServiceMayBeDestroyedDuringTheDhcpStage_data();
    void theServiceMayBeDestroyedDuringTheDhcpStage();
    void aFinishedDhcpStageIsNotWaitedFor();

    void aDisconnectForgetsTheLink();
    void aDisconnectKeepsThePendingSaveRecord();
    void readySaveDataKeepsTheNetworkInHand();
    void saveApDataPutsANetworkIntoTheStore();
    void onlyThePendingNetworkIsSavedAsJoined_data();
    void onlyThePendingNetworkIsSavedAsJoined();
    void theDefaultNetworkIsJoinedWithOpenAuthentication();
    void withoutADefaultNetworkNothingIsJoined();
    void automaticJoiningHasCandidatesUntilAllAreTried();
    void aCancelByTheUserIsTold_data();
    void aCancelByTheUserIsTold();
    void theRouteLineIsRead_data();
    void theRouteLineIsRead();
    void theRouteTextItselfMayBeTheBuffer();
    void theDefaultRouteNeedsAGateway();
    void pingingTellsTheAnsweredShare_data();
    void pingingTellsTheAnsweredShare();
    void onlyAddressesArePinged_data();
    void onlyAddressesArePinged();
};

void TestRaWifiServiceConnect::initTestCase()
{
    QtWarnings::start();
}

void TestRaWifiServiceConnect::init()
{
    freshDevice();
}

void TestRaWifiServiceConnect::cleanup()
{
    fakesystem::reset();
    QCOMPARE(QtWarnings::take(), QString());
}

// --- The procedure ---------------------------------------------------------------------------------------

void TestRaWifiServiceConnect::joinsStepByStep_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<Lines>("settings");
    QTest::addColumn<QByteArray>("keyManagement");
    QTest::addColumn<int>("lock");
    Request request;
    request.encry = WPA2_PSK;
    QTest::newRow("WPA2") << request << (Lines() << "\tpsk=\"password\"") << QByteArray("WPA2-PSK") << 2;
    request.encry = WPA_PSK;
    request.sigquality = 4;
    QTest::newRow("WPA") << request << (Lines() << "\tpsk=\"password\"") << QByteArray("WPA-PSK") << 2;
    request.encry = WEP;
    request.psk = QStringLiteral("abcde");
    request.keyIndex = 2;
    QTest::newRow("WEP, shared") << request
                                 << (Lines() << "\tkey_mgmt=NONE"
                                             << "\twep_key2=\"abcde\""
                                             << "\twep_tx_keyidx=2"
                                             << "priority=5"
                                             << "auth_alg=SHARED")
                                 << QByteArray("WEP") << 2;
    request.authMode = 1;
    request.keyIndex = 0;
    request.psk = QStringLiteral("0123456789");
    QTest::newRow("WEP, open") << request
                               << (Lines() << "\tkey_mgmt=NONE"
                                           << "\twep_key0=0123456789"
                                           << "\twep_tx_keyidx=0"
                                           << "priority=5"
                                           << "auth_alg=OPEN")
                               << QByteArray("WEP") << 2;
    request.authMode = -7;
    QTest::newRow("WEP, any other mode is open") << request
                                                 << (Lines() << "\tkey_mgmt=NONE"
                                                             << "\twep_key0=0123456789"
                                                             << "\twep_tx_keyidx=0"
                                                             << "priority=5"
                                                             << "auth_alg=OPEN")
                                                 << QByteArray("WEP") << 2;
    request.encry = NOENCRY;
    request.psk = QString();
    request.sigquality = 1;
    QTest::newRow("open") << request << (Lines() << "\tkey_mgmt=NONE") << QByteArray("NOENCRY") << 1;
}

void TestRaWifiServiceConnect::joinsStepByStep()
{
    QFETCH(Request, request);
    QFETCH(Lines, settings);
    QFETCH(QByteArray, keyManagement);
    QFETCH(int, lock);
    goodScripts();
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);

    QCOMPARE(join(service, request), 0);

    const QByteArray sigquality = QByteArray::number(request.sigquality);
    Steps steps = upToTheAddressLoop(request.encry == WEP);
    successfulTryToTheEnd(steps, sigquality);
    QCOMPARE(trace.here(), steps.lines);
    QCOMPARE(trace.elsewhere(), dhcpStage());

    QCOMPARE(fakesystem::readFile(config), configuration(settings));
    QCOMPARE(fakesystem::readFile("/home/wifi/ipinfo.txt"), QByteArray("192.168.7.23\n"));
    QCOMPARE(fakesystem::readFile("/home/wifi/signal.txt"), sigquality + '\n');
    QCOMPARE(fakesystem::readFile("/home/wifi/linkap.txt"), QByteArray("1\n"));
    QCOMPARE(fakesystem::readFile("/home/wifi/curmac.txt"), request.mac.toLatin1() + '\n');
    QVERIFY(!fakesystem::exists(marker));

    QCOMPARE(savedCount(), 1);
    const APData saved = savedNetwork(0);
    QCOMPARE(saved.essid, "Home");
    QCOMPARE(QByteArray(saved.macAddr), request.mac.toLatin1());
    QCOMPARE(QByteArray(saved.psk), request.psk.toLatin1());
    QCOMPARE(QByteArray(saved.key_mgmt), keyManagement);
    QCOMPARE(saved.encry[0], static_cast<int>(request.encry));
    QCOMPARE(saved.sigquality, request.sigquality);
    QCOMPARE(saved.authMode, request.authMode);
    QCOMPARE(saved.keyIndex, request.keyIndex);
    QCOMPARE(saved.is_encry, lock);

    const APData& pending = *service.getCurAPData();
    QCOMPARE(pending.IP, "192.168.7.23");
    QCOMPARE(pending.connectSUC, 1);
    QCOMPARE(pending.orderbynum, 2);
    QVERIFY(!isConnectionMutexLocked());
    QCOMPARE(lockStatus, 0);
    QCoreApplication::processEvents(); // the DHCP stage has asked for it
    QVERIFY(!watchdogOf(service)->isActive());
}

void TestRaWifiServiceConnect::theDhcpStageStepByStep()
{
    goodScripts();
    RaWifiService service(0, nullptr);
    Trace trace;
    QTimer* const watchdog = watchdogOf(service);
    watchdog->start(60000);
    m_mutex.lock();
    lockStatus = 1;
    QCOMPARE(dhcpip_handle(&service), static_cast<void*>(nullptr));
    QCOMPARE(trace.here(), dhcpStage());
    QVERIFY(!watchdog->isActive());
    QVERIFY(!isConnectionMutexLocked());
    QCOMPARE(lockStatus, 0);
    QVERIFY(!fakesystem::exists(marker));
}

void TestRaWifiServiceConnect::theDhcpStageWithoutMarkerKeepsTheLock()
{
    fakesystem::answerWithoutEnd("dhcp_setip.sh", [] {});
    RaWifiService service(0, nullptr);
    Trace trace;
    QTimer* const watchdog = watchdogOf(service);
    watchdog->start(60000);
    m_mutex.lock();
    lockStatus = 1;
    const QByteArray printed = capturedOutput(stdout, [&service] { dhcpip_handle(&service); });
    QCOMPARE(printed, QByteArray("dhcp_setip.sh /home/org/result3 is not existing\n"));
    QCOMPARE(trace.here(), dhcpStageWithoutMarker());
    QVERIFY(watchdog->isActive());
    QVERIFY(isConnectionMutexLocked());
    QCOMPARE(lockStatus, 1);
    expire(watchdog);
    QCOMPARE(lockStatus, 0);
    QVERIFY(isConnectionMutexLocked()); // the next attempt frees it
}

void TestRaWifiServiceConnect::theRequestIsLogged()
{
    Request request;
    request.encry = WEP;
    request.authMode = 1;
    request.keyIndex = 3;
    RaWifiService service(0, nullptr);
    fakesystem::answerWithoutEnd("callwpaconf.sh", [] {});
    const Lines logged = loggedMessages([&] { join(service, request); });
    QCOMPARE(logged.value(0), QByteArray("-encry 2 ,macAddr =00:1a:2b:3c:4d:5e,essid =Home,password = password,"
                                         "sigquality = 3 authMode =1,keyindex = 3"));
}

void TestRaWifiServiceConnect::turningPointsAreLogged_data()
{
    QTest::addColumn<bool>("timesOut");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("the network in hand") << false << QByteArray("isSave=1");
    QTest::newRow("the last failed read") << false << QByteArray("--------nNum= 11---------");
    QTest::newRow("an expired watchdog") << true << QByteArray("3.1 Failed authentication information");
}

void TestRaWifiServiceConnect::turningPointsAreLogged()
{
    QFETCH(bool, timesOut);
    QFETCH(QByteArray, message);
    goodScripts("none\n");
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    if (timesOut) {
        trace.onEntry([&service](const QByteArray& entry) {
            if (entry == QByteArray("run ") + removeAnswerAndMarker) {
                service.timeout();
            }
        });
    }
    const Lines logged = loggedMessages([&service] { join(service, Request()); });
    QCOMPARE(static_cast<int>(logged.count(message)), 1);
}

void TestRaWifiServiceConnect::failsStepByStep_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<Lines>("steps");
    QTest::addColumn<Lines>("dhcpSteps");
    {
        Steps steps = upToTheConfiguration().tell("config wifi failed", -1);
        QTest::newRow("the configuration cannot be written") << QByteArray("config") << steps.lines << Lines();
    }
    {
        Steps steps = upToLoading().tell("Wifi network configuration information failed", -2);
        QTest::newRow("callwpaconf.sh does not come to its end") << QByteArray("load") << steps.lines << Lines();
    }
    {
        Steps steps = upToTheAddressLoop();
        for (int i = 0; i < 11; ++i) {
            missedTry(steps);
        }
        missedTry(steps, true);
        steps.tell("Failed to obtain IP information", -3).sleep(1000);
        QTest::newRow("getip.sh does not come to its end, 12 times")
            << QByteArray("misses") << steps.lines << dhcpStage();
    }
    {
        Steps steps = upToTheAddressLoop();
        for (int i = 0; i < 11; ++i) {
            failedRead(steps);
        }
        failedRead(steps, true);
        steps.tell("Network connection error or the server is busy,please try again", -2).sleep(1000);
        QTest::newRow("12 answers without an address") << QByteArray("reads") << steps.lines << dhcpStage();
    }
}

void TestRaWifiServiceConnect::failsStepByStep()
{
    QFETCH(QByteArray, fault);
    QFETCH(Lines, steps);
    QFETCH(Lines, dhcpSteps);
    goodScripts();
    if (fault == "config") {
        QDir().mkpath(QLatin1String(config) + QLatin1String("/not-empty"));
    } else if (fault == "load") {
        fakesystem::answerWithoutEnd("callwpaconf.sh", [] {});
        fakesystem::writeFile(marker, ""); // another script's
    } else if (fault == "misses") {
        fakesystem::answerWithoutEnd("getip.sh", [] { fakesystem::writeFile(answer, "192.168.7.23\n"); });
    } else if (fault == "reads") {
        fakesystem::answer("getip.sh", [] { fakesystem::writeFile(answer, ""); });
    }
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);

    QVERIFY(join(service, Request()) < 0);

    QCOMPARE(trace.here(), steps);
    QCOMPARE(trace.elsewhere(), dhcpSteps);
    const char* const files[] = {"ipinfo.txt", "signal.txt", "linkap.txt", "curmac.txt"};
    for (const char* file : files) {
        QVERIFY2(!fakesystem::exists((QByteArray("/home/wifi/") + file).constData()), file);
    }
    QCOMPARE(savedCount(), 0);
    QCOMPARE(service.getCurAPData()->connectSUC, 0);
    QVERIFY(!isConnectionMutexLocked());
    QCOMPARE(lockStatus, 0);
    QCoreApplication::processEvents(); // the DHCP stage has asked for it
    QVERIFY(!watchdogOf(service)->isActive());
}

void TestRaWifiServiceConnect::aFailedReadForgetsTheMisses()
{
    int tries = 0;
    goodScripts();
    // 11 misses, a failed read, 11 misses, and an address: neither count comes to 12.
    fakesystem::answerCommand(getAddress, [&tries] {
        ++tries;
        fakesystem::writeFile(answer, tries == 12 ? "none\n" : "192.168.7.23\n");
        if (tries == 12 || tries == 24) {
            fakesystem::writeFile(marker, "");
        }
    });
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    QCOMPARE(join(service, Request()), 0);
    Steps steps = upToTheAddressLoop();
    for (int i = 0; i < 11; ++i) {
        missedTry(steps);
    }
    failedRead(steps);
    for (int i = 0; i < 11; ++i) {
        missedTry(steps);
    }
    successfulTryToTheEnd(steps);
    QCOMPARE(trace.here(), steps.lines);
}

void TestRaWifiServiceConnect::allTriesTogetherAreBounded()
{
    int tries = 0;
    goodScripts();
    fakesystem::answerCommand(getAddress, [&tries] {
        fakesystem::writeFile(answer, "none\n");
        if (++tries % 12 == 0) {
            fakesystem::writeFile(marker, "");
        }
    });
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    QVERIFY(join(service, Request()) < 0);
    QCOMPARE(tries, 12 * 12);
    QVERIFY(trace.here().contains("tell 0|Home|Network connection error or the server is busy,please try again|-2"));
}

void TestRaWifiServiceConnect::onlyAnAddressIsTakenForOne_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("three numbers") << QByteArray("10.0.0\n");
    QTest::newRow("five numbers") << QByteArray("10.0.0.0.1\n");
    QTest::newRow("too great") << QByteArray("300.168.7.23\n");
    QTest::newRow("letters") << QByteArray("a.b.c.d\n");
    QTest::newRow("blank before") << QByteArray(" 192.168.7.23\n");
    QTest::newRow("command behind") << QByteArray("1.2.3.4;id\n");
    QTest::newRow("command in place of a number") << QByteArray("1.2.3.$(id)\n");
    QTest::newRow("address on the second line") << QByteArray("\n192.168.7.23\n");
    QTest::newRow("long") << QByteArray(300, '.') + '\n';
    QTest::newRow("bytes") << QByteArray("\xff.\xff.\xff.\xff\n");
}

void TestRaWifiServiceConnect::onlyAnAddressIsTakenForOne()
{
    QFETCH(QByteArray, text);
    goodScripts();
    int tries = 0;
    fakesystem::answer("getip.sh",
                       [&] { fakesystem::writeFile(answer, ++tries == 1 ? text : QByteArray("192.168.7.23\n")); });
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    QCOMPARE(join(service, Request()), 0);
    Steps steps = upToTheAddressLoop();
    failedRead(steps);
    successfulTryToTheEnd(steps);
    QCOMPARE(trace.here(), steps.lines);
}

void TestRaWifiServiceConnect::textThatCannotBeWrittenIsRefusedUntouched_data()
{
    QTest::addColumn<Request>("request");
    Request request;
    request.essid = QString::fromLatin1("Ho\0me", 5);
    QTest::newRow("NUL in the name") << request;
    request = Request();
    request.psk = QString::fromLatin1("pass\0word", 9);
    QTest::newRow("NUL in the password") << request;
    request.psk = QStringLiteral("pass\nword");
    QTest::newRow("line break in the password") << request;
    request.psk = QStringLiteral("pass\rword");
    QTest::newRow("carriage return in the password") << request;
    request.psk = QString();
    QTest::newRow("no password") << request;
    request.encry = WEP;
    QTest::newRow("no key") << request;
    request.psk = QStringLiteral("ab\ncd");
    QTest::newRow("line break in the key") << request;
    request.psk = QStringLiteral("abcde");
    request.keyIndex = 4;
    QTest::newRow("key index too great") << request;
    request.keyIndex = -1;
    QTest::newRow("key index negative") << request;
    request = Request();
    request.encry = NOENCRY;
    request.essid = QString();
    QTest::newRow("open, without a name") << request;
    request.essid = QString::fromLatin1("\0", 1);
    QTest::newRow("open, NUL for a name") << request;
}

void TestRaWifiServiceConnect::textThatCannotBeWrittenIsRefusedUntouched()
{
    QFETCH(Request, request);
    goodScripts();
    fakesystem::writeFile(config, "as it was\n");
    Trace trace;
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    QVERIFY(join(service, request) < 0);
    Steps steps;
    steps.run("killall udhcpc").sleep(1000).run("/usr/bin/wpa_cli -i wlan0 terminate").sleep(1000);
    steps.tell("config wifi failed", -1, request.essid.toUtf8());
    QCOMPARE(trace.here(), steps.lines);
    QCOMPARE(fakesystem::readFile(config), QByteArray("as it was\n"));
}

void TestRaWifiServiceConnect::aLineBreakInANameStaysOneSetting()
{
    goodScripts();
    Request request;
    request.essid = QStringLiteral("a\nb\"");
    RaWifiService service(0, nullptr);
    QCOMPARE(joinOnAWorker(service, request), 0);
    QVERIFY2(fakesystem::readFile(config).contains("\tssid=610a6222\n"), fakesystem::readFile(config).constData());
    QCOMPARE(savedNetwork(0).essid, "a\nb\"");
}

void TestRaWifiServiceConnect::anUnknownKindOfSecurityIsRefused()
{
    goodScripts();
    Trace trace;
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    Request request;
    for (const int kind : {0, 5, -1}) {
        request.encry = static_cast<ENCRY>(kind);
        QVERIFY(join(service, request) < 0);
        QCOMPARE(trace.here().last(), QByteArray("tell 0|Home|config wifi failed|-1"));
    }
    QVERIFY(!fakesystem::exists(config));
}

void TestRaWifiServiceConnect::aLongNameIsCutToTheRow()
{
    goodScripts();
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    Request request;
    request.essid = QString(32, QLatin1Char('W'));
    g_font.setPixelSize(20);
    QCOMPARE(join(service, request), 0);
    const QString cut = crop_string(g_font, request.essid, 250, QStringLiteral("..."));
    g_font = QFont();
    QVERIFY(cut.endsWith(QLatin1String("...")) && cut.size() < request.essid.size());
    const QByteArray message = "tell 0|" + request.essid.toUtf8() + '|' + cut.toUtf8() + "Successful connection|0";
    QVERIFY(trace.here().contains(message));
    QCOMPARE(QByteArray(savedNetwork(0).essid), request.essid.toUtf8());
}

void TestRaWifiServiceConnect::namesThatAreNotUtf8ComeThroughUnchanged()
{
    goodScripts();
    RaWifiService service(0, nullptr);
    APData record = network("\xff\xfe\x80", Request().mac);
    qstrcpy(record.psk, "password");
    service.readySaveData(record);
    QCOMPARE(service.connectDefaultAP(), 0); // text for the way through the procedure, bytes at both ends
    QVERIFY(fakesystem::readFile(config).contains("\tssid=\"\xff\xfe\x80\"\n"));
    QCOMPARE(savedNetwork(0).essid, "\xff\xfe\x80");
}

void TestRaWifiServiceConnect::onlyOneNetworkIsInHandAtATime()
{
    goodScripts();
    RaWifiService service(0, nullptr);
    Request first;
    first.mac = QStringLiteral("11:11:11:11:11:11");
    first.essid = QStringLiteral("First");
    fakesystem::answer("getip.sh", [] { fakesystem::writeFile(answer, ""); });
    QVERIFY(joinOnAWorker(service, first) < 0);
    QCOMPARE(service.getCurAPData()->essid, "First");
    QCOMPARE(savedCount(), 0);
    goodScripts();
    QCOMPARE(joinOnAWorker(service, Request()), 0);
    QCOMPARE(savedCount(), 1);
    QCOMPARE(savedNetwork(0).essid, "Home");
    service.recMangerConMsg(first.mac); // too late for the first one
    QCOMPARE(savedCount(), 1);
}

void TestRaWifiServiceConnect::aMacThatIsNoneIsNeverWrittenOrSaved_data()
{
    QTest::addColumn<QString>("mac");
    QTest::newRow("empty") << QString();
    QTest::newRow("command") << QStringLiteral("$(touch /home/wifi/canary)");
    QTest::newRow("too long") << QStringLiteral("00:1a:2b:3c:4d:5e:6f");
    QTest::newRow("NUL behind") << QString::fromLatin1("00:1a:2b:3c:4d:5e\0;id", 21);
}

void TestRaWifiServiceConnect::aMacThatIsNoneIsNeverWrittenOrSaved()
{
    QFETCH(QString, mac);
    goodScripts();
    Request request;
    request.mac = mac;
    RaWifiService service(0, nullptr);
    QCOMPARE(joinOnAWorker(service, request), 0);
    for (const QByteArray& command : fakesystem::commands()) {
        QVERIFY2(!command.contains("curmac") || command == "echo 00:1a:2b:3c:4d:5e >/home/wifi/curmac.txt",
                 command.constData());
    }
    QVERIFY(!fakesystem::exists("/home/wifi/canary"));
    QCOMPARE(savedCount(), 0);
}

void TestRaWifiServiceConnect::nothingOfARequestReachesAShell_data()
{
    QTest::addColumn<QString>("hostile");
    const char* const texts[] = {
        "$(touch /home/wifi/canary)",      "`touch /home/wifi/canary`",      ";touch /home/wifi/canary;",
        "|touch /home/wifi/canary",        "&touch /home/wifi/canary&",      "'; touch /home/wifi/canary; '",
        "\"; touch /home/wifi/canary; \"", "\\\"$(touch /home/wifi/canary)", "%s%n%1%2",
        "-rf /home/wifi/canary",           "../../home/wifi/canary",         ">/home/wifi/canary"};
    for (const char* hostile : texts) {
        QTest::newRow(hostile) << QString::fromLatin1(hostile);
    }
}

void TestRaWifiServiceConnect::nothingOfARequestReachesAShell()
{
    QFETCH(QString, hostile);
    goodScripts();
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    Request request;
    request.essid = hostile;
    request.psk = hostile;
    QCOMPARE(join(service, request), 0);
    Steps steps = upToTheAddressLoop();
    successfulTryToTheEnd(steps);
    Lines usual;
    for (const QByteArray& step : steps.lines) {
        if (step.startsWith("run")) {
            usual << step.mid(4);
        }
    }
    Lines commands;
    for (const QByteArray& step : trace.here()) {
        if (step.startsWith("run")) {
            commands << step.mid(4);
        }
    }
    QCOMPARE(commands, usual);
    QVERIFY(!fakesystem::exists("/home/wifi/canary"));
    QCOMPARE(QString::fromUtf8(savedNetwork(0).essid), hostile.left(39));
}

void TestRaWifiServiceConnect::nothingOfAnAnswerReachesAShell()
{
    const char hostile[] = "1.1.1.$(touch /home/wifi/canary)\n";
    fakesystem::answer("getip.sh", [&] { fakesystem::writeFile(answer, hostile); });
    fakesystem::answer("getroute.sh", [&] { fakesystem::writeFile(answer, hostile); });
    RaWifiService service(0, nullptr);
    QVERIFY(joinToTheEnd(service, Request()) < 0);
    char route[256] = "";
    QCOMPARE(service.setRoute(route), 0);
    QCOMPARE(route, hostile);
    service.setRouteGw();
    service.pingIP(route, *std::unique_ptr<double>(new double(0)));
    for (const QByteArray& command : fakesystem::commands()) {
        QVERIFY2(!command.contains("1.1.1"), command.constData());
    }
    QVERIFY(!fakesystem::exists("/home/wifi/canary"));
}

void TestRaWifiServiceConnect::aRecordChangedMeanwhileReachesNoShell()
{
    goodScripts();
    Trace trace;
    RaWifiService service(0, nullptr);
    trace.onEntry([&service](const QByteArray& entry) {
        if (entry.startsWith("run route add")) {
            qstrcpy(service.getCurAPData()->IP, "`id>/apps/x`"); // as a host may
        }
    });
    int result = -1;
    const Lines logged = loggedMessages([&] { result = joinOnAWorker(service, Request()); });
    QCOMPARE(result, 0);
    QVERIFY(logged.contains("not an address, not written to /home/wifi/ipinfo.txt: \"`id>/apps/x`\""));
    QVERIFY(!fakesystem::exists("/apps/x"));
    QVERIFY(!fakesystem::exists("/home/wifi/ipinfo.txt"));
}

void TestRaWifiServiceConnect::aJoinWritesToNothingPlanted_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("content");
    for (const HostileFiles::Kind kind : HostileFiles::traps()) {
        const QByteArray name = HostileFiles::name(kind);
        QTest::newRow(("address, " + name).constData())
            << QByteArray("/home/wifi/ipinfo.txt") << static_cast<int>(kind) << QByteArray("192.168.7.23\n");
        QTest::newRow(("signal, " + name).constData())
            << QByteArray("/home/wifi/signal.txt") << static_cast<int>(kind) << QByteArray("3\n");
    }
}

void TestRaWifiServiceConnect::aJoinWritesToNothingPlanted()
{
    QFETCH(QByteArray, path);
    QFETCH(int, kind);
    QFETCH(QByteArray, content);
    goodScripts();
    HostileFiles hostile;
    hostile.plant(path.constData(), static_cast<HostileFiles::Kind>(kind), "as it was");
    RaWifiService service(0, nullptr);
    QCOMPARE(joinOnAWorker(service, Request()), 0);
    QVERIFY(hostile.isUntouched());
    QCOMPARE(fakesystem::readFile(path.constData()), content);
}

// --- Locks, watchdog, threads ----------------------------------------------------------------------------

void TestRaWifiServiceConnect::theLockAtEachPoint()
{
    goodScripts();
    Trace trace;
    const std::thread::id connecting = std::this_thread::get_id();
    Latch mayEnd;
    Latch hasEnded;
    QList<QByteArray> states;
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    // The stage stays in its script until the address loop has begun, and has ended when the marker is
    // removed there.
    trace.onEntry([&](const QByteArray& entry) {
        if (std::this_thread::get_id() != connecting) {
            if (entry == "run " + QByteArray(runDhcp)) {
                mayEnd.wait();
            } else if (entry == "run " + QByteArray(removeMarker)) {
                hasEnded.open();
            }
            return;
        }
        if (entry == "run " + QByteArray(getAddress)) {
            states << entry + (isConnectionMutexLocked() ? " locked " : " free ") + QByteArray::number(lockStatus);
            mayEnd.open();
            hasEnded.wait();
            while (__atomic_load_n(&lockStatus, __ATOMIC_SEQ_CST) != 0) {
                std::this_thread::yield();
            }
            return;
        }
        states << entry + (isConnectionMutexLocked() ? " locked " : " free ") + QByteArray::number(lockStatus);
    });
    m_mutex.lock(); // from an attempt whose DHCP stage never came to its end
    lockStatus = 1;
    QCOMPARE(join(service, Request()), 0);

    QList<QByteArray> expected;
    enum { Before, Released, Held, After } phase = Before;
    const char* const suffixes[] = {" locked 1", " free 1", " locked 1", " free 0"};
    Steps steps = upToTheAddressLoop();
    successfulTryToTheEnd(steps);
    for (int i = 0; i < steps.lines.size(); ++i) {
        const QByteArray& step = steps.lines.at(i);
        const QByteArray previous = i > 0 ? steps.lines.at(i - 1) : QByteArray();
        if (previous == QByteArray("run ") + removeMarker && phase == Before) {
            phase = Released; // the short wait: unlocked, and only then the status follows
        } else if (step.contains("verifying")) {
            expected << step + " free 0";
            phase = Held;
            continue;
        } else if (previous == QByteArray("run ") + getAddress) {
            phase = After;
        }
        expected << step + suffixes[phase];
    }
    QCOMPARE(states, expected);
}

void TestRaWifiServiceConnect::theMutexMayBeLockedOrNot_data()
{
    QTest::addColumn<bool>("locked");
    QTest::newRow("locked by an earlier attempt") << true;
    QTest::newRow("locked by nobody") << false;
}

void TestRaWifiServiceConnect::theMutexMayBeLockedOrNot()
{
    QFETCH(bool, locked);
    goodScripts();
    RaWifiService service(0, nullptr);
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (locked) {
            m_mutex.lock();
        }
        QCOMPARE(joinOnAWorker(service, Request()), 0);
        QTRY_COMPARE(__atomic_load_n(&lockStatus, __ATOMIC_SEQ_CST), 0);
        QVERIFY(!isConnectionMutexLocked());
    }
}

void TestRaWifiServiceConnect::theWatchdogIsArmedForAMinuteOnItsOwnThread()
{
    goodScripts();
    Trace trace;
    Latch mayGoOn;
    trace.onEntry([&](const QByteArray& entry) {
        if (entry == QByteArray("run ") + runDhcp) {
            mayGoOn.wait();
        }
    });
    RaWifiService service(0, nullptr);
    QTimer* const watchdog = watchdogOf(service);
    QCOMPARE(joinOnAWorker(service, Request()), 0);
    QVERIFY(watchdog->isActive());
    QCOMPARE(watchdog->interval(), 60000);
    QVERIFY(watchdog->isSingleShot());
    QCOMPARE(watchdog->thread(), QThread::currentThread());

    // A stage that ends well stops it, from its own thread.
    mayGoOn.open();
    QTRY_VERIFY(!watchdog->isActive());
}

void TestRaWifiServiceConnect::anExpiredWatchdogEndsTheAttempt_data()
{
    QTest::addColumn<bool>("byTimer");
    QTest::addColumn<bool>("onAWorker");
    QTest::newRow("by the timer") << true << true;
    QTest::newRow("by a call") << false << true;
    QTest::newRow("by a call on the one thread") << false << false;
}

void TestRaWifiServiceConnect::anExpiredWatchdogEndsTheAttempt()
{
    QFETCH(bool, byTimer);
    QFETCH(bool, onAWorker);
    goodScripts();
    Trace trace;
    Latch never; // the DHCP stage does not get anywhere
    Latch atTheStage;
    Latch expired;
    int removals = 0;
    Lines steps;
    std::thread::id connecting;
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    QTimer* const watchdog = watchdogOf(service);
    trace.onEntry([&](const QByteArray& entry) {
        if (entry == "run killall udhcpc") {
            connecting = std::this_thread::get_id();
        } else if (std::this_thread::get_id() != connecting) {
            never.wait();
        } else if (entry == QByteArray("run ") + removeAnswerAndMarker && ++removals == 1) {
            if (onAWorker) {
                atTheStage.open();
                expired.wait();
            } else {
                service.timeout();
            }
        } else if (entry.startsWith("tell")) {
            steps = trace.here();
        }
    });
    int result = 0;
    if (onAWorker) {
        std::thread worker([&] { result = join(service, Request()); });
        atTheStage.wait();
        QCoreApplication::processEvents();
        QVERIFY(watchdog->isActive());
        if (byTimer) {
            expire(watchdog);
        } else {
            service.timeout();
        }
        QVERIFY(!watchdog->isActive());
        expired.open();
        worker.join();
    } else {
        result = join(service, Request());
    }
    QVERIFY(result < 0);
    QCOMPARE(steps, upToTheDhcpStage().tell("Data verification failed!", -1).lines);
    QCOMPARE(lockStatus, 0);
    QVERIFY(isConnectionMutexLocked());
    QCOMPARE(savedCount(), 0);
}

void TestRaWifiServiceConnect::anExpiryWhileTheAddressIsReadDoesNotEndTheAttempt()
{
    goodScripts();
    Trace trace;
    Latch never;
    const std::thread::id connecting = std::this_thread::get_id();
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    trace.onEntry([&](const QByteArray& entry) {
        if (std::this_thread::get_id() != connecting) {
            never.wait();
        } else if (entry == QByteArray("run ") + getAddress) {
            service.timeout();
        }
    });
    QCOMPARE(join(service, Request()), 0);
    QCOMPARE(lockStatus, 0);
}

void TestRaWifiServiceConnect::anEarlierAttemptsExpiryIsNotThisOnes_data()
{
    QTest::addColumn<QByteArray>("point");
    QTest::newRow("before the flag is cleared") << QByteArray("run wpa_cli -i wlan0 status");
    QTest::newRow("once the flag is cleared") << QByteArray("tell 0|Home|verifying information|0");
    QTest::newRow("before the new request is carried out") << QByteArray("run ") + removeAnswerAndMarker;
}

void TestRaWifiServiceConnect::anEarlierAttemptsExpiryIsNotThisOnes()
{
    QFETCH(QByteArray, point);
    // The first attempt ends without its DHCP stage having come to its end: the watchdog stays armed.
    goodScripts();
    fakesystem::answerWithoutEnd("dhcp_setip.sh", [] {});
    fakesystem::answerWithoutEnd("getip.sh", [] {});
    Latch there;
    Latch expired;
    Trace trace;
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    QTimer* const watchdog = watchdogOf(service);
    QVERIFY(joinOnAWorker(service, Request()) < 0);
    QTRY_VERIFY(watchdog->isActive());

    goodScripts();
    trace.onEntry([&](const QByteArray& entry) {
        if (entry == point && !there.isOpen()) {
            there.open();
            expired.wait();
        }
    });
    int result = -1;
    std::thread worker([&] { result = join(service, Request()); });
    there.wait();
    // It expires at this very moment: the expiry is delivered before the new attempt's request can be.
    QMetaObject::invokeMethod(watchdog, "timeout", Qt::DirectConnection);
    expired.open();
    while (!trace.elsewhere().contains("sendSetStatusMsg 00:1a:2b:3c:4d:5e|true")
           && !trace.elsewhere().contains("tell 0|Home|Data verification failed!|-1")) {
        QCoreApplication::processEvents();
    }
    worker.join();
    QCOMPARE(result, 0);
}

void TestRaWifiServiceConnect::aNewAttemptEndsTheDhcpStageOfTheOneBefore_data()
{
    QTest::addColumn<QByteArray>("point");
    QTest::newRow("in its script") << QByteArray("run ") + runDhcp;
    QTest::newRow("in a wait") << QByteArray("sleep 1000");
    QTest::newRow("in its first command") << QByteArray("run ") + removeAnswerAndMarker;
    QTest::newRow("in its last command") << QByteArray("run ") + removeMarker;
}

void TestRaWifiServiceConnect::aNewAttemptEndsTheDhcpStageOfTheOneBefore()
{
    QFETCH(QByteArray, point);
    goodScripts();
    fakesystem::answerWithoutEnd("getip.sh", [] {});
    const std::thread::id connecting = std::this_thread::get_id();
    Latch there;
    Latch never;
    Trace first;
    std::unique_ptr<Trace> second;
    std::unique_ptr<DhcpInBetween> order;
    RaWifiService service(0, nullptr);
    first.onEntry([&](const QByteArray& entry) {
        if (std::this_thread::get_id() != connecting && entry == point) {
            there.open();
            never.wait();
        } else if (std::this_thread::get_id() == connecting && entry == QByteArray("run ") + getAddress) {
            there.wait();
        }
    });
    QVERIFY(join(service, Request()) < 0);
    QVERIFY(isConnectionMutexLocked());
    QCOMPARE(lockStatus, 1);

    goodScripts();
    second.reset(new Trace);
    Trace& trace = *second;
    order.reset(new DhcpInBetween(trace));
    traceSignals(trace, service);
    QCOMPARE(join(service, Request()), 0);
    Steps steps = upToTheAddressLoop();
    successfulTryToTheEnd(steps);
    QCOMPARE(trace.here(), steps.lines);
    QCOMPARE(trace.elsewhere(), dhcpStage()); // of one stage only
    QVERIFY(!isConnectionMutexLocked());
    QCOMPARE(lockStatus, 0);
}

void TestRaWifiServiceConnect::aScanEndsTheDhcpStageOfAnAttempt_data()
{
    aNewAttemptEndsTheDhcpStageOfTheOneBefore_data();
}

void TestRaWifiServiceConnect::aScanEndsTheDhcpStageOfAnAttempt()
{
    QFETCH(QByteArray, point);
    struct OpenAtEnd
    {
        Latch& latch;
        ~OpenAtEnd() { latch.open(); }
    };
    goodScripts();
    fakesystem::answerWithoutEnd("getip.sh", [] {});
    const std::thread::id connecting = std::this_thread::get_id();
    Latch there;
    Latch never;
    Latch ended;
    bool isScanning = false;
    QList<bool> isAlone; // at each step of the scan
    Trace trace;
    RaWifiService service(0, nullptr);
    trace.onEntry([&](const QByteArray& entry) {
        if (std::this_thread::get_id() != connecting && entry == point) {
            const OpenAtEnd mark = {ended};
            there.open();
            never.wait();
        } else if (std::this_thread::get_id() == connecting && isScanning) {
            isAlone << ended.isOpen();
        } else if (std::this_thread::get_id() == connecting && entry == QByteArray("run ") + getAddress) {
            there.wait();
        }
    });
    QVERIFY(join(service, Request()) < 0);
    isScanning = true;
    service.getAPListByScan();
    QVERIFY(!isAlone.isEmpty());
    QVERIFY(!isAlone.contains(false));
    QCOMPARE(trace.elsewhere().last(), point);
}

void TestRaWifiServiceConnect::theServiceMayBeDestroyedDuringTheDhcpStage_data()
{
    aNewAttemptEndsTheDhcpStageOfTheOneBefore_data();
}

void TestRaWifiServiceConnect::theServiceMayBeDestroyedDuringTheDhcpStage()
{
    QFETCH(QByteArray, point);
    goodScripts();
    fakesystem::answerWithoutEnd("getip.sh", [] {});
    const std::thread::id connecting = std::this_thread::get_id();
    Latch there;
    Latch never;
    Trace trace;
    trace.onEntry([&](const QByteArray& entry) {
        if (std::this_thread::get_id() != connecting && entry == point) {
            there.open();
            never.wait();
        } else if (std::this_thread::get_id() == connecting && entry == QByteArray("run ") + getAddress) {
            there.wait();
        }
    });
    {
        RaWifiService service(0, nullptr);
        QVERIFY(join(service, Request()) < 0);
    }
    const Lines soFar = trace.elsewhere();
    QCOMPARE(soFar, dhcpStage().mid(0, soFar.size()));
    QCOMPARE(soFar.last(), point);
    QCoreApplication::processEvents(); // nothing is left to be delivered

    // The next service frees what the stage held.
    fakesystem::reset();
    goodScripts();
    RaWifiService next(0, nullptr);
    QCOMPARE(joinOnAWorker(next, Request()), 0);
    QTRY_COMPARE(__atomic_load_n(&lockStatus, __ATOMIC_SEQ_CST), 0);
}

// The wait lasts while the lock status is 0, and a stage that has ended leaves it at 0.
void TestRaWifiServiceConnect::aFinishedDhcpStageIsNotWaitedFor()
{
    goodScripts();
    Trace trace;
    const std::thread::id connecting = std::this_thread::get_id();
    int waits = 0;
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    g_afterThreadStart = [] {
        g_afterThreadStart = nullptr;
        while (__atomic_load_n(&lockStatus, __ATOMIC_SEQ_CST) != 0) {
            std::this_thread::yield();
        }
    };
    trace.onEntry([&](const QByteArray& entry) {
        if (std::this_thread::get_id() == connecting && entry == "sleep 5" && ++waits > 1000000) {
            service.timeout(); // or it would wait for ever
        }
    });
    QCOMPARE(join(service, Request()), 0);
}

// --- The operations around it ----------------------------------------------------------------------------

void TestRaWifiServiceConnect::aDisconnectForgetsTheLink()
{
    goodScripts();
    fakesystem::answer("getroute.sh", [] { fakesystem::writeFile(answer, "default via\n"); });
    RaWifiService service(0, nullptr);
    QCOMPARE(joinToTheEnd(service, Request()), 0);
    QCOMPARE(service.setRoute(service.getRoute()), 0);
    QCOMPARE(service.setRouteGw(), 0);
    Trace trace;
    QCOMPARE(service.disConnectAp(), 0);
    Steps steps;
    steps.run("killall udhcpc").sleep(1000).run("/usr/bin/wpa_cli -i wlan0 terminate").sleep(1000);
    QCOMPARE(trace.here(), steps.lines);
    QCOMPARE(service.getRoute(), "");
    QCOMPARE(service.setRouteGw(), -1); // the gateway is forgotten
}

void TestRaWifiServiceConnect::aDisconnectKeepsThePendingSaveRecord()
{
    RaWifiService service(0, nullptr);
    service.readySaveData(network("Home", Request().mac));
    const APData* const before = service.getCurAPData();
    service.disConnectAp();
    QCOMPARE(service.getCurAPData(), before);
    QCOMPARE(service.getCurAPData()->essid, "Home");
}

void TestRaWifiServiceConnect::readySaveDataKeepsTheNetworkInHand()
{
    RaWifiService service(0, nullptr);
    APData record = network("Home", Request().mac, WEP);
    qstrcpy(record.psk, "abcde");
    qstrcpy(record.IP, "1.2.3.4");
    qstrcpy(record.key_mgmt, "WEP");
    qstrcpy(record.wpa_state, "COMPLETED");
    record.encry[1] = WPA_PSK;
    record.sigquality = 3;
    record.id = 4;
    record.snow = 2;
    record.authMode = 1;
    record.keyIndex = 3;
    record.is_encry = 2;
    record.orderbynum = 17;
    record.connectSUC = 1;
    QCOMPARE(service.readySaveData(record), 0);
    const APData& pending = *service.getCurAPData();
    QCOMPARE(pending.orderbynum, 2);
    QCOMPARE(pending.connectSUC, 0);
    record.orderbynum = 2;
    record.connectSUC = 0;
    QVERIFY(std::memcmp(&pending, &record, sizeof record) == 0);
}

void TestRaWifiServiceConnect::saveApDataPutsANetworkIntoTheStore()
{
    RaWifiService service(0, nullptr);
    QCOMPARE(service.saveApData(nullptr, true), -1);
    APData record = network("Home", Request().mac);
    QCOMPARE(service.saveApData(&record, true), 0);
    QCOMPARE(savedCount(), 1);
    record = network("Other", QStringLiteral("11:11:11:11:11:11"));
    QCOMPARE(service.saveApData(&record, false), 0);
    QCOMPARE(savedCount(), 2);
    QCOMPARE(savedNetwork(0).essid, "Other");
}

void TestRaWifiServiceConnect::onlyThePendingNetworkIsSavedAsJoined_data()
{
    QTest::addColumn<int>("encry");
    QTest::addColumn<QString>("mac");
    QTest::addColumn<bool>("saved");
    QTest::addColumn<int>("lock");
    QTest::addColumn<QByteArray>("keyManagement");
    QTest::newRow("open") << static_cast<int>(NOENCRY) << Request().mac << true << 1 << QByteArray("NOENCRY");
    QTest::newRow("WEP") << static_cast<int>(WEP) << Request().mac << true << 2 << QByteArray("WEP");
    QTest::newRow("WPA2") << static_cast<int>(WPA2_PSK) << Request().mac << true << 2 << QByteArray("WPA2-PSK");
    QTest::newRow("another one") << static_cast<int>(WPA2_PSK) << QStringLiteral("11:11:11:11:11:11") << false << 0
                                 << QByteArray();
    QTest::newRow("upper case") << static_cast<int>(WPA2_PSK) << Request().mac.toUpper() << false << 0 << QByteArray();
    QTest::newRow("none") << static_cast<int>(WPA2_PSK) << QString() << false << 0 << QByteArray();
}

void TestRaWifiServiceConnect::onlyThePendingNetworkIsSavedAsJoined()
{
    QFETCH(int, encry);
    QFETCH(QString, mac);
    QFETCH(bool, saved);
    QFETCH(int, lock);
    QFETCH(QByteArray, keyManagement);
    RaWifiService service(0, nullptr);
    APData record = network("Home", Request().mac, encry);
    qstrcpy(record.key_mgmt, "from the supplicant");
    service.readySaveData(record);
    QVERIFY(QMetaObject::invokeMethod(&service, "recMangerConMsg", Q_ARG(QString, mac)));
    QCOMPARE(savedCount(), saved ? 1 : 0);
    QCOMPARE(service.getCurAPData()->connectSUC, saved ? 1 : 0);
    if (saved) {
        QCOMPARE(QByteArray(savedNetwork(0).key_mgmt), keyManagement);
        QCOMPARE(savedNetwork(0).is_encry, lock);
        QCOMPARE(savedNetwork(0).encry[0], encry);
    }
    QCOMPARE(service.getCurAPData()->key_mgmt, "from the supplicant"); // only the copy is rewritten
}

void TestRaWifiServiceConnect::theDefaultNetworkIsJoinedWithOpenAuthentication()
{
    goodScripts();
    Trace trace;
    const DhcpInBetween order(trace);
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    APData record = network("Home", Request().mac, WEP);
    qstrcpy(record.psk, "abcde");
    record.sigquality = 3;
    record.authMode = 0;
    record.keyIndex = 2;
    service.readySaveData(record);
    QCOMPARE(service.connectDefaultAP(), 0);
    Steps steps = upToTheAddressLoop(true);
    successfulTryToTheEnd(steps);
    QCOMPARE(trace.here(), steps.lines);
    QCOMPARE(fakesystem::readFile(config), configuration(Lines() << "\tkey_mgmt=NONE"
                                                                 << "\twep_key0=\"abcde\""
                                                                 << "\twep_tx_keyidx=0"
                                                                 << "priority=5"
                                                                 << "auth_alg=OPEN"));
    QCOMPARE(savedNetwork(0).authMode, 1);
    QCOMPARE(savedNetwork(0).keyIndex, 0);
}

void TestRaWifiServiceConnect::withoutADefaultNetworkNothingIsJoined()
{
    RaWifiService service(0, nullptr);
    QCOMPARE(service.connectDefaultAP(), -2);
    service.readySaveData(network("Home", QString()));
    QCOMPARE(service.connectDefaultAP(), -2);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

void TestRaWifiServiceConnect::automaticJoiningHasCandidatesUntilAllAreTried()
{
    RaWifiService service(0, nullptr);
    QCOMPARE(service.getdefaultConAPByLocalcfg(), -3);
    g_linkAPIndex = -2;
    QCOMPARE(service.getdefaultConAPByLocalcfg(), -3); // an empty list comes first
    QCOMPARE(g_linkAPIndex, -2);
    g_linkAPList.append(new APData(network("Home", Request().mac)));
    g_linkAPIndex = -1;
    QCOMPARE(service.getdefaultConAPByLocalcfg(), 0);
    APData candidate;
    QVERIFY(service.getAPInfoByLinkAPList(&candidate));
    QCOMPARE(service.getdefaultConAPByLocalcfg(), 0);
    QVERIFY(!service.getAPInfoByLinkAPList(&candidate));
    QCOMPARE(service.getdefaultConAPByLocalcfg(), -4);
    QCOMPARE(g_linkAPIndex, -1);
    QCOMPARE(service.getdefaultConAPByLocalcfg(), 0);
}

void TestRaWifiServiceConnect::aCancelByTheUserIsTold_data()
{
    QTest::addColumn<int>("cancelled");
    QTest::addColumn<Lines>("told");
    QTest::newRow("not cancelled") << 0 << Lines();
    QTest::newRow("cancelled") << 1 << (Lines() << "tell 0|info|User canceled...|1");
    QTest::newRow("any other number") << -1 << (Lines() << "tell 0|info|User canceled...|1");
}

void TestRaWifiServiceConnect::aCancelByTheUserIsTold()
{
    QFETCH(int, cancelled);
    QFETCH(Lines, told);
    Trace trace;
    RaWifiService service(0, nullptr);
    traceSignals(trace, service);
    g_isUseCancel = cancelled;
    QCOMPARE(service.checkUseCancel(5), 0);
    QCOMPARE(trace.here(), told);
    QCOMPARE(g_isUseCancel, cancelled);
}

void TestRaWifiServiceConnect::theRouteLineIsRead_data()
{
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("ends");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("line");
    const QByteArray untouched = "untouched";
    QTest::newRow("line") << true << true << QByteArray("default via 1.1.1.1\nmore\n") << 0
                          << QByteArray("default via 1.1.1.1\n");
    QTest::newRow("without a line break") << true << true << QByteArray("x") << 0 << QByteArray("x");
    QTest::newRow("longer than 255") << true << true << QByteArray(400, 'x') << 0 << QByteArray(255, 'x');
    QTest::newRow("empty file") << true << true << QByteArray() << 1 << untouched;
    QTest::newRow("empty line") << true << true << QByteArray("\nx\n") << 1 << untouched;
    QTest::newRow("no file") << false << true << QByteArray() << 0 << untouched;
    QTest::newRow("no marker") << true << false << QByteArray("x\n") << 1 << untouched;
}

void TestRaWifiServiceConnect::theRouteLineIsRead()
{
    QFETCH(bool, exists);
    QFETCH(bool, ends);
    QFETCH(QByteArray, text);
    QFETCH(int, result);
    QFETCH(QByteArray, line);
    const auto script = [&] {
        if (exists) {
            fakesystem::writeFile(answer, text);
        }
    };
    if (ends) {
        fakesystem::answer("getroute.sh", script);
    } else {
        fakesystem::answerWithoutEnd("getroute.sh", script);
    }
    fakesystem::writeFile(answer, "older\n");
    fakesystem::writeFile(marker, ""); // another script's
    RaWifiService service(0, nullptr);
    Trace trace;
    char route[256] = "untouched";
    int returned = -1;
    const QByteArray printed = capturedOutput(stdout, [&] { returned = service.setRoute(route); });
    QCOMPARE(returned, result);
    QCOMPARE(QByteArray(route), line);
    Steps steps;
    steps.run("rm /home/wifi/temp.txt").run("sh /usr/bin/getroute.sh;touch /home/wifi/result3").sleep(1000);
    if (ends) {
        steps.run(removeMarker);
    }
    QCOMPARE(trace.here(), steps.lines);
    QCOMPARE(printed, ends ? QByteArray() : QByteArray("getdymanicip /home/wifi/temp.txt is not existing\n"));
}

void TestRaWifiServiceConnect::theRouteTextItselfMayBeTheBuffer()
{
    fakesystem::answer("getroute.sh", [] { fakesystem::writeFile(answer, QByteArray(255, 'r')); });
    RaWifiService service(0, nullptr);
    QCOMPARE(service.getRoute(), "");
    QCOMPARE(service.setRoute(service.getRoute()), 0);
    QCOMPARE(QByteArray(service.getRoute()), QByteArray(39, 'r')); // cut to its 40 bytes
    char macAfterIt[18] = "";
    fakesystem::answer("getlocalmac.sh", [] { fakesystem::writeFile(answer, "00:00:00:00:00:01"); });
    service.getLocalMACaddress(macAfterIt);
    QCOMPARE(macAfterIt, "00:00:00:00:00:01"); // its neighbours are as they were
}

void TestRaWifiServiceConnect::theDefaultRouteNeedsAGateway()
{
    RaWifiService service(0, nullptr);
    int result = 0;
    const Lines logged = loggedMessages([&] { result = service.setRouteGw(); });
    QCOMPARE(result, -1);
    QCOMPARE(static_cast<int>(logged.size()), 1);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());

    goodScripts("10.0.0.99\n");
    QCOMPARE(joinOnAWorker(service, Request()), 0);
    fakesystem::setStatus(1792);
    QCOMPARE(service.setRouteGw(), 1792);
    QCOMPARE(fakesystem::commands().last(), QByteArray("route add default gw 10.0.0.1"));
}

void TestRaWifiServiceConnect::pingingTellsTheAnsweredShare_data()
{
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("result");
    QTest::addColumn<double>("rate");
    QTest::newRow("all answered") << QByteArray(" 0% packet loss\n") << 1 << 1.0;
    QTest::newRow("two of three answered") << QByteArray(" 33% packet loss\n") << 1 << 1.0 - 33 / 100.0;
    QTest::newRow("none answered") << QByteArray(" 100% packet loss\n") << 1 << 0.0;
    QTest::newRow("no output") << QByteArray() << 0 << 0.0;
    QTest::newRow("errors stand where the share is looked for") << QByteArray(" +10 errors\n") << 0 << 0.0;
}

void TestRaWifiServiceConnect::pingingTellsTheAnsweredShare()
{
    QFETCH(QByteArray, output);
    QFETCH(int, result);
    QFETCH(double, rate);
    const char ping[] = "ping -w 10 192.168.7.1 | awk -F, '/transmitted/{print $3}' >>/home/wifi/temp.txt";
    fakesystem::answerCommand(ping, [&output] {
        QFile file(QLatin1String("/home/wifi/temp.txt"));
        QVERIFY(file.open(QIODevice::Append));
        file.write(output);
    });
    fakesystem::writeFile(answer, "older\n");
    RaWifiService service(0, nullptr);
    Trace trace;
    char address[] = "192.168.7.1";
    double measured = 0.5;
    QCOMPARE(service.pingIP(address, measured), result);
    QCOMPARE(measured, rate);
    QCOMPARE(trace.here(), Steps().run("rm /home/wifi/temp.txt").run(ping).lines);
    QVERIFY(!fakesystem::exists(answer));

    fakesystem::answerCommand(ping, [] {}); // not even a file
    QCOMPARE(service.pingIP(address, measured), 0);
    QCOMPARE(measured, 0.0);
}

void TestRaWifiServiceConnect::onlyAddressesArePinged_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("name") << QByteArray("localhost");
    QTest::newRow("option") << QByteArray("-f 1.1.1.1");
    QTest::newRow("command") << QByteArray("1.1.1.1;touch /home/wifi/canary");
    QTest::newRow("line break") << QByteArray("1.1.1.1\n");
}

void TestRaWifiServiceConnect::onlyAddressesArePinged()
{
    QFETCH(QByteArray, address);
    RaWifiService service(0, nullptr);
    double rate = 0.5;
    int result = 1;
    const Lines logged = loggedMessages([&] { result = service.pingIP(address.data(), rate); });
    QCOMPARE(result, 0);
    QCOMPARE(rate, 0.0);
    QCOMPARE(static_cast<int>(logged.size()), 1);
    rate = 0.5;
    QCOMPARE(service.pingIP(nullptr, rate), 0);
    QCOMPARE(rate, 0.0);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

QTEST_MAIN(TestRaWifiServiceConnect)
#include "tst_rawifiservice_connect.moc"
