// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiManager.h"

#include "hostmessage.h"
#include "managerworker.h"
#include "raglobalfun.h"
#include "raguithread.h"
#include "ralog.h"
#include "rashell.h"
#include "rawifiglobals.h"
#include "rawifilistwidget.h"
#include "rawifimonitor.h"
#include "rawifimsg.h"
#include "rawifiservice.h"
#include "recordtext.h"
#include "sharedstate.h"

#include <QPainter>
#include <QTimer>

QApplication* p_App = nullptr;

namespace {

RaWifiManager* s_instance = nullptr;

const int errorShownMs = 10000;
const int markAsJoining = 3;

} // namespace

RaWifiManager::RaWifiManager(QWidget* parent)
    : QWidget(parent),
      m_objectName(QLatin1String("RaWifiManager")),
      m_gui(new RaGuiThread(this)),
      m_joining(freshRecord())
{
    qRegisterMetaType<APData>("APData");
    p_App = nullptr;
    setObjectName(m_objectName);
    storeFlag(g_monitorStatus, false);
    {
        const SharedStateLock lock(sharedStateMutex());
        g_PassParam.text.clear();
        g_PassParam.flags = 0;
        g_PassParam.owner = nullptr;
        delete g_PassParam.pinfo;
        g_PassParam.pinfo = new APData(freshRecord());
    }
    APData fresh = freshRecord();
    printAPDataPoint(&fresh);
    g_font = font();
    connect(this, SIGNAL(sendCmdScanAP()), this, SLOT(recCmdScanAP()));
    Init();
}

RaWifiManager::~RaWifiManager()
{
    raAssertOwnThread(this);
    // A worker that waits for this thread is answered, so that this thread can wait for the worker.
    m_gui->close();
    managerworker::cancelAndWait();
    delete m_timer;
    delete m_listWindow;
    delete m_messageWindow;
    delete m_service;
    delete m_monitor;
    delete m_spareWindow;
    {
        const SharedStateLock lock(sharedStateMutex());
        delete g_PassParam.pinfo;
        g_PassParam.pinfo = nullptr;
        g_PassParam.owner = nullptr;
        if (pWnd == this) {
            pWnd = nullptr;
        }
    }
    if (s_instance == this) {
        s_instance = nullptr;
    }
}

RaWifiManager* RaWifiManager::instance()
{
    if (!s_instance) {
        s_instance = new RaWifiManager(nullptr);
    }
    return s_instance;
}

void RaWifiManager::close()
{
    delete s_instance; // clears the pointer
}

void RaWifiManager::setMainAppObj(QApplication* application)
{
    if (application) {
        p_App = application;
    }
}

void RaWifiManager::Init()
{
    // cppcheck-suppress publicAllocationError ; the window owns it
    m_timer = new QTimer(this);
    connect(m_timer, SIGNAL(timeout()), this, SLOT(timeout()));
    connect(this, SIGNAL(sendRefreshList()), this, SLOT(recRefreshList()));
    m_localMac.clear();
    m_selectedMac.clear();

    // Whatever an earlier run has left is out of date.
    const char* const directory = "/home/wifi";
    RA_DEBUG("rm %s -rf", directory);
    raRunCommandF("rm %s -rf", directory);
    if (!fileIsExisting(directory)) {
        raRunCommandF("mkdir %s", directory);
        raRunCommandF("chmod 777 %s", directory);
    }
    m_level = 100;
    checkAPSeriveAndMonitor();
}

int RaWifiManager::checkAPSeriveAndMonitor()
{
    bool isMacMissing = false;
    m_gui->run([this, &isMacMissing] {
        makeServiceAndMonitor();
        isMacMissing = m_localMac.isEmpty();
    });
    if (isMacMissing) {
        char mac[18] = "";
        m_service->getLocalMACaddress(mac);
        m_gui->run([this, &mac] {
            m_localMac = QString::fromLatin1(mac);
            if (m_listWindow) {
                m_listWindow->setMac(m_localMac);
            }
        });
    }
    return 0;
}

