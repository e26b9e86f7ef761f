// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// A host with the page open; then with 50 networks in its list and the keyboard shown.

#include "measured.h"
#include "networks.h"

#include <rawificontrol.h>

#include <QApplication>

// The device's scripts are left out.
extern "C" int system(const char*)
{
    return 0;
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    RaWifiManager* const page = RaWifiManager::instance();
    RaWifiManager::setMainAppObj(&application);
    const int status = measured(*page, [page] {
        setAir(networks(50));
        RaWifiListWidget* const list = page->findChild<RaWifiListWidget*>();
        list->setWifiSwitch(true);
        list->showRefreshListData();
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
        }
        list->recSelectItemByList(*APDataArray.first());
        if (!page->findChild<RaVirtualKeyboard*>()->isVisible()) {
            std::puts("no keyboard");
        }
    });
    RaWifiManager::close();
    return status;
}
