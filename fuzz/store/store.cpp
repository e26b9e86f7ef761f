// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// The file of the saved networks: what was read is kept when another network is saved, and can be read again.

#include "harness.h"

#include "rawifidata.h"
#include "recordtext.h"

#include <QList>
#include <cstring>

namespace {

const char path[] = "/apps/config/network.conf";

QList<APData> recordsOf(RaWifiData& store)
{
    QList<APData> records;
    for (int i = 0; i < store.getDataCount(); ++i) {
        APData record = freshRecord();
        require(store.getDataByIndex(&record, i) == 0);
        require(isText(record.essid) && isText(record.macAddr) && isText(record.key_mgmt) && isText(record.psk));
        records << record;
    }
    return records;
}

bool isSaved(const QList<APData>& records, const APData& wanted)
{
    for (const APData& record : records) {
        if (std::strcmp(record.macAddr, wanted.macAddr) == 0) {
            return true;
        }
    }
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    writeFile(path, data, size);
    RaWifiData store;
    store.loadData();
    const QList<APData> before = recordsOf(store);

    APData added = freshRecord();
    setField(added.macAddr, "02:00:00:00:00:01");
    setField(added.essid, "home");
    require(store.addData(&added, true) == 0);
    RaWifiData again;
    require(again.loadData() == 0);
    const QList<APData> after = recordsOf(again);
    require(isSaved(after, added));
    const int capacity = 15;
    int dropped = 0;
    for (const APData& record : before) {
        dropped += record.macAddr[0] != '\0' && !isSaved(after, record) ? 1 : 0;
    }
    require(dropped <= (before.size() < capacity ? 0 : 1)); // the oldest, to make room
    return 0;
}
