// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAGLOBALFUN_H
#define RAWIFI_RAGLOBALFUN_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QFont>
#include <QString>
#include <cstdio>

/// \file
/// Status files, scan line fields and messages to the host: free functions without state, for any thread. Files are
/// read only where they are regular files; over-long lines and fields are cut. Unless said otherwise: 0 success, -1
/// missing file or null argument, -2 invalid argument, -3 empty answer, -4 file could not be opened.

/** \name Files */
///@{
/** Whether stat(2) succeeds; false for null. */
RAWIFI_EXPORT bool fileIsExisting(const char* path);

/**
 * Zero-fills the 256 bytes of \a buf and reads one line of at most 255 characters into it, its line break
 * included. -1 when nothing was read or for null, else 0.
 */
RAWIFI_EXPORT int GetNextLineStr(char* buf, FILE* file);

/**
 * The verdict in a script's answer. \a mode not 0: 0 when the first line holds text, -3 when not.
 * \a mode 0: 0 for a first line that begins with "OK", -1 for "FAIL", -2 for anything else.
 */
RAWIFI_EXPORT int isSuccByfile(char* path, int mode);

/** The first line of a file as a decimal number; 0 when the file cannot be opened. */
RAWIFI_EXPORT int getLinkAP(char* path);

/** Whether /home/wifi/linkap.txt says that a link is up (1 or more). */
RAWIFI_EXPORT bool getIsConnect();

/** The number in /home/wifi/signal.txt; 0 when it cannot be opened. */
RAWIFI_EXPORT int getAPSignalValue();

/**
 * Reads an address from a file's first line into \a ip (16 bytes), without its line break. A line that does
 * not hold exactly three dots clears the first four bytes of \a ip and gives -1.
 */
RAWIFI_EXPORT int getIPInfoByfile(char* path, char* ip);

/**
 * The gateway that goes with an address: the address up to its last dot, then ".1". \a gw: 16 bytes, zero-filled
 * by the caller. Without a dot in \a ip, ".1" is appended to what \a gw holds.
 */
RAWIFI_EXPORT int getDefaultGw(char* ip, char* gw);

/** Do nothing and return 0. */
RAWIFI_EXPORT int getinterface(char* out);
RAWIFI_EXPORT int getrouteStatusInfo(char* out); ///< The same.
///@}
/** \name Fields of a scan line
 * All take a line, the index to start at and a zero-filled output buffer of at least 256 bytes, and return the
 * index at which the next field starts; -1 for null, -2 for a negative index. */
///@{
/** Collects decimal digits; after the first digit, \a sep ends the field and anything else is skipped. */
RAWIFI_EXPORT int getDefineIntValue(char* line, int pos, char* out, char sep);

/** Copies the rest of the line; returns 1. */
RAWIFI_EXPORT int getDefineStrValue(char* line, int pos, char* out);

/** Copies up to, not including, index \a end; skips \a sep only before the first character copied. */
RAWIFI_EXPORT int getDefineStrValue(char* line, int pos, char* out, char sep, int end);

/**
 * Reads a run of bracketed groups such as [WPA2-PSK-CCMP][WPS][ESS]: the first group's text goes to \a first,
 * the last later one that is neither "ESS" nor "WPS" to \a other. A separator after the field began ends it.
 */
RAWIFI_EXPORT int getEncryTypeValue(char* line, int pos, char* first, char* other, char sep, char open, char close);

/** The ENCRY kind that a flag text names: WPA_PSK before WPA2_PSK before WEP, else NOENCRY; -1 for null. */
RAWIFI_EXPORT int getEncryValue(char* text);

/** Writes the text of an ENCRY kind; for any other number clears the first four bytes of \a out and gives -2. */
RAWIFI_EXPORT int getkeymgmtByEncryValue(int kind, char* out);

/** Signal level 1 to 4 of a signal quality: below 16, below 31, below 46, above. \a levels is not used. */
RAWIFI_EXPORT int calculateSignalLevel(int value, int levels);
///@}
/** \name The link and the current access point */
///@{
/** Reads a supplicant status file (key=value lines) into \a ap; fields without a line keep their content. */
RAWIFI_EXPORT int getConnectStatusInfo(char* path, APData* ap);

/** Runs getwifistatus.sh and reads its answer into \a ap. Blocks for the script. 0, -1, or -2 for null. */
RAWIFI_EXPORT int getAPInfo(APData* ap);

/** Removes all status files. Blocks until the file systems are flushed. */
RAWIFI_EXPORT void disConnectFunc();

/** Writes /home/wifi/curmac.txt; a text that is no BSSID is refused with a log line. */
RAWIFI_EXPORT void saveConnectMac(QString mac);

/** Reads at most 17 characters of /home/wifi/curmac.txt into \a mac (18 bytes); returns how many. */
RAWIFI_EXPORT int getConnectMac(char* mac);

/** Removes /home/wifi/curmac.txt; returns what the shell returned. */
RAWIFI_EXPORT int DeleteConnectMac();

/** Copies \a ap into the record of g_PassParam; only logs when there is none. */
RAWIFI_EXPORT void SetGlobalApData(APData ap);

/** Gives a copy of the record of g_PassParam, or a fresh record when there is none. */
RAWIFI_EXPORT void GetCurApData(APData* out);

/**
 * Shortens \a text to about \a width pixels in \a font, ending in \a tail. The search takes at most ten steps
 * and gives the length that it looked at last, so the result can be a little too wide. GUI or worker thread.
 */
RAWIFI_EXPORT QString crop_string(QFont const& font, QString const& text, int width, QString const& tail);
///@}
/** \name Messages to the host: channel "mainprocess", message "wifi(QString)", the text's bytes alone */
///@{
/** Sends "linkstart" for a non-zero \a status, else "linkend". */
RAWIFI_EXPORT void sendAPSleep(int status);

/** Sends "openwifi"; returns 1. */
RAWIFI_EXPORT int sendOpenWifiToMain();

/** Writes 1 or 0 to /home/wifi/linkap.txt and flushes the file systems. */
RAWIFI_EXPORT void SendAPStatusToOther(bool linked);
///@}
#endif
