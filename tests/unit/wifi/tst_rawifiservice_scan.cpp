// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "capturedoutput.h"
#include "fakesystem.h"
#include "loggedmessages.h"
#include "rawifidata.h"
#include "rawifiglobals.h"

#include <QtTest>
#include <cstdio>
#include <cstring>

namespace {

const char answerFile[] = "/home/wifi/temp.txt";
const char firstScan[] = "sh /usr/bin/getfirstaplist.sh;touch /home/wifi/result3";
const char laterScan[] = "sh /usr/bin/getaplist.sh;touch /home/wifi/result3 ";

QByteArray line(const char* mac, const char* flags, const QByteArray& name, int signal = 60)
{
    return QByteArray(mac) + "\t2412\t" + QByteArray::number(signal) + '\t' + flags + '\t' + name + '\n';
}

void answerScans(const QByteArray& result)
{
    const auto script = [result] { fakesystem::writeFile(answerFile, result); };
    fakesystem::answer("getfirstaplist.sh", script);
    fakesystem::answer("getaplist.sh", script);
}

void answerSupplicant(bool runs)
{
    const auto script = [runs] { fakesystem::writeFile(answerFile, runs ? "OK\n" : ""); };
    fakesystem::answer("getwpastatus.sh", script);
    fakesystem::answer("calldefaultconf.sh", script);
}

APData saved(const char* mac, const char* psk, int encry = WPA2_PSK)
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    std::strcpy(ap.essid, "saved");
    std::strcpy(ap.macAddr, mac);
    std::strcpy(ap.psk, psk);
    ap.encry[0] = encry;
    ap.encry[1] = NOENCRY;
    ap.authMode = 1;
    ap.keyIndex = 2;
    return ap;
}

void writeStore(const QList<APData>& networks)
{
    RaWifiData store;
    for (APData ap : networks) {
        store.addData(&ap, true);
    }
}

const char macA[] = "02:00:00:00:00:0a";
const char macB[] = "02:00:00:00:00:0b";

} // namespace

class TestScan : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void firstScanHasItsOwnScript();
    void scanLinesBecomeRecords_data();
    void scanLinesBecomeRecords();
    void linesWithoutANetworkAreDropped_data();
    void linesWithoutANetworkAreDropped();
    void namesAreCutOnlyAtTheLineBreak_data();
    void namesAreCutOnlyAtTheLineBreak();
    void freshRecordHasItsDefaults();
    void recordsKeepTheOrderOfTheFile();
    void overlongLineGivesOneRecord();
    void missingMarkerKeepsTheList();
    void unreadableResultKeepsTheList_data();
    void unreadableResultKeepsTheList();
    void answerIsRemovedAfterReadingAndTheMarkerIsNot();
    void markerOfAScanDoesNotVouchForTheNextScript();
    void supplicantIsStartedWhenItDoesNotRun_data();
    void supplicantIsStartedWhenItDoesNotRun();
    void savedNetworksAreRankedByTheStore();
    void networkSeenTwiceIsTwoCandidates();
    void networkOfAnotherKindIsNoCandidate();
    void withoutSavedNetworksRankingFails();
    void candidateHasTheSavedPasswordAndTheScannedRest();
    void candidatesAreWalkedOnceToTheEnd();
    void emptyCandidateListGivesNull();
    void indexIsChecked_data();
    void indexIsChecked();
    void copyLeavesTheLinkStateAlone();
    void updateTakesAuthModeAndKeyIndexWithinTheirRange_data();
    void updateTakesAuthModeAndKeyIndexWithinTheirRange();
    void updateByAddress_data();
    void updateByAddress();
    void pendingNetworkIsMarkedAsJoined();
    void joinedRanksFollowThePendingNetwork_data();
    void joinedRanksFollowThePendingNetwork();
    void rankingAnewNeedsNoScan_data();
    void rankingAnewNeedsNoScan();
    void forgettingClearsListAndStore();
    void clearingEmptiesBothLists();
    void forgettingAllKeepsTheFile();
};

