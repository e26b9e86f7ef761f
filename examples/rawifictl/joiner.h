// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_JOINER_H
#define RAWIFICTL_JOINER_H

#include "output.h"

#include <rawificontrol.h>

#include <QElapsedTimer>
#include <QThread>

/** Runs the service's joining procedure on a thread of its own and reports its messages with their times. */
class Joiner : public QThread
{
    Q_OBJECT
public:
    /** Neither is owned; both outlive the thread. */
    Joiner(RaWifiService& service, const APData& network, Output& output);

    /** Joins, with the event loop running meanwhile. Returns the service's result. */
    int join();

protected:
    void run() override;

private Q_SLOTS:
    void report(int index, QString ssid, QString message, int errflag);

private:
    RaWifiService& m_service;
    const APData m_network;
    Output& m_output;
    QElapsedTimer m_clock;
    QJsonArray m_messages;
    int m_result = -1;
};

#endif
