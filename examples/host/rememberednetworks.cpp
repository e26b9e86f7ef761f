// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rememberednetworks.h"

#include <rawificontrol.h>

namespace {

const int lookMs = 500;

bool isAnySaved()
{
    RaWifiData store;
    return store.loadData() == 0 && store.getDataCount() > 0;
}

} // namespace

RememberedNetworks::RememberedNetworks(RaWifiManager* wifi) : m_wifi(wifi)
{
    m_look.setInterval(lookMs);
    connect(&m_look, SIGNAL(timeout()), this, SLOT(lookAtAttempt()));
}

void RememberedNetworks::bringBack()
{
    if (!isAnySaved()) {
        return;
    }
    m_wifi->checkAPListWnd();
    RaWifiListWidget* const page = m_wifi->findChild<RaWifiListWidget*>();
    connect(page, SIGNAL(sendWifiSwitch(bool)), this, SLOT(leaveToUser()));
    connect(page, SIGNAL(sendWifiManageInfo(int,APData)), this, SLOT(leaveToUser()));
    // The list is refreshed when the scan that the switch starts is done; by then the candidates are known.
    connect(m_wifi, SIGNAL(sendRefreshList()), this, SLOT(tryNext()));
    m_wifi->recAPSwitch(true);
}

void RememberedNetworks::tryNext()
{
    disconnect(m_wifi, SIGNAL(sendRefreshList()), this, SLOT(tryNext()));
    if (m_wifi->connectCertainAP() == 0) {
        g_isWifiWorkStatus = true; // the library clears it when the attempt has failed
        m_look.start();
    } else {
        leaveToUser();
    }
}

void RememberedNetworks::lookAtAttempt()
{
    if (getIsConnect()) {
        leaveToUser();
    } else if (!g_isWifiWorkStatus) {
        m_look.stop();
        tryNext();
    }
}

void RememberedNetworks::leaveToUser()
{
    m_look.stop();
    disconnect(m_wifi, nullptr, this, nullptr);
    if (QObject* const page = m_wifi->findChild<RaWifiListWidget*>()) {
        disconnect(page, nullptr, this, nullptr);
    }
}