void TestScan::init()
{
    fakesystem::reset();
    fakesystem::runForReal("rm -rf /apps/config /home/wifi && mkdir -p /apps/config && mkdir -m 777 /home/wifi");
    bIsFirst = false;
    g_isFirst = 1;
    answerSupplicant(true);
}

void TestScan::cleanup()
{
    RaWifiService(1, nullptr).clearAPArray();
}

void TestScan::firstScanHasItsOwnScript()
{
    bIsFirst = true;
    RaWifiService service(1, nullptr);
    answerScans(QByteArray());
    service.loadAPList();
    service.loadAPList();
    service.loadAPList();
    QCOMPARE(fakesystem::count(firstScan), 1);
    QCOMPARE(fakesystem::count(laterScan), 2);
    QCOMPARE(bIsFirst, false);
    QCOMPARE(fakesystem::sleeps().count(1), 1);
    const QList<QByteArray> wanted = {"rm -f /home/wifi/temp.txt", "rm -f /home/wifi/result3", firstScan,
                                      "rm -f /home/wifi/temp.txt"};
    QCOMPARE(fakesystem::commands().mid(0, 4), wanted);
}

void TestScan::scanLinesBecomeRecords_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("otherKind");
    QTest::addColumn<int>("lock");
    QTest::addColumn<QByteArray>("keyManagement");
    const int open = NOENCRY, wep = WEP, wpa = WPA_PSK, wpa2 = WPA2_PSK;
    const auto row = [](const char* title, const QByteArray& text, const char* name, int level, int kind, int other,
                        int lock, const char* management) {
        QTest::newRow(title) << text << QByteArray(name) << level << kind << other << lock << QByteArray(management);
    };
    row("wpa2, signal with a sign", "00:11:22:33:44:55\t2412\t-45\t[WPA2-PSK-CCMP][ESS]\thome\n", "home", 3, wpa2, open,
        2, "WPA2-PSK");
    row("open", line(macA, "[ESS]", "cafe"), "cafe", 4, open, open, 1, "NOENCRY");
    row("wep", line(macA, "[WEP][ESS]", "old", 20), "old", 2, wep, open, 2, "WEP");
    row("wpa", line(macA, "[WPA-PSK-TKIP][ESS]", "legacy", 3), "legacy", 1, wpa, open, 2, "WPA-PSK");
    row("wpa and wpa2", line(macA, "[WPA-PSK-TKIP][WPA2-PSK-CCMP][ESS]", "both"), "both", 4, wpa, wpa2, 2, "WPA-PSK");
    row("wps before the kind", line(macA, "[WPS][WPA2-PSK-CCMP][ESS]", "late"), "late", 4, wpa2, open, 2, "WPA2-PSK");
    row("unknown kind", line(macA, "[WPA2-EAP-CCMP][ESS]", "office"), "office", 4, open, open, 1, "NOENCRY");
    row("no flags", line(macA, "", "bare"), "bare", 4, open, open, 1, "NOENCRY");
    row("name like flags", line(macA, "[ESS]", "[WEP]"), "[WEP]", 4, open, open, 1, "NOENCRY");
    row("name with blanks and tabs", line(macA, "[ESS]", "a \tb "), "a \tb ", 4, open, open, 1, "NOENCRY");
    row("chinese name", line(macA, "[ESS]", "\xe5\xae\xb6"), "\xe5\xae\xb6", 4, open, open, 1, "NOENCRY");
    row("name that is not UTF-8", line(macA, "[ESS]", "\xff\xfe\xc3("), "\xff\xfe\xc3(", 4, open, open, 1, "NOENCRY");
}

