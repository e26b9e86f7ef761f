// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFIRECORDS_H
#define RAWIFI_RAWIFIRECORDS_H

#include "rawifi_export.h"

#include <QMetaType>
#include <QString>

/** Kind of security of a network. 0 is not a kind; a fresh record is NOENCRY. */
enum ENCRY : int { NOENCRY = 1, WEP = 2, WPA_PSK = 3, WPA2_PSK = 4 };

/**
 * One access point as scanned, saved or joined: a plain record, copied by value. Texts are bytes that end
 * with a NUL. Integers are signed 32-bit numbers.
 */
struct APData
{
    char essid[40];     ///< network name, the bytes on the air
    char macAddr[18];   ///< BSSID, "00:11:22:33:44:55"; the identity of a saved network
    char key_mgmt[100]; ///< "NOENCRY", "WEP", "WPA-PSK", "WPA2-PSK" or the supplicant's own text
    char wpa_state[20]; ///< supplicant state, for example "COMPLETED"; empty in scanned and saved records
    char psk[200];      ///< password or passphrase
    char IP[16];        ///< dotted IPv4 address
    int encry[2];       ///< ENCRY kinds; the first is the one to connect with
    int sigquality;     ///< signal level 1 to 4, 0 unknown
    int id;             ///< network number
    int snow;           ///< 0 not completed, 1 completed without key management, 2 completed with
    int orderbynum;     ///< rank in the list, smallest first; 999 not ranked
    int connectSUC;     ///< 1 when it has been joined, else 0
    int authMode;       ///< authentication mode; for WEP 0 is shared, anything else open
    int keyIndex;       ///< WEP key index, 0 to 3
    int is_encry;       ///< 1 open, 2 locked, 0 unknown
};

/** One saved network; its 388 bytes are what the store file has, integers in native byte order. */
struct StoreData
{
    char essid[40];     ///< offset 0; every field as in APData
    char macAddr[18];   ///< offset 40
    char key_mgmt[100]; ///< offset 58
    char psk[200];      ///< offset 158, in plain text; two zero bytes follow
    int encry[2];       ///< offsets 360 and 364
    int sigquality;     ///< offset 368; the level when it was saved
    int orderbynum;     ///< offset 372; 999 in every file
    int is_encry;       ///< offset 376
    int keyIndex;       ///< offset 380
    int authMode;       ///< offset 384
};

/** One item of a generic list, for a host; nothing in the library reads its fields. */
struct RaItemData
{
    QString text1; ///< the host's
    QString text2; ///< the host's
    QString text3; ///< the host's
    bool flag1;    ///< the host's
    bool flag2;    ///< the host's
};

Q_DECLARE_METATYPE(APData)
Q_DECLARE_METATYPE(RaItemData)

/** List order: smaller rank first; among equals the weaker signal first. */
RAWIFI_EXPORT bool operator<(APData const& a, APData const& b);

/** The order of the list window: smaller rank first; among equals the stronger signal first. Compares no text. */
RAWIFI_EXPORT bool caseInsensitiveLessThan(APData* a, APData* b);

/** 0 when both denote the same access point (same name, same 17 characters of BSSID), 1 otherwise or for null. */
RAWIFI_EXPORT int getCmpAPLists(APData* a, APData* b);

/** Log every field of a record, one line each. The password is among them, or "***" (RAWIFI_LOG_SECRETS). */
RAWIFI_EXPORT void printAPData(APData record);
RAWIFI_EXPORT void printAPDataPoint(APData* record); ///< The same; null is ignored.

/** Logs a line without a message. */
RAWIFI_EXPORT void printStoreData(StoreData record);

#endif
