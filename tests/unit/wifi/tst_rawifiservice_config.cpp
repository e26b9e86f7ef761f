// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "capturedoutput.h"
#include "fakesystem.h"

#include <QtTest>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char configFile[] = "/etc/wpa_supplicant.conf";
const QByteArray older = "the configuration before\n";
const QByteArray head = "# Simple case: WPA-PSK, PSK as an ASCII passphrase, allow all valid ciphers\n"
                        "ctrl_interface=/var/run/wpa_supplicant\n"
                        "ctrl_interface_group=0\n"
                        "ap_scan=1\n"
                        "network={\n";

enum Variant { Wpa, Wep, Open };

int writeVariant(RaWifiService& service, int variant, const char* ssid, const char* key, int keyIndex = 0)
{
    switch (variant) {
    case Wpa:
        return service.changeWpaConfigfile(ssid, key);
    case Wep:
        return service.changeWpaConfigfile2(ssid, key, keyIndex);
    default:
        return service.changeWpaConfigfile3(ssid, key);
    }
}

} // namespace

class TestConfig : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void wpaFile_data();
    void wpaFile();
    void wepFile_data();
    void wepFile();
    void openFile();
    void nameLine_data();
    void nameLine();
    void refusalsTouchNothing_data();
    void refusalsTouchNothing();
    void fileThatCannotBeOpenedIsReported_data();
    void fileThatCannotBeOpenedIsReported();
    void linkIsNotFollowed();
    void aMountedFileIsFilledInItsPlace();
    void modeIsTheOwnersAlone();
    void commandsAndFlush_data();
    void commandsAndFlush();
};

void TestConfig::init()
{
    fakesystem::reset();
    fakesystem::runForReal("rm -rf /etc/wpa_supplicant.conf");
    fakesystem::writeFile(configFile, older);
}

void TestConfig::wpaFile_data()
{
    QTest::addColumn<QByteArray>("psk");
    QTest::addColumn<QByteArray>("value");
    const QByteArray digits = QByteArray("0123456789abcdef").repeated(4);
    QTest::newRow("8 characters") << QByteArray("12345678") << QByteArray("\"12345678\"");
    QTest::newRow("63 characters") << QByteArray(63, 'p') << '"' + QByteArray(63, 'p') + '"';
    QTest::newRow("64 digits") << digits << digits;
    QTest::newRow("short") << QByteArray("x") << QByteArray("\"x\"");
    QTest::newRow("quote inside") << QByteArray("pass\"word") << QByteArray("\"pass\"word\"");
    QTest::newRow("hash inside") << QByteArray("pass#word") << QByteArray("\"pass#word\"");
    QTest::newRow("backslash and blanks") << QByteArray(" a\\nb c ") << QByteArray("\" a\\nb c \"");
    QTest::newRow("shell characters") << QByteArray("$(id)`id`;") << QByteArray("\"$(id)`id`;\"");
    // A quote with a hash behind it could not be read back: the key it stands for, with the name "home" as salt.
    QTest::newRow("quote, then hash") << QByteArray("pass\"#word")
                                      << QByteArray("6ecab4bf9bfe43c9361f08dedabe4bb0ddbf2a90c2a169f623bb5430e2189eba");
}

void TestConfig::wpaFile()
{
    QFETCH(QByteArray, psk);
    QFETCH(QByteArray, value);
    RaWifiService service(1, nullptr);
    QCOMPARE(service.changeWpaConfigfile("home", psk.constData()), 0);
    const QByteArray file = fakesystem::readFile(configFile);
    QCOMPARE(file, head + "\tssid=\"home\"\n\tpsk=" + value + "\n}\n");
}

void TestConfig::wepFile_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("keyIndex");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("5 characters") << QByteArray("abcde") << 0 << QByteArray("wep_key0=\"abcde\"");
    QTest::newRow("13 characters") << QByteArray("abcdefghijklm") << 1 << QByteArray("wep_key1=\"abcdefghijklm\"");
    QTest::newRow("16 characters") << QByteArray("abcdefghijklmnop") << 2
                                   << QByteArray("wep_key2=\"abcdefghijklmnop\"");
    QTest::newRow("10 digits") << QByteArray("0102030405") << 3 << QByteArray("wep_key3=0102030405");
    QTest::newRow("26 digits") << QByteArray(26, 'f') << 0 << "wep_key0=" + QByteArray(26, 'f');
    QTest::newRow("quote, then hash, in digits") << QByteArray("a\"#bc") << 0 << QByteArray("wep_key0=6122236263");
}

