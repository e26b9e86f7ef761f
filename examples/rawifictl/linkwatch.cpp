// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "linkwatch.h"

#include <QCoreApplication>

LinkWatch::LinkWatch(Output& output, const QString& mac, int interval, int polls)
    : m_output(output),
      m_monitor(nullptr),
      m_pollsLeft(polls)
{
    connect(&m_monitor, SIGNAL(sendMonitorConMsg(QString)), this, SLOT(confirmed(QString)));
    connect(&m_monitor, SIGNAL(sendNetWorkStatus(int, int, QString)), this, SLOT(status(int, int, QString)));
    m_monitor.setTimerRun(interval);
    m_monitor.recCheckAPConnect(mac, getAPSignalValue());
    m_monitor.setWifiConnectStatus(1, 1);
}

void LinkWatch::confirmed(QString mac)
{
    report("confirmed", mac);
    countPoll();
}

void LinkWatch::status(int, int connectStatus, QString mac)
{
    if (connectStatus == 0) {
        report("lost", mac);
        QCoreApplication::exit(1);
        return;
    }
    report("up", mac);
    countPoll();
}

void LinkWatch::report(const char* event, const QString& mac)
{
    m_output.line(QLatin1String(event) + QLatin1Char(' ') + visible(mac.toUtf8()));
    QJsonObject object;
    object.insert(QLatin1String("event"), QLatin1String(event));
    object.insert(QLatin1String("bssid"), mac);
    m_output.document(object);
}

void LinkWatch::countPoll()
{
    if (m_pollsLeft > 0 && --m_pollsLeft == 0) {
        QCoreApplication::exit(0);
    }
}