void TestScan::scanLinesBecomeRecords()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, name);
    QFETCH(int, level);
    QFETCH(int, kind);
    QFETCH(int, otherKind);
    QFETCH(int, lock);
    QFETCH(QByteArray, keyManagement);
    RaWifiService service(1, nullptr);
    answerScans(text);
    QCOMPARE(service.loadAPList(), 0);
    QCOMPARE(service.getwifilistcount(), 1);
    const APData& ap = *APDataArray.first();
    QCOMPARE(QByteArray(ap.macAddr), text.left(17));
    QCOMPARE(QByteArray(ap.essid), name);
    QCOMPARE(ap.sigquality, level);
    QCOMPARE(ap.encry[0], kind);
    QCOMPARE(ap.encry[1], otherKind);
    QCOMPARE(ap.is_encry, lock);
    QCOMPARE(QByteArray(ap.key_mgmt), keyManagement);
}

void TestScan::linesWithoutANetworkAreDropped_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("hidden network") << line(macA, "[ESS]", "");
    QTest::newRow("hidden network on the last line") << QByteArray("02:00:00:00:00:0a\t2412\t60\t[ESS]\t");
    QTest::newRow("name of byte 1 alone") << QByteArray("02:00:00:00:00:0a\t2412\t60\t[ESS]\t\1");
    QTest::newRow("empty line") << QByteArray("\n");
    QTest::newRow("address alone") << QByteArray("02:00:00:00:00:0a\n");
    QTest::newRow("no name column") << QByteArray("02:00:00:00:00:0a\t2412\t60\t[ESS]\n");
    QTest::newRow("short garbage") << QByteArray("?\n");
}

void TestScan::linesWithoutANetworkAreDropped()
{
    QFETCH(QByteArray, text);
    RaWifiService service(1, nullptr);
    answerScans(text);
    service.loadAPList();
    QCOMPARE(service.getwifilistcount(), 0);
}

void TestScan::namesAreCutOnlyAtTheLineBreak_data()
{
    QTest::addColumn<QByteArray>("end"); // of the file, from the name on
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("one letter with a line break") << QByteArray("A\n") << QByteArray("A");
    QTest::newRow("one letter at the end of the file is listed without a name") << QByteArray("A") << QByteArray();
    QTest::newRow("two letters at the end of the file") << QByteArray("AB") << QByteArray("AB");
    QTest::newRow("39 bytes") << QByteArray(39, 'n') + '\n' << QByteArray(39, 'n');
    QTest::newRow("40 bytes") << QByteArray(40, 'n') + '\n' << QByteArray(39, 'n');
    QTest::newRow("100 bytes") << QByteArray(100, 'n') + '\n' << QByteArray(39, 'n');
}

void TestScan::namesAreCutOnlyAtTheLineBreak()
{
    QFETCH(QByteArray, end);
    QFETCH(QByteArray, name);
    RaWifiService service(1, nullptr);
    answerScans("02:00:00:00:00:0a\t2412\t60\t[ESS]\t" + end);
    service.loadAPList();
    QCOMPARE(service.getwifilistcount(), 1);
    QCOMPARE(QByteArray(APDataArray.first()->essid), name);
}

void TestScan::freshRecordHasItsDefaults()
{
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", "cafe"));
    service.loadAPList();
    const APData& ap = *APDataArray.first();
    QCOMPARE(ap.orderbynum, 999);
    QCOMPARE(ap.snow, 2);
    QCOMPARE(ap.id, 0);
    QCOMPARE(ap.connectSUC, 0);
    QCOMPARE(ap.authMode, 0);
    QCOMPARE(ap.keyIndex, 0);
    QCOMPARE(QByteArray(ap.psk), QByteArray());
    QCOMPARE(QByteArray(ap.IP), QByteArray());
    QCOMPARE(QByteArray(ap.wpa_state), QByteArray());
}

void TestScan::recordsKeepTheOrderOfTheFile()
{
    RaWifiService service(1, nullptr);
    QByteArray result;
    for (int i = 0; i < 300; ++i) {
        result += line(macA, "[ESS]", "n" + QByteArray::number(i), i % 100);
    }
    answerScans(result);
    service.loadAPList();
    QCOMPARE(service.getwifilistcount(), 300);
    for (int i = 0; i < 300; ++i) {
        QCOMPARE(QByteArray(APDataArray.at(i)->essid), "n" + QByteArray::number(i));
    }
}

