// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiManager.h"

#include "loggedmessages.h"
#include "managertest.h"
#include "rawifimonitor.h"
#include "trace.h"

#include <QFileInfo>
#include <QMetaMethod>
#include <QtTest>

// The object itself: start-up and end, the switch, and the messages to the host.

using namespace managertest;

namespace {

const Lines disconnecting = Lines() << "run rm /home/wifi/*.txt -f"
                                    << "sync" << killing();

int openByCall(RaWifiManager* manager)
{
    return manager->openWifi(7);
}

int openBySlot(RaWifiManager* manager)
{
    return manager->recOpenWifi(true);
}

typedef int (*OpenFunction)(RaWifiManager*);
typedef std::function<void(RaWifiManager&)> Call;

} // namespace

Q_DECLARE_METATYPE(OpenFunction)
Q_DECLARE_METATYPE(Call)

class TestRaWifiManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void signalsAndSlotsAreThoseOfTheInterface();
    void startUpRunsItsCommandsInOrder();
    void startUpDiscardsWhatAnEarlierRunHasLeft();
    void aDirectoryThatStaysIsNotMadeAnew();
    void startUpSetsTheSharedState();
    void startUpIsLogged();
    void startUpMakesItsParts();
    void connectionsWithoutASlotFailWithAWarning();
    void theRefreshSignalReachesItsSlot();
    void theScanSignalReachesItsSlot();

    void oneInstanceUntilItIsClosed();
    void closingWithoutAnInstanceDoesNothing();
    void aManagerDestroyedOtherwiseIsForgottenToo();
    void aNewInstanceAfterClosingIsAFreshOne();
    void theHostsApplicationIsKeptOnceThereIsAManager();
    void theEndFreesTheWorkBlock();
    void theLocalAddressIsFetchedUntilItIsKnown();
    void theServiceIsKept();

    void switchingTellsTheHostOnlyWhenTheStateChanges_data();
    void switchingTellsTheHostOnlyWhenTheStateChanges();
    void aRepeatedRequestDoesNothingElse_data();
    void aRepeatedRequestDoesNothingElse();
    void switchingOffLeavesTheRadioAlone();
    void openingWithoutALinkScans_data();
    void openingWithoutALinkScans();
    void openingWithALinkScansNothing_data();
    void openingWithALinkScansNothing();
    void closingWifiWithoutAConnectionOnlySwitchesOff();
    void closingWifiDropsAConnection();
    void disconnectingDropsTheLink();
    void scanningReturnsTheServicesResult_data();
    void scanningReturnsTheServicesResult();
    void loadingTheListScansOrNot_data();
    void loadingTheListScansOrNot();
    void callsThatOnlyLog_data();
    void callsThatOnlyLog();

    void linkMessagesAreSentWhenTheNumberChanges_data();
    void linkMessagesAreSentWhenTheNumberChanges();
    void everyMessageHasTheSameEnvelope();
};

void TestRaWifiManager::initTestCase()
{
    prepare();
}

void TestRaWifiManager::init()
{
    freshDevice();
}

void TestRaWifiManager::cleanup()
{
    RaWifiManager::close();
    QVERIFY(waitWithoutEvents(isIdle));
    fakesystem::reset();
    QCOMPARE(unexpectedWarnings(), QStringList());
}

// --- Start-up and end ------------------------------------------------------------------------------------

