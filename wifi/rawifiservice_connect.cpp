// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "connectattempt.h"
#include "devicepaths.h"
#include "linereader.h"
#include "rafile.h"
#include "raglobalfun.h"
#include "ralog.h"
#include "rashell.h"
#include "rawifidata.h"
#include "rawifiglobals.h"
#include "recordtext.h"
#include "scriptmarker.h"
#include "sharedstate.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

const int listRow = 0;        // every message is about the list's first row
const int rowTextWidth = 250; // pixels of a row's name
const int watchdogMs = 60000;
const int lastTry = 11; // misses or failed reads already counted when the next one is the last
const int scriptPauseMs = 5;
const int settleMs = 1000;
const int retryPauseMs = 2000;
const int markedJoined = 2;

const char removeAnswerAndMarker[] = "rm /home/wifi/temp.txt -f;rm /home/wifi/result3 -f";

/** Notes on its way out that nobody holds the lock of the DHCP stage. */
struct LockStatusCleared
{
    ~LockStatusCleared() { storeFlag(lockStatus, 0); }
};

} // namespace

int RaWifiService::connectCertainAP(QString mac, ENCRY encry, QString essid, QString psk, int sigquality, int authMode,
                                    int keyIndex)
{
    const QByteArray name = nameOnAir(mac, essid);
    const QByteArray key = bytesFromText(psk);
    RA_DEBUG("-encry %d ,macAddr =%s,essid =%s,password = %s,sigquality = %d authMode =%d,keyindex = %d",
             static_cast<int>(encry), mac.toLatin1().constData(), name.constData(), raSecret(key.constData()),
             sigquality, authMode, keyIndex);

    endDhcpStage();
    killWpaSupplicant(1);
    if (writeConfig(encry, name, key, authMode, keyIndex) < 0) {
        return failed(essid, tr("config wifi failed"), -1);
    }
    if (!loadConfig()) {
        return failed(essid, tr("Wifi network configuration information failed"), -2);
    }
    rememberRequest(mac, encry, name, key, sigquality, authMode, keyIndex);

    releaseMutex(m_mutex);
    {
        const std::lock_guard<std::mutex> lock(m_attempt->mutex);
        m_attempt->begin();
        storeFlag(m_statusFlags[TimedOut], false);
    }
    {
        const LockStatusCleared cleared; // also when the attempt is cancelled in the wait
        raSleepMs(scriptPauseMs);
    }
    Q_EMIT sendListWndInfo(listRow, essid, tr("verifying information"), 0);
    startDhcpStage();
    if (!waitForDhcpStage()) {
        RA_DEBUG("3.1 Failed authentication information");
        return failed(essid, tr("Data verification failed!"), -1);
    }
    Q_EMIT sendListWndInfo(listRow, essid, tr("Retrieving the IP information"), 0);
    Q_EMIT sendPrgStop();
    removeMarker(removeAnswerAndMarker);
    raSleepMs(scriptPauseMs);
    const int result = retrieveAddress(essid);
    if (result != 0) {
        return result;
    }
    Q_EMIT sendListWndInfo(listRow, essid, tr("Setting  Network information"), 0);
    setNetworkInformation();
    return joined(mac, essid, sigquality);
}

int RaWifiService::connectDefaultAP()
{
    APData record;
    {
        const SharedStateLock lock(sharedStateMutex());
        if (!m_pendingSave) {
            return -1;
        }
        if (m_pendingSave->macAddr[0] == '\0') {
            return -2;
        }
        m_pendingSave->authMode = 1;
        record = *m_pendingSave;
    }
    return connectCertainAP(QString::fromLatin1(record.macAddr), static_cast<ENCRY>(record.encry[0]),
                            textFromBytes(record.essid), textFromBytes(record.psk), record.sigquality, 1, 0);
}

int RaWifiService::getdefaultConAPByLocalcfg()
{
    const SharedStateLock lock(sharedStateMutex());
    if (!m_store) {
        return -2;
    }
    if (g_linkAPList.isEmpty()) {
        return -3;
    }
    if (g_linkAPIndex == -2) {
        g_linkAPIndex = -1;
        return -4;
    }
    return 0;
}