void TestScan::overlongLineGivesOneRecord()
{
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", QByteArray(200, 'x') + line(macB, "[ESS]", "forged").left(60))
                + line(macB, "[ESS]", "next"));
    service.loadAPList();
    QCOMPARE(service.getwifilistcount(), 2);
    QCOMPARE(QByteArray(APDataArray.at(0)->essid), QByteArray(39, 'x'));
    QCOMPARE(QByteArray(APDataArray.at(1)->essid), QByteArray("next"));
}

void TestScan::missingMarkerKeepsTheList()
{
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", "cafe"));
    service.loadAPList();
    fakesystem::answerWithoutEnd("getaplist.sh", [] { fakesystem::writeFile(answerFile, "other"); });
    const QByteArray printed = capturedOutput(stdout, [&] { QCOMPARE(service.loadAPList(), 0); });
    QCOMPARE(printed, QByteArray("Cannot get temp.txt\n"));
    QCOMPARE(service.getwifilistcount(), 1);
    QCOMPARE(QByteArray(APDataArray.first()->essid), QByteArray("cafe"));
}

void TestScan::unreadableResultKeepsTheList_data()
{
    QTest::addColumn<QByteArray>("planted");
    QTest::newRow("none") << QByteArray("true");
    QTest::newRow("directory") << QByteArray("mkdir /home/wifi/temp.txt");
    QTest::newRow("fifo") << QByteArray("mkfifo /home/wifi/temp.txt");
    QTest::newRow("link") << QByteArray("ln -s /etc/passwd /home/wifi/temp.txt");
}

void TestScan::unreadableResultKeepsTheList()
{
    QFETCH(QByteArray, planted);
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", "cafe"));
    service.loadAPList();
    fakesystem::answer("getaplist.sh", [planted] { fakesystem::runForReal(planted); });
    const QByteArray printed = capturedOutput(stdout, [&] { QCOMPARE(service.loadAPList(), 0); });
    QCOMPARE(printed, QByteArray());
    QCOMPARE(service.getwifilistcount(), 1);
}

void TestScan::answerIsRemovedAfterReadingAndTheMarkerIsNot()
{
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", "cafe"));
    service.loadAPList();
    QVERIFY(!fakesystem::exists(answerFile));
    QVERIFY(fakesystem::exists("/home/wifi/result3"));
}

void TestScan::markerOfAScanDoesNotVouchForTheNextScript()
{
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", "cafe"));
    service.loadAPList();
    fakesystem::answerWithoutEnd("getlocalmac.sh", [] { fakesystem::writeFile(answerFile, "02:00:00:00:00:01\n"); });
    char mac[18] = "unchanged";
    const QByteArray printed = capturedOutput(stdout, [&] { QCOMPARE(service.getLocalMACaddress(mac), 0); });
    QCOMPARE(printed, QByteArray("/home/wifi/temp.txt is not existing\n"));
    QCOMPARE(QByteArray(mac), QByteArray("unchanged"));
}

void TestScan::supplicantIsStartedWhenItDoesNotRun_data()
{
    QTest::addColumn<int>("scannedBefore");
    QTest::addColumn<bool>("runs");
    QTest::addColumn<int>("starts");
    QTest::newRow("first scan, it comes up") << 0 << true << 1;
    QTest::newRow("first scan, it does not come up") << 0 << false << 2;
    QTest::newRow("later scan, it runs") << 1 << true << 0;
    QTest::newRow("later scan, it does not run") << 1 << false << 1;
}

void TestScan::supplicantIsStartedWhenItDoesNotRun()
{
    QFETCH(int, scannedBefore);
    QFETCH(bool, runs);
    QFETCH(int, starts);
    g_isFirst = scannedBefore;
    answerSupplicant(runs);
    answerScans(line(macA, "[ESS]", "cafe"));
    RaWifiService service(1, nullptr);
    const QList<QByteArray> logged = loggedMessages([&] { QCOMPARE(service.getAPListByScan(), -1); });
    QVERIFY(logged.contains("..."));
    QCOMPARE(fakesystem::count("sh /usr/bin/calldefaultconf.sh"), starts);
    QCOMPARE(fakesystem::count("sh /usr/bin/getwpastatus.sh"), 1);
    QCOMPARE(g_isFirst, 1);
    QCOMPARE(service.getwifilistcount(), 1);
}

