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

/** What the page would ask for; a network that the scan has not found has no name. */
APData chosen(const char* bssid, const char* password)
{
    for (const APData* found : APDataArray) {
        if (qstrcmp(found->macAddr, bssid) == 0) {
            APData network = *found;
            qstrncpy(network.psk, qstrcmp(password, "-") == 0 ? "" : password, sizeof network.psk);
            network.authMode = 1;
            return network;
        }
    }
    APData unknown;
    std::memset(&unknown, 0, sizeof unknown);
    return unknown;
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
        manager->receiveAPManageInfo(markAsJoining, chosen(bssid, password));
        waitForWorkers();
        std::fputs("over\n", answers);
        std::fflush(answers);
    }
    RaWifiManager::close();
    return 0;
}