int RaWifiService::disConnectAp()
{
    killWpaSupplicant(1);
    const SharedStateLock lock(sharedStateMutex());
    setField(m_gateway, "");
    setField(m_route, "");
    setField(m_link, "");
    setField(m_localMac, "");
    setField(m_address, "");
    for (bool& flag : m_statusFlags) {
        storeFlag(flag, false);
    }
    resetCursors();
    pendingSave();
    return 0;
}

APData* RaWifiService::getCurAPData()
{
    const SharedStateLock lock(sharedStateMutex());
    return &pendingSave();
}

int RaWifiService::readySaveData(APData ap)
{
    const SharedStateLock lock(sharedStateMutex());
    APData& record = pendingSave();
    record = ap;
    record.orderbynum = markedJoined;
    record.connectSUC = 0;
    return 0;
}

int RaWifiService::saveApData(APData* ap, bool flag)
{
    if (!m_store) {
        m_store = new RaWifiData;
    }
    if (!ap) {
        return -1;
    }
    return m_store->addData(ap, flag) == 0 ? 0 : -2;
}

void RaWifiService::recMangerConMsg(QString linkmadress)
{
    APData record;
    {
        const SharedStateLock lock(sharedStateMutex());
        if (!m_pendingSave || QString::fromLatin1(m_pendingSave->macAddr) != linkmadress) {
            return;
        }
        m_pendingSave->connectSUC = 1;
        record = *m_pendingSave;
    }
    record.is_encry = lockOf(record.encry[0]);
    getkeymgmtByEncryValue(record.encry[0], record.key_mgmt);
    saveApData(&record, true);
}

int RaWifiService::checkUseCancel(int)
{
    if (loadFlag(g_isUseCancel) != 0) {
        Q_EMIT sendListWndInfo(listRow, tr("info"), tr("User canceled..."), 1);
    }
    return 0;
}

int RaWifiService::setRoute(char* out)
{
    raRunCommand("rm /home/wifi/temp.txt");
    dropStaleMarker();
    raRunCommand("sh /usr/bin/getroute.sh;touch /home/wifi/result3");
    raSleepMs(settleMs);
    if (!fileIsExisting(devicepaths::scriptMarker)) {
        std::printf("getdymanicip /home/wifi/temp.txt is not existing\n");
        return 1;
    }
    raRunCommand("rm /home/wifi/result3 -f");
    const RaFile file = raOpenForReading(devicepaths::scriptAnswer);
    if (!file) {
        return 0;
    }
    char line[lineSize];
    GetNextLineStr(line, file.get());
    if (line[0] == '\0' || line[0] == '\n') {
        return 1;
    }
    if (out == m_route) {
        setField(m_route, line); // shorter than a line
    } else {
        std::strcpy(out, line);
    }
    return 0;
}

char* RaWifiService::getRoute()
{
    return m_route;
}

int RaWifiService::setRouteGw()
{
    char gateway[sizeof m_gateway];
    {
        const SharedStateLock lock(sharedStateMutex());
        setField(gateway, m_gateway);
    }
    if (!raIsIpv4Address(gateway)) {
        RA_WARN("not an address, no default route set: \"%s\"", gateway);
        return -1;
    }
    return raRunCommandF("route add default gw %s", gateway);
}

int RaWifiService::pingIP(char* ip, double& rate)
{
    rate = 0.0;
    if (!ip || !raIsIpv4Address(ip)) {
        RA_WARN("not an address, not pinged: \"%s\"", ip ? ip : "");
        return 0;
    }
    raRunCommand("rm /home/wifi/temp.txt");
    raRunCommandF("ping -w 10 %s | awk -F, '/transmitted/{print $3}' >>/home/wifi/temp.txt", ip);
    char line[lineSize] = "";
    if (const RaFile file = raOpenForReading(devicepaths::scriptAnswer)) {
        GetNextLineStr(line, file.get());
    }
    std::remove(devicepaths::scriptAnswer);
    // Of an unreachable address the command gives "+N errors", which stand before the share that was lost.
    if (line[0] == '\0' || line[std::strspn(line, " ")] == '+') {
        return 0;
    }
    rate = 1.0 - static_cast<double>(std::strtol(line, nullptr, 10)) / 100.0;
    return 1;
}

// A host may have lost bytes of a name that is not UTF-8 on its way into a text; the scan has kept them.
QByteArray RaWifiService::nameOnAir(const QString& mac, const QString& essid) const
{
    const SharedStateLock lock(sharedStateMutex());
    const QByteArray address = mac.toLatin1();
    for (const APData* entry : APDataArray) {
        if (address == entry->macAddr && QString::fromUtf8(entry->essid) == essid) {
            return entry->essid;
        }
    }
    return bytesFromText(essid);
}