void TestScan::savedNetworksAreRankedByTheStore()
{
    writeStore({saved(macA, "first"), saved(macB, "second")}); // the store begins with B
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "a") + line("02:00:00:00:00:0c", "[ESS]", "c")
                + line(macB, "[WPA2-PSK-CCMP][ESS]", "b"));
    QCOMPARE(service.getAPListByScan(), 0);
    QCOMPARE(APDataArray.at(0)->orderbynum, 1);
    QCOMPARE(APDataArray.at(1)->orderbynum, 999);
    QCOMPARE(APDataArray.at(2)->orderbynum, 0);
    QCOMPARE(QByteArray(APDataArray.at(0)->psk), QByteArray("first"));
    QCOMPARE(QByteArray(APDataArray.at(2)->psk), QByteArray("second"));
    QCOMPARE(service.getAPListCount(), 2);
    QCOMPARE(QByteArray(g_linkAPList.at(0)->essid), QByteArray("b"));
    QCOMPARE(QByteArray(g_linkAPList.at(1)->essid), QByteArray("a"));
    QCOMPARE(g_linkAPIndex, -1);
}

void TestScan::networkSeenTwiceIsTwoCandidates()
{
    writeStore({saved(macB, "other"), saved(macA, "twice")}); // the store begins with A
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "one") + line(macB, "[WPA2-PSK-CCMP][ESS]", "b")
                + line(macA, "[WPA2-PSK-CCMP][ESS]", "two"));
    QCOMPARE(service.getAPListByScan(), 0);
    QCOMPARE(service.getAPListCount(), 3);
    QCOMPARE(QByteArray(g_linkAPList.at(0)->essid), QByteArray("one"));
    QCOMPARE(QByteArray(g_linkAPList.at(1)->essid), QByteArray("two"));
    QCOMPARE(QByteArray(g_linkAPList.at(2)->essid), QByteArray("b"));
}

void TestScan::networkOfAnotherKindIsNoCandidate()
{
    writeStore({saved(macA, "psk", WPA_PSK)});
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "a"));
    QCOMPARE(service.getAPListByScan(), 0);
    QCOMPARE(service.getAPListCount(), 0);
    QCOMPARE(APDataArray.first()->orderbynum, 999);
}

void TestScan::withoutSavedNetworksRankingFails()
{
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", "a"));
    QCOMPARE(service.getAPListByScan(), -1);
    QCOMPARE(service.orderByAPArray(), -1);
    QCOMPARE(service.getAPList(), 0);
    QCOMPARE(service.getAPListCount(), 0);
}

void TestScan::candidateHasTheSavedPasswordAndTheScannedRest()
{
    writeStore({saved(macA, "password")});
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "on the air", 40));
    service.getAPListByScan();
    APData out;
    std::memset(&out, 0x55, sizeof out);
    QCOMPARE(service.getAPInfoByLinkAPList(&out), &out);
    QCOMPARE(QByteArray(out.essid), QByteArray("on the air"));
    QCOMPARE(QByteArray(out.macAddr), QByteArray(macA));
    QCOMPARE(QByteArray(out.psk), QByteArray("password"));
    QCOMPARE(QByteArray(out.key_mgmt), QByteArray("WPA2-PSK"));
    QCOMPARE(QByteArray(out.IP), QByteArray());
    QCOMPARE(out.encry[0], static_cast<int>(WPA2_PSK));
    QCOMPARE(out.sigquality, 3);
    QCOMPARE(out.is_encry, 2);
    QCOMPARE(out.authMode, 1);
    QCOMPARE(out.keyIndex, 2);
    QCOMPARE(out.id, 0);
    QCOMPARE(out.connectSUC, 0);
    QCOMPARE(out.orderbynum, 999);
}

