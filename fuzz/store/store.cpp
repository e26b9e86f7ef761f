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

bool isSame(const APData& one, const APData& other)
{
    return std::strcmp(one.macAddr, other.macAddr) == 0 && std::strcmp(one.essid, other.essid) == 0
           && std::strcmp(one.psk, other.psk) == 0 && std::strcmp(one.key_mgmt, other.key_mgmt) == 0
           && one.encry[0] == other.encry[0] && one.encry[1] == other.encry[1] && one.is_encry == other.is_encry
           && one.sigquality == other.sigquality && one.authMode == other.authMode && one.keyIndex == other.keyIndex;
}

/** In front, in place of the first of its address, with the oldest dropped where there are more than are kept. */
QList<APData> withNew(QList<APData> records, const APData& added)
{
    for (int i = 0; i < records.size(); ++i) {
        if (std::strcmp(records.at(i).macAddr, added.macAddr) == 0) {
            records.removeAt(i);
            break;
        }
    }
    records.prepend(added);
    const int capacity = 15;
    if (records.size() > capacity) {
        records.removeLast();
    }
    return records;
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
    const QList<APData> expected = withNew(before, added);
    require(after.size() == expected.size());
    for (int i = 0; i < after.size(); ++i) {
        require(isSame(after.at(i), expected.at(i)));
    }
    return 0;
}