int RaWifiService::writeConfig(ENCRY encry, const QByteArray& name, const QByteArray& key, int authMode, int keyIndex)
{
    if (name.contains('\0') || key.contains('\0')) {
        return -1; // would be written cut short
    }
    switch (encry) {
    case WPA_PSK:
    case WPA2_PSK:
        RA_DEBUG("case WPA_PSK/WPA2_PSK");
        return changeWpaConfigfile(name.constData(), key.constData());
    case WEP:
        RA_DEBUG("case WEP");
        m_authMode = authMode;
        return changeWpaConfigfile2(name.constData(), key.constData(), keyIndex);
    case NOENCRY:
        RA_DEBUG("case NOENCRY");
        return changeWpaConfigfile3(name.constData(), key.constData());
    }
    return -1;
}

bool RaWifiService::loadConfig()
{
    raSleepMs(scriptPauseMs);
    dropStaleMarker();
    raRunCommand("sh /usr/bin/callwpaconf.sh;touch /home/wifi/result3");
    raSleepMs(scriptPauseMs);
    raRunCommand("wpa_cli -i wlan0 status");
    if (!fileIsExisting(devicepaths::scriptMarker)) {
        return false;
    }
    raRunCommand("rm /home/wifi/result3 -f");
    return true;
}

void RaWifiService::rememberRequest(const QString& mac, ENCRY encry, const QByteArray& name, const QByteArray& key,
                                    int sigquality, int authMode, int keyIndex)
{
    APData request = freshRecord();
    setField(request.essid, name);
    setField(request.macAddr, mac.toLatin1());
    setField(request.psk, key);
    request.encry[0] = encry;
    request.sigquality = sigquality;
    request.authMode = authMode;
    request.keyIndex = keyIndex;
    request.is_encry = lockOf(encry);
    getkeymgmtByEncryValue(encry, request.key_mgmt);
    {
        const SharedStateLock lock(sharedStateMutex());
        m_currentAp = request;
    }
    // Every attempt is kept in hand; only one that has joined reaches the store.
    RA_DEBUG("isSave=%d", 1);
    readySaveData(request);
}

void RaWifiService::startDhcpStage()
{
    m_attempt->armWatchdog(watchdogMs);
    m_mutex.lock();
    storeFlag(lockStatus, 1);
    raRunCommand(removeAnswerAndMarker);
    m_attempt->dhcpEnded = false;
    if (m_attempt->dhcpWorker.start(dhcpip_handle, this) != 0) {
        RA_WARN("cannot start the DHCP stage");
        m_attempt->dhcpEnded = true;
    }
}

// One that is left over from an earlier attempt would work on the files of whatever runs now.
void RaWifiService::endDhcpStage()
{
    m_attempt->dhcpWorker.cancel();
    m_attempt->dhcpWorker.waitUntilEnded();
}

// The stage has just taken the lock, so this hardly ever waits: the real wait is for the address. It ends in any
// case when the stage has ended or timed out. False when the watchdog expired.
bool RaWifiService::waitForDhcpStage()
{
    while (loadFlag(lockStatus) == 0 && !m_attempt->dhcpEnded && !loadFlag(m_statusFlags[TimedOut])) {
        raSleepMs(scriptPauseMs);
    }
    return !loadFlag(m_statusFlags[TimedOut]);
}

// The DHCP stage uses the same answer and marker files; whatever it takes away here costs one more try.
int RaWifiService::retrieveAddress(const QString& name)
{
    int misses = 0;
    int failedReads = 0;
    for (;;) {
        raRunCommand("sh /usr/bin/getip.sh;touch /home/wifi/result3");
        raSleepMs(scriptPauseMs);
        if (!fileIsExisting(devicepaths::scriptMarker)) {
            RA_DEBUG("getip.sh has not come to its end, miss %d", misses);
            if (misses >= lastTry) {
                const int result = failed(name, tr("Failed to obtain IP information"), -3);
                raSleepMs(settleMs);
                return result;
            }
            raSleepMs(retryPauseMs);
            ++misses;
            continue;
        }
        removeMarker("rm /home/wifi/result3 -f");
        if (readAddress()) {
            return 0;
        }
        RA_DEBUG("no address yet, failed read %d", failedReads);
        if (failedReads >= lastTry) {
            RA_DEBUG("--------nNum= %d---------", failedReads);
            const int result = failed(name, tr("Network connection error or the server is busy,please try again"), -2);
            raSleepMs(settleMs);
            return result;
        }
        raSleepMs(retryPauseMs);
        ++failedReads;
        misses = 0;
    }
}