void TestScan::candidatesAreWalkedOnceToTheEnd()
{
    writeStore({saved(macA, "a"), saved(macB, "b")});
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "aa") + line(macB, "[WPA2-PSK-CCMP][ESS]", "bb"));
    service.getAPListByScan();
    APData out;
    const QList<QByteArray> logged = loggedMessages([&] { QVERIFY(service.getAPInfoByLinkAPList(&out)); });
    QCOMPARE(logged, (QList<QByteArray>() << "old g_linkAPIndex  =-1"
                                          << "new g_linkAPIndex  =0"));
    QVERIFY(service.getAPInfoByLinkAPList(&out));
    QCOMPARE(g_linkAPIndex, 1);
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!service.getAPInfoByLinkAPList(&out));
        QCOMPARE(g_linkAPIndex, -2);
    }
    service.orderByAPArray();
    QVERIFY(service.getAPInfoByLinkAPList(&out));
    QCOMPARE(g_linkAPIndex, 0);
}

void TestScan::emptyCandidateListGivesNull()
{
    RaWifiService service(1, nullptr);
    APData out;
    const QList<QByteArray> logged = loggedMessages([&] { QVERIFY(!service.getAPInfoByLinkAPList(&out)); });
    QCOMPARE(logged, QList<QByteArray>() << "return");
    QCOMPARE(g_linkAPIndex, -1);
}

void TestScan::indexIsChecked_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("result");
    QTest::newRow("first") << 2 << 0 << 0;
    QTest::newRow("last") << 2 << 1 << 0;
    QTest::newRow("one past the end") << 2 << 2 << -2;
    QTest::newRow("beyond") << 2 << 3 << -1;
    QTest::newRow("negative") << 2 << -1 << -1;
    QTest::newRow("empty list") << 0 << 0 << -2;
    QTest::newRow("empty list, beyond") << 0 << 1 << -2;
    QTest::newRow("empty list, negative") << 0 << -1 << -2;
}

void TestScan::indexIsChecked()
{
    QFETCH(int, count);
    QFETCH(int, index);
    QFETCH(int, result);
    RaWifiService service(1, nullptr);
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        text += line(macA, "[ESS]", "name");
    }
    answerScans(text);
    service.loadAPList();
    APData out;
    std::memset(&out, 0, sizeof out);
    char psk[] = "key";
    QCOMPARE(service.getAPDataByIndex(&out, index), result);
    QCOMPARE(service.setAPData(index, 4, psk, 1, 1), result);
    QCOMPARE(QByteArray(out.essid), QByteArray(result == 0 ? "name" : ""));
}

void TestScan::copyLeavesTheLinkStateAlone()
{
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WEP][ESS]", "name"));
    service.loadAPList();
    APData out;
    std::memset(&out, 0, sizeof out);
    std::strcpy(out.IP, "10.0.0.1");
    std::strcpy(out.wpa_state, "SCANNING");
    out.id = 5;
    out.connectSUC = 1;
    QCOMPARE(service.getAPDataByIndex(&out, 0), 0);
    QCOMPARE(QByteArray(out.essid), QByteArray("name"));
    QCOMPARE(out.encry[0], static_cast<int>(WEP));
    QCOMPARE(out.snow, 2);
    QCOMPARE(QByteArray(out.IP), QByteArray("10.0.0.1"));
    QCOMPARE(QByteArray(out.wpa_state), QByteArray("SCANNING"));
    QCOMPARE(out.id, 5);
    QCOMPARE(out.connectSUC, 1);
}

void TestScan::updateTakesAuthModeAndKeyIndexWithinTheirRange_data()
{
    QTest::addColumn<int>("authMode");
    QTest::addColumn<int>("keyIndex");
    QTest::addColumn<int>("authModeAfter");
    QTest::addColumn<int>("keyIndexAfter");
    QTest::newRow("both") << 1 << 3 << 1 << 3;
    QTest::newRow("mode 0 changes nothing") << 0 << 0 << 0 << 0;
    QTest::newRow("mode 2 changes nothing") << 2 << 1 << 0 << 1;
    QTest::newRow("key index 4 changes nothing") << 1 << 4 << 1 << 0;
    QTest::newRow("key index -1 changes nothing") << 1 << -1 << 1 << 0;
}

