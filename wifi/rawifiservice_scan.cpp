// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "devicepaths.h"
#include "linereader.h"
#include "rafile.h"
#include "raglobalfun.h"
#include "ralog.h"
#include "rashell.h"
#include "rawifidata.h"
#include "rawifiglobals.h"
#include "recordtext.h"
#include "sharedstate.h"

#include <QtAlgorithms>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

const int justJoined = 0;
const int joinedBefore = 1;
const int markedJoined = 2;
const int unranked = 999;

void clearList(QList<APData*>& list)
{
    qDeleteAll(list);
    list.clear();
}

/** 0 for an index of \a list; -2 for an empty list or the index past the end; -1 for any other. */
int checkIndex(const QList<APData*>& list, int index)
{
    if (list.isEmpty() || index == list.size()) {
        return -2;
    }
    return index < 0 || index > list.size() ? -1 : 0;
}

void update(APData& entry, int order, const char* psk, int authMode, int keyIndex)
{
    entry.orderbynum = order;
    setField(entry.psk, psk);
    if (authMode == 1) {
        entry.authMode = authMode;
    }
    if (static_cast<unsigned>(keyIndex) < 4) {
        entry.keyIndex = keyIndex;
    }
}

bool isMac(const APData& entry, const QString& mac)
{
    return QString::fromLatin1(entry.macAddr) == mac;
}

// The kind of the first flag group, or of the second one when the first names none, comes first.
void setKinds(APData& entry, char* firstFlags, char* secondFlags)
{
    const int first = getEncryValue(firstFlags);
    const int second = getEncryValue(secondFlags);
    entry.encry[0] = first != NOENCRY ? first : second;
    entry.encry[1] = first != NOENCRY ? second : NOENCRY;
    entry.is_encry = lockOf(entry.encry[0]);
    getkeymgmtByEncryValue(entry.encry[0], entry.key_mgmt);
}

/**
 * Reads one line of a scan result: BSSID (17 characters), a separator, then frequency, signal, flags and name
 * divided by tabs. False for a line that is no access point to list, such as a hidden network.
 */
bool readScanLine(char* line, APData& entry)
{
    const int fieldsStart = 18;
    const int length = static_cast<int>(std::strlen(line));
    if (length < fieldsStart) {
        return false;
    }
    char frequency[lineSize] = "";
    char signal[lineSize] = "";
    char firstFlags[lineSize] = "";
    char secondFlags[lineSize] = "";
    char name[lineSize] = "";
    int pos = getDefineIntValue(line, fieldsStart, frequency, '\t');
    pos = getDefineIntValue(line, pos, signal, '\t');
    pos = getEncryTypeValue(line, pos, firstFlags, secondFlags, '\t', '[', ']');
    getDefineStrValue(line, pos, name, '\t', length);

    entry = freshRecord();
    std::memcpy(entry.macAddr, line, sizeof entry.macAddr - 1);
    entry.sigquality = calculateSignalLevel(static_cast<int>(std::strtol(signal, nullptr, 10)), 5);
    setKinds(entry, firstFlags, secondFlags);
    entry.snow = 2;

    if (std::strlen(name) >= 2) {
        cutLineBreak(name);
        setField(entry.essid, name);
        return true;
    }
    // A lone character without a line break is listed, but has no name.
    return name[0] != '\0' && name[0] != '\n' && name[0] != '\1';
}

QList<APData*> readScanResult(std::FILE* file)
{
    QList<APData*> list;
    LineReader lines(file, LineReader::scanLimit);
    APData entry;
    while (char* line = lines.next()) {
        if (readScanLine(line, entry)) {
            list.append(new APData(entry));
        }
    }
    return list;
}

/** A candidate for automatic joining: the scanned access point with the saved password and key. */
APData* newCandidate(const APData& scanned, const APData& saved)
{
    APData candidate = freshRecord();
    setField(candidate.essid, scanned.essid);
    setField(candidate.macAddr, scanned.macAddr);
    setField(candidate.key_mgmt, scanned.key_mgmt);
    candidate.encry[0] = scanned.encry[0];
    candidate.encry[1] = scanned.encry[1];
    candidate.sigquality = scanned.sigquality;
    candidate.is_encry = scanned.is_encry;
    setField(candidate.psk, saved.psk);
    candidate.authMode = saved.authMode;
    candidate.keyIndex = saved.keyIndex;
    return new APData(candidate);
}

} // namespace

