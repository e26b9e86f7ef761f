// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include <QCopChannel>
#include <rawificontrol.h>

#include <QApplication>
#include <cstdio>

// One include gives every name; each is used once, so that a missing one does not link.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QCopChannel channel(QLatin1String("consumer"));
    const bool channelKnown = QCopChannel::isRegistered(channel.channel());

    char text[] = "[WPA2-PSK-CCMP]";
    const bool kindKnown = getEncryValue(text) == WPA2_PSK;
    const bool levelKnown = calculateSignalLevel(45, 5) == 3;
    const bool emptyLists = APDataArray.isEmpty() && g_linkAPList.isEmpty() && g_linkAPIndex == -1;

    RaWifiManager* const page = RaWifiManager::instance();
    const bool pageKnown = page == RaWifiManager::instance();
    RaWifiManager::close();

    std::printf("%d %d %d %d %d\n", channelKnown, kindKnown, levelKnown, emptyLists, pageKnown);
    return channelKnown && kindKnown && levelKnown && emptyLists && pageKnown ? 0 : 1;
}