void TestRaWifiManager::signalsAndSlotsAreThoseOfTheInterface()
{
    const QMetaObject& meta = RaWifiManager::staticMetaObject;
    Lines methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const QByteArray kind = method.methodType() == QMetaMethod::Signal ? "signal " : "slot ";
        methods << kind + method.typeName() + ' ' + method.methodSignature() + ' ' + method.parameterNames().join(',');
    }
    QCOMPARE(methods, Lines() << "signal void sendCmdScanAP() "
                              << "signal void backPressed() "
                              << "signal void signalShowWifiList() "
                              << "signal int sendWifiOpen(bool) isStatus"
                              << "signal void sendRefreshList() "
                              << "slot void timeout() "
                              << "slot int recCmdScanAP() "
                              << "slot int recAPSwitch(bool) ison"
                              << "slot void recTest(bool) ison"
                              << "slot int recOpenWifi(bool) "
                              << "slot void recRefreshList() "
                              << "slot void recQuitListWnd() "
                              << "slot void receiveAPManageInfo(int,APData) msgid,apinfo"
                              << "slot void recShowInfo(int,QString,QString,int) index,ssid,msginfo,errflag"
                              << "slot void recServiceStatusMsg(QString,bool) msginfo,isend"
                              << "slot void itemClickSlot(int) "
                              << "slot void mouseMoveSlot() "
                              << "slot void slotConfigWifi() "
                              << "slot void slotDiscoveryFinished() "
                              << "slot void slotWifiSelected(int) idx"
                              << "slot void slotWifiErr() "
                              << "slot int setListWndData() ");
}

void TestRaWifiManager::startUpRunsItsCommandsInOrder()
{
    const Trace trace;
    const Page page;
    QCOMPARE(trace.here(), Lines() << "run rm /home/wifi -rf"
                                   << "run mkdir /home/wifi"
                                   << "run chmod 777 /home/wifi"
                                   << "run rm -f /home/wifi/temp.txt"
                                   << "run sh /usr/bin/getlocalmac.sh;touch /home/wifi/result3"
                                   << "run rm /home/wifi/result3 -f");
    QCOMPARE(trace.elsewhere(), Lines());
}

