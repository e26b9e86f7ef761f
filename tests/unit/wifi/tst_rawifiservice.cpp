// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "capturedoutput.h"
#include "declaredmethods.h"
#include "fakesystem.h"
#include "joining.h"
#include "qtwarnings.h"
#include "rawifidata.h"
#include "rawifiglobals.h"
#include "trace.h"

#include <QTimer>
#include <QWidget>
#include <QtTest>
#include <cstring>
#include <thread>

using joining::answer;
using joining::marker;

namespace {

const char removeAnswer[] = "rm -f /home/wifi/temp.txt";
const char readMac[] = "sh /usr/bin/getlocalmac.sh;touch /home/wifi/result3";
const char macText[] = "00:1a:2b:3c:4d:5e";

/** 18 bytes for an address, recognisable where nothing was written. */
struct MacBuffer
{
    MacBuffer() { std::memset(bytes, '#', sizeof bytes); }
    bool isUntouched() const { return QByteArray(bytes, sizeof bytes) == QByteArray(sizeof bytes, '#'); }
    char bytes[18];
};

} // namespace

class TestRaWifiService : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void signalsAndSlotsAreThoseOfTheInterface();
    void hasNoParentAndIgnoresTheNumber();
    void theWatchdogIsAnIdleSingleShotTimerOfTheServicesOwn();
    void savedNetworksAreInMemoryFromTheStart();
    void thePendingSaveRecordIsFresh();
    void destructionEmptiesTheScannedLists();
    void supplicantScriptsAnswerByTheirFirstLine_data();
    void supplicantScriptsAnswerByTheirFirstLine();
    void anOlderAnswerIsNotRemovedBeforeTheSupplicantScripts();
    void killingStopsDhcpAndSupplicantOrBouncesTheInterface_data();
    void killingStopsDhcpAndSupplicantOrBouncesTheInterface();
    void theOwnAddressIsReadOnce();
    void theOwnAddressIsReadAnewAfterADisconnect();
    void theOwnAddressIsTakenAsTheScriptWroteIt_data();
    void theOwnAddressIsTakenAsTheScriptWroteIt();
    void withoutMarkerTheOwnAddressStaysUnknown();
    void withoutTextTheOwnAddressStaysUnknown_data();
    void withoutTextTheOwnAddressStaysUnknown();
    void loadingAModuleWaitsAMinute();
    void unloadingAModuleWaitsAMinute();
    void theWatchdogIsStoppedByEitherName_data();
    void theWatchdogIsStoppedByEitherName();
    void anotherThreadsStopIsCarriedOutOnTheWatchdogsThread();
    void timeoutFreesTheConnectionLockStatus_data();
    void timeoutFreesTheConnectionLockStatus();
};

void TestRaWifiService::initTestCase()
{
    QtWarnings::start();
}

void TestRaWifiService::init()
{
    joining::freshDevice();
}

void TestRaWifiService::cleanup()
{
    QCOMPARE(QtWarnings::take(), QString());
}

void TestRaWifiService::signalsAndSlotsAreThoseOfTheInterface()
{
    QCOMPARE(declaredMethods(RaWifiService::staticMetaObject),
             QList<QByteArray>() << "signal sendSetStatusMsg(QString,bool) macaddress,isend"
                                 << "signal sendSetStatusMsg(QString) macaddress short"
                                 << "signal sendListWndInfo(int,QString,QString,int) index,ssid,msginfo,errflag"
                                 << "signal sendListWndInfo(int,QString,QString) index,ssid,msginfo short"
                                 << "signal sendCheckAPConnect(QString,int) linkmadress,signalvalue"
                                 << "signal sendPrgStar() "
                                 << "signal sendPrgStep() "
                                 << "signal sendPrgStop() "
                                 << "slot timeout() "
                                 << "slot recSetStatusMsg() "
                                 << "slot recMangerConMsg(QString) linkmadress");
}

