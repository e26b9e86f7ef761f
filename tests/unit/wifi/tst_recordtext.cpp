// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "recordtext.h"

#include <QtTest>
#include <random>

class TestRecordText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void bytesComeBackFromText_data();
    void bytesComeBackFromText();
    void randomBytesComeBackFromText();
    void validTextIsItself();
    void fieldsAreCutAndZeroFilled_data();
    void fieldsAreCutAndZeroFilled();
    void lockFollowsTheKind_data();
    void lockFollowsTheKind();
};

void TestRecordText::bytesComeBackFromText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("ascii") << QByteArray("home");
    QTest::newRow("chinese") << QByteArray("\xe5\xae\xb6");
    QTest::newRow("emoji") << QByteArray("\xf0\x9f\x8e\x89");
    QTest::newRow("invalid") << QByteArray("bad\xff\xfe\xc3(");
    QTest::newRow("cut sequence") << QByteArray("\xe5\xae");
    QTest::newRow("encoded surrogate") << QByteArray("\xed\xb2\x80");
    QTest::newRow("overlong") << QByteArray("\xc0\x80");
    QTest::newRow("nul") << QByteArray("a\0b", 3);
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbfhome");
}

void TestRecordText::bytesComeBackFromText()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(bytesFromText(textFromBytes(bytes)), bytes);
}

void TestRecordText::randomBytesComeBackFromText()
{
    std::mt19937 random(1);
    for (int i = 0; i < 10000; ++i) {
        QByteArray bytes;
        for (unsigned length = random() % 33; length > 0; --length) {
            bytes += static_cast<char>(random() & 0xff);
        }
        QCOMPARE(bytesFromText(textFromBytes(bytes)), bytes);
    }
}

void TestRecordText::validTextIsItself()
{
    QCOMPARE(textFromBytes("\xe5\xae\xb6"), QString(QChar(0x5bb6)));
}

void TestRecordText::fieldsAreCutAndZeroFilled_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("empty") << QByteArray() << QByteArray(8, '\0');
    QTest::newRow("shorter") << QByteArray("abc") << QByteArray("abc\0\0\0\0\0", 8);
    QTest::newRow("fits") << QByteArray("abcdefg") << QByteArray("abcdefg\0", 8);
    QTest::newRow("longer") << QByteArray("abcdefghij") << QByteArray("abcdefg\0", 8);
}

void TestRecordText::fieldsAreCutAndZeroFilled()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, field);
    char bytes[8];
    std::memset(bytes, 'x', sizeof bytes);
    setField(bytes, text);
    QCOMPARE(QByteArray(bytes, sizeof bytes), field);
}

void TestRecordText::lockFollowsTheKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("lock");
    QTest::newRow("open") << int(NOENCRY) << 1;
    QTest::newRow("wep") << int(WEP) << 2;
    QTest::newRow("wpa") << int(WPA_PSK) << 2;
    QTest::newRow("wpa2") << int(WPA2_PSK) << 2;
}

void TestRecordText::lockFollowsTheKind()
{
    QFETCH(int, kind);
    QFETCH(int, lock);
    QCOMPARE(lockOf(kind), lock);
}

QTEST_APPLESS_MAIN(TestRecordText)
#include "tst_recordtext.moc"
