// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raglobalfun.h"

#include "devicepaths.h"
#include "hostmessage.h"
#include "linereader.h"
#include "qtcompat.h"
#include "rafile.h"
#include "ralog.h"
#include "rashell.h"
#include "rawifiglobals.h"
#include "recordtext.h"
#include "sharedstate.h"

#include <QCopChannel>
#include <QFontMetrics>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const int addressSize = 16;

int decimal(const char* text)
{
    return static_cast<int>(std::strtol(text, nullptr, 10));
}

/** Opens a result file for reading, or says why not: -1 missing (printed), -4 not to be opened. */
int openResult(const char* path, RaFile& file)
{
    if (!fileIsExisting(path)) {
        std::printf("Cannot get %s\n", path ? path : "");
        return -1;
    }
    file = raOpenForReading(path);
    return file ? 0 : -4;
}

int firstNumberIn(std::FILE* file)
{
    char line[lineSize];
    GetNextLineStr(line, file);
    return decimal(line);
}

/** What is wrong with a field cutter's arguments: -1 null, -2 a negative index; 0 nothing. */
int argumentError(const char* line, int pos, const char* out)
{
    if (!line || !out) {
        return -1;
    }
    return pos < 0 ? -2 : 0;
}

bool startsAt(const char* line, int pos)
{
    return static_cast<std::size_t>(pos) <= std::strlen(line);
}

/** The text behind "key=" in a status line, its line break included; empty where that is missing. */
const char* valueOf(const char* line, const char* key)
{
    const char* found = std::strstr(line, key);
    return found ? found + std::strlen(key) : "";
}

/** Links: 2 with key management known, 1 without, 0 not completed. Depends on which line came first. */
int linkStateOf(const APData& ap)
{
    if (std::strncmp(ap.wpa_state, "COMPLETED", 9) != 0) {
        return 0;
    }
    return ap.key_mgmt[0] != '\0' ? 2 : 1;
}

// Each key is part of an earlier one's text, so the order of the tests matters.
void readStatusLine(const char* line, APData& ap)
{
    if (std::strstr(line, "bssid=")) {
        setField(ap.macAddr, valueOf(line, "bssid="));
    } else if (std::strstr(line, "ssid=")) {
        setField(ap.essid, valueOf(line, "ssid="));
    } else if (std::strstr(line, "id=")) {
        ap.id = decimal(valueOf(line, "id="));
    } else if (std::strstr(line, "pairwise_cipher=") || std::strstr(line, "group_cipher=")) {
        return;
    } else if (std::strstr(line, "key_mgmt=")) {
        setField(ap.key_mgmt, valueOf(line, "key_mgmt="));
    } else if (std::strstr(line, "wpa_state")) {
        setField(ap.wpa_state, valueOf(line, "wpa_state="));
        ap.snow = linkStateOf(ap);
    } else if (std::strstr(line, "ip_address")) {
        setField(ap.IP, valueOf(line, "ip_address="));
    }
}

} // namespace

bool fileIsExisting(const char* path)
{
    struct stat about;
    return path && stat(path, &about) == 0;
}

int GetNextLineStr(char* buf, FILE* file)
{
    if (!buf || !file) {
        return -1;
    }
    std::memset(buf, 0, lineSize);
    return std::fgets(buf, lineSize, file) ? 0 : -1;
}

int isSuccByfile(char* path, int mode)
{
    RaFile file;
    const int error = openResult(path, file);
    if (error != 0) {
        return error;
    }
    char line[lineSize];
    GetNextLineStr(line, file.get());
    if (mode != 0) {
        return line[0] == '\0' || line[0] == '\n' ? -3 : 0;
    }
    if (std::strncmp(line, "OK", 2) == 0) {
        return 0;
    }
    return std::strncmp(line, "FAIL", 4) == 0 ? -1 : -2;
}

int getLinkAP(char* path)
{
    const RaFile file = path ? raOpenForReading(path) : RaFile();
    return file ? firstNumberIn(file.get()) : 0;
}

bool getIsConnect()
{
    char path[] = "/home/wifi/linkap.txt";
    const bool connected = getLinkAP(path) >= 1;
    std::printf(connected ? "%s %s %d - :true \n" : "%s %s %d - :false \n", RA_FILE, __func__, __LINE__);
    return connected;
}

int getAPSignalValue()
{
    const RaFile file = raOpenForReading(devicepaths::signalValue);
    if (!file) {
        std::printf("%s %s %d fopen failed\n", RA_FILE, __func__, __LINE__);
        return 0;
    }
    return firstNumberIn(file.get());
}

