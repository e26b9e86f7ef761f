// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "networks.h"

namespace {

const int unranked = 999;

QString kindName(int encry)
{
    char text[16] = "";
    getkeymgmtByEncryValue(encry, text);
    return QString::fromLatin1(text);
}

bool isSaved(const APData& ap)
{
    return ap.orderbynum < unranked;
}

} // namespace

bool isCalled(const APData& ap, const QByteArray& network)
{
    return network == ap.essid || network.toLower() == QByteArray(ap.macAddr).toLower();
}

QJsonObject describe(const APData& ap)
{
    QJsonObject object;
    addName(object, ap.essid);
    object.insert(QLatin1String("bssid"), QString::fromLatin1(ap.macAddr));
    object.insert(QLatin1String("kind"), kindName(ap.encry[0]));
    object.insert(QLatin1String("locked"), ap.is_encry == 2);
    object.insert(QLatin1String("level"), ap.sigquality);
    object.insert(QLatin1String("saved"), isSaved(ap));
    return object;
}

QString tableRow(const Output& output, const APData& ap)
{
    const QString mark = isSaved(ap) ? output.painted(Output::Green, QLatin1String("saved")) : QLatin1String("     ");
    return QString::fromLatin1("%1  %2  %3  %4  %5")
        .arg(visible(ap.macAddr), QString::number(ap.sigquality), kindName(ap.encry[0]).leftJustified(8), mark,
             visible(ap.essid));
}
