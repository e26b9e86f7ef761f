// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_DEVICEPATHS_H
#define RAWIFI_DEVICEPATHS_H

// The fixed places on a device that this library reads and writes itself. Command lines name them in full.
namespace devicepaths {

const char resultDirectory[] = "/home/wifi";
const char scriptAnswer[] = "/home/wifi/temp.txt";
const char scriptMarker[] = "/home/wifi/result3";
const char statusMarker[] = "/home/wifi/result";
const char connectStatus[] = "/home/wifi/connectstatus.txt";
const char linkStatus[] = "/home/wifi/linkap.txt";
const char signalValue[] = "/home/wifi/signal.txt";
const char ownAddress[] = "/home/wifi/ipinfo.txt";
const char currentMac[] = "/home/wifi/curmac.txt";
const char configDirectory[] = "/apps/config";
const char supplicantConfig[] = "/etc/wpa_supplicant.conf";

} // namespace devicepaths

#endif
