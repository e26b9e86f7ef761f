// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_TEST_JOINING_H
#define RAWIFI_TEST_JOINING_H

#include "fakesystem.h"
#include "latch.h"
#include "processusage.h"
#include "raglobalfun.h"
#include "rawifiglobals.h"
#include "rawifiservice.h"
#include "trace.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTimer>
#include <atomic>
#include <thread>

// What the tests of the connection procedure share.
namespace joining {

const char answer[] = "/home/wifi/temp.txt";
const char marker[] = "/home/wifi/result3";
const char config[] = "/etc/wpa_supplicant.conf";
const char store[] = "/apps/config/network.conf";

const char removeAnswerAndMarker[] = "rm /home/wifi/temp.txt -f;rm /home/wifi/result3 -f";
const char removeMarker[] = "rm /home/wifi/result3 -f";
const char loadConfig[] = "sh /usr/bin/callwpaconf.sh;touch /home/wifi/result3";
const char runDhcp[] = "sh /usr/bin/dhcp_setip.sh;touch /home/wifi/result3";
const char getAddress[] = "sh /usr/bin/getip.sh;touch /home/wifi/result3";

inline bool isConnectionMutexLocked()
{
    if (!m_mutex.tryLock()) {
        return true;
    }
    m_mutex.unlock();
    return false;
}

/** No file, no saved network, no lock: as after power-on. */
inline void freshDevice()
{
    fakesystem::reset();
    QDir(QLatin1String("/home/wifi")).removeRecursively();
    QDir().mkpath(QLatin1String("/home/wifi"));
    QFile::remove(QLatin1String(store));
    QFile::remove(QLatin1String(config));
    QDir(QLatin1String(config)).removeRecursively();
    m_mutex.tryLock();
    m_mutex.unlock();
    lockStatus = 0;
    g_isUseCancel = 0;
    g_linkAPIndex = -1;
}

/** Scripts that come to their end, and an address. */
inline void goodScripts(const QByteArray& address = "192.168.7.23\n")
{
    fakesystem::answer("callwpaconf.sh", [] {});
    fakesystem::answer("dhcp_setip.sh", [] {});
    fakesystem::answer("getip.sh", [address] { fakesystem::writeFile(answer, address); });
}

struct Request
{
    QString mac = QStringLiteral("00:1a:2b:3c:4d:5e");
    ENCRY encry = WPA2_PSK;
    QString essid = QStringLiteral("Home");
    QString psk = QStringLiteral("password");
    int sigquality = 3;
    int authMode = 0;
    int keyIndex = 0;
};

inline int join(RaWifiService& service, const Request& request)
{
    return service.connectCertainAP(request.mac, request.encry, request.essid, request.psk, request.sigquality,
                                    request.authMode, request.keyIndex);
}

/** A join() on a thread of its own, while the calling one keeps its event loop going. Returns its result. */
inline int joinOnAWorker(RaWifiService& service, const Request& request)
{
    int result = 1;
    std::atomic<bool> over{false};
    std::thread worker([&] {
        result = join(service, request);
        over = true;
    });
    while (!over) {
        QCoreApplication::processEvents();
        std::this_thread::yield();
    }
    worker.join();
    QCoreApplication::processEvents();
    return result;
}

/** As joinOnAWorker(), until the DHCP stage is over, too, whatever it found: it uses the same files as other scripts. */
inline int joinToTheEnd(RaWifiService& service, const Request& request)
{
    const auto before = processusage::threads().size();
    const int result = joinOnAWorker(service, request);
    while (processusage::threads().size() > before) {
        QCoreApplication::processEvents();
        std::this_thread::yield();
    }
    return result;
}

inline QByteArray bar(const QList<QByteArray>& parts)
{
    return parts.join('|');
}

/** Adds the service's signals to a trace, on the thread that emits them: "tell INDEX|NAME|TEXT|ERRFLAG" and
 * so on. */
inline void traceSignals(Trace& trace, RaWifiService& service)
{
    const Qt::ConnectionType direct = Qt::DirectConnection;
    QObject::connect(
        &service, &RaWifiService::sendListWndInfo, &service,
        [&trace](int index, const QString& name, const QString& text, int errflag) {
            trace.add("tell "
                      + bar(QList<QByteArray>() << QByteArray::number(index) << name.toUtf8() << text.toUtf8()
                                                << QByteArray::number(errflag)));
        },
        direct);
    QObject::connect(
        &service, &RaWifiService::sendSetStatusMsg, &service,
        [&trace](const QString& mac, bool isEnd) {
            trace.add("sendSetStatusMsg " + mac.toLatin1() + '|' + (isEnd ? "true" : "false"));
        },
        direct);
    QObject::connect(
        &service, &RaWifiService::sendCheckAPConnect, &service,
        [&trace](const QString& mac, int value) {
            trace.add("sendCheckAPConnect " + mac.toLatin1() + '|' + QByteArray::number(value));
        },
        direct);
    QObject::connect(
        &service, &RaWifiService::sendPrgStar, &service, [&trace] { trace.add("sendPrgStar"); }, direct);
    QObject::connect(
        &service, &RaWifiService::sendPrgStep, &service, [&trace] { trace.add("sendPrgStep"); }, direct);
    QObject::connect(
        &service, &RaWifiService::sendPrgStop, &service, [&trace] { trace.add("sendPrgStop"); }, direct);
}

/** The watchdog; the service's own. */
inline QTimer* watchdogOf(RaWifiService& service)
{
    return service.findChild<QTimer*>();
}

/** Lets the watchdog expire now and returns when it has. On its own thread. */
inline void expire(QTimer* watchdog)
{
    watchdog->start(0);
    while (watchdog->isActive()) {
        QCoreApplication::processEvents();
    }
}

} // namespace joining

Q_DECLARE_METATYPE(joining::Request)

#endif
