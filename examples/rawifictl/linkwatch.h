// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_LINKWATCH_H
#define RAWIFICTL_LINKWATCH_H

#include "output.h"

#include <rawificontrol.h>

#include <QObject>

/** Prints what the link monitor reports; ends the event loop with 1 when the link is lost. */
class LinkWatch : public QObject
{
    Q_OBJECT
public:
    LinkWatch(Output& output, const QString& mac, int interval, int polls);

private Q_SLOTS:
    void confirmed(QString mac);
    void status(int type, int connectStatus, QString mac);

private:
    void report(const char* event, const QString& mac);
    void countPoll();

    Output& m_output;
    RaWifiMonitor m_monitor;
    int m_pollsLeft; ///< 0: no limit
};

#endif