void RaWifiManager::makeServiceAndMonitor()
{
    // Three of these have no signal or slot to connect: they fail with the toolkit's warning, and are kept.
    if (!m_service) {
        m_service = new RaWifiService(1, this);
        // clang-format off
        connect(m_service, SIGNAL(sendListWndInfo(int,QString,QString,int)), this,
                SLOT(recShowInfo(int,QString,QString,int)));
        // clang-format on
        connect(m_service, SIGNAL(sendSetStatusMsg(QString,bool)), this, SLOT(recServiceStatusMsg(QString,bool)));
        connect(m_service, SIGNAL(sendPrgFun(int)), this, SLOT(recPrgFun(int)));
    }
    if (!m_monitor) {
        m_monitor = new RaWifiMonitor(this);
        m_monitor->hide(); // a widget without a face
        // The blank before the comma is part of the toolkit's warning.
        connect(m_monitor, SIGNAL(sendNetWorkStatus(int,int,QString)), SLOT(receiveMonitorStatus(int,int ,QString)));
        connect(m_service, SIGNAL(sendCheckAPConnect(QString,int)), m_monitor, SLOT(recCheckAPConnect(QString,int)));
        connect(m_monitor, SIGNAL(sendMonitorConMsg(QString)), this, SLOT(recMonitorConMsg(QString)));
    }
}

int RaWifiManager::openWifi(int)
{
    storeFlag(g_isAutoCloseWifi, 1);
    checkAPSeriveAndMonitor();
    runUnlessOutdated([this] { m_isSwitchedOff = false; });
    m_gui->run([this] { checkAPListWnd(); });
    if (getIsConnect()) {
        RA_DEBUG("getIsConnect = true");
        runUnlessOutdated([this] {
            m_switchOn = true;
            delete m_spareWindow;
            m_spareWindow = nullptr;
            m_listWindow->setWifiSwitch(true);
            m_listWindow->setScanning(false);
        });
        return -1;
    }
    m_service->killWpaSupplicant(1);
    raRunCommand("ifconfig wlan0 down");
    raSleepMs(50);
    raRunCommand("ifconfig wlan0 up");
    startScan();
    m_gui->run([this] { setListWndData(); });
    RA_DEBUG("data.size is %d", m_service->getwifilistcount());
    return 0;
}

int RaWifiManager::recOpenWifi(bool ison)
{
    RA_DEBUG("recOpenWifi(%d)", ison);
    return openWifi(ison);
}

int RaWifiManager::recAPSwitch(bool ison)
{
    raAssertOwnThread(this);
    RA_DEBUG("-------------------RaWifiManager::recAPSwitch(%d)------", ison);
    if (ison == m_switchOn) {
        RA_DEBUG("Scanning ...,Please wait");
        return 0;
    }
    sendAPSleep(0);
    m_switchOn = ison;
    m_isSwitchedOff = !ison;
    if (m_listWindow) {
        m_listWindow->setWifiSwitch(ison);
    }
    if (ison) {
        startScanWorker();
    } else {
        managerworker::dropScan();
    }
    return 0;
}

int RaWifiManager::closeWifi()
{
    raAssertOwnThread(this);
    checkAPSeriveAndMonitor();
    if (m_connected) {
        disConnectAp();
    }
    m_connected = false;
    m_switchOn = false;
    m_isSwitchedOff = true;
    m_selectedMac.clear();
    if (m_listWindow) {
        m_listWindow->setWifiSwitch(false);
    }
    managerworker::dropScan();
    return 1;
}

void RaWifiManager::recTest(bool ison)
{
    RA_DEBUG("recTest(%d)", ison);
}

