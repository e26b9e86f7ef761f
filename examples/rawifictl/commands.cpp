// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "commands.h"

#include "joiner.h"
#include "linkwatch.h"
#include "networks.h"
#include "password.h"
#include "stopsignals.h"

#include <rawificontrol.h>

#include <QCoreApplication>
#include <algorithm>
#include <cstring>

namespace {

const int monitorInterval = 8000; // ms

/** The access points of a fresh scan, saved ones first, then the strongest; owned by the service. */
QList<APData*> scan(RaWifiService& service)
{
    service.getAPListByScan();
    QList<APData*> found = service.getCurAPList();
    std::stable_sort(found.begin(), found.end(), caseInsensitiveLessThan);
    return found;
}

/** A network that the scan does not show, as one that hides its name would be. */
APData hiddenNetwork(const QByteArray& name, bool locked)
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    ap.encry[0] = locked ? WPA2_PSK : NOENCRY;
    qstrncpy(ap.essid, name.constData(), sizeof ap.essid);
    return ap;
}

QString cannotRead()
{
    return QLatin1String("the saved networks cannot be read");
}

} // namespace

int scanCommand(Output& output, const Arguments&)
{
    RaWifiService service(1, nullptr);
    const QList<APData*> found = scan(service);
    QJsonArray list;
    for (const APData* ap : found) {
        output.line(tableRow(output, *ap));
        list.append(describe(*ap));
    }
    output.document(list);
    if (found.isEmpty()) {
        output.error(QLatin1String("no access points found"));
        return NotFound;
    }
    return Done;
}

int joinCommand(Output& output, const Arguments& arguments)
{
    const QByteArray name = arguments.operand(0);
    const bool reads = arguments.operand(1) == "-";
    QByteArray password = reads ? lineFromInput() : QByteArray();

    RaWifiService service(1, nullptr);
    const QList<APData*> found = scan(service);
    const auto seen =
        std::find_if(found.begin(), found.end(), [&name](const APData* ap) { return isCalled(*ap, name); });
    const bool asks = arguments.has("--ask");
    APData network = seen != found.end() ? **seen : hiddenNetwork(name, asks || !password.isEmpty());
    const bool lacksPassword = network.encry[0] != NOENCRY && network.psk[0] == '\0' && !reads;
    if (asks || lacksPassword) {
        password = askPassword();
    }
    if (password.size() >= static_cast<int>(sizeof network.psk)) {
        return output.failure(Failed, QLatin1String("the password is longer than 199 bytes"));
    }
    if (password.contains('\0') || QString::fromUtf8(password).toUtf8() != password) {
        return output.failure(Failed, QLatin1String("the password is no UTF-8 text"));
    }
    if (!password.isEmpty()) {
        qstrncpy(network.psk, password.constData(), sizeof network.psk);
        network.authMode = arguments.has("--shared") ? 0 : 1;
        network.keyIndex = arguments.keyIndex;
    }
    if (network.encry[0] != NOENCRY && network.psk[0] == '\0') {
        return output.failure(Failed, QLatin1String("this network needs a password"));
    }
    return Joiner(service, network, output).join() == 0 ? Done : Failed;
}

int savedCommand(Output& output, const Arguments&)
{
    RaWifiData store;
    if (store.loadData() != 0) {
        return output.failure(Failed, cannotRead());
    }
    QJsonArray list;
    for (int i = 0; i < store.getDataCount(); ++i) {
        APData ap;
        store.getDataByIndex(&ap, i);
        output.line(tableRow(output, ap));
        list.append(describe(ap));
    }
    output.document(list);
    return Done;
}

int forgetCommand(Output& output, const Arguments& arguments)
{
    RaWifiData store;
    if (store.loadData() != 0) {
        return output.failure(Failed, cannotRead());
    }
    QJsonArray forgotten;
    for (int i = store.getDataCount() - 1; i >= 0; --i) {
        APData ap;
        store.getDataByIndex(&ap, i);
        if (!isCalled(ap, arguments.operand(0))) {
            continue;
        }
        if (store.reInitAPData(QString::fromLatin1(ap.macAddr)) == 1) {
            return output.failure(Failed, QLatin1String("the saved networks cannot be written"));
        }
        output.line(QLatin1String("forgotten: ") + visible(ap.essid));
        forgotten.append(describe(ap));
    }
    if (forgotten.isEmpty()) {
        return output.failure(NotFound, QLatin1String("no saved network is called so"));
    }
    output.document(forgotten);
    return Done;
}

int monitorCommand(Output& output, const Arguments& arguments)
{
    char mac[18] = "";
    if (getConnectMac(mac) == 0) {
        return output.failure(NotFound, QLatin1String("no network has been joined"));
    }
    const int interval = arguments.interval > 0 ? arguments.interval : monitorInterval;
    LinkWatch watch(output, QString::fromLatin1(mac), interval, arguments.polls);
    const StopSignals stop;
    return QCoreApplication::exec();
}
