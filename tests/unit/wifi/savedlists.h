// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_TEST_SAVEDLISTS_H
#define RAWIFI_TEST_SAVEDLISTS_H

#include "rawifidata.h"

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

// The saved-network store beside the test's own picture of the list and of the file.
namespace savedlists {

const char storeFile[] = "/apps/config/network.conf";

typedef QList<StoreData> Networks;

template<std::size_t N>
void put(char (&field)[N], const QByteArray& text)
{
    std::strncpy(field, text.constData(), N - 1);
}

inline QByteArray macOf(int network)
{
    return "02:00:00:00:00:" + QByteArray::number(network + 16, 16);
}

/** One step of the store's life: saves a network with this key, or forgets it when there is none. */
struct Step
{
    int network;
    QByteArray key;
};

inline APData recordOf(const Step& step)
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    put(ap.essid, "network " + QByteArray::number(step.network));
    put(ap.macAddr, macOf(step.network));
    put(ap.key_mgmt, "WPA2-PSK");
    put(ap.psk, step.key);
    ap.encry[0] = WPA2_PSK;
    ap.encry[1] = NOENCRY;
    return ap;
}

inline void carryOut(RaWifiData& store, const Step& step)
{
    if (step.key.isEmpty()) {
        store.reInitAPData(QString::fromLatin1(macOf(step.network)));
    } else {
        APData ap = recordOf(step);
        store.addData(&ap, true);
    }
}

/** The same on the test's own picture of the list. */
inline void carryOut(Networks& networks, const Step& step)
{
    for (int i = 0; i < networks.size(); ++i) {
        if (macOf(step.network) == networks.at(i).macAddr) {
            networks.removeAt(i);
        }
    }
    if (!step.key.isEmpty()) {
        const APData ap = recordOf(step);
        StoreData record;
        std::memset(&record, 0, sizeof record);
        put(record.essid, ap.essid);
        put(record.macAddr, ap.macAddr);
        put(record.key_mgmt, ap.key_mgmt);
        put(record.psk, ap.psk);
        record.encry[0] = WPA2_PSK;
        record.encry[1] = NOENCRY;
        record.orderbynum = 999;
        networks.prepend(record);
    }
    while (networks.size() > 15) {
        networks.removeLast();
    }
}

inline QByteArray imageOf(const Networks& networks)
{
    if (networks.isEmpty()) {
        return QByteArray();
    }
    QByteArray bytes = QByteArray::number(static_cast<int>(networks.size())).leftJustified(5, 'x');
    for (const StoreData& record : networks) {
        bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
    }
    return bytes;
}

/** The networks that the library finds in the file. */
inline QByteArray keysRead(RaWifiData& store)
{
    QByteArray keys;
    for (int i = 0; i < store.getDataCount(); ++i) {
        APData ap;
        if (store.getDataByIndex(&ap, i) == 0) {
            keys += QByteArray(ap.macAddr) + '=' + QByteArray(ap.psk) + ' ';
        }
    }
    return keys;
}

inline QByteArray keysOf(const Networks& networks)
{
    QByteArray keys;
    for (const StoreData& record : networks) {
        keys += QByteArray(record.macAddr) + '=' + QByteArray(record.psk) + ' ';
    }
    return keys;
}

inline void beQuiet()
{
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
}

} // namespace savedlists

Q_DECLARE_METATYPE(savedlists::Step)

#endif
