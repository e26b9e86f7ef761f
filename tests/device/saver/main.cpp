// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
//
// Runs on the virtual device (powercuts.sh): says which list the saved-network store holds after a power cut ("holds
// N"), then saves the next ones until the next cut, saying so each time ("saved N"). List N is the networks of the
// saves N, N-1, N-2 and so on, newest first; anything else ends it with "FAIL".
#include "rawifidata.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

const int networks = 12;
const char keyText[] = "password %d";

/** The number of the list in the store, 0 for an empty one; -1 when it is none of them. */
int listHeld(RaWifiData& store)
{
    int number = 0;
    const int count = store.getDataCount();
    for (int i = 0; i < count; ++i) {
        APData ap;
        int save = 0;
        if (store.getDataByIndex(&ap, i) != 0 || std::sscanf(ap.psk, keyText, &save) != 1) {
            return -1;
        }
        number = i == 0 ? save : number;
        if (save != number - i) {
            return -1;
        }
    }
    return count == (number < networks ? number : networks) ? number : -1;
}

void save(RaWifiData& store, int number)
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    std::snprintf(ap.essid, sizeof ap.essid, "network %d", number % networks);
    std::snprintf(ap.macAddr, sizeof ap.macAddr, "02:00:00:00:00:%02x", number % networks);
    std::snprintf(ap.psk, sizeof ap.psk, keyText, number);
    store.addData(&ap, true);
}

} // namespace

int main()
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    RaWifiData store;
    const int loaded = store.loadData();
    int number = listHeld(store);
    if (loaded != 0 || number < 0) {
        std::printf("FAIL the store holds neither the old nor the new list (%d networks)\n", store.getDataCount());
        return EXIT_FAILURE;
    }
    std::printf("holds %d\n", number);
    for (;;) {
        save(store, ++number);
        std::printf("saved %d\n", number);
    }
}
