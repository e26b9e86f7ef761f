// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFIGLOBALS_H
#define RAWIFI_RAWIFIGLOBALS_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QFont>
#include <QList>
#include <QMutex>
#include <QString>

class RaWifiManager;

/** The block through which the manager hands work to its threads. */
struct _PassParam
{
    QString text;         ///< the requested network's password; empty when no work is pending
    APData* pinfo;        ///< the network to work on; owned by the block, null when the workers are torn down
    int flags;            ///< cleared when the block is set up
    RaWifiManager* owner; ///< the manager that started the work; not owned
};

// The lists own their records. Inside the library they are touched under one lock; a host reads them on the
// GUI thread while no scan runs.
extern RAWIFI_EXPORT QList<APData*> APDataArray;  ///< the last successful scan, in the order scanned or sorted
extern RAWIFI_EXPORT QList<APData*> g_linkAPList; ///< scanned access points that match a saved network
extern RAWIFI_EXPORT int g_linkAPIndex;           ///< cursor in g_linkAPList; -1 before the first, -2 after the last

extern RAWIFI_EXPORT _PassParam g_PassParam; ///< the work of the connect worker, one block in a process

extern RAWIFI_EXPORT bool g_isWifiWorkStatus; ///< Wi-Fi is on and working
extern RAWIFI_EXPORT bool g_monitorStatus;    ///< the link monitor's timer is running
extern RAWIFI_EXPORT bool bIsFirst;           ///< the next scan is the first of this process
extern RAWIFI_EXPORT int g_isFirst;           ///< 1 once the supplicant was started with its default configuration
extern RAWIFI_EXPORT int g_isAutoMode;        ///< 1 while connecting on the system's own initiative
extern RAWIFI_EXPORT int g_isAutoCloseWifi;   ///< 1 when Wi-Fi was switched off automatically
extern RAWIFI_EXPORT int g_isUseCancel;       ///< 1 when the user cancelled a connection attempt

extern RAWIFI_EXPORT QMutex m_mutex; ///< held for the DHCP stage of a connection attempt
extern RAWIFI_EXPORT int lockStatus; ///< 1 while a DHCP stage holds m_mutex, else 0

extern RAWIFI_EXPORT QFont g_font; ///< the host's font, for all text that the screens draw

#endif
