// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// longrun ANSWERS: the page's manager joins one network after another, as somebody would who taps on and on. Reads
// "BSSID PASSWORD" lines ("-" for no password) and writes a line to the file ANSWERS when the page is ready, and then
// when an attempt is over; to the standard streams the library writes.

#include "processusage.h"

#include <rawificontrol.h>

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <cstdio>
#include <cstring>

namespace {

const int markAsJoining = 3;

/** Handles events until no worker of the library is left. */
void waitForWorkers()
{
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&loop] {
        if (processusage::threadCount() == 1) {
            loop.quit();
        }
    });
    timer.start(50);
    loop.exec();
}

const APData* inTheList(const char* bssid)
{
    for (const APData* found : APDataArray) {
        if (qstrcmp(found->macAddr, bssid) == 0) {
            return found;
        }
    }
    return nullptr;
}

/** What the page would ask for; a network that is not in the list has no name. */
APData chosen(const char* bssid, const char* password)
{
    APData network;
    std::memset(&network, 0, sizeof network);
    if (const APData* found = inTheList(bssid)) {
        network = *found;
        qstrncpy(network.psk, qstrcmp(password, "-") == 0 ? "" : password, sizeof network.psk);
        network.authMode = 1;
    }
    return network;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::FILE* const answers = argc == 2 ? std::fopen(argv[1], "we") : nullptr;
    if (!answers) {
        return 2;
    }
    RaWifiManager* const manager = RaWifiManager::instance();
    RaWifiManager::setMainAppObj(&application);
    manager->resize(320, 480);
    manager->show();
    manager->recAPSwitch(true);
    waitForWorkers();
    std::fputs("ready\n", answers);
    std::fflush(answers);

    char bssid[18] = "";
    char password[200] = "";
    while (std::scanf("%17s %199s", bssid, password) == 2) {
        // The radio passes quickly over a channel; while the host is busy, an access point may answer too late for it.
        for (int scan = 1; scan <= 3 && !inTheList(bssid); ++scan) {
            manager->recCmdScanAP();
        }
        manager->receiveAPManageInfo(markAsJoining, chosen(bssid, password));
        waitForWorkers();
        std::fputs("over\n", answers);
        std::fflush(answers);
    }
    RaWifiManager::close();
    return 0;
}
