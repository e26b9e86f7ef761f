// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "recordtext.h"

#include <QtTest>
#include <cstddef>
#include <random>

class TestRecordText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void freshRecordHasItsDefaults();
    void bytesComeBackFromText_data();
    void bytesComeBackFromText();
    void everyPairOfBytesComesBackFromText();
    void randomBytesComeBackFromText();
    void validTextIsItself_data();
    void validTextIsItself();
    void asciiStaysReadableBesideInvalidBytes();
    void fieldsAreCutAndZeroFilled_data();
    void fieldsAreCutAndZeroFilled();
    void fieldMayBeSetToItself();
    void fieldEndsAtANul();
    void lockFollowsTheKind_data();
    void lockFollowsTheKind();
};

void TestRecordText::freshRecordHasItsDefaults()
{
    const APData record = freshRecord();
    APData expected;
    std::memset(&expected, 0, sizeof expected);
    expected.encry[0] = NOENCRY;
    expected.encry[1] = NOENCRY;
    expected.orderbynum = 999;
    QCOMPARE(std::memcmp(&record, &expected, offsetof(APData, encry) - 2), 0); // two bytes fill up behind the texts
    QCOMPARE(std::memcmp(record.encry, expected.encry, sizeof expected - offsetof(APData, encry)), 0);
}

void TestRecordText::bytesComeBackFromText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("ascii") << QByteArray("home");
    QTest::newRow("chinese") << QByteArray("\xe5\xae\xb6");
    QTest::newRow("second half of a pair looks like an escaped byte") << QByteArray("\xf0\x90\x82\x80\xf0\x9f\x92\x80");
    QTest::newRow("highest character") << QByteArray("\xf4\x8f\xbf\xbf");
    QTest::newRow("above the highest character") << QByteArray("\xf4\x90\x80\x80");
    QTest::newRow("no characters") << QByteArray("\xef\xbf\xbe\xef\xbf\xbf");
    QTest::newRow("replacement character") << QByteArray("\xef\xbf\xbd");
    QTest::newRow("control characters") << QByteArray("\n\r\t\x1b\x7f\xc2\x85");
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

void TestRecordText::everyPairOfBytesComesBackFromText()
{
    for (int i = 0; i < 65536; ++i) {
        QByteArray bytes(2, static_cast<char>(i & 0xff));
        bytes[1] = static_cast<char>(i >> 8);
        QCOMPARE(bytesFromText(textFromBytes(bytes)), bytes);
        QCOMPARE(bytesFromText(textFromBytes(bytes.left(1))), bytes.left(1));
    }
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

void TestRecordText::validTextIsItself_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("ascii") << QString(QLatin1String("a \"#%1<b>"));
    QTest::newRow("chinese") << QString(QChar(0x5bb6));
    QTest::newRow("pair whose second half looks like an escaped byte") << QString(QChar(0xd83d)) + QChar(0xdc80);
    QTest::newRow("direction-changing") << QString(QChar(0x202e)) + QLatin1Char('a');
}

void TestRecordText::validTextIsItself()
{
    QFETCH(QString, text);
    QCOMPARE(textFromBytes(text.toUtf8()), text);
    QCOMPARE(bytesFromText(text), text.toUtf8());
}

void TestRecordText::asciiStaysReadableBesideInvalidBytes()
{
    QCOMPARE(textFromBytes("ab\xff"
                           "c"),
             QLatin1String("ab") + QChar(0xdcff) + QLatin1Char('c'));
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

void TestRecordText::fieldMayBeSetToItself()
{
    char field[8] = "abcdefg";
    setField(field, field);
    QCOMPARE(QByteArray(field, sizeof field), QByteArray("abcdefg\0", 8));
    setField(field, field + 3);
    QCOMPARE(QByteArray(field, sizeof field), QByteArray("defg\0\0\0\0", 8));
}

void TestRecordText::fieldEndsAtANul()
{
    char field[8] = "xxxxxxx";
    setField(field, QByteArray("ab\0cd", 5));
    QCOMPARE(QByteArray(field, sizeof field), QByteArray("ab\0\0\0\0\0\0", 8));
}

void TestRecordText::lockFollowsTheKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("lock");
    QTest::newRow("none") << 0 << 1;
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