void RaWifiService::removeMarker(const char* command)
{
    ++m_attempt->markerRemovals;
    raRunCommand(command);
    ++m_attempt->markerRemovals;
}

bool RaWifiService::readAddress()
{
    char answer[] = "/home/wifi/temp.txt";
    char address[sizeof m_address] = "";
    const bool found = getIPInfoByfile(answer, address) == 0 && raIsIpv4Address(address);
    if (found) {
        const SharedStateLock lock(sharedStateMutex());
        setField(pendingSave().IP, address);
        setField(m_address, address);
    }
    return found;
}

void RaWifiService::setNetworkInformation()
{
    {
        const SharedStateLock lock(sharedStateMutex());
        setField(m_gateway, "");
        getDefaultGw(m_address, m_gateway);
    }
    setRouteGw();
    raSleepMs(settleMs);
    storeFlag(m_statusFlags[Connected], true);
}

int RaWifiService::joined(const QString& mac, const QString& name, int sigquality)
{
    const QString shown = crop_string(g_font, name, rowTextWidth, QLatin1String("..."));
    Q_EMIT sendListWndInfo(listRow, name, shown + tr("Successful connection"), 0);
    char address[sizeof m_address];
    {
        const SharedStateLock lock(sharedStateMutex());
        setField(address, pendingSave().IP);
        setField(pendingSave().essid, m_currentAp.essid);
    }
    if (raIsIpv4Address(address)) {
        raClearForWriting(devicepaths::ownAddress);
        raRunCommandF("echo %s >/home/wifi/ipinfo.txt", address);
    } else {
        // The record is the host's to change, too.
        RA_WARN("not an address, not written to %s: \"%s\"", devicepaths::ownAddress, address);
    }
    raClearForWriting(devicepaths::signalValue);
    raRunCommandF("echo %d >/home/wifi/signal.txt", sigquality);
    raSleepMs(settleMs);

    recMangerConMsg(mac);
    SendAPStatusToOther(true);
    saveConnectMac(mac);
    sync();
    raSleepMs(settleMs);
    setRouteGw();

    Q_EMIT sendCheckAPConnect(mac, sigquality);
    Q_EMIT sendSetStatusMsg(mac, true);
    return 0;
}

int RaWifiService::failed(const QString& name, const QString& message, int errflag)
{
    Q_EMIT sendListWndInfo(listRow, name, message, errflag);
    return errflag;
}

void* dhcpip_handle(void* service)
{
    static_cast<RaWifiService*>(service)->runDhcp();
    return nullptr;
}

void RaWifiService::runDhcp()
{
    struct EndMark
    {
        ConnectAttempt& attempt;
        ~EndMark() { attempt.dhcpEnded = true; }
    };
    const EndMark mark = {*m_attempt};

    raRunCommand(removeAnswerAndMarker);
    raSleepMs(settleMs);
    const int removals = m_attempt->markerRemovals;
    const int status = raRunCommand("sh /usr/bin/dhcp_setip.sh;touch /home/wifi/result3");
    // The address loop may take the marker for its own. Within the next second, so it counts from now on; or even
    // before, and then the shell says whether there was one.
    const bool reachedEnd =
        fileIsExisting(devicepaths::scriptMarker) || (status == 0 && m_attempt->mayHaveLostMarker(removals));
    raSleepMs(settleMs);
    if (!reachedEnd && !fileIsExisting(devicepaths::scriptMarker)) {
        // Names a wrong directory; the lock stays with the stage until the watchdog expires.
        std::printf("dhcp_setip.sh /home/org/result3 is not existing\n");
        return;
    }
    raRunCommand("rm /home/wifi/result3 -f");
    setStopStatus();
    releaseMutex(m_mutex);
    storeFlag(lockStatus, 0);
}

APData& RaWifiService::pendingSave()
{
    if (!m_pendingSave) {
        m_pendingSave = new APData(freshRecord());
    }
    return *m_pendingSave;
}