int RaWifiManager::sendSAPMsgToMain(int status)
{
    raAssertOwnThread(this);
    // The numbers are compared, not what they stand for.
    if (status != m_lastStatusSent) {
        m_lastStatusSent = status;
        sendToMainProcess(QLatin1String(status != 0 ? "APLINKSTART" : "APLINKEND"));
    }
    return 1;
}

int RaWifiManager::startScan()
{
    return m_service->getAPListByScan();
}

int RaWifiManager::recCmdScanAP()
{
    checkAPSeriveAndMonitor();
    return m_service->getAPListByScan();
}

int RaWifiManager::connectUserSelectAP(const char* macAddr, int encry, const char* essid, const char* psk,
                                       int sigquality, int authMode, int keyIndex)
{
    RA_DEBUG("ssid =%s,psk= %s \n", macAddr, raSecret(psk)); // the address stands where the name is announced
    const QString mac = QString::fromLatin1(macAddr);
    runUnlessOutdated([this, &mac] {
        m_selectedMac = mac;
        m_listState = 0;
    });
    RA_DEBUG(" CALL connectCertainAP fun \n");
    return m_service->connectCertainAP(mac, static_cast<ENCRY>(encry), textFromBytes(essid), textFromBytes(psk),
                                       sigquality, authMode, keyIndex);
}

int RaWifiManager::connectUserSelectAPI()
{
    RA_DEBUG("connectUserSelectAPI");
    return 0;
}

int RaWifiManager::connectCertainAP()
{
    raAssertOwnThread(this);
    if (getIsConnect()) {
        return -1;
    }
    sendAPSleep(0);
    if (m_service) {
        APData candidate = freshRecord();
        if (m_service->getdefaultConAPByLocalcfg() == 0 && m_service->getAPInfoByLinkAPList(&candidate)) {
            storeFlag(g_isAutoMode, 1);
            giveUpJoining();
            startConnectWorker(candidate);
            return 0;
        }
        if (m_listWindow) {
            if (m_switchOn) {
                setListWndData();
                m_listWindow->show();
                m_listWindow->raise();
            }
            m_listWindow->setClearMac();
        }
    }
    return -1;
}

int RaWifiManager::disConnectAp()
{
    raAssertOwnThread(this);
    m_listState = 0;
    if (!m_monitor) {
        return -1;
    }
    m_timer->stop();
    if (m_messageWindow) {
        m_messageWindow->hide(); // the timer would have done it
    }
    disConnectFunc();
    m_monitor->setWifiConnectStatus(0, 0);
    m_service->disConnectAp();
    m_selectedMac.clear();
    m_connected = false;
    if (m_listWindow) {
        m_listWindow->setClearMac();
    }
    return 0;
}

void RaWifiManager::SetSuccessFlag(APData*)
{
    runUnlessOutdated([this] {
        m_connected = true;
        m_isJoining = false;
        if (m_messageWindow) {
            m_timer->stop();
            m_messageWindow->hide();
        }
        if (m_listWindow) {
            APData joined;
            GetCurApData(&joined);
            m_listWindow->recWifiListMsg(joined, true);
            m_listWindow->setLinkAP(false);
        }
    });
}

int RaWifiManager::callSendRefreshList()
{
    Q_EMIT sendRefreshList();
    return 0;
}

// On the GUI thread. A worker that nobody waits for any more has no say.
void RaWifiManager::runUnlessOutdated(const std::function<void()>& work)
{
    const std::atomic<bool>* const isOutdated = managerworker::outdatedMark();
    m_gui->run([isOutdated, &work] {
        if (!isOutdated || !*isOutdated) {
            work();
        }
    });
}

