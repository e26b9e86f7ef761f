// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifidata.h"

#include "devicepaths.h"
#include "rafile.h"
#include "raglobalfun.h"
#include "ralog.h"
#include "recordtext.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

const int capacity = 15;
const int headerSize = 5;
const int textsEnd = offsetof(StoreData, psk) + sizeof StoreData::psk;
const int numbersStart = offsetof(StoreData, encry);
const int unranked = 999;
const char workingFile[] = "/home/wifi/tmpnetwork.conf";

template<std::size_t N>
void terminate(char (&field)[N])
{
    field[N - 1] = '\0';
}

StoreData storeRecord(const APData& ap)
{
    StoreData record;
    std::memset(&record, 0, sizeof record);
    setField(record.essid, ap.essid);
    setField(record.macAddr, ap.macAddr);
    setField(record.key_mgmt, ap.key_mgmt);
    setField(record.psk, ap.psk);
    record.encry[0] = ap.encry[0];
    record.encry[1] = ap.encry[1];
    record.sigquality = ap.sigquality;
    record.orderbynum = unranked;
    record.is_encry = ap.is_encry;
    record.keyIndex = ap.keyIndex;
    record.authMode = ap.authMode;
    return record;
}

bool writeWorkingFile(const QByteArray& bytes)
{
    const RaFile file = raCreateAnew(workingFile);
    const std::size_t size = static_cast<std::size_t>(bytes.size());
    return file && std::fwrite(bytes.constData(), 1, size, file.get()) == size && std::fflush(file.get()) == 0;
}

} // namespace

RaWifiData::RaWifiData()
{
    initData();
    std::snprintf(m_path, sizeof m_path, "%s/%s", devicepaths::configDirectory, "network.conf");
}

RaWifiData::~RaWifiData() {}

int RaWifiData::loadData()
{
    RA_DEBUG("load %s", m_path);
    if (!fileIsExisting(m_path)) {
        RA_DEBUG("%s is not existing", m_path);
        const bool created = raOpenForAppending(m_path) != nullptr;
        if (!created) {
            RA_WARN("cannot create %s", m_path);
        }
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_fileUnread = !created; // its directory may come later, with an older file
        return 0;
    }
    QList<StoreData> records;
    const int result = readRecords(records);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_fileUnread = result != 0;
    m_records += records;
    return result;
}

int RaWifiData::writeData()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    adoptUnreadRecords();
    return write();
}

int RaWifiData::addData(APData* pinfo, bool)
{
    if (!pinfo || pinfo->macAddr[0] == '\0' || pinfo->essid[0] == '\0') {
        return 0;
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    adoptUnreadRecords();
    m_dirty = true;
    const StoreData record = storeRecord(*pinfo);
    const int known = indexOf(record.macAddr);
    if (known >= 0) {
        m_records.removeAt(known);
    }
    m_records.prepend(record);
    if (m_records.size() > capacity) {
        m_records.removeLast();
    }
    write();
    return 0;
}

int RaWifiData::reInitAPData(QString mac)
{
    if (mac.isEmpty()) {
        return 0;
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    adoptUnreadRecords(); // first, or a network forgotten here would come back with them
    m_dirty = true;
    const int known = indexOf(mac.toLatin1().constData());
    if (known >= 0) {
        // The text speaks of 11 characters; the whole address is compared.
        std::printf("%s %s %d --------------!strncmp(m_apinfo[i].macAddr,pinfo->macAddr,11)------------------\n",
                    RA_FILE, __func__, __LINE__);
        m_records.removeAt(known);
    }
    return write();
}

int RaWifiData::getDataByIndex(APData* out, int index)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!out || index < 0 || index >= m_records.size()) {
        return -1;
    }
    const StoreData& record = m_records.at(index);
    setField(out->essid, record.essid);
    setField(out->macAddr, record.macAddr);
    setField(out->psk, record.psk);
    setField(out->key_mgmt, record.key_mgmt);
    out->encry[0] = record.encry[0];
    out->encry[1] = record.encry[1];
    out->is_encry = record.is_encry;
    out->sigquality = record.sigquality;
    out->authMode = record.authMode;
    out->keyIndex = record.keyIndex;
    out->orderbynum = index;
    out->connectSUC = 0;
    out->id = 0;
    out->snow = 0;
    setField(out->IP, "");
    setField(out->wpa_state, "");
    return 0;
}

