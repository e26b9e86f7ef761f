// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "supplicanttext.h"

#include <QtTest>

class TestSupplicantText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void quotesArePairedFromTheLeft_data();
    void quotesArePairedFromTheLeft();
    void controlCharacterInAPassphraseGivesItsKey_data();
    void controlCharacterInAPassphraseGivesItsKey();
    void lineBreaksDoNotFit_data();
    void lineBreaksDoNotFit();
};

void TestSupplicantText::quotesArePairedFromTheLeft_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("literal");
    QTest::newRow("hash") << QByteArray("#") << true;
    QTest::newRow("hash behind one quote") << QByteArray("\"#") << false;
    QTest::newRow("hash behind two quotes") << QByteArray("\"\"#") << true;
    QTest::newRow("hash behind three quotes") << QByteArray("\"\"\"#") << false;
    QTest::newRow("hash between quotes") << QByteArray("\"#\"") << false;
    QTest::newRow("quotes only") << QByteArray("\"\"\"") << true;
}

void TestSupplicantText::quotesArePairedFromTheLeft()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, literal);
    QCOMPARE(nameValue(name), literal ? '"' + name + '"' : name.toHex());
}

// The keys were made by an independent implementation that gives the vectors of IEEE 802.11, annex J.4.
void TestSupplicantText::controlCharacterInAPassphraseGivesItsKey_data()
{
    QTest::addColumn<QByteArray>("passphrase");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("key");
    QTest::newRow("tab") << QByteArray("pass\tword") << QByteArray("IEEE")
                         << QByteArray("2318239db171f5e2d40a28d3c0e2c547d89f70ae490ce632aef3fb4cd07f0cd0");
    QTest::newRow("quote and hash") << QByteArray("a\"#bcdefg") << QByteArray("ThisIsASSID")
                                    << QByteArray("99d8475289ab58866169d921a1e4f35be3c18663223b095025e5c1bacec98626");
}

void TestSupplicantText::controlCharacterInAPassphraseGivesItsKey()
{
    QFETCH(QByteArray, passphrase);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, key);
    QCOMPARE(pskValue(passphrase, name), key);
}

void TestSupplicantText::lineBreaksDoNotFit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("fits");
    QTest::newRow("plain") << QByteArray("password") << true;
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("line feed") << QByteArray("pass\nword") << false;
    QTest::newRow("carriage return") << QByteArray("password\r") << false;
}

void TestSupplicantText::lineBreaksDoNotFit()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, fits);
    QCOMPARE(fitsOneLine(text), fits);
}

QTEST_APPLESS_MAIN(TestSupplicantText)
#include "tst_supplicanttext.moc"