void TestRaWifiService::hasNoParentAndIgnoresTheNumber()
{
    QWidget widget;
    RaWifiService service(-5, &widget);
    QCOMPARE(service.parent(), static_cast<QObject*>(nullptr));
    QVERIFY(widget.children().isEmpty());
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

void TestRaWifiService::theWatchdogIsAnIdleSingleShotTimerOfTheServicesOwn()
{
    RaWifiService service(0, nullptr);
    const QList<QTimer*> timers = service.findChildren<QTimer*>();
    QCOMPARE(static_cast<int>(timers.size()), 1);
    QVERIFY(timers.first()->isSingleShot());
    QVERIFY(!timers.first()->isActive());
}

void TestRaWifiService::savedNetworksAreInMemoryFromTheStart()
{
    {
        RaWifiData store;
        APData network = APData();
        qstrcpy(network.essid, "Home");
        qstrcpy(network.macAddr, macText);
        network.encry[0] = WPA2_PSK;
        store.addData(&network, true);
    }
    RaWifiService service(0, nullptr);
    QFile::remove(QLatin1String(joining::store));
    fakesystem::answer("getfirstaplist.sh", [] {
        fakesystem::writeFile(answer, QByteArray(macText) + "\t2412\t60\t[WPA2-PSK-CCMP][ESS]\tHome\n");
    });
    fakesystem::answer("getaplist.sh", [] {
        fakesystem::writeFile(answer, QByteArray(macText) + "\t2412\t60\t[WPA2-PSK-CCMP][ESS]\tHome\n");
    });
    service.loadAPList();
    QCOMPARE(service.orderByAPArray(), 0);
    QCOMPARE(service.getAPListCount(), 1);
}

void TestRaWifiService::thePendingSaveRecordIsFresh()
{
    RaWifiService service(0, nullptr);
    const APData* record = service.getCurAPData();
    QVERIFY(record);
    QCOMPARE(service.getCurAPData(), record);
    QCOMPARE(record->essid, "");
    QCOMPARE(record->macAddr, "");
    QCOMPARE(record->key_mgmt, "");
    QCOMPARE(record->wpa_state, "");
    QCOMPARE(record->psk, "");
    QCOMPARE(record->IP, "");
    QCOMPARE(record->encry[0], 1);
    QCOMPARE(record->encry[1], 1);
    QCOMPARE(record->orderbynum, 999);
    const int zeros[] = {record->sigquality, record->id,       record->snow,    record->connectSUC,
                         record->authMode,   record->keyIndex, record->is_encry};
    for (const int number : zeros) {
        QCOMPARE(number, 0);
    }
}

void TestRaWifiService::destructionEmptiesTheScannedLists()
{
    {
        RaWifiService service(0, nullptr);
        APDataArray.append(new APData());
        g_linkAPList.append(new APData());
        g_linkAPIndex = 0;
    }
    QVERIFY(APDataArray.isEmpty());
    QVERIFY(g_linkAPList.isEmpty());
    QCOMPARE(g_linkAPIndex, -1);
}

void TestRaWifiService::supplicantScriptsAnswerByTheirFirstLine_data()
{
    QTest::addColumn<bool>("start");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("result");
    for (const bool start : {false, true}) {
        const QByteArray name = start ? "start, " : "status, ";
        QTest::newRow((name + "text").constData()) << start << true << QByteArray("OK\n") << 0;
        QTest::newRow((name + "any text").constData()) << start << true << QByteArray("FAIL") << 0;
        QTest::newRow((name + "empty file").constData()) << start << true << QByteArray() << -1;
        QTest::newRow((name + "empty line").constData()) << start << true << QByteArray("\nOK\n") << -1;
        QTest::newRow((name + "no file").constData()) << start << false << QByteArray() << -1;
    }
}

void TestRaWifiService::supplicantScriptsAnswerByTheirFirstLine()
{
    QFETCH(bool, start);
    QFETCH(bool, exists);
    QFETCH(QByteArray, text);
    QFETCH(int, result);
    const char* const script = start ? "calldefaultconf.sh" : "getwpastatus.sh";
    fakesystem::answer(script, [&] {
        if (exists) {
            fakesystem::writeFile(answer, text);
        }
    });
    RaWifiService service(0, nullptr);
    int verdict = 1;
    const QByteArray printed = capturedOutput(
        stdout, [&] { verdict = start ? service.callWpaSupplicantDefaultConf() : service.checkWpaSupplicantStatus(); });
    QCOMPARE(verdict, result);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << QByteArray("sh /usr/bin/") + script);
    QCOMPARE(fakesystem::sleeps(), QList<int>());
    QCOMPARE(printed, exists ? QByteArray() : QByteArray("Cannot get /home/wifi/temp.txt\n"));
}

void TestRaWifiService::anOlderAnswerIsNotRemovedBeforeTheSupplicantScripts()
{
    RaWifiService service(0, nullptr);
    fakesystem::writeFile(answer, "from before\n");
    QCOMPARE(service.checkWpaSupplicantStatus(), 0);
    QCOMPARE(service.callWpaSupplicantDefaultConf(), 0);
    QCOMPARE(fakesystem::readFile(answer), QByteArray("from before\n"));
}

