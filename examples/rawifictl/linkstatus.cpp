// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "linkstatus.h"

#include "output.h"

#include <rawificontrol.h>

#include <cstring>

LinkStatus readLinkStatus()
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    LinkStatus status;
    status.known = getAPInfo(&ap) == 0;
    status.connected = status.known && ap.snow != 0;
    status.state = QString::fromLatin1(ap.wpa_state).trimmed();
    status.name = QByteArray(ap.essid).trimmed();
    status.bssid = QString::fromLatin1(ap.macAddr).trimmed();
    status.address = QString::fromLatin1(ap.IP).trimmed();
    return status;
}

QJsonObject describe(const LinkStatus& status)
{
    QJsonObject object;
    object.insert(QLatin1String("supplicant"), status.known);
    object.insert(QLatin1String("state"), status.state);
    object.insert(QLatin1String("connected"), status.connected);
    object.insert(QLatin1String("linkap"), getIsConnect());
    object.insert(QLatin1String("bssid"), status.bssid);
    object.insert(QLatin1String("ip"), status.address);
    object.insert(QLatin1String("level"), getAPSignalValue());
    addName(object, status.name);
    return object;
}
