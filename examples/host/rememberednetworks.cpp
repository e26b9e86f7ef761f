// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rememberednetworks.h"

#include <rawificontrol.h>

namespace {

const int attemptMs = 60000; // an attempt that has not joined by then has failed

} // namespace

RememberedNetworks::RememberedNetworks(RaWifiManager* wifi) : m_wifi(wifi)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(attemptMs);
    connect(&m_patience, SIGNAL(timeout()), this, SLOT(tryNext()));
}

void RememberedNetworks::bringBack()
{
    // The list is refreshed when the scan that the switch starts is done; by then the candidates are known.
    connect(m_wifi, SIGNAL(sendRefreshList()), this, SLOT(tryNext()));
    m_wifi->recAPSwitch(true);
}

void RememberedNetworks::tryNext()
{
    disconnect(m_wifi, SIGNAL(sendRefreshList()), this, SLOT(tryNext()));
    if (m_wifi->connectCertainAP() == 0) {
        m_patience.start();
    }
}
