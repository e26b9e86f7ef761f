// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFIDATA_H
#define RAWIFI_RAWIFIDATA_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <mutex>

/**
 * The saved-network store: the networks that have been joined, with their passwords, newest first, at most 15.
 * Mirrored to /apps/config/network.conf (mode 0600): 5 bytes count in decimal, padded with 'x', then one
 * StoreData of 388 bytes each, native byte order. An empty store is an empty file.
 *
 * A save holds at every moment, power cuts included, either the old or the new file. Any thread.
 */
class RAWIFI_EXPORT RaWifiData
{
public:
    /** An empty store; reads no file. */
    RaWifiData();
    ~RaWifiData();

    /** Appends the file's records; creates an empty file where there is none. 0, or -1 when it cannot be read. */
    int loadData();

    /**
     * Writes the list to the file. Returns the bytes of the last write (388 for a record), 0 for an empty list,
     * or 1 when nothing could be written; the file is then as it was.
     */
    int writeData();

    /** Saves a network as the newest, in place of an older record of the same BSSID. Returns 0. */
    int addData(APData* pinfo, bool alwaysWritten);

    /** Forgets the network with this BSSID and writes the file. Returns writeData()'s result, 0 for an empty text. */
    int reInitAPData(QString mac);

    /** Fills \a out from the record at \a index, its rank being the index. 0, or -1 out of range. */
    int getDataByIndex(APData* out, int index);

    int getDataCount(); ///< networks in the list, 0 to 15 unless a file held more

    /** Empties the list; the file is untouched. */
    void initData();
    void clearStoreAP(); ///< The same as initData().

    /** Does nothing. */
    void printfAllStoreAP();

private:
    RaWifiData(const RaWifiData&) = delete;
    RaWifiData& operator=(const RaWifiData&) = delete;

    int readRecords(QList<StoreData>& records) const;
    void adoptUnreadRecords();
    int indexOf(const char* mac) const;
    int write();
    QByteArray image(int& lastWrite) const;

    bool m_dirty = false;
    char m_path[1024];
    QList<StoreData> m_records;
    bool m_fileUnread = false; ///< the file could not be read: its records are taken over before it is replaced
    std::mutex m_mutex;
};

#endif