bool RaWifiManager::createListWindow(const char* exitMenuSignal, const char* exitMenuSlot)
{
    if (m_listWindow) {
        return false;
    }
    m_listWindow = new RaWifiListWidget(this, true, tr("Network Setting"), m_localMac);
    m_listWindow->setGeometry(rect());
    m_listWindow->setWifiSwitch(m_switchOn);
    RA_DEBUG("connect sendWifiSwitch fun :: this->recAPSwitch ");
    connect(m_listWindow, SIGNAL(sendWifiSwitch(bool)), this, SLOT(recAPSwitch(bool)));
    connect(m_listWindow, SIGNAL(sendQuitListWnd()), this, SLOT(recQuitListWnd()));
    connect(m_listWindow, SIGNAL(sendWifiManageInfo(int,APData)), this, SLOT(receiveAPManageInfo(int,APData)));
    // A message about the last attempt would cover the password page.
    connect(m_listWindow, SIGNAL(signalItemClick(int)), this, SLOT(timeout()));
    // The last four have no slot here: they fail with the toolkit's warning, and are kept.
    connect(m_listWindow, SIGNAL(sendQuickMenu()), this, SLOT(receiveQuickMenu()));
    connect(m_listWindow, SIGNAL(sendClearAP(QString)), this, SLOT(clearAP(QString)));
    connect(m_listWindow, SIGNAL(sendRefreshAPListMsg(QString,int)), this, SLOT(recRefreshAPListMsg(QString,int)));
    connect(m_listWindow, exitMenuSignal, this, exitMenuSlot);
    return true;
}

void RaWifiManager::showAPListWnd()
{
    raAssertOwnThread(this);
    if (!m_listWindow) {
        RA_DEBUG("+++++++++++++++++RaWifiManager::showAPListWnd::create UI+++++++++++++++++++++++++");
    }
    createListWindow(SIGNAL(sendMenuExitListWin(QString,int,APData*)), SLOT(recMenuExitListWin(QString,int,APData*)));
}

void RaWifiManager::checkAPListWnd()
{
    raAssertOwnThread(this);
    createListWindow(SIGNAL(sendMenuExitListWin(int,APData*)), SLOT(recMenuExitListWin(int,APData*)));
}

int RaWifiManager::setListWndData()
{
    raAssertOwnThread(this);
    if (!m_listWindow) {
        return 0;
    }
    m_listWindow->clearData();
    m_service->getAPList();
    return m_listWindow->setlistItemData();
}

void RaWifiManager::loadAPListWnd(bool scan)
{
    raAssertOwnThread(this);
    if (m_listWindow) {
        m_listWindow->clearData();
    }
    if (scan) {
        m_service->getAPListByScan();
    } else {
        m_service->getAPList();
    }
}

void RaWifiManager::recRefreshList()
{
    raAssertOwnThread(this);
    if (m_listWindow) {
        m_listWindow->showRefreshListData();
        m_listWindow->show();
        if (m_isSwitchedOff) { // while the end of a scan was on its way
            m_listWindow->setWifiSwitch(false);
        }
    }
}

void RaWifiManager::recQuitListWnd()
{
    raAssertOwnThread(this);
    if (m_listWindow) {
        m_listWindow->hide();
        Q_EMIT backPressed();
    }
}

void RaWifiManager::receiveAPManageInfo(int msgid, APData apinfo)
{
    raAssertOwnThread(this);
    RA_DEBUG("--------------------");
    giveUpJoining();
    if (m_listWindow) {
        m_listWindow->HideKeyBoardWnd();
        if (msgid == markAsJoining) {
            m_listWindow->setLinkAP(true);
            m_listWindow->recWifiListMsg(apinfo);
        }
    }
    prepareMessageWindow();
    m_selectedMac.clear();
    storeFlag(g_isAutoMode, 0);
    startConnectWorker(apinfo);
}

void RaWifiManager::prepareMessageWindow()
{
    if (!m_messageWindow) {
        m_messageWindow = new RaWifiMsg(this);
    }
    m_messageWindow->m_text.clear();
    m_messageWindow->setStyleSheet(QLatin1String("QWidget{background-color:#1e2129}"));
    m_messageWindow->setGeometry(0, 100, 320, 70);
    m_messageWindow->hide();
}