void TestRaWifiManager::startUpDiscardsWhatAnEarlierRunHasLeft()
{
    setLink(true);
    QFile::setPermissions(QLatin1String("/home/wifi"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const Page page;
    QVERIFY(!fakesystem::exists(linkFile));
    QVERIFY(!getIsConnect());
    const QFile::Permissions all = QFile::ReadOther | QFile::WriteOther | QFile::ExeOther | QFile::ReadGroup
                                   | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOwner | QFile::WriteOwner
                                   | QFile::ExeOwner;
    QCOMPARE(QFileInfo(QLatin1String("/home/wifi")).permissions() & all, all);
}

void TestRaWifiManager::aDirectoryThatStaysIsNotMadeAnew()
{
    fakesystem::answerCommand("rm /home/wifi -rf", [] {});
    const Page page;
    QCOMPARE(fakesystem::count("mkdir /home/wifi"), 0);
    QCOMPARE(fakesystem::count("chmod 777 /home/wifi"), 0);
}

void TestRaWifiManager::startUpSetsTheSharedState()
{
    APData* const earlier = new APData(network(1, "Earlier"));
    g_PassParam.text = QLatin1String("secret");
    g_PassParam.flags = 5;
    g_PassParam.pinfo = earlier; // the block's own from now on
    g_PassParam.owner = reinterpret_cast<RaWifiManager*>(this);
    g_monitorStatus = true;
    p_App = qApp;
    QFont large = QApplication::font();
    large.setPointSize(large.pointSize() + 5);
    const QFont usual = QApplication::font();
    QApplication::setFont(large);

    const Page page;
    QVERIFY(!p_App);
    QVERIFY(!g_monitorStatus);
    QCOMPARE(g_PassParam.text, QString());
    QCOMPARE(g_PassParam.flags, 0);
    QVERIFY(!g_PassParam.owner);
    const APData& record = *g_PassParam.pinfo;
    QCOMPARE(QByteArray(record.essid) + record.macAddr + record.psk, QByteArray());
    QCOMPARE(record.orderbynum, 999);
    QCOMPARE(record.encry[0], int(NOENCRY));
    QCOMPARE(record.encry[1], int(NOENCRY));
    QCOMPARE(g_font, page->font());
    QCOMPARE(g_font.pointSize(), large.pointSize());
    QApplication::setFont(usual);
}

void TestRaWifiManager::startUpIsLogged()
{
    const Lines log = loggedMessages([] { const Page page; });
    const auto dumped = log.indexOf("encry[0]=0x1"); // the fresh record, as printAPDataPoint() has it
    const auto removing = log.indexOf("rm /home/wifi -rf");
    QVERIFY(dumped >= 0);
    QVERIFY(dumped < removing);
    QCOMPARE(log.mid(dumped, 4), Lines() << "encry[0]=0x1"
                                         << "encry[1]=0x1"
                                         << "is_encry=0"
                                         << "orderbynum=999");
    QCOMPARE(static_cast<int>(log.count("encry[0]=0x1")), 1);
}

void TestRaWifiManager::startUpMakesItsParts()
{
    const Page page;
    QCOMPARE(page->objectName(), QLatin1String("RaWifiManager"));
    QVERIFY(!page->parentWidget());
    QVERIFY(page.timer());
    QVERIFY(!page.timer()->isActive());
    const QList<RaWifiMonitor*> monitors = page->findChildren<RaWifiMonitor*>();
    QCOMPARE(static_cast<int>(monitors.size()), 1);
    QCOMPARE(monitors.first()->parentWidget(), static_cast<QWidget*>(page.get()));
    QVERIFY(!page.list());
    QVERIFY(!page.message());
    page->show();
    QVERIFY(!monitors.first()->isVisible());
}

void TestRaWifiManager::connectionsWithoutASlotFailWithAWarning()
{
    const Page page;
    QCOMPARE(takeWarnings(), serviceWarnings());
    page->checkAPListWnd();
    QCOMPARE(takeWarnings(), listWarnings("(int,APData*)"));
    page->checkAPSeriveAndMonitor(); // everything is there already
    page->checkAPListWnd();
    page->showAPListWnd();
    QCOMPARE(takeWarnings(), QStringList());
}

void TestRaWifiManager::theRefreshSignalReachesItsSlot()
{
    const Page page;
    page->checkAPListWnd();
    page.list()->hide();
    QSignalSpy refreshes(page.get(), SIGNAL(sendRefreshList()));
    QCOMPARE(page->callSendRefreshList(), 0);
    QCOMPARE(static_cast<int>(refreshes.size()), 1);
    QVERIFY(!page.list()->isHidden());
}

void TestRaWifiManager::theScanSignalReachesItsSlot()
{
    const Page page;
    setScan(networks(2));
    QVERIFY(QMetaObject::invokeMethod(page.get(), "sendCmdScanAP"));
    QCOMPARE(fakesystem::count("sh /usr/bin/getfirstaplist.sh;touch /home/wifi/result3"), 1);
    QCOMPARE(static_cast<int>(APDataArray.size()), 2);
}

void TestRaWifiManager::oneInstanceUntilItIsClosed()
{
    RaWifiManager* const manager = RaWifiManager::instance();
    QCOMPARE(RaWifiManager::instance(), manager);
    QCOMPARE(fakesystem::count("rm /home/wifi -rf"), 1);
    const QPointer<RaWifiManager> watched(manager);
    RaWifiManager::close();
    QVERIFY(!watched);
    RaWifiManager::instance();
    QCOMPARE(fakesystem::count("rm /home/wifi -rf"), 2);
}

void TestRaWifiManager::closingWithoutAnInstanceDoesNothing()
{
    RaWifiManager::close();
    RaWifiManager::close();
    QCOMPARE(fakesystem::commands(), Lines());
    RaWifiManager::instance();
    QCOMPARE(fakesystem::count("rm /home/wifi -rf"), 1);
}

void TestRaWifiManager::aManagerDestroyedOtherwiseIsForgottenToo()
{
    {
        QWidget host;
        RaWifiManager::instance()->setParent(&host);
    }
    const Page page; // would be the one that is gone
    QVERIFY(!page->parentWidget());
    QCOMPARE(fakesystem::count("rm /home/wifi -rf"), 2);
}

void TestRaWifiManager::aNewInstanceAfterClosingIsAFreshOne()
{
    Host host;
    {
        Page page;
        page->show();
        QVERIFY(scan(page));
        page->sendSAPMsgToMain(1);
        QVERIFY(page.isSwitchOn());
        page->receiveAPManageInfo(0, network(1, "Home", false));
        QVERIFY(waitForWorkers());
        QVERIFY(page.message());
    }
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    host.take();
    QtWarnings::take();
    const Page page;
    QCOMPARE(takeWarnings(), serviceWarnings());
    QVERIFY(!page.list());
    QVERIFY(!page.message());
    QVERIFY(APDataArray.isEmpty());
    page->sendSAPMsgToMain(1);
    QCOMPARE(host.take(), Lines() << "APLINKSTART");
    page->show();
    QVERIFY(!page.isSwitchOn());
}

void TestRaWifiManager::theHostsApplicationIsKeptOnceThereIsAManager()
{
    RaWifiManager::setMainAppObj(qApp);
    const Page page;
    QVERIFY(!p_App); // set too early
    RaWifiManager::setMainAppObj(qApp);
    QCOMPARE(p_App, qApp);
    RaWifiManager::setMainAppObj(nullptr);
    QCOMPARE(p_App, qApp);
}

void TestRaWifiManager::theEndFreesTheWorkBlock()
{
    {
        const Page page;
        page->receiveAPManageInfo(0, network(1, "Home", false));
        QVERIFY(waitForWorkers());
        QCOMPARE(g_PassParam.owner, page.get());
        QCOMPARE(pWnd, page.get());
    }
    QVERIFY(!g_PassParam.pinfo);
    QVERIFY(!g_PassParam.owner);
    QVERIFY(!pWnd);
}

void TestRaWifiManager::theLocalAddressIsFetchedUntilItIsKnown()
{
    const char command[] = "sh /usr/bin/getlocalmac.sh;touch /home/wifi/result3";
    breakScript("getlocalmac.sh");
    const Page page;
    QCOMPARE(fakesystem::count(command), 1);
    QCOMPARE(page->checkAPSeriveAndMonitor(), 0);
    QCOMPARE(fakesystem::count(command), 2);
    setScripts();
    page->checkAPSeriveAndMonitor();
    page->checkAPSeriveAndMonitor();
    QCOMPARE(fakesystem::count(command), 3);
    page->show();
    QStringList texts;
    for (const QLabel* label : page.list()->findChildren<QLabel*>()) {
        texts << label->text();
    }
    QVERIFY(texts.contains(QLatin1String("MAC  ") + QLatin1String(localMac)));
}

void TestRaWifiManager::theServiceIsKept()
{
    saveNetworks(networks(1));
    Page page;
    setScan(networks(2));
    page->openWifi(0);
    const int candidates = static_cast<int>(g_linkAPList.size());
    page->checkAPSeriveAndMonitor(); // another service would have emptied the list
    QCOMPARE(candidates, 1);
    QCOMPARE(static_cast<int>(APDataArray.size()), 2);
    QCOMPARE(static_cast<int>(page->findChildren<RaWifiMonitor*>().size()), 1);
}

// --- The switch ------------------------------------------------------------------------------------------

void TestRaWifiManager::switchingTellsTheHostOnlyWhenTheStateChanges_data()
{
    QTest::addColumn<QList<bool>>("requests");
    QTest::addColumn<int>("linkEnds");
    QTest::newRow("on") << (QList<bool>() << true) << 1;
    QTest::newRow("on twice") << (QList<bool>() << true << true) << 1;
    QTest::newRow("off while off") << (QList<bool>() << false) << 0;
    QTest::newRow("on, off, off") << (QList<bool>() << true << false << false) << 2;
    QTest::newRow("on, off, on") << (QList<bool>() << true << false << true) << 3;
}

void TestRaWifiManager::switchingTellsTheHostOnlyWhenTheStateChanges()
{
    QFETCH(QList<bool>, requests);
    QFETCH(int, linkEnds);
    Host host;
    const Page page;
    for (const bool ison : requests) {
        QCOMPARE(page->recAPSwitch(ison), 0);
    }
    QVERIFY(waitForWorkers());
    Lines expected;
    for (int i = 0; i < linkEnds; ++i) {
        expected << QByteArray("linkend", 7);
    }
    QCOMPARE(host.take(), expected);
}

void TestRaWifiManager::aRepeatedRequestDoesNothingElse_data()
{
    QTest::addColumn<bool>("ison");
    QTest::newRow("on while on") << true;
    QTest::newRow("off while off") << false;
}

void TestRaWifiManager::aRepeatedRequestDoesNothingElse()
{
    QFETCH(bool, ison);
    Host host;
    Page page;
    if (ison) {
        QVERIFY(scan(page));
    }
    host.take();
    const Lines commands = fakesystem::commands();
    const pthread_t worker = p_thread_msg;
    int result = -1;
    const Lines log = loggedMessages([&] { result = page->recAPSwitch(ison); });
    QCOMPARE(result, 0);
    const QByteArray request = "-------------------RaWifiManager::recAPSwitch(" + QByteArray::number(ison) + ")------";
    QCOMPARE(log, Lines() << request << "Scanning ...,Please wait");
    QCOMPARE(host.take(), Lines());
    QVERIFY(waitForWorkers());
    QCOMPARE(fakesystem::commands(), commands);
    QCOMPARE(p_thread_msg, worker);
}

void TestRaWifiManager::switchingOffLeavesTheRadioAlone()
{
    Page page;
    QVERIFY(scan(page));
    const Lines commands = fakesystem::commands();
    page->recAPSwitch(false);
    QVERIFY(waitForWorkers());
    QCOMPARE(fakesystem::commands(), commands);
    QVERIFY(!page.isSwitchOn());
}

void TestRaWifiManager::openingWithoutALinkScans_data()
{
    QTest::addColumn<OpenFunction>("open");
    QTest::newRow("by call") << OpenFunction(openByCall);
    QTest::newRow("by slot") << OpenFunction(openBySlot);
}

void TestRaWifiManager::openingWithoutALinkScans()
{
    QFETCH(OpenFunction, open);
    Page page;
    QtWarnings::take();
    setScan(networks(3));
    const Trace trace;
    int result = -2;
    const Lines log = loggedMessages([&] { result = open(page.get()); });
    QCOMPARE(result, 0);
    QCOMPARE(log.last(), QByteArray("data.size is 3"));
    QCOMPARE(static_cast<int>(log.count("recOpenWifi(1)")), open == openBySlot ? 1 : 0);
    QCOMPARE(trace.here(), opening(true));
    QCOMPARE(trace.elsewhere(), Lines());
    QCOMPARE(takeWarnings(), listWarnings("(int,APData*)"));
    QCOMPARE(g_isAutoCloseWifi, 1);
    QVERIFY(!page.isSwitchOn()); // a scan alone does not switch on

    const Trace second;
    QCOMPARE(open(page.get()), 0);
    QCOMPARE(second.here(), opening(false));
}

void TestRaWifiManager::openingWithALinkScansNothing_data()
{
    openingWithoutALinkScans_data();
}

void TestRaWifiManager::openingWithALinkScansNothing()
{
    QFETCH(OpenFunction, open);
    Host host;
    Page page;
    setLink(true);
    const Trace trace;
    int result = 0;
    const Lines log = loggedMessages([&] { result = open(page.get()); });
    QCOMPARE(result, -1);
    QVERIFY(log.contains("getIsConnect = true"));
    QCOMPARE(trace.here(), Lines());
    QCOMPARE(g_isAutoCloseWifi, 1);
    page->show();
    QVERIFY(page.isSwitchOn());
    QVERIFY(!page.saysDiscovering()); // nothing is being looked for
    page->recAPSwitch(true);          // a repeat now
    QCOMPARE(host.take(), Lines());
}

void TestRaWifiManager::closingWifiWithoutAConnectionOnlySwitchesOff()
{
    Host host;
    Page page;
    QVERIFY(scan(page));
    host.take();
    const Lines commands = fakesystem::commands();
    QCOMPARE(page->closeWifi(), 1);
    QCOMPARE(fakesystem::commands(), commands);
    QVERIFY(!page.isSwitchOn());
    page->recAPSwitch(false); // a repeat now
    QCOMPARE(host.take(), Lines());
}

void TestRaWifiManager::closingWifiDropsAConnection()
{
    Page page;
    APData joined = network(1, "Home");
    page->SetSuccessFlag(&joined);
    const Trace trace;
    QCOMPARE(page->closeWifi(), 1);
    QCOMPARE(trace.here(), disconnecting);
    QCOMPARE(page->closeWifi(), 1);
    QCOMPARE(trace.here(), disconnecting); // there was nothing left to drop
}

void TestRaWifiManager::disconnectingDropsTheLink()
{
    Page page;
    setScan(QList<APData>() << network(1, "Home", false));
    page->show();
    QVERIFY(scan(page));
    page->receiveAPManageInfo(3, network(1, "Home", false));
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state("Home"), QByteArray("joined"));
    RaWifiMonitor* const monitor = page->findChild<RaWifiMonitor*>();
    monitor->setWifiConnectStatus(1, 1);
    page.timer()->start(10000);

    const Trace trace;
    QCOMPARE(page->disConnectAp(), 0);
    QCOMPARE(trace.here(), disconnecting);
    QVERIFY(!page.timer()->isActive());
    QVERIFY(!g_monitorStatus);
    QVERIFY(!fakesystem::exists(linkFile));
    QCOMPARE(page.state("Home"), QByteArray("idle"));
    page->closeWifi();
    QCOMPARE(trace.here(), disconnecting); // it is not dropped once more
}

void TestRaWifiManager::scanningReturnsTheServicesResult_data()
{
    QTest::addColumn<int>("saved");
    QTest::addColumn<int>("result");
    QTest::newRow("nothing saved") << 0 << -1;
    QTest::newRow("a network is saved") << 1 << 0;
}

void TestRaWifiManager::scanningReturnsTheServicesResult()
{
    QFETCH(int, saved);
    QFETCH(int, result);
    saveNetworks(networks(saved));
    const Page page;
    setScan(networks(2));
    const Lines before = fakesystem::commands();
    QCOMPARE(page->startScan(), result);
    QCOMPARE(page->recCmdScanAP(), result);
    QCOMPARE(fakesystem::commands().mid(before.size()), Lines()
                                                            << "sh /usr/bin/calldefaultconf.sh"
                                                            << "sh /usr/bin/getwpastatus.sh"
                                                            << "rm -f /home/wifi/temp.txt"
                                                            << "rm -f /home/wifi/result3"
                                                            << "sh /usr/bin/getfirstaplist.sh;touch /home/wifi/result3"
                                                            << "rm -f /home/wifi/temp.txt"
                                                            << "sh /usr/bin/getwpastatus.sh"
                                                            << "rm -f /home/wifi/temp.txt"
                                                            << "rm -f /home/wifi/result3"
                                                            << "sh /usr/bin/getaplist.sh;touch /home/wifi/result3 "
                                                            << "rm -f /home/wifi/temp.txt");
}

void TestRaWifiManager::loadingTheListScansOrNot_data()
{
    QTest::addColumn<bool>("scan");
    QTest::addColumn<bool>("hasWindow");
    QTest::newRow("by a scan") << true << true;
    QTest::newRow("from the last one") << false << true;
    QTest::newRow("by a scan, without a window") << true << false;
    QTest::newRow("from the last one, without a window") << false << false;
}

void TestRaWifiManager::loadingTheListScansOrNot()
{
    QFETCH(bool, scan);
    QFETCH(bool, hasWindow);
    saveNetworks(networks(1));
    const Page page;
    if (hasWindow) {
        page->checkAPListWnd();
    }
    setScan(networks(2));
    setAir(networks(1));
    const Lines before = fakesystem::commands();
    page->loadAPListWnd(scan);
    QCOMPARE(static_cast<int>(APDataArray.size()), scan ? 2 : 1);
    QCOMPARE(fakesystem::commands().size() > before.size(), scan);
    QCOMPARE(APDataArray.first()->orderbynum, scan ? 0 : 1); // ranked in any case: it is the first of the store
}

void TestRaWifiManager::callsThatOnlyLog_data()
{
    QTest::addColumn<Call>("call");
    QTest::newRow("recTest") << Call([](RaWifiManager& m) { m.recTest(true); });
    QTest::newRow("connectUserSelectAPI") << Call([](RaWifiManager& m) { QCOMPARE(m.connectUserSelectAPI(), 0); });
    QTest::newRow("itemClickSlot") << Call([](RaWifiManager& m) { m.itemClickSlot(1); });
    QTest::newRow("mouseMoveSlot") << Call([](RaWifiManager& m) { m.mouseMoveSlot(); });
    QTest::newRow("slotConfigWifi") << Call([](RaWifiManager& m) { m.slotConfigWifi(); });
    QTest::newRow("slotDiscoveryFinished") << Call([](RaWifiManager& m) { m.slotDiscoveryFinished(); });
    QTest::newRow("slotWifiSelected") << Call([](RaWifiManager& m) { m.slotWifiSelected(-1); });
    QTest::newRow("slotWifiErr") << Call([](RaWifiManager& m) { m.slotWifiErr(); });
}

void TestRaWifiManager::callsThatOnlyLog()
{
    QFETCH(Call, call);
    Host host;
    const Page page;
    const Lines commands = fakesystem::commands();
    const Lines log = loggedMessages([&] { call(*page.get()); });
    QCOMPARE(static_cast<int>(log.size()), 1);
    QCOMPARE(fakesystem::commands(), commands);
    QVERIFY(!page.list());
    QVERIFY(!page.message());
    QCOMPARE(p_thread_msg, pthread_t(0));
    QCOMPARE(host.take(), Lines());
}

// --- Messages to the host --------------------------------------------------------------------------------

void TestRaWifiManager::linkMessagesAreSentWhenTheNumberChanges_data()
{
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<Lines>("payloads");
    const QByteArray start("APLINKSTART", 11);
    const QByteArray end("APLINKEND", 9);
    QTest::newRow("repeats are kept back")
        << (QList<int>() << 1 << 1 << 0 << 0 << 1) << (Lines() << start << end << start);
    QTest::newRow("the numbers count, not their truth") << (QList<int>() << 1 << 5 << 5) << (Lines() << start << start);
    QTest::newRow("the first one is sent, up") << (QList<int>() << 1) << (Lines() << start);
    QTest::newRow("the first one is sent, down") << (QList<int>() << 0) << (Lines() << end);
    QTest::newRow("only the number of the start is known already") << (QList<int>() << -1 << -2) << (Lines() << start);
}

void TestRaWifiManager::linkMessagesAreSentWhenTheNumberChanges()
{
    QFETCH(QList<int>, numbers);
    QFETCH(Lines, payloads);
    Host host;
    const Page page;
    for (const int number : numbers) {
        QCOMPARE(page->sendSAPMsgToMain(number), 1);
    }
    QCOMPARE(host.take(), payloads);
}

void TestRaWifiManager::everyMessageHasTheSameEnvelope()
{
    Host host;
    const Page page;
    page->sendSAPMsgToMain(1);
    page->connectCertainAP();
    page->sendSAPMsgToMain(0);
    page->recAPSwitch(true);
    QVERIFY(waitForWorkers());
    QCOMPARE(host.take(), Lines() << "APLINKSTART"
                                  << "linkend"
                                  << "APLINKEND"
                                  << "linkend");
    QCOMPARE(host.messages.removeDuplicates(), 3);
    QCOMPARE(host.messages, QStringList() << QLatin1String("wifi(QString)"));
}

int main(int argc, char** argv)
{
    return managertest::run<TestRaWifiManager>(argc, argv);
}

#include "tst_rawifimanager.moc"
