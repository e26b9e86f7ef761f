// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifirecords.h"

#include "ralog.h"

#include <cstring>

static_assert(sizeof(int) == 4, "records hold 32-bit integers");
static_assert(sizeof(StoreData) == 388, "the store file's record size");

bool operator<(APData const& a, APData const& b)
{
    return a.orderbynum != b.orderbynum ? a.orderbynum < b.orderbynum : a.sigquality < b.sigquality;
}

bool caseInsensitiveLessThan(APData* a, APData* b)
{
    return a->orderbynum != b->orderbynum ? a->orderbynum < b->orderbynum : a->sigquality > b->sigquality;
}

int getCmpAPLists(APData* a, APData* b)
{
    RA_DEBUG("compare access points");
    if (!a || !b) {
        return 1;
    }
    const std::size_t length = strnlen(a->essid, sizeof a->essid);
    if (length != strnlen(b->essid, sizeof b->essid) || std::memcmp(a->essid, b->essid, length) != 0) {
        return 1;
    }
    return std::strncmp(a->macAddr, b->macAddr, 17) != 0 ? 1 : 0;
}

void printAPData(APData record)
{
    printAPDataPoint(&record);
}

void printAPDataPoint(APData* record)
{
    if (!record) {
        return;
    }
    RA_DEBUG("encry[0]=0x%X", static_cast<unsigned>(record->encry[0]));
    RA_DEBUG("encry[1]=0x%X", static_cast<unsigned>(record->encry[1]));
    RA_DEBUG("is_encry=%d", record->is_encry);
    RA_DEBUG("orderbynum=%d", record->orderbynum);
    RA_DEBUG("sigquality=%d", record->sigquality);
    RA_DEBUG("macAddr =%s", record->macAddr);
    RA_DEBUG("key_mgmt = %s ", record->key_mgmt);
    RA_DEBUG("essid = %s ", record->essid);
    RA_DEBUG("psk = %s ", raSecret(record->psk));
    RA_DEBUG("authMode = %d ", record->authMode);
    RA_DEBUG("connectSUC = %d ", record->connectSUC);
    RA_DEBUG("id = %d ", record->id);
    RA_DEBUG("IP = %s ", record->IP);
    RA_DEBUG("snow = %d ", record->snow);
    RA_DEBUG("authMode = %d ", record->authMode); // twice: readers of the log count on it
    RA_DEBUG("keyIndex = %d ", record->keyIndex);
}

void printStoreData(StoreData)
{
    RA_DEBUG("%s", "");
}
