// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef HOST_REMEMBEREDNETWORKS_H
#define HOST_REMEMBEREDNETWORKS_H

#include <QObject>
#include <QTimer>

class RaWifiManager;

/**
 * Brings a saved network back after power-on: switches Wi-Fi on, then tries one after the other until one has joined or
 * the user takes over.
 */
class RememberedNetworks : public QObject
{
    Q_OBJECT
public:
    explicit RememberedNetworks(RaWifiManager* wifi);

    /** Does nothing when no network is saved. */
    void bringBack();

private Q_SLOTS:
    void tryNext();
    void lookAtAttempt();
    void leaveToUser();

private:
    RaWifiManager* m_wifi;
    QTimer m_look;
};

#endif