void TestRaWifiService::killingStopsDhcpAndSupplicantOrBouncesTheInterface_data()
{
    QTest::addColumn<int>("full");
    QTest::addColumn<QList<QByteArray>>("steps");
    const QList<QByteArray> stop = QList<QByteArray>() << "run killall udhcpc"
                                                       << "sleep 1000"
                                                       << "run /usr/bin/wpa_cli -i wlan0 terminate"
                                                       << "sleep 1000";
    const QList<QByteArray> bounce = QList<QByteArray>() << "run ifconfig wlan0 down"
                                                         << "sleep 50"
                                                         << "run ifconfig wlan0 up"
                                                         << "sleep 1000";
    QTest::newRow("full") << 1 << stop;
    QTest::newRow("any other number") << -7 << stop;
    QTest::newRow("interface only") << 0 << bounce;
}

void TestRaWifiService::killingStopsDhcpAndSupplicantOrBouncesTheInterface()
{
    QFETCH(int, full);
    QFETCH(QList<QByteArray>, steps);
    RaWifiService service(0, nullptr);
    fakesystem::setStatus(256); // a command's own result does not matter
    Trace trace;
    QCOMPARE(service.killWpaSupplicant(full), 0);
    QCOMPARE(trace.here(), steps);
}

void TestRaWifiService::theOwnAddressIsReadOnce()
{
    fakesystem::answer("getlocalmac.sh", [] { fakesystem::writeFile(answer, macText); });
    RaWifiService service(0, nullptr);
    Trace trace;
    MacBuffer first;
    QCOMPARE(service.getLocalMACaddress(first.bytes), 0);
    QCOMPARE(first.bytes, macText);
    QCOMPARE(trace.here(), QList<QByteArray>() << QByteArray("run ") + removeAnswer << QByteArray("run ") + readMac
                                               << "run rm /home/wifi/result3 -f");
    QVERIFY(!fakesystem::exists(marker));
    MacBuffer second;
    QCOMPARE(service.getLocalMACaddress(second.bytes), 0);
    QCOMPARE(second.bytes, macText);
    QCOMPARE(fakesystem::count(readMac), 1);
}

void TestRaWifiService::theOwnAddressIsReadAnewAfterADisconnect()
{
    fakesystem::answer("getlocalmac.sh", [] { fakesystem::writeFile(answer, macText); });
    RaWifiService service(0, nullptr);
    MacBuffer before;
    service.getLocalMACaddress(before.bytes);
    QCOMPARE(service.disConnectAp(), 0);
    fakesystem::answer("getlocalmac.sh", [] { fakesystem::writeFile(answer, "aa:bb:cc:dd:ee:ff"); });
    MacBuffer after;
    service.getLocalMACaddress(after.bytes);
    QCOMPARE(after.bytes, "aa:bb:cc:dd:ee:ff");
    QCOMPARE(fakesystem::count(readMac), 2);
}

void TestRaWifiService::theOwnAddressIsTakenAsTheScriptWroteIt_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("taken");
    QTest::newRow("17 characters and a line break") << QByteArray(macText) + '\n' << QByteArray(macText);
    QTest::newRow("shorter, the line break stays") << QByteArray("none\n") << QByteArray("none\n");
    QTest::newRow("longer, cut") << QByteArray(40, 'x') << QByteArray(17, 'x');
    QTest::newRow("longer than is read") << QByteArray(5000, 'y') << QByteArray(17, 'y');
    QTest::newRow("up to a NUL") << QByteArray("ab\0cd", 5) << QByteArray("ab");
}

void TestRaWifiService::theOwnAddressIsTakenAsTheScriptWroteIt()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, taken);
    fakesystem::answer("getlocalmac.sh", [&text] { fakesystem::writeFile(answer, text); });
    RaWifiService service(0, nullptr);
    for (int time = 0; time < 2; ++time) {
        MacBuffer buffer;
        QCOMPARE(service.getLocalMACaddress(buffer.bytes), 0);
        QCOMPARE(QByteArray(buffer.bytes), taken);
    }
    QCOMPARE(fakesystem::count(readMac), 1);
}

void TestRaWifiService::withoutMarkerTheOwnAddressStaysUnknown()
{
    fakesystem::answerWithoutEnd("getlocalmac.sh", [] { fakesystem::writeFile(answer, macText); });
    fakesystem::writeFile(marker, ""); // another script's
    RaWifiService service(0, nullptr);
    MacBuffer buffer;
    int result = 1;
    const QByteArray printed = capturedOutput(stdout, [&] { result = service.getLocalMACaddress(buffer.bytes); });
    QCOMPARE(result, 0);
    QVERIFY(buffer.isUntouched());
    QCOMPARE(printed, QByteArray("/home/wifi/temp.txt is not existing\n"));
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << removeAnswer << readMac);
}

