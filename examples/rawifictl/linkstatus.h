// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_LINKSTATUS_H
#define RAWIFICTL_LINKSTATUS_H

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/** The link as the supplicant sees it. */
struct LinkStatus
{
    bool known = false; ///< the supplicant has answered
    bool connected = false;
    QString state;
    QByteArray name;
    QString bssid;
    QString address;
};

/** Blocks for the script, at most 3 s. */
LinkStatus readLinkStatus();

/** With what the library's status files say beside it. */
QJsonObject describe(const LinkStatus& status);

#endif
