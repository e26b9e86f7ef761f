// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "networks.h"
#include "passwordrule.h"

#include <QtTest>

class TestPasswordRule : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lengthDependsOnTheKind_data();
    void lengthDependsOnTheKind();
    void onlyPrintableLatin1IsTaken_data();
    void onlyPrintableLatin1IsTaken();
    void objectionNamesTheLimit();
};

void TestPasswordRule::lengthDependsOnTheKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("taken");
    const auto row = [](const char* name, int kind, int length, char letter, bool taken) {
        QTest::newRow(name) << kind << QString(length, QLatin1Char(letter)) << taken;
    };
    row("none is too short", WPA2_PSK, 1, 'x', true);
    row("WPA 63", WPA_PSK, 63, 'x', true);
    row("WPA 64", WPA_PSK, 64, 'x', false);
    row("WPA2 63", WPA2_PSK, 63, 'x', true);
    row("WPA2 64", WPA2_PSK, 64, 'x', false);
    row("WPA2 64 hexadecimal", WPA2_PSK, 64, 'F', true);
    row("WPA2 65 hexadecimal", WPA2_PSK, 65, 'F', false);
    row("WEP 199", WEP, 199, 'x', true);
    row("WEP 200", WEP, 200, 'x', false);
    row("kind unknown 199", 0, 199, 'x', true);
    row("kind unknown 200", 0, 200, 'x', false);
}

void TestPasswordRule::lengthDependsOnTheKind()
{
    QFETCH(int, kind);
    QFETCH(QString, password);
    QFETCH(bool, taken);
    APData record = network(1, "net");
    record.encry[0] = kind;
    QCOMPARE(passwordObjection(record, password).isEmpty(), taken);
}

void TestPasswordRule::onlyPrintableLatin1IsTaken_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("taken");
    QTest::newRow("letters and blank") << QString::fromLatin1("my pass \\\"'") << true;
    QTest::newRow("y with diaeresis U+00FF") << QString(QChar(0xff)) << true;
    QTest::newRow("A with macron U+0100") << QString(QChar(0x100)) << false;
    QTest::newRow("Chinese") << QString::fromUtf8("密") << false;
    QTest::newRow("NUL") << QString(QChar(0)) << false;
    QTest::newRow("line break, as pasted texts end") << QString::fromLatin1("password\n") << false;
    QTest::newRow("carriage return") << QString::fromLatin1("pass\rword") << false;
    QTest::newRow("tab") << QString::fromLatin1("pass\tword") << false;
    QTest::newRow("blanks around") << QString::fromLatin1(" password ") << true;
}

void TestPasswordRule::onlyPrintableLatin1IsTaken()
{
    QFETCH(QString, password);
    QFETCH(bool, taken);
    QCOMPARE(passwordObjection(network(1, "net"), password).isEmpty(), taken);
}

void TestPasswordRule::objectionNamesTheLimit()
{
    const QString tooLong(200, QLatin1Char('x'));
    APData record = network(1, "net");
    QVERIFY(passwordObjection(record, tooLong).contains(QLatin1String("63")));
    record.encry[0] = WEP;
    QVERIFY(passwordObjection(record, tooLong).contains(QLatin1String("199")));
}

QTEST_GUILESS_MAIN(TestPasswordRule)
#include "tst_passwordrule.moc"