void TestRaWifiService::withoutTextTheOwnAddressStaysUnknown_data()
{
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("removed");
    QTest::newRow("no file") << false << QByteArray() << false;
    QTest::newRow("empty file") << true << QByteArray() << false;
    QTest::newRow("no text in the file") << true << QByteArray("\0x", 2) << true;
}

void TestRaWifiService::withoutTextTheOwnAddressStaysUnknown()
{
    QFETCH(bool, exists);
    QFETCH(QByteArray, text);
    QFETCH(bool, removed);
    fakesystem::answer("getlocalmac.sh", [&] {
        if (exists) {
            fakesystem::writeFile(answer, text);
        }
    });
    RaWifiService service(0, nullptr);
    MacBuffer buffer;
    QCOMPARE(service.getLocalMACaddress(buffer.bytes), 0);
    QVERIFY(buffer.isUntouched());
    QCOMPARE(fakesystem::exists(answer), exists && !removed);
    QCOMPARE(fakesystem::count("rm /home/wifi/temp.txt"), removed ? 1 : 0);
    service.getLocalMACaddress(buffer.bytes);
    QCOMPARE(fakesystem::count(readMac), 2);
}

void TestRaWifiService::loadingAModuleWaitsAMinute()
{
    RaWifiService service(0, nullptr);
    const QByteArray printed = capturedOutput(stdout, [&service] { service.loadWifiDevice(); });
    QByteArray expected;
    QList<int> sleeps;
    for (int pass = 0; pass < 60; ++pass) {
        expected += "################insmod_wifi file is not existing###################\n";
        sleeps << 1000;
    }
    expected += "#######################Time out###########################\n";
    QCOMPARE(printed, expected);
    QCOMPARE(fakesystem::sleeps(), sleeps);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

void TestRaWifiService::unloadingAModuleWaitsAMinute()
{
    RaWifiService service(0, nullptr);
    const QByteArray printed = capturedOutput(stdout, [&service] { service.unloadWifiDeveice(); });
    QByteArray expected = "################run rmmode wifi cmd################\n";
    QList<int> sleeps;
    for (int pass = 0; pass < 60; ++pass) {
        expected += "################rmmodWifi while################\n"
                    "################rmmodwifi not existing################\n";
        sleeps << 1000;
    }
    expected += "################rmmodWifi timeout################\n"
                "################rmmodWifi end################\n";
    QCOMPARE(printed, expected);
    QCOMPARE(fakesystem::sleeps(), sleeps);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

void TestRaWifiService::theWatchdogIsStoppedByEitherName_data()
{
    QTest::addColumn<bool>("bySlot");
    QTest::newRow("recSetStatusMsg") << true;
    QTest::newRow("setStopStatus") << false;
}

void TestRaWifiService::theWatchdogIsStoppedByEitherName()
{
    QFETCH(bool, bySlot);
    RaWifiService service(0, nullptr);
    QTimer* const watchdog = joining::watchdogOf(service);
    watchdog->start(60000);
    lockStatus = 1;
    if (bySlot) {
        service.recSetStatusMsg();
    } else {
        QCOMPARE(service.setStopStatus(), 0);
    }
    QVERIFY(!watchdog->isActive());
    QCOMPARE(lockStatus, 1); // only the watchdog is stopped
}

void TestRaWifiService::anotherThreadsStopIsCarriedOutOnTheWatchdogsThread()
{
    RaWifiService service(0, nullptr);
    QTimer* const watchdog = joining::watchdogOf(service);
    watchdog->start(60000);
    int result = 1;
    std::thread other([&] { result = service.setStopStatus(); });
    other.join();
    QCOMPARE(result, 0);
    QVERIFY(watchdog->isActive());
    QCoreApplication::processEvents();
    QVERIFY(!watchdog->isActive());
}

void TestRaWifiService::timeoutFreesTheConnectionLockStatus_data()
{
    QTest::addColumn<bool>("byTimer");
    QTest::newRow("by the timer") << true;
    QTest::newRow("by a call") << false;
}

void TestRaWifiService::timeoutFreesTheConnectionLockStatus()
{
    QFETCH(bool, byTimer);
    RaWifiService service(0, nullptr);
    QTimer* const watchdog = joining::watchdogOf(service);
    lockStatus = 1;
    if (byTimer) {
        joining::expire(watchdog);
    } else {
        watchdog->start(60000);
        service.timeout();
    }
    QVERIFY(!watchdog->isActive());
    QCOMPARE(lockStatus, 0);
}

QTEST_MAIN(TestRaWifiService)
#include "tst_rawifiservice.moc"