int getIPInfoByfile(char* path, char* ip)
{
    if (!ip) {
        return -1;
    }
    RaFile file;
    const int error = openResult(path, file);
    if (error != 0) {
        return error;
    }
    char line[lineSize];
    GetNextLineStr(line, file.get());
    cutLineBreak(line);
    int dots = 0;
    for (const char* c = line; *c != '\0'; ++c) {
        dots += *c == '.' ? 1 : 0;
    }
    if (dots != 3) {
        std::memset(ip, 0, 4);
        return -1;
    }
    const std::size_t length = strnlen(line, addressSize - 1);
    std::memcpy(ip, line, length);
    ip[length] = '\0';
    return 0;
}

int getDefaultGw(char* ip, char* gw)
{
    if (!ip || !gw) {
        return -1;
    }
    const char ending[] = ".1";
    const std::size_t room = addressSize - sizeof ending;
    if (const char* lastDot = std::strrchr(ip, '.')) {
        const std::size_t length = static_cast<std::size_t>(lastDot - ip);
        std::memcpy(gw, ip, length < room ? length : room);
    }
    // Appended to whatever follows: the caller has zero-filled the buffer.
    std::memcpy(gw + strnlen(gw, room), ending, sizeof ending);
    return 0;
}

int getinterface(char*)
{
    return 0;
}

int getrouteStatusInfo(char*)
{
    return 0;
}

int getDefineIntValue(char* line, int pos, char* out, char sep)
{
    if (const int error = argumentError(line, pos, out)) {
        return error;
    }
    if (!startsAt(line, pos)) {
        return pos;
    }
    char* end = out + std::strlen(out);
    const char* const firstDigit = end;
    for (; line[pos] != '\0'; ++pos) {
        if (std::isdigit(static_cast<unsigned char>(line[pos]))) {
            *end++ = line[pos];
        } else if (end != firstDigit && line[pos] == sep) {
            break;
        }
    }
    *end = '\0';
    return pos;
}

int getDefineStrValue(char* line, int pos, char* out)
{
    if (const int error = argumentError(line, pos, out)) {
        return error;
    }
    std::strcpy(out, startsAt(line, pos) ? line + pos : "");
    std::printf("%s %s %d \n", RA_FILE, __func__, __LINE__);
    return 1;
}

int getDefineStrValue(char* line, int pos, char* out, char sep, int end)
{
    if (const int error = argumentError(line, pos, out)) {
        return error;
    }
    if (!startsAt(line, pos)) {
        return pos;
    }
    int copied = 0;
    for (int i = pos; i < end && line[i] != '\0'; ++i) {
        if (copied > 0 || line[i] != sep) {
            out[copied++] = line[i];
        }
    }
    if (copied > 0) {
        out[copied] = '\0';
    }
    return pos + copied;
}

int getEncryTypeValue(char* line, int pos, char* first, char* other, char sep, char open, char close)
{
    if (const int error = argumentError(line, pos, other ? first : nullptr)) {
        return error;
    }
    if (!startsAt(line, pos) || !std::strchr(line, open)) {
        return pos;
    }
    while (line[pos] != '\0' && line[pos] == sep) {
        ++pos;
    }
    bool isFirst = true;
    const char* group = nullptr; // the text of the group that is being read
    for (; line[pos] != '\0' && line[pos] != sep; ++pos) {
        if (line[pos] == open) {
            group = line + pos + 1;
        } else if (line[pos] == close && group) {
            const std::size_t length = static_cast<std::size_t>(line + pos - group);
            const bool plain = length == 3 && (std::memcmp(group, "ESS", 3) == 0 || std::memcmp(group, "WPS", 3) == 0);
            char* const target = isFirst ? first : plain ? nullptr : other;
            if (target) {
                std::memcpy(target, group, length);
                target[length] = '\0';
            }
            isFirst = false;
            group = nullptr;
        }
    }
    return pos;
}

int getEncryValue(char* text)
{
    if (!text) {
        return -1;
    }
    if (std::strstr(text, "WPA-PSK")) {
        return WPA_PSK;
    }
    if (std::strstr(text, "WPA2-PSK")) {
        return WPA2_PSK;
    }
    return std::strstr(text, "WEP") ? WEP : NOENCRY;
}

int getkeymgmtByEncryValue(int kind, char* out)
{
    if (!out) {
        return -1;
    }
    switch (kind) {
    case NOENCRY:
        std::strcpy(out, "NOENCRY");
        return 0;
    case WEP:
        std::strcpy(out, "WEP");
        return 0;
    case WPA_PSK:
        std::strcpy(out, "WPA-PSK");
        return 0;
    case WPA2_PSK:
        std::strcpy(out, "WPA2-PSK");
        return 0;
    }
    std::memset(out, 0, 4);
    return -2;
}