int RaWifiData::getDataCount()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_records.size());
}

void RaWifiData::initData()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_records.clear();
    m_dirty = false;
    m_fileUnread = false;
}

void RaWifiData::clearStoreAP()
{
    initData();
}

void RaWifiData::printfAllStoreAP() {}

int RaWifiData::readRecords(QList<StoreData>& records) const
{
    const RaFile file = raOpenForReading(m_path);
    if (!file) {
        RA_WARN("cannot read %s", m_path);
        return -1;
    }
    char header[headerSize + 1] = "";
    if (std::fread(header, 1, headerSize, file.get()) > 0) {
        header[std::strcspn(header, "x")] = '\0';
    }
    RA_DEBUG("..index =%s", header);
    const long count = std::strtol(header, nullptr, 10);
    for (long i = 0; i < count; ++i) {
        StoreData record;
        std::memset(&record, 0, sizeof record);
        if (std::fread(&record, 1, sizeof record, file.get()) == 0) {
            break; // every further record would be empty
        }
        terminate(record.essid);
        terminate(record.macAddr);
        terminate(record.key_mgmt);
        terminate(record.psk);
        if (record.macAddr[0] != '\0' && record.essid[0] != '\0') {
            record.orderbynum = unranked;
            records.append(record);
        }
    }
    if (std::ferror(file.get())) {
        RA_WARN("cannot read %s", m_path);
        records.clear();
        return -1;
    }
    return 0;
}

void RaWifiData::adoptUnreadRecords()
{
    if (!m_fileUnread) {
        return;
    }
    QList<StoreData> older;
    if (fileIsExisting(m_path) && readRecords(older) != 0) {
        return;
    }
    for (const StoreData& record : older) {
        if (indexOf(record.macAddr) < 0 && m_records.size() < capacity) {
            m_records.append(record);
        }
    }
    m_fileUnread = false;
}

int RaWifiData::indexOf(const char* mac) const
{
    for (int i = 0; i < m_records.size(); ++i) {
        if (std::strcmp(m_records.at(i).macAddr, mac) == 0) {
            return i;
        }
    }
    return -1;
}

int RaWifiData::write()
{
    if (m_fileUnread) {
        return 1;
    }
    QByteArray bytes;
    int lastWrite = 0;
    if (m_records.isEmpty()) {
        RA_DEBUG("nothing saved, %s is emptied", m_path);
    } else {
        bytes = image(lastWrite);
        if (!writeWorkingFile(bytes)) {
            RA_WARN("cannot write %s", workingFile);
            return 1;
        }
        for (int i = 0; i < m_records.size(); ++i) {
            std::fputs("----------------------------------\n", stderr);
        }
    }
    if (!raReplaceFile(m_path, bytes.constData(), static_cast<std::size_t>(bytes.size()))) {
        return 1;
    }
    sync();
    m_dirty = false;
    return lastWrite;
}

QByteArray RaWifiData::image(int& lastWrite) const
{
    const int count = static_cast<int>(m_records.size());
    QByteArray bytes = QByteArray::number(count).leftJustified(headerSize, 'x');
    lastWrite = headerSize;
    for (const StoreData& record : m_records) {
        if (record.macAddr[0] != '\0') {
            const char* const raw = reinterpret_cast<const char*>(&record);
            bytes.append(raw, textsEnd);
            bytes.append(QByteArray(numbersStart - textsEnd, '\0')); // zero, whatever the copies of a record made of it
            bytes.append(raw + numbersStart, static_cast<int>(sizeof record) - numbersStart);
            lastWrite = static_cast<int>(sizeof record);
        }
    }
    return bytes;
}
