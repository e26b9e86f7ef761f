// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "connectattempt.h"
#include "devicepaths.h"
#include "rafile.h"
#include "raglobalfun.h"
#include "rashell.h"
#include "rawifidata.h"
#include "rawifiglobals.h"
#include "recordtext.h"
#include "scriptmarker.h"
#include "sharedstate.h"

#include <QTimer>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const int macTextLimit = 1028;   // bytes read of the script's answer
const char moduleCommand[] = ""; // this library has no kernel module to load
const int modulePasses = 60;

bool isAnswered(const char* path)
{
    struct stat about;
    return stat(path, &about) == 0 && about.st_size >= 1;
}

} // namespace

RaWifiService::RaWifiService(int, QWidget* parent)
    : QObject(nullptr),
      m_authMode(0),
      m_keyIndex(0),
      m_watchdog(new QTimer(this)),
      m_parentWidget(parent),
      m_store(new RaWifiData),
      m_currentAp(freshRecord()),
      m_pendingSave(nullptr),
      m_attempt(new ConnectAttempt(m_watchdog))
{
    setField(m_gateway, "");
    setField(m_route, "");
    setField(m_link, "");
    setField(m_localMac, "");
    setField(m_address, "");
    std::memset(m_statusFlags, 0, sizeof m_statusFlags);
    resetCursors();
    m_watchdog->setSingleShot(true);
    connect(m_watchdog, SIGNAL(timeout()), this, SLOT(timeout()));
    m_store->loadData();
    m_pendingSave = new APData(freshRecord());
}

RaWifiService::~RaWifiService()
{
    endDhcpStage();
    delete m_attempt;
    delete m_store;
    m_store = nullptr;
    delete m_pendingSave;
    delete m_watchdog;
    clearAPArray();
}

// The answer of an earlier script is not removed first: these scripts rewrite it.
int RaWifiService::scriptVerdict(const char* command)
{
    raRunCommand(command);
    char answer[] = "/home/wifi/temp.txt";
    const int verdict = isSuccByfile(answer, 1);
    return verdict == 0 ? 0 : verdict < 0 ? -1 : -2;
}

int RaWifiService::callWpaSupplicantDefaultConf()
{
    return scriptVerdict("sh /usr/bin/calldefaultconf.sh");
}

int RaWifiService::checkWpaSupplicantStatus()
{
    return scriptVerdict("sh /usr/bin/getwpastatus.sh");
}

int RaWifiService::killWpaSupplicant(int full)
{
    if (full != 0) {
        raRunCommand("killall udhcpc");
        raSleepMs(1000);
        raRunCommand("/usr/bin/wpa_cli -i wlan0 terminate");
        raSleepMs(1000);
    } else {
        raRunCommand("ifconfig wlan0 down");
        raSleepMs(50);
        raRunCommand("ifconfig wlan0 up");
        raSleepMs(1000);
    }
    return 0;
}

int RaWifiService::getLocalMACaddress(char* out)
{
    {
        const SharedStateLock lock(sharedStateMutex());
        if (m_localMac[0] != '\0') {
            std::memcpy(out, m_localMac, sizeof m_localMac);
            return 0;
        }
    }
    raRunCommand("rm -f /home/wifi/temp.txt");
    dropStaleMarker();
    raRunCommand("sh /usr/bin/getlocalmac.sh;touch /home/wifi/result3");
    if (!fileIsExisting(devicepaths::scriptMarker)) {
        std::printf("/home/wifi/temp.txt is not existing\n"); // names the answer, though the marker is missing
        return 0;
    }
    raRunCommand("rm /home/wifi/result3 -f");
    if (!isAnswered(devicepaths::scriptAnswer)) {
        return 0;
    }
    char text[macTextLimit + 1] = "";
    if (const RaFile file = raOpenForReading(devicepaths::scriptAnswer)) {
        text[std::fread(text, 1, macTextLimit, file.get())] = '\0';
    }
    if (text[0] == '\0') {
        raRunCommand("rm /home/wifi/temp.txt");
        return 0;
    }
    const SharedStateLock lock(sharedStateMutex());
    setField(m_localMac, text);
    std::memcpy(out, m_localMac, sizeof m_localMac);
    return 0;
}

void RaWifiService::loadWifiDevice()
{
    bool loaded = false;
    for (int passes = 0; passes < modulePasses;) {
        if (!loaded && access(moduleCommand, F_OK) != 0) {
            std::printf("################insmod_wifi file is not existing###################\n");
            ++passes;
            raSleepMs(1000);
            continue;
        }
        if (!loaded) {
            std::printf("#######################insmod_wifi file existing###########################\n");
        }
        raRunCommand(moduleCommand); // once found, it is run again and again, without another pass counted
        loaded = true;
    }
    std::printf("#######################Time out###########################\n");
}

void RaWifiService::unloadWifiDeveice()
{
    std::printf("################run rmmode wifi cmd################\n");
    std::printf("################rmmodWifi while################\n");
    int passes = 0;
    while (passes < modulePasses && access(moduleCommand, F_OK) != 0) {
        std::printf("################rmmodwifi not existing################\n");
        ++passes;
        raSleepMs(1000);
        if (passes < modulePasses) {
            std::printf("################rmmodWifi while################\n");
        }
    }
    if (passes < modulePasses) {
        std::printf("################rmmodwifi existing################\n");
    }
    while (passes < modulePasses) {
        raRunCommand(moduleCommand); // once found, it is run again and again, without another pass counted
        std::printf("################rmmodWifi while################\n");
    }
    std::printf("################rmmodWifi timeout################\n");
    std::printf("################rmmodWifi end################\n");
}

int RaWifiService::setStopStatus()
{
    // A timer is stopped on its own thread; on that thread this is a plain call.
    QMetaObject::invokeMethod(this, "recSetStatusMsg");
    return 0;
}

void RaWifiService::recSetStatusMsg()
{
    m_watchdog->stop();
}

void RaWifiService::timeout()
{
    const std::lock_guard<std::mutex> lock(m_attempt->mutex);
    if (sender() == m_watchdog && !m_attempt->isWatched()) {
        return; // an earlier attempt's watchdog
    }
    setStopStatus();
    storeFlag(m_statusFlags[TimedOut], true);
    storeFlag(lockStatus, 0);
}

void RaWifiService::resetCursors()
{
    m_listCursor = -1;
    m_linkCursor = -1;
}
