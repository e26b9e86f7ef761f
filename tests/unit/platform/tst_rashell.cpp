// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rashell.h"

#include "capturedoutput.h"
#include "fakesystem.h"

#include <QtTest>

class TestRaShell : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void commandsReachTheShellByteForByte();
    void commandsReturnWhatTheShellReturns_data();
    void commandsReturnWhatTheShellReturns();
    void aShellThatCannotBeStartedIsLogged();
    void partsArePutIntoTheCommand();
    void commandsThatAreTooLongDoNotRun_data();
    void commandsThatAreTooLongDoNotRun();
    void waitsLastAsLongAsAsked_data();
    void waitsLastAsLongAsAsked();
    void macAddressesAreToldByTheirForm_data();
    void macAddressesAreToldByTheirForm();
    void ipv4AddressesAreToldByTheirForm_data();
    void ipv4AddressesAreToldByTheirForm();
};

void TestRaShell::init()
{
    fakesystem::reset();
}

void TestRaShell::commandsReachTheShellByteForByte()
{
    raRunCommand("route  '%s' \"$(x)\" \\ \xff;");
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << "route  '%s' \"$(x)\" \\ \xff;");
}

void TestRaShell::commandsReturnWhatTheShellReturns_data()
{
    QTest::addColumn<int>("status");
    QTest::newRow("success") << 0;
    QTest::newRow("exit status 1") << 256;
    QTest::newRow("killed") << 9;
    QTest::newRow("no shell") << -1;
}

void TestRaShell::commandsReturnWhatTheShellReturns()
{
    QFETCH(int, status);
    fakesystem::setStatus(status);
    QCOMPARE(raRunCommand("ifconfig"), status);
    QCOMPARE(raRunCommandF("ifconfig wlan%d", 0), status);
}

void TestRaShell::aShellThatCannotBeStartedIsLogged()
{
    fakesystem::setStatus(256);
    QCOMPARE(capturedOutput(stderr, [] { raRunCommand("ifconfig"); }), QByteArray());
    fakesystem::setStatus(-1);
    const QByteArray log = capturedOutput(stderr, [] { raRunCommand("ifconfig"); });
    QVERIFY2(log.contains("W/LOG") && log.contains("cannot run a shell: "), log.constData());
    QCOMPARE(log.count('\n'), 1);
}

void TestRaShell::partsArePutIntoTheCommand()
{
    raRunCommandF("ifconfig %s %d", "wlan0", -7);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << "ifconfig wlan0 -7");
}

void TestRaShell::commandsThatAreTooLongDoNotRun_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("runs");
    QTest::newRow("255 bytes") << 255 << true;
    QTest::newRow("256 bytes") << 256 << false;
    QTest::newRow("10,000 bytes") << 10000 << false;
}

void TestRaShell::commandsThatAreTooLongDoNotRun()
{
    QFETCH(int, length);
    QFETCH(bool, runs);
    const QByteArray text(length - 6, 'x');
    int status = 0;
    const QByteArray log = capturedOutput(stderr, [&] { status = raRunCommandF("route %s", text.constData()); });
    QCOMPARE(status, runs ? 0 : -1);
    QCOMPARE(fakesystem::commands(), runs ? QList<QByteArray>() << "route " + text : QList<QByteArray>());
    QCOMPARE(log.contains("too long"), !runs);
}

void TestRaShell::waitsLastAsLongAsAsked_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("none") << 0;
    QTest::newRow("short") << 5;
    QTest::newRow("below a second") << 999;
    QTest::newRow("a second") << 1000;
    QTest::newRow("long") << 61001;
}

void TestRaShell::waitsLastAsLongAsAsked()
{
    QFETCH(int, milliseconds);
    raSleepMs(milliseconds);
    QCOMPARE(fakesystem::sleepsHere(), QList<int>() << milliseconds);
}

void TestRaShell::macAddressesAreToldByTheirForm_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("right");
    QTest::newRow("lower case") << QByteArray("00:1a:2b:3c:4d:5e") << true;
    QTest::newRow("upper case") << QByteArray("00:1A:2B:3C:4D:FF") << true;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("one short") << QByteArray("00:1a:2b:3c:4d:5") << false;
    QTest::newRow("one long") << QByteArray("00:1a:2b:3c:4d:5e0") << false;
    QTest::newRow("line break behind") << QByteArray("00:1a:2b:3c:4d:5e\n") << false;
    QTest::newRow("blank before") << QByteArray(" 00:1a:2b:3c:4d:5e") << false;
    QTest::newRow("dashes") << QByteArray("00-1a-2b-3c-4d-5e") << false;
    QTest::newRow("no digit") << QByteArray("00:1a:2b:3g:4d:5e") << false;
    QTest::newRow("colon moved") << QByteArray("001:a:2b:3c:4d:5e") << false;
    QTest::newRow("command") << QByteArray("$(touch /canary) ") << false;
    QTest::newRow("backticks, 17 long") << QByteArray("`touch /tmp/abcd`") << false;
    QTest::newRow("semicolon at the end") << QByteArray("00:1a:2b:3c:4d:5;") << false;
    QTest::newRow("high bytes") << QByteArray("\xff\xff:1a:2b:3c:4d:5e") << false;
}

void TestRaShell::macAddressesAreToldByTheirForm()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, right);
    QCOMPARE(raIsMacAddress(text.constData()), right);
}

void TestRaShell::ipv4AddressesAreToldByTheirForm_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("right");
    QTest::newRow("usual") << QByteArray("192.168.1.23") << true;
    QTest::newRow("least") << QByteArray("0.0.0.0") << true;
    QTest::newRow("greatest") << QByteArray("255.255.255.255") << true;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("three numbers") << QByteArray("10.0.0") << false;
    QTest::newRow("five numbers") << QByteArray("10.0.0.0.1") << false;
    QTest::newRow("above 255") << QByteArray("10.0.0.256") << false;
    QTest::newRow("number missing") << QByteArray("10..0.1") << false;
    QTest::newRow("hexadecimal") << QByteArray("0x0a.0.0.1") << false;
    QTest::newRow("blank before") << QByteArray(" 10.0.0.1") << false;
    QTest::newRow("line break behind") << QByteArray("10.0.0.1\n") << false;
    QTest::newRow("command behind") << QByteArray("10.0.0.1;reboot") << false;
    QTest::newRow("option") << QByteArray("-f") << false;
    QTest::newRow("IPv6") << QByteArray("::1") << false;
}

void TestRaShell::ipv4AddressesAreToldByTheirForm()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, right);
    QCOMPARE(raIsIpv4Address(text.constData()), right);
}

QTEST_APPLESS_MAIN(TestRaShell)
#include "tst_rashell.moc"
