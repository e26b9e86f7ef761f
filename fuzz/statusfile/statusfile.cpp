// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// The files in which a script tells the state of the link.

#include "harness.h"

#include "raglobalfun.h"

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    char path[] = "/home/wifi/connectstatus.txt";
    writeFile(path, data, size);
    APData status;
    std::memset(&status, 0, sizeof status);
    getConnectStatusInfo(path, &status);
    require(isText(status.essid) && isText(status.macAddr) && isText(status.key_mgmt) && isText(status.IP));
    getLinkAP(path);
    isSuccByfile(path, static_cast<int>(size % 2));
    char address[16] = "";
    getIPInfoByfile(path, address);
    require(isText(address));
    return 0;
}