int RaWifiService::getAPListByScan()
{
    RA_DEBUG("...");
    endDhcpStage();
    if (g_isFirst == 0) {
        g_isFirst = 1;
        callWpaSupplicantDefaultConf();
    }
    if (checkWpaSupplicantStatus() < 0) {
        callWpaSupplicantDefaultConf();
    }
    loadAPList();
    const int result = orderByAPArray();
    resetCursors();
    return result;
}

int RaWifiService::loadAPList()
{
    raRunCommand("rm -f /home/wifi/temp.txt");
    raRunCommand("rm -f /home/wifi/result3");
    if (bIsFirst) {
        raSleepMs(1);
        bIsFirst = false;
        raRunCommand("sh /usr/bin/getfirstaplist.sh;touch /home/wifi/result3");
    } else {
        raRunCommand("sh /usr/bin/getaplist.sh;touch /home/wifi/result3 "); // the blank is part of the command
    }
    if (!fileIsExisting(devicepaths::scriptMarker)) {
        std::printf("Cannot get temp.txt\n");
        return 0;
    }
    RaFile file = raOpenForReading(devicepaths::scriptAnswer);
    if (!file) {
        return 0;
    }
    QList<APData*> list = readScanResult(file.get());
    {
        const SharedStateLock lock(sharedStateMutex());
        pendingSave();
        APDataArray.swap(list);
    }
    clearList(list);
    clearCurLinkAPArray();
    file.reset();
    raRunCommand("rm -f /home/wifi/temp.txt");
    return 0;
}

int RaWifiService::orderByAPArray()
{
    clearCurLinkAPArray();
    const int count = m_store ? m_store->getDataCount() : 0;
    if (count < 1) {
        return -1;
    }
    for (int i = 0; i < count; ++i) {
        APData saved = freshRecord();
        if (m_store->getDataByIndex(&saved, i) != 0) {
            continue;
        }
        const SharedStateLock lock(sharedStateMutex());
        for (int j = 0; j < APDataArray.size(); ++j) {
            APData& scanned = *APDataArray.at(j);
            if (std::strcmp(scanned.macAddr, saved.macAddr) == 0 && scanned.encry[0] == saved.encry[0]) {
                m_listCursor = j;
                update(scanned, i, saved.psk, saved.authMode, saved.keyIndex);
                g_linkAPList.append(newCandidate(scanned, saved));
            }
        }
    }
    return 0;
}

int RaWifiService::getAPList()
{
    orderByAPArray();
    getCurAPList();
    resetCursors();
    return 0;
}

QList<APData*> RaWifiService::getCurAPList()
{
    const SharedStateLock lock(sharedStateMutex());
    const char* const joined = m_pendingSave ? m_pendingSave->macAddr : "";
    for (APData* entry : APDataArray) {
        const bool isJoined = std::strcmp(entry->macAddr, joined) == 0;
        if (entry->orderbynum == justJoined && !isJoined) {
            entry->orderbynum = joinedBefore;
        } else if (entry->orderbynum == markedJoined && isJoined) {
            entry->orderbynum = justJoined;
        }
    }
    return APDataArray;
}

int RaWifiService::getAPDataByIndex(APData* out, int index)
{
    const SharedStateLock lock(sharedStateMutex());
    const int error = checkIndex(APDataArray, index);
    if (error != 0) {
        return error;
    }
    const APData& entry = *APDataArray.at(index);
    out->encry[0] = entry.encry[0];
    out->encry[1] = entry.encry[1];
    setField(out->essid, entry.essid);
    out->is_encry = entry.is_encry;
    setField(out->macAddr, entry.macAddr);
    setField(out->psk, entry.psk);
    setField(out->key_mgmt, entry.key_mgmt);
    out->sigquality = entry.sigquality;
    out->snow = entry.snow;
    out->orderbynum = entry.orderbynum;
    out->authMode = entry.authMode;
    out->keyIndex = entry.keyIndex;
    return 0;
}