void TestConfig::wepFile()
{
    QFETCH(QByteArray, key);
    QFETCH(int, keyIndex);
    QFETCH(QByteArray, line);
    RaWifiService service(1, nullptr);
    QCOMPARE(service.changeWpaConfigfile2("office", key.constData(), keyIndex), 0);
    // Without a request the authentication mode is 0: shared.
    QCOMPARE(fakesystem::readFile(configFile), head + "\tssid=\"office\"\n\tkey_mgmt=NONE\n\t" + line
                                                   + "\n\twep_tx_keyidx=" + QByteArray::number(keyIndex)
                                                   + "\npriority=5\nauth_alg=SHARED\n}\n");
}

void TestConfig::openFile()
{
    RaWifiService service(1, nullptr);
    QCOMPARE(service.changeWpaConfigfile3("cafe", nullptr), 0);
    QCOMPARE(fakesystem::readFile(configFile), head + "\tssid=\"cafe\"\n\tkey_mgmt=NONE\n}\n");
}

void TestConfig::nameLine_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("plain") << QByteArray("home") << QByteArray("\"home\"");
    QTest::newRow("empty") << QByteArray() << QByteArray("\"\"");
    QTest::newRow("quote") << QByteArray("a\"b") << QByteArray("\"a\"b\"");
    QTest::newRow("hash") << QByteArray("a#b") << QByteArray("\"a#b\"");
    QTest::newRow("quote, then hash") << QByteArray("a\"#b") << QByteArray("61222362");
    QTest::newRow("hash, then quote") << QByteArray("a#\"b") << QByteArray("\"a#\"b\"");
    QTest::newRow("line break") << QByteArray("a\n}\nb") << QByteArray("610a7d0a62");
    QTest::newRow("tab") << QByteArray("a\tb") << QByteArray("610962");
    QTest::newRow("escape") << QByteArray("\033[m") << QByteArray("1b5b6d");
    QTest::newRow("delete") << QByteArray("a\177") << QByteArray("617f");
    QTest::newRow("chinese") << QByteArray("\xe5\xae\xb6") << QByteArray("\"\xe5\xae\xb6\"");
    QTest::newRow("not utf-8") << QByteArray("\xff\xfe") << QByteArray("\"\xff\xfe\"");
    QTest::newRow("shell") << QByteArray("$(id)`id`") << QByteArray("\"$(id)`id`\"");
    QTest::newRow("format") << QByteArray("%s%n%1") << QByteArray("\"%s%n%1\"");
}

void TestConfig::nameLine()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, value);
    RaWifiService service(1, nullptr);
    QCOMPARE(service.changeWpaConfigfile(name.constData(), "password"), 0);
    const QByteArray file = fakesystem::readFile(configFile);
    QCOMPARE(file, head + "\tssid=" + value + "\n\tpsk=\"password\"\n}\n");
}

void TestConfig::refusalsTouchNothing_data()
{
    QTest::addColumn<int>("variant");
    QTest::addColumn<QByteArray>("ssid"); // null: a null pointer
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("keyIndex");
    QTest::addColumn<int>("result");
    const QByteArray null;
    const QByteArray empty("");
    QTest::newRow("wpa, no name") << int(Wpa) << null << QByteArray("password") << 0 << -1;
    QTest::newRow("wpa, no key") << int(Wpa) << QByteArray("home") << null << 0 << -1;
    QTest::newRow("wpa, empty key") << int(Wpa) << QByteArray("home") << empty << 0 << -1;
    QTest::newRow("wpa, line break in the key")
        << int(Wpa) << QByteArray("home") << QByteArray("pass\nword") << 0 << -1;
    QTest::newRow("wep, no name") << int(Wep) << null << QByteArray("abcde") << 0 << -1;
    QTest::newRow("wep, no key") << int(Wep) << QByteArray("home") << null << 0 << -1;
    QTest::newRow("wep, empty key") << int(Wep) << QByteArray("home") << empty << 0 << -1;
    QTest::newRow("wep, line break in the key") << int(Wep) << QByteArray("home") << QByteArray("ab\nde") << 0 << -1;
    QTest::newRow("wep, key index 4") << int(Wep) << QByteArray("home") << QByteArray("abcde") << 4 << -1;
    QTest::newRow("wep, key index -1") << int(Wep) << QByteArray("home") << QByteArray("abcde") << -1 << -1;
    QTest::newRow("open, no name") << int(Open) << null << null << 0 << -1;
    QTest::newRow("open, empty name") << int(Open) << empty << null << 0 << -2;
}