int calculateSignalLevel(int value, int)
{
    if (value < 16) {
        return 1;
    }
    if (value < 31) {
        return 2;
    }
    return value < 46 ? 3 : 4;
}

int getConnectStatusInfo(char* path, APData* ap)
{
    if (!fileIsExisting(path)) {
        std::printf("Cannot get %s\n", path ? path : "");
        return -1;
    }
    if (!ap) {
        return -2;
    }
    std::memset(ap->essid, 0, 4);
    const RaFile file = raOpenForUpdate(path);
    if (!file) {
        return -4;
    }
    LineReader lines(file.get(), LineReader::statusLimit);
    while (const char* line = lines.next()) {
        readStatusLine(line, *ap);
    }
    return 0;
}

int getAPInfo(APData* ap)
{
    if (!ap) {
        return -2;
    }
    raRunCommand("rm /home/wifi/connectstatus.txt");
    raClearForWriting(devicepaths::statusMarker);
    raRunCommand("sh /usr/bin/getwifistatus.sh;touch /home/wifi/result");
    std::memset(ap->essid, 0, 4);
    char path[] = "/home/wifi/connectstatus.txt";
    return getConnectStatusInfo(path, ap) < 0 ? -1 : 0;
}

void disConnectFunc()
{
    raRunCommand("rm /home/wifi/*.txt -f");
    sync();
}

void saveConnectMac(QString mac)
{
    const QByteArray text = mac.toLatin1();
    if (!raIsMacAddress(text.constData())) {
        RA_WARN("not a BSSID, not written to %s: \"%s\"", devicepaths::currentMac, text.constData());
        return;
    }
    raClearForWriting(devicepaths::currentMac);
    raRunCommandF("echo %s >/home/wifi/curmac.txt", text.constData());
    sync();
}

int getConnectMac(char* mac)
{
    const RaFile file = mac ? raOpenForReading(devicepaths::currentMac) : RaFile();
    if (!file) {
        std::printf("%s %s %d fopen failed\n", RA_FILE, __func__, __LINE__);
        return 0;
    }
    char line[lineSize];
    GetNextLineStr(line, file.get());
    cutLineBreak(line);
    const std::size_t length = strnlen(line, 17);
    std::memcpy(mac, line, length);
    mac[length] = '\0';
    return static_cast<int>(length);
}

int DeleteConnectMac()
{
    return raRunCommand("rm /home/wifi/curmac.txt -f;sync");
}

void SetGlobalApData(APData ap)
{
    {
        const SharedStateLock lock(sharedStateMutex());
        if (!g_PassParam.pinfo) {
            RA_DEBUG("g_PassParam.pinfo == NULL");
            return;
        }
        *g_PassParam.pinfo = ap;
    }
    printAPDataPoint(&ap);
}

void GetCurApData(APData* out)
{
    if (!out) {
        return;
    }
    *out = freshRecord();
    {
        const SharedStateLock lock(sharedStateMutex());
        if (!g_PassParam.pinfo) {
            RA_DEBUG("g_PassParam.pinfo == NULL");
            return;
        }
        *out = *g_PassParam.pinfo;
    }
    printAPDataPoint(out);
}

QString crop_string(QFont const& font, QString const& text, int width, QString const& tail)
{
    const QFontMetrics metrics(font);
    if (raTextWidth(metrics, text) <= width) {
        return text;
    }
    const int room = width - raTextWidth(metrics, tail);
    QString prefix;
    int low = 0;
    int high = static_cast<int>(text.size());
    for (int probe = 0; probe < 10; ++probe) {
        const int middle = (low + high) / 2;
        if (middle >= high || low >= high || middle <= low) {
            break;
        }
        prefix = text.left(middle);
        const int prefixWidth = raTextWidth(metrics, prefix);
        if (room == prefixWidth) {
            break;
        }
        (room < prefixWidth ? high : low) = middle;
    }
    return prefix + tail; // the prefix measured last, even when that was too wide
}

void sendToMainProcess(const QString& payload)
{
    QCopChannel::send(QLatin1String("mainprocess"), QLatin1String("wifi(QString)"), payload.toLocal8Bit());
}

void sendAPSleep(int status)
{
    sendToMainProcess(QLatin1String(status != 0 ? "linkstart" : "linkend"));
}

int sendOpenWifiToMain()
{
    sendToMainProcess(QLatin1String("openwifi"));
    return 1;
}

void SendAPStatusToOther(bool linked)
{
    raClearForWriting(devicepaths::linkStatus);
    raRunCommandF("echo %d >/home/wifi/linkap.txt", linked ? 1 : 0);
    sync();
}
