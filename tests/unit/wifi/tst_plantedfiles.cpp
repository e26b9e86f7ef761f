// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
//
// Another process has put something at a path that the library reads or writes: each kind of thing at each path, and
// the whole life of the device with it.
#include "capturedoutput.h"
#include "hostilefiles.h"
#include "joining.h"
#include "rawifimonitor.h"

#include <QtTest>
#include <cstring>
#include <functional>
#include <sys/stat.h>

namespace {

const char* const paths[] = {"/home/wifi/temp.txt",
                             "/home/wifi/result3",
                             "/home/wifi/result",
                             "/home/wifi/connectstatus.txt",
                             "/home/wifi/linkap.txt",
                             "/home/wifi/signal.txt",
                             "/home/wifi/ipinfo.txt",
                             "/home/wifi/curmac.txt",
                             "/home/wifi/tmpnetwork.conf",
                             "/apps/config/network.conf",
                             "/apps/config/network.conf.tmp",
                             "/etc/wpa_supplicant.conf",
                             "/etc/wpa_supplicant.conf.tmp"};

const char statusText[] = "bssid=00:1a:2b:3c:4d:5e\nssid=Home\nkey_mgmt=WPA2-PSK\nwpa_state=COMPLETED\n";

/** Like the device's scripts, which write to nothing but a file of their own. */
void answerTo(const char* path, const QByteArray& bytes)
{
    struct stat about;
    if (lstat(path, &about) != 0 || (S_ISREG(about.st_mode) && about.st_nlink == 1)) {
        fakesystem::writeFile(path, bytes);
    }
}

void answer(const char* script, const char* path, const QByteArray& bytes)
{
    fakesystem::answer(script, [path, bytes] { answerTo(path, bytes); });
}

} // namespace

class TestPlantedFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void eachKindAtEachPath_data();
    void eachKindAtEachPath();
};

void TestPlantedFiles::init()
{
    joining::freshDevice();
    const char* const temp = paths[0];
    answer("calldefaultconf.sh", temp, "OK\n");
    answer("getwpastatus.sh", temp, "OK\n");
    answer("getlocalmac.sh", temp, "02:00:00:00:00:01\n");
    for (const char* scan : {"getfirstaplist.sh", "getaplist.sh"}) {
        answer(scan, temp, "00:1a:2b:3c:4d:5e\t2412\t-45\t[WPA2-PSK-CCMP][ESS]\tHome\n");
    }
    fakesystem::answer("callwpaconf.sh", [] {});
    fakesystem::answer("dhcp_setip.sh", [] {});
    answer("getip.sh", temp, "192.168.7.23\n");
    answer("getroute.sh", temp, "192.168.7.1\n");
    answer("getwifistatus.sh", paths[3], statusText);
    answer("getconnectstatus.sh", temp, statusText);
}

void TestPlantedFiles::eachKindAtEachPath_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<int>("kind");
    for (const char* path : paths) {
        for (int kind = HostileFiles::Link; kind <= HostileFiles::Gigabyte; ++kind) {
            const QByteArray name = QByteArray(path) + ": " + HostileFiles::name(static_cast<HostileFiles::Kind>(kind));
            QTest::newRow(name.constData()) << QByteArray(path) << kind;
        }
    }
}

void TestPlantedFiles::eachKindAtEachPath()
{
    QFETCH(QByteArray, path);
    QFETCH(int, kind);
    HostileFiles hostile;
    const auto plant = [&] { hostile.plant(path.constData(), static_cast<HostileFiles::Kind>(kind), "as it was"); };
    plant();
    RaWifiService service(0, nullptr);
    RaWifiMonitor monitor(nullptr);
    QVERIFY(hostile.isUntouched());

    APData ap;
    std::memset(&ap, 0, sizeof ap);
    std::strcpy(ap.essid, "Other");
    std::strcpy(ap.macAddr, "00:00:00:00:00:09");
    char text[256] = "";
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"own address", [&] { service.getLocalMACaddress(text); }},
        {"scan", [&] { service.getAPListByScan(); }},
        {"join", [&] { joining::joinToTheEnd(service, joining::Request()); }},
        {"route", [&] { service.setRoute(text); }},
        {"status", [&] { getAPInfo(&ap); }},
        {"poll", [&] { monitor.getAPStatus(); }},
        {"link", [&] { getIsConnect(); }},
        {"signal", [&] { getAPSignalValue(); }},
        {"joined network", [&] { getConnectMac(text); }},
        {"lost link", [&] { SendAPStatusToOther(false); }},
        {"save", [&] { service.saveApData(&ap, true); }},
        {"disconnect", [&] { disConnectFunc(); }},
    };
    for (const auto& step : steps) {
        plant();
        capturedOutput(stdout, step.second);
        QVERIFY2(hostile.isUntouched(), step.first);
    }

    hostile.reset();
    int result = -1;
    capturedOutput(stdout, [&] { result = joining::joinToTheEnd(service, joining::Request()); });
    QCOMPARE(result, 0);
    QVERIFY(fakesystem::readFile(joining::store).contains("00:1a:2b:3c:4d:5e"));
    QVERIFY(fakesystem::readFile(joining::config).contains("ssid=\"Home\""));
}

QTEST_MAIN(TestPlantedFiles)
#include "tst_plantedfiles.moc"
