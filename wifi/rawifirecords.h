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
    char essid[40];      ///< network name, the bytes on the air
    char macAddr[18];    ///< BSSID, "00:11:22:33:44:55"; the identity of a saved network
    char key_mgmt[100];  ///< "NOENCRY", "WEP", "WPA-PSK", "WPA2-PSK" or the supplicant's own text
    char wpa_state[20];  ///< supplicant state, for example "COMPLETED"; empty in scanned and saved records
    char psk[200];       ///< password or passphrase
    char IP[16];         ///< dotted IPv4 address
    int encry[2];        ///< ENCRY kinds; the first is the one to connect with
    int sigquality;      ///< signal level 1 to 4, 0 unknown
    int id;              ///< network number
    int snow;            ///< 0 not completed, 1 completed without key management, 2 completed with
    int orderbynum;      ///< rank in the list, smallest first; 999 not ranked
    int connectSUC;      ///< 1 when it has been joined, else 0
    int authMode;        ///< authentication mode; for WEP 0 is shared, anything else open
    int keyIndex;        ///< WEP key index, 0 to 3
    int is_encry;        ///< 1 open, 2 locked, 0 unknown
};

/** One saved network; written byte for byte to the store file. */
struct StoreData
{
    char essid[40];
    char macAddr[18];
    char key_mgmt[100];
    char psk[200];
    int encry[2];
    int sigquality;
    int orderbynum;
    int is_encry;
    int keyIndex;
    int authMode;
};

/** One item of a generic list. */
struct RaItemData
{
    QString text1;
    QString text2;
    QString text3;
    bool flag1;
    bool flag2;
};

Q_DECLARE_METATYPE(APData)
Q_DECLARE_METATYPE(RaItemData)

/** List order: smaller rank first; among equals the weaker signal first. */
RAWIFI_EXPORT bool operator<(APData const& a, APData const& b);

/** The order of the list window: smaller rank first; among equals the stronger signal first. Compares no text. */
RAWIFI_EXPORT bool caseInsensitiveLessThan(APData* a, APData* b);

/** 0 when both denote the same access point (same name, same 17 characters of BSSID), 1 otherwise or for null. */
RAWIFI_EXPORT int getCmpAPLists(APData* a, APData* b);

/** Log every field of a record, one line each. The password is among them. */
RAWIFI_EXPORT void printAPData(APData record);
RAWIFI_EXPORT void printAPDataPoint(APData* record);

/** Logs a line without a message. */
RAWIFI_EXPORT void printStoreData(StoreData record);

#endif