int RaWifiService::setAPData(int index, int order, char* psk, int authMode, int keyIndex)
{
    const SharedStateLock lock(sharedStateMutex());
    const int error = checkIndex(APDataArray, index);
    if (error == 0) {
        update(*APDataArray.at(index), order, psk ? psk : "", authMode, keyIndex);
    }
    return error;
}

int RaWifiService::setAPDataByMacAddress(int order, char* psk, QString mac, int authMode, int keyIndex)
{
    if (mac.isEmpty()) {
        return -1;
    }
    const SharedStateLock lock(sharedStateMutex());
    for (APData* entry : APDataArray) {
        if (isMac(*entry, mac)) {
            update(*entry, order, psk ? psk : "", authMode, keyIndex);
            return 0;
        }
    }
    return -2;
}

int RaWifiService::setAPDataByMacAddress()
{
    APData pending;
    {
        const SharedStateLock lock(sharedStateMutex());
        pending = pendingSave();
    }
    setAPDataByMacAddress(markedJoined, pending.psk, QString::fromLatin1(pending.macAddr), pending.authMode,
                          pending.keyIndex);
    return 0;
}

int RaWifiService::reInitAPInfo(QString mac)
{
    RA_DEBUG("forget %s", mac.toLatin1().constData());
    {
        const SharedStateLock lock(sharedStateMutex());
        if (m_pendingSave) {
            setField(m_pendingSave->psk, "");
        }
        for (APData* entry : APDataArray) {
            if (isMac(*entry, mac)) {
                RA_DEBUG("drop the saved data of %s", entry->macAddr);
                setField(entry->psk, "");
                entry->orderbynum = unranked;
                entry->authMode = 0;
                entry->keyIndex = 0;
            }
        }
    }
    return m_store ? m_store->reInitAPData(mac) : 0;
}

APData* RaWifiService::getAPInfoByLinkAPList(APData* out)
{
    const SharedStateLock lock(sharedStateMutex());
    if (g_linkAPList.isEmpty()) {
        RA_DEBUG("return");
        return nullptr;
    }
    if (g_linkAPIndex == -2) {
        return nullptr; // all were tried; only a new list starts over
    }
    if (g_linkAPList.size() <= g_linkAPIndex + 1) {
        g_linkAPIndex = -2;
        return nullptr;
    }
    RA_DEBUG("old g_linkAPIndex  =%d", g_linkAPIndex);
    ++g_linkAPIndex;
    RA_DEBUG("new g_linkAPIndex  =%d", g_linkAPIndex);
    const APData& candidate = *g_linkAPList.at(g_linkAPIndex);
    if (candidate.macAddr[0] == '\0') {
        return out;
    }
    out->encry[0] = candidate.encry[0];
    out->encry[1] = candidate.encry[1];
    setField(out->essid, candidate.essid);
    setField(out->IP, candidate.IP);
    setField(out->key_mgmt, candidate.key_mgmt);
    setField(out->macAddr, candidate.macAddr);
    out->authMode = candidate.authMode;
    out->keyIndex = candidate.keyIndex;
    setField(out->psk, candidate.psk);
    out->is_encry = candidate.is_encry;
    out->sigquality = candidate.sigquality;
    out->id = candidate.id;
    out->connectSUC = 0;
    out->orderbynum = unranked;
    return out;
}

int RaWifiService::getwifilistcount()
{
    const SharedStateLock lock(sharedStateMutex());
    return static_cast<int>(APDataArray.size());
}

int RaWifiService::getAPListCount()
{
    const SharedStateLock lock(sharedStateMutex());
    return static_cast<int>(g_linkAPList.size());
}

int RaWifiService::clearAPArray()
{
    {
        const SharedStateLock lock(sharedStateMutex());
        clearList(APDataArray);
    }
    return clearCurLinkAPArray();
}

int RaWifiService::clearCurLinkAPArray()
{
    const SharedStateLock lock(sharedStateMutex());
    clearList(g_linkAPList);
    g_linkAPIndex = -1;
    return 0;
}

int RaWifiService::clearAPS()
{
    if (m_store) {
        m_store->clearStoreAP();
    }
    return clearCurLinkAPArray();
}

void RaWifiService::printAllAPData() {}