void RaWifiManager::recShowInfo(int, QString, QString msginfo, int errflag)
{
    raAssertOwnThread(this);
    RA_DEBUG("errflag = %d,msginfo = %s", errflag, msginfo.toLocal8Bit().constData());
    if (errflag == 0) {
        return;
    }
    // The attempt is over: the rows can be tapped again, and the failed one asks for its password anew.
    storeFlag(g_isWifiWorkStatus, false);
    m_isJoining = false;
    if (m_listWindow) {
        m_listWindow->setLinkAP(false);
        m_listWindow->setConnectFailed(m_joining);
    }
    if (errflag < 0 && m_messageWindow) {
        m_messageWindow->m_text = msginfo;
        m_timer->start(errorShownMs);
        m_messageWindow->repaint();
        m_messageWindow->show();
    }
}

void RaWifiManager::recServiceStatusMsg(QString msginfo, bool)
{
    raAssertOwnThread(this);
    RA_DEBUG("msginfo:%s\n", msginfo.toLocal8Bit().constData());
    if (msginfo == QLatin1String("SUCCESS")) {
        timeout();
    }
}

void RaWifiManager::timeout()
{
    raAssertOwnThread(this);
    m_timer->stop();
    if (m_listWindow) {
        m_listWindow->show();
    }
    if (m_messageWindow) {
        m_messageWindow->hide();
    }
}

void RaWifiManager::itemClickSlot(int index)
{
    RA_DEBUG("itemClickSlot(%d)", index);
}

void RaWifiManager::mouseMoveSlot()
{
    RA_DEBUG("mouseMoveSlot");
}

void RaWifiManager::slotConfigWifi()
{
    RA_DEBUG("slotConfigWifi");
}

void RaWifiManager::slotDiscoveryFinished()
{
    RA_DEBUG("slotDiscoveryFinished");
}

void RaWifiManager::slotWifiSelected(int idx)
{
    RA_DEBUG("slotWifiSelected(%d)", idx);
}

void RaWifiManager::slotWifiErr()
{
    RA_DEBUG("slotWifiErr");
}

void RaWifiManager::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), QColor(0x1e, 0x21, 0x29));
}

void RaWifiManager::resizeEvent(QResizeEvent*)
{
    if (m_listWindow) {
        m_listWindow->setGeometry(rect());
    }
}

// The page is complete whenever it is shown, also before the first scan and after it was left.
void RaWifiManager::showEvent(QShowEvent*)
{
    checkAPListWnd();
    m_listWindow->show();
}

void RaWifiManager::startScanWorker()
{
    giveUpJoining();
    if (!managerworker::startScan(this) && m_listWindow) {
        m_listWindow->setScanning(false);
    }
}

// A cancelled attempt reports nothing; its row goes back to idle without being marked as failed.
void RaWifiManager::giveUpJoining()
{
    if (m_isJoining && m_listWindow) {
        m_listWindow->setLinkAP(false);
        m_listWindow->recWifiListMsg(freshRecord());
    }
    m_isJoining = false;
}

void RaWifiManager::startConnectWorker(const APData& network)
{
    m_joining = network;
    m_isJoining = true;
    if (m_listWindow) {
        m_listWindow->setScanning(false); // a scan that runs is cancelled
    }
    {
        const SharedStateLock lock(sharedStateMutex());
        g_PassParam.owner = nullptr;
        if (!g_PassParam.pinfo) {
            RA_DEBUG("-------new APData--------");
            g_PassParam.pinfo = new APData(freshRecord());
        }
        g_PassParam.text = textFromBytes(network.psk);
        g_PassParam.owner = this;
    }
    SetGlobalApData(network);
    RA_DEBUG(" printf(-----APData -----)");
    printAPDataPoint(&m_joining);
    if (!managerworker::startConnect()) {
        giveUpJoining();
    }
}
