// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// The scan script's answer, as the radio's neighbours and a broken script may make it.

#include "harness.h"

#include "rawifiglobals.h"
#include "rawifiservice.h"

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static RaWifiService service(1, nullptr);
    writeFile("/home/wifi/temp.txt", data, size);
    writeFile("/home/wifi/result3", "", 0);
    service.loadAPList();
    require(service.getwifilistcount() == APDataArray.size());
    for (int i = 0; i < APDataArray.size(); ++i) {
        APData network;
        std::memset(&network, 0xff, sizeof network);
        require(service.getAPDataByIndex(&network, i) == 0);
        require(isText(network.essid) && isText(network.macAddr) && isText(network.key_mgmt) && isText(network.psk));
        require(network.sigquality >= 0 && network.sigquality <= 5);
        require(network.is_encry >= 0 && network.is_encry <= 2);
    }
    return 0;
}