void TestScan::updateTakesAuthModeAndKeyIndexWithinTheirRange()
{
    QFETCH(int, authMode);
    QFETCH(int, keyIndex);
    QFETCH(int, authModeAfter);
    QFETCH(int, keyIndexAfter);
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", "name"));
    service.loadAPList();
    char psk[] = "key";
    QCOMPARE(service.setAPData(0, 4, psk, authMode, keyIndex), 0);
    QCOMPARE(APDataArray.first()->orderbynum, 4);
    QCOMPARE(QByteArray(APDataArray.first()->psk), QByteArray("key"));
    QCOMPARE(APDataArray.first()->authMode, authModeAfter);
    QCOMPARE(APDataArray.first()->keyIndex, keyIndexAfter);
    // A value once set stays when a later update has none.
    QCOMPARE(service.setAPData(0, 4, psk, 1, 2), 0);
    QCOMPARE(service.setAPData(0, 4, psk, 0, -1), 0);
    QCOMPARE(APDataArray.first()->authMode, 1);
    QCOMPARE(APDataArray.first()->keyIndex, 2);
}

void TestScan::updateByAddress_data()
{
    QTest::addColumn<QString>("mac");
    QTest::addColumn<int>("result");
    QTest::newRow("first match") << QString::fromLatin1(macA) << 0;
    QTest::newRow("none") << QString::fromLatin1(macB) << -2;
    QTest::newRow("empty") << QString() << -1;
}

void TestScan::updateByAddress()
{
    QFETCH(QString, mac);
    QFETCH(int, result);
    RaWifiService service(1, nullptr);
    char psk[] = "key";
    QCOMPARE(service.setAPDataByMacAddress(6, psk, QString::fromLatin1(macA), 1, 1), -2);
    answerScans(line(macA, "[ESS]", "one") + line(macA, "[ESS]", "two"));
    service.loadAPList();
    QCOMPARE(service.setAPDataByMacAddress(6, psk, mac, 1, 1), result);
    QCOMPARE(APDataArray.at(0)->orderbynum, result == 0 ? 6 : 999);
    QCOMPARE(APDataArray.at(1)->orderbynum, 999);
}

void TestScan::pendingNetworkIsMarkedAsJoined()
{
    RaWifiService service(1, nullptr);
    answerScans(line(macB, "[ESS]", "b") + line(macA, "[ESS]", "a"));
    service.loadAPList();
    service.readySaveData(saved(macA, "key"));
    QCOMPARE(service.setAPDataByMacAddress(), 0);
    QCOMPARE(APDataArray.at(0)->orderbynum, 999);
    QCOMPARE(APDataArray.at(1)->orderbynum, 2);
    QCOMPARE(QByteArray(APDataArray.at(1)->psk), QByteArray("key"));
    QCOMPARE(APDataArray.at(1)->authMode, 1);
    QCOMPARE(APDataArray.at(1)->keyIndex, 2);
}

void TestScan::joinedRanksFollowThePendingNetwork_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<bool>("isPending");
    QTest::addColumn<int>("after");
    QTest::newRow("joined, pending") << 0 << true << 0;
    QTest::newRow("joined, another is pending") << 0 << false << 1;
    QTest::newRow("marked, pending") << 2 << true << 0;
    QTest::newRow("marked, another is pending") << 2 << false << 2;
    QTest::newRow("joined before") << 1 << true << 1;
    QTest::newRow("saved") << 3 << true << 3;
    QTest::newRow("not ranked") << 999 << true << 999;
}

