// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifimonitor.h"

#include "devicepaths.h"
#include "rafile.h"
#include "raglobalfun.h"
#include "raguithread.h"
#include "rashell.h"
#include "rawifiglobals.h"
#include "recordtext.h"
#include "sharedstate.h"

#include <QTimer>
#include <cstring>

RaWifiMonitor::RaWifiMonitor(QWidget* parent)
    : QWidget(parent),
      m_timer(new QTimer(this)),
      m_status(new APData(freshRecord()))
{
    connect(m_timer, SIGNAL(timeout()), this, SLOT(timeout()));
}

RaWifiMonitor::~RaWifiMonitor()
{
    delete m_status;
    delete m_timer;
}

int RaWifiMonitor::setTimerRun(int ms)
{
    raAssertOwnThread(this);
    m_interval = ms;
    m_misses = 0;
    return 0;
}

int RaWifiMonitor::setConnectNunmber(int)
{
    raAssertOwnThread(this);
    m_missLimit = 2;
    return 0;
}

int RaWifiMonitor::timerStart()
{
    raAssertOwnThread(this);
    storeFlag(g_monitorStatus, true);
    m_timer->start(m_interval);
    return 0;
}

int RaWifiMonitor::timerStop()
{
    raAssertOwnThread(this);
    storeFlag(g_monitorStatus, false);
    m_timer->stop();
    return 0;
}

int RaWifiMonitor::setWifiConnectStatus(int status, int start)
{
    raAssertOwnThread(this);
    m_connectStatus = status;
    m_running = true;
    if (start != 0) {
        timerStart();
    } else {
        storeFlag(g_monitorStatus, false); // the timer goes on as it was
    }
    return 0;
}

int RaWifiMonitor::getAPStatus()
{
    raAssertOwnThread(this);
    raClearForWriting(devicepaths::statusMarker);
    raRunCommand("sh /usr/bin/getconnectstatus.sh;touch /home/wifi/result");
    std::memset(m_status->essid, 0, 4);
    char answer[] = "/home/wifi/temp.txt";
    const bool read = getConnectStatusInfo(answer, m_status) == 0;
    setField(m_status->psk, "");
    return read ? 1 : 0;
}

int RaWifiMonitor::setStopFlag()
{
    raAssertOwnThread(this);
    m_running = false;
    m_checkPending = false;
    m_signalValue = 0;
    m_expectedMac.clear();
    return 0;
}

void RaWifiMonitor::recCheckAPConnect(QString linkmadress, int signalvalue)
{
    raAssertOwnThread(this);
    m_expectedMac = linkmadress;
    m_signalValue = signalvalue;
    m_checkPending = true;
}

void RaWifiMonitor::timeout()
{
    raAssertOwnThread(this);
    m_timer->stop();
    poll();
    if (!m_timer->isActive()) {
        storeFlag(g_monitorStatus, false);
    }
}

void RaWifiMonitor::poll()
{
    if (getAPStatus() == 0) {
        timerStop();
        m_signalValue = 0;
        m_running = false;
        Q_EMIT sendNetWorkStatus(0, 0, QString());
    } else if (std::strncmp(m_status->wpa_state, "COMPLETED", 9) != 0) {
        reportMiss();
    } else {
        reportLink();
    }
}

void RaWifiMonitor::reportMiss()
{
    if (m_misses < m_missLimit && ++m_misses < m_missLimit) {
        rearm();
        return;
    }
    m_misses = 0;
    Q_EMIT sendNetWorkStatus(0, 0, QString::fromLatin1(report().macAddr));
    SendAPStatusToOther(false);
    m_running = false;
}

// A good poll does not reset the misses: any two since the last report or start make a lost link.
void RaWifiMonitor::reportLink()
{
    const QString mac = QString::fromLatin1(report().macAddr);
    if (mac == m_expectedMac) {
        if (m_checkPending) {
            m_checkPending = false;
            Q_EMIT sendMonitorConMsg(m_expectedMac);
        } else {
            Q_EMIT sendNetWorkStatus(0, 2, mac);
        }
        SendAPStatusToOther(true);
    }
    if (m_misses < m_missLimit) {
        rearm();
    }
}

void RaWifiMonitor::rearm()
{
    if (m_running) {
        timerStart();
    }
}

APData RaWifiMonitor::report() const
{
    APData record;
    std::memset(&record, 0, sizeof record);
    setField(record.essid, m_status->essid);
    setField(record.macAddr, m_status->macAddr);
    setField(record.key_mgmt, m_status->key_mgmt);
    setField(record.wpa_state, m_status->wpa_state);
    setField(record.psk, m_status->psk);
    setField(record.IP, m_status->IP);
    record.sigquality = m_signalValue;
    record.id = m_status->id;
    return record;
}
