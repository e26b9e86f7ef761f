// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef HOST_REMEMBEREDNETWORKS_H
#define HOST_REMEMBEREDNETWORKS_H

#include <QObject>
#include <QTimer>

class RaWifiManager;

/** Brings the saved networks back after power-on: switches Wi-Fi on, then tries one after the other. */
class RememberedNetworks : public QObject
{
    Q_OBJECT
public:
    explicit RememberedNetworks(RaWifiManager* wifi);

    void bringBack();

private Q_SLOTS:
    void tryNext();

private:
    RaWifiManager* m_wifi;
    QTimer m_patience;
};

#endif