void TestConfig::refusalsTouchNothing()
{
    QFETCH(int, variant);
    QFETCH(QByteArray, ssid);
    QFETCH(QByteArray, key);
    QFETCH(int, keyIndex);
    QFETCH(int, result);
    RaWifiService service(1, nullptr);
    QCOMPARE(writeVariant(service, variant, ssid.isNull() ? nullptr : ssid.constData(),
                          key.isNull() ? nullptr : key.constData(), keyIndex),
             result);
    QCOMPARE(fakesystem::readFile(configFile), older);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

void TestConfig::fileThatCannotBeOpenedIsReported_data()
{
    QTest::addColumn<int>("variant");
    QTest::addColumn<int>("result");
    QTest::newRow("wpa") << int(Wpa) << -2;
    QTest::newRow("wep") << int(Wep) << -3;
    QTest::newRow("open") << int(Open) << -3;
}

void TestConfig::fileThatCannotBeOpenedIsReported()
{
    QFETCH(int, variant);
    QFETCH(int, result);
    fakesystem::runForReal("rm /etc/wpa_supplicant.conf; mkdir /etc/wpa_supplicant.conf");
    RaWifiService service(1, nullptr);
    const QByteArray printed =
        capturedOutput(stdout, [&] { QCOMPARE(writeVariant(service, variant, "home", "abcde"), result); });
    QCOMPARE(printed, QByteArray("Error: can't open wpa_supplicant.conf\n"));
}

void TestConfig::linkIsNotFollowed()
{
    fakesystem::writeFile("/home/victim", "untouched");
    fakesystem::runForReal("rm /etc/wpa_supplicant.conf; ln -s /home/victim /etc/wpa_supplicant.conf");
    fakesystem::answerCommand("rm -f /etc/wpa_supplicant.conf", [] {}); // as if it came back at once
    RaWifiService service(1, nullptr);
    QCOMPARE(service.changeWpaConfigfile("home", "password"), 0);
    QVERIFY(fakesystem::readFile(configFile).startsWith(head));
    QCOMPARE(fakesystem::readFile("/home/victim"), QByteArray("untouched"));
}

// As in an image that is read-only but for some files.
void TestConfig::aMountedFileIsFilledInItsPlace()
{
    fakesystem::writeFile("/home/mounted", older);
    fakesystem::runForReal("mount --bind /home/mounted /etc/wpa_supplicant.conf");
    RaWifiService service(1, nullptr);
    const int result = service.changeWpaConfigfile("home", "password");
    const QByteArray filled = fakesystem::readFile("/home/mounted");
    fakesystem::runForReal("umount /etc/wpa_supplicant.conf");
    QCOMPARE(result, 0);
    QVERIFY(filled.startsWith(head) && !filled.contains(older));
    QVERIFY(!fakesystem::exists("/etc/wpa_supplicant.conf.tmp"));
}

void TestConfig::modeIsTheOwnersAlone()
{
    chmod(configFile, 0644);
    fakesystem::answerCommand("rm -f /etc/wpa_supplicant.conf", [] {}); // the older file stays
    RaWifiService service(1, nullptr);
    QCOMPARE(service.changeWpaConfigfile("home", "password"), 0);
    struct stat about;
    QCOMPARE(stat(configFile, &about), 0);
    QCOMPARE(static_cast<int>(about.st_mode & 07777), 0600);
    QVERIFY(!fakesystem::readFile(configFile).contains(older));
}

void TestConfig::commandsAndFlush_data()
{
    QTest::addColumn<int>("variant");
    QTest::addColumn<int>("commands");
    QTest::newRow("wpa") << int(Wpa) << 1;
    QTest::newRow("wep") << int(Wep) << 2;
    QTest::newRow("open") << int(Open) << 1;
}

void TestConfig::commandsAndFlush()
{
    QFETCH(int, variant);
    QFETCH(int, commands);
    RaWifiService service(1, nullptr);
    const int before = fakesystem::syncs();
    QCOMPARE(writeVariant(service, variant, "home", "abcde"), 0);
    const QList<QByteArray> all = {"rm -f /etc/wpa_supplicant.conf", "cat /etc/wpa_supplican.conf"};
    QCOMPARE(fakesystem::commands(), all.mid(0, commands));
    QCOMPARE(fakesystem::syncs(), before + 1);
}

QTEST_MAIN(TestConfig)
#include "tst_rawifiservice_config.moc"
