// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFIMONITOR_H
#define RAWIFI_RAWIFIMONITOR_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QString>
#include <QWidget>

class QTimer;

/**
 * Watches an established link: polls the supplicant's status every 8 seconds once started, and reports the link
 * lost after two misses. GUI thread only; a poll blocks it for one script.
 */
class RAWIFI_EXPORT RaWifiMonitor : public QWidget
{
    Q_OBJECT
public:
    explicit RaWifiMonitor(QWidget* parent); ///< Not polling yet; \a parent owns it.
    ~RaWifiMonitor() override;

    /** Sets the period between polls in milliseconds, from the next start on, and forgets the misses. Returns 0. */
    int setTimerRun(int ms);

    /** Sets the miss limit to 2, whatever the argument. Returns 0. */
    int setConnectNunmber(int ignored);

    int timerStart(); ///< Polls from now on, once a period. Returns 0.
    int timerStop();  ///< Polls no more. Returns 0.

    /** Takes charge of a link; starts polling when \a start is not 0. \a status is only stored. Returns 0. */
    int setWifiConnectStatus(int status, int start);

    /** Reads the supplicant's status once: 1 when it could be read, 0 when not. */
    int getAPStatus();

    /** Gives up the link: polling ends with the next expiry. Returns 0. */
    int setStopFlag();

Q_SIGNALS:
    /** \a cmdtype is always 0; \a connectstatus 0: lost or unreadable, 2: the link to \a macAddr stands. */
    void sendNetWorkStatus(int cmdtype, int connectstatus, QString macAddr);
    /** The first good poll after recCheckAPConnect(). */
    void sendMonitorConMsg(QString linkmadress);
    /** Never emitted. */
    void sendAPIPMsg();

public Q_SLOTS:
    void timeout(); ///< One poll; starts the timer anew unless the link is lost or was given up.
    /** The link is to be to this BSSID; \a signalvalue goes into the reports. */
    void recCheckAPConnect(QString linkmadress, int signalvalue);

private:
    Q_DISABLE_COPY(RaWifiMonitor)

    void poll();
    void reportMiss();
    void reportLink();
    void rearm();
    APData report() const;

    int m_interval = 8000;
    QTimer* m_timer;
    APData* m_status;
    int m_misses = 0;
    int m_connectStatus = 0;
    int m_missLimit = 2;
    bool m_running = false;
    bool m_checkPending = false;
    QString m_expectedMac;
    int m_signalValue = 0;
};

#endif
