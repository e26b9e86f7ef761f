// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "commands.h"

#include "joiner.h"
#include "linkwatch.h"

#include <rawificontrol.h>

#include <QCoreApplication>
#include <algorithm>
#include <cstring>

namespace {

const int unranked = 999;

QString kindName(int encry)
{
    char text[16] = "";
    getkeymgmtByEncryValue(encry, text);
    return QString::fromLatin1(text);
}

QJsonObject describe(const APData& ap)
{
    QJsonObject object;
    addName(object, ap.essid);
    object.insert(QLatin1String("bssid"), QString::fromLatin1(ap.macAddr));
    object.insert(QLatin1String("kind"), kindName(ap.encry[0]));
    object.insert(QLatin1String("locked"), ap.is_encry == 2);
    object.insert(QLatin1String("level"), ap.sigquality);
    object.insert(QLatin1String("saved"), ap.orderbynum < unranked);
    return object;
}

QString tableRow(const APData& ap)
{
    return QString::fromLatin1("%1  %2  %3  %4  %5")
        .arg(QString::fromLatin1(ap.macAddr), QString::number(ap.sigquality), kindName(ap.encry[0]).leftJustified(8),
             QLatin1String(ap.orderbynum < unranked ? "saved" : "     "), visible(ap.essid));
}

/** The access points of a fresh scan, saved ones first, then the strongest; owned by the service. */
QList<APData*> scan(RaWifiService& service)
{
    service.getAPListByScan();
    QList<APData*> found = service.getCurAPList();
    std::stable_sort(found.begin(), found.end(), caseInsensitiveLessThan);
    return found;
}

bool isCalled(const APData& ap, const QByteArray& network)
{
    return network == ap.essid || network.toLower() == QByteArray(ap.macAddr).toLower();
}

/** A network that the scan does not show, as one that hides its name would be. */
APData hiddenNetwork(const JoinRequest& request)
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    ap.encry[0] = request.password.isEmpty() ? NOENCRY : WPA2_PSK;
    qstrncpy(ap.essid, request.network.constData(), sizeof ap.essid);
    return ap;
}

} // namespace

int scanCommand(Output& output)
{
    RaWifiService service(1, nullptr);
    const QList<APData*> found = scan(service);
    for (const APData* ap : found) {
        output.line(tableRow(*ap));
        output.object(describe(*ap));
    }
    if (found.isEmpty()) {
        output.error(QLatin1String("no access points found"));
        return 1;
    }
    return 0;
}

int joinCommand(Output& output, const JoinRequest& request)
{
    RaWifiService service(1, nullptr);
    const QList<APData*> found = scan(service);
    const auto seen = std::find_if(found.begin(), found.end(),
                                   [&request](const APData* ap) { return isCalled(*ap, request.network); });
    APData network = seen != found.end() ? **seen : hiddenNetwork(request);
    if (!request.password.isEmpty()) {
        if (request.password.size() >= static_cast<int>(sizeof network.psk)) {
            output.error(QLatin1String("the password is longer than 199 bytes"));
            return 1;
        }
        qstrncpy(network.psk, request.password.constData(), sizeof network.psk);
        network.authMode = request.sharedAuth ? 0 : 1;
        network.keyIndex = request.keyIndex;
    }
    if (network.encry[0] != NOENCRY && network.psk[0] == '\0') {
        output.error(QLatin1String("this network needs a password"));
        return 1;
    }
    return Joiner(service, network, output).join() == 0 ? 0 : 1;
}

int statusCommand(Output& output)
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    const bool known = getAPInfo(&ap) == 0;
    const bool connected = known && ap.snow != 0;
    const QByteArray name = QByteArray(ap.essid).trimmed();
    const QString state = QString::fromLatin1(ap.wpa_state).trimmed();
    const QString address = QString::fromLatin1(ap.IP).trimmed();
    const QString bssid = QString::fromLatin1(ap.macAddr).trimmed();

    QJsonObject object;
    object.insert(QLatin1String("supplicant"), known);
    object.insert(QLatin1String("state"), state);
    object.insert(QLatin1String("connected"), connected);
    object.insert(QLatin1String("linkap"), getIsConnect());
    object.insert(QLatin1String("bssid"), bssid);
    object.insert(QLatin1String("ip"), address);
    object.insert(QLatin1String("level"), getAPSignalValue());
    addName(object, name);
    output.object(object);

    if (!known) {
        output.error(QLatin1String("the supplicant does not answer"));
        return 1;
    }
    output.line(QLatin1String("state    ") + state);
    if (connected) {
        output.line(QLatin1String("network  ") + visible(name));
        output.line(QLatin1String("bssid    ") + bssid);
        output.line(QLatin1String("address  ") + address);
    }
    return connected ? 0 : 1;
}

int savedCommand(Output& output)
{
    RaWifiData store;
    if (store.loadData() != 0) {
        output.error(QLatin1String("the saved networks cannot be read"));
        return 1;
    }
    for (int i = 0; i < store.getDataCount(); ++i) {
        APData ap;
        store.getDataByIndex(&ap, i);
        output.line(tableRow(ap));
        output.object(describe(ap));
    }
    return 0;
}

int forgetCommand(Output& output, const QByteArray& network)
{
    RaWifiData store;
    if (store.loadData() != 0) {
        output.error(QLatin1String("the saved networks cannot be read"));
        return 1;
    }
    bool known = false;
    for (int i = store.getDataCount() - 1; i >= 0; --i) {
        APData ap;
        store.getDataByIndex(&ap, i);
        if (!isCalled(ap, network)) {
            continue;
        }
        known = true;
        if (store.reInitAPData(QString::fromLatin1(ap.macAddr)) == 1) {
            output.error(QLatin1String("the saved networks cannot be written"));
            return 1;
        }
    }
    if (!known) {
        output.error(QLatin1String("no saved network is called so"));
        return 1;
    }
    return 0;
}

int monitorCommand(Output& output, int interval, int polls)
{
    char mac[18] = "";
    if (getConnectMac(mac) == 0) {
        output.error(QLatin1String("no network has been joined"));
        return 1;
    }
    LinkWatch watch(output, QString::fromLatin1(mac), interval, polls);
    return QCoreApplication::exec();
}