void TestScan::joinedRanksFollowThePendingNetwork()
{
    QFETCH(int, before);
    QFETCH(bool, isPending);
    QFETCH(int, after);
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[ESS]", "a"));
    service.loadAPList();
    service.readySaveData(saved(isPending ? macA : macB, "key"));
    APDataArray.first()->orderbynum = before;
    const QList<APData*> list = service.getCurAPList();
    QCOMPARE(list.size(), APDataArray.size());
    QCOMPARE(list.first(), APDataArray.first());
    QCOMPARE(APDataArray.first()->orderbynum, after);
}

void TestScan::rankingAnewNeedsNoScan_data()
{
    QTest::addColumn<QString>("pending");
    QTest::addColumn<int>("rankOfA"); // the only saved one
    QTest::addColumn<int>("rankOfB"); // marked as joined
    QTest::newRow("the saved network is pending") << QString::fromLatin1(macA) << 0 << 2;
    QTest::newRow("the marked network is pending") << QString::fromLatin1(macB) << 1 << 0;
}

void TestScan::rankingAnewNeedsNoScan()
{
    QFETCH(QString, pending);
    QFETCH(int, rankOfA);
    QFETCH(int, rankOfB);
    writeStore({saved(macA, "a")});
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "aa") + line(macB, "[ESS]", "bb"));
    service.loadAPList();
    APDataArray.at(1)->orderbynum = 2;
    service.readySaveData(saved(pending.toLatin1().constData(), "key"));
    const QList<QByteArray> before = fakesystem::commands();
    QCOMPARE(service.getAPList(), 0);
    QCOMPARE(fakesystem::commands(), before);
    QCOMPARE(service.getAPListCount(), 1);
    QCOMPARE(QByteArray(APDataArray.at(0)->psk), QByteArray("a"));
    QCOMPARE(APDataArray.at(0)->orderbynum, rankOfA);
    QCOMPARE(APDataArray.at(1)->orderbynum, rankOfB);
}

void TestScan::forgettingClearsListAndStore()
{
    writeStore({saved(macA, "a"), saved(macB, "b")});
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "aa") + line(macB, "[WPA2-PSK-CCMP][ESS]", "bb"));
    service.getAPListByScan();
    service.readySaveData(saved(macA, "pending"));
    QCOMPARE(service.reInitAPInfo(QString::fromLatin1(macA)), 388);
    QCOMPARE(APDataArray.at(0)->orderbynum, 999);
    QCOMPARE(QByteArray(APDataArray.at(0)->psk), QByteArray());
    QCOMPARE(APDataArray.at(0)->authMode, 0);
    QCOMPARE(APDataArray.at(0)->keyIndex, 0);
    QCOMPARE(QByteArray(APDataArray.at(1)->psk), QByteArray("b"));
    QCOMPARE(QByteArray(service.getCurAPData()->psk), QByteArray());
    QCOMPARE(fakesystem::readFile("/apps/config/network.conf").left(5), QByteArray("1xxxx"));
}

void TestScan::clearingEmptiesBothLists()
{
    writeStore({saved(macA, "a")});
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "aa"));
    service.getAPListByScan();
    APData out;
    service.getAPInfoByLinkAPList(&out);
    QCOMPARE(g_linkAPIndex, 0);
    QCOMPARE(service.clearAPArray(), 0);
    QCOMPARE(service.getwifilistcount(), 0);
    QCOMPARE(service.getAPListCount(), 0);
    QCOMPARE(g_linkAPIndex, -1);
}

void TestScan::forgettingAllKeepsTheFile()
{
    writeStore({saved(macA, "a")});
    RaWifiService service(1, nullptr);
    answerScans(line(macA, "[WPA2-PSK-CCMP][ESS]", "aa"));
    service.getAPListByScan();
    QCOMPARE(service.clearAPS(), 0);
    QCOMPARE(service.getAPListCount(), 0);
    QCOMPARE(service.getwifilistcount(), 1);
    QCOMPARE(service.orderByAPArray(), -1);
    QCOMPARE(fakesystem::readFile("/apps/config/network.conf").left(5), QByteArray("1xxxx"));
}

QTEST_MAIN(TestScan)
#include "tst_rawifiservice_scan.moc"
