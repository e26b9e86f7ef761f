// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifirecords.h"

#include "loggedmessages.h"

#include <QtTest>
#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

APData record(int rank, int signal, const char* name = "", const char* mac = "")
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    ap.orderbynum = rank;
    ap.sigquality = signal;
    std::strcpy(ap.essid, name);
    std::memcpy(ap.macAddr, mac, std::strlen(mac)); // 18 characters fill the field without an end
    return ap;
}

template<typename Field, typename Record>
void fieldRow(const char* name, Field Record::*, std::size_t offset, int expectedOffset, int expectedSize)
{
    QTest::newRow(name) << static_cast<int>(offset) << expectedOffset << static_cast<int>(sizeof(Field))
                        << expectedSize;
}

} // namespace

#define FIELD(type, name, offset, size) fieldRow(#type "::" #name, &type::name, offsetof(type, name), offset, size)

class TestRecords : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void fieldsStandWhereTheFileFormatPutsThem_data();
    void fieldsStandWhereTheFileFormatPutsThem();
    void recordsHaveTheirSize();
    void kindsHaveTheirNumbers();
    void equalRanksSortBySignal_data();
    void equalRanksSortBySignal();
    void windowOrderIsStrongestFirstWithinARank();
    void sameAccessPoint_data();
    void sameAccessPoint();
    void comparisonLogsOneLine();
    void dumpLogsEveryFieldInOrder();
    void dumpOfNothingLogsNothing();
    void dumpOfHostileTextsStaysOnItsLines();
    void storeRecordDumpIsABareLine();
    void listItemIsThreeTextsAndTwoOneByteFlags();
};

void TestRecords::fieldsStandWhereTheFileFormatPutsThem_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("expectedOffset");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("expectedSize");
    FIELD(APData, essid, 0, 40);
    FIELD(APData, macAddr, 40, 18);
    FIELD(APData, key_mgmt, 58, 100);
    FIELD(APData, wpa_state, 158, 20);
    FIELD(APData, psk, 178, 200);
    FIELD(APData, IP, 378, 16);
    FIELD(APData, encry, 396, 8);
    FIELD(APData, sigquality, 404, 4);
    FIELD(APData, id, 408, 4);
    FIELD(APData, snow, 412, 4);
    FIELD(APData, orderbynum, 416, 4);
    FIELD(APData, connectSUC, 420, 4);
    FIELD(APData, authMode, 424, 4);
    FIELD(APData, keyIndex, 428, 4);
    FIELD(APData, is_encry, 432, 4);
    FIELD(StoreData, essid, 0, 40);
    FIELD(StoreData, macAddr, 40, 18);
    FIELD(StoreData, key_mgmt, 58, 100);
    FIELD(StoreData, psk, 158, 200);
    FIELD(StoreData, encry, 360, 8);
    FIELD(StoreData, sigquality, 368, 4);
    FIELD(StoreData, orderbynum, 372, 4);
    FIELD(StoreData, is_encry, 376, 4);
    FIELD(StoreData, keyIndex, 380, 4);
    FIELD(StoreData, authMode, 384, 4);
}

void TestRecords::fieldsStandWhereTheFileFormatPutsThem()
{
    QFETCH(int, offset);
    QFETCH(int, size);
    QTEST(offset, "expectedOffset");
    QTEST(size, "expectedSize");
}

void TestRecords::recordsHaveTheirSize()
{
    QCOMPARE(static_cast<int>(sizeof(StoreData)), 388);
    QCOMPARE(static_cast<int>(sizeof(APData)), 436);
}

void TestRecords::kindsHaveTheirNumbers()
{
    QCOMPARE(static_cast<int>(NOENCRY), 1);
    QCOMPARE(static_cast<int>(WEP), 2);
    QCOMPARE(static_cast<int>(WPA_PSK), 3);
    QCOMPARE(static_cast<int>(WPA2_PSK), 4);
}

void TestRecords::equalRanksSortBySignal_data()
{
    QTest::addColumn<int>("rankA");
    QTest::addColumn<int>("signalA");
    QTest::addColumn<int>("rankB");
    QTest::addColumn<int>("signalB");
    QTest::addColumn<bool>("before");       // a < b
    QTest::addColumn<bool>("beforeInList"); // the list window's order
    QTest::newRow("smaller rank") << 1 << 4 << 2 << 1 << true << true;
    QTest::newRow("greater rank") << 2 << 1 << 1 << 4 << false << false;
    QTest::newRow("equal rank, weaker") << 5 << 1 << 5 << 2 << true << false;
    QTest::newRow("equal rank, stronger") << 5 << 2 << 5 << 1 << false << true;
    QTest::newRow("equal rank and signal") << 5 << 2 << 5 << 2 << false << false;
    QTest::newRow("ranks are signed") << -1 << 0 << 0 << 0 << true << true;
    QTest::newRow("signals are signed") << 0 << -1 << 0 << 1 << true << false;
}

void TestRecords::equalRanksSortBySignal()
{
    QFETCH(int, rankA);
    QFETCH(int, signalA);
    QFETCH(int, rankB);
    QFETCH(int, signalB);
    APData a = record(rankA, signalA, "zzz");
    APData b = record(rankB, signalB, "aaa"); // names have no say
    const bool before = a < b;
    const bool beforeInList = caseInsensitiveLessThan(&a, &b);
    QTEST(before, "before");
    QTEST(beforeInList, "beforeInList");
}

void TestRecords::windowOrderIsStrongestFirstWithinARank()
{
    APData records[] = {record(999, 1), record(0, 2), record(999, 4), record(1, 3), record(999, 3)};
    QList<APData*> list;
    for (APData& ap : records) {
        list << &ap;
    }
    std::sort(list.begin(), list.end(), caseInsensitiveLessThan);
    QList<int> signalsInOrder;
    for (const APData* ap : list) {
        signalsInOrder << ap->sigquality;
    }
    QCOMPARE(signalsInOrder, QList<int>() << 2 << 3 << 4 << 3 << 1);
}

void TestRecords::sameAccessPoint_data()
{
    QTest::addColumn<QByteArray>("nameA");
    QTest::addColumn<QByteArray>("macA");
    QTest::addColumn<QByteArray>("nameB");
    QTest::addColumn<QByteArray>("macB");
    QTest::addColumn<int>("result");
    const QByteArray mac = "00:11:22:33:44:55";
    QTest::newRow("equal") << QByteArray("home") << mac << QByteArray("home") << mac << 0;
    QTest::newRow("both empty") << QByteArray() << QByteArray() << QByteArray() << QByteArray() << 0;
    QTest::newRow("address differs after the 17th character")
        << QByteArray("home") << mac + 'x' << QByteArray("home") << mac + 'y' << 0;
    QTest::newRow("address differs in the 17th character")
        << QByteArray("home") << mac << QByteArray("home") << QByteArray("00:11:22:33:44:56") << 1;
    QTest::newRow("address shorter") << QByteArray("home") << mac << QByteArray("home") << mac.left(16) << 1;
    QTest::newRow("names differ only in length") << QByteArray("home") << mac << QByteArray("home1") << mac << 1;
    QTest::newRow("names differ in case") << QByteArray("home") << mac << QByteArray("Home") << mac << 1;
    QTest::newRow("39 bytes, last differs")
        << QByteArray(38, 'n') + 'a' << mac << QByteArray(38, 'n') + 'b' << mac << 1;
}

void TestRecords::sameAccessPoint()
{
    QFETCH(QByteArray, nameA);
    QFETCH(QByteArray, macA);
    QFETCH(QByteArray, nameB);
    QFETCH(QByteArray, macB);
    APData a = record(0, 1, nameA.constData(), macA.constData());
    APData b = record(999, 4, nameB.constData(), macB.constData());
    const int result = getCmpAPLists(&a, &b);
    QTEST(result, "result");
    QCOMPARE(getCmpAPLists(&b, &a), result);
}

void TestRecords::comparisonLogsOneLine()
{
    APData a = record(0, 0, "home", "00:11:22:33:44:55");
    int results[4] = {};
    const QList<QByteArray> lines = loggedMessages([&] {
        results[0] = getCmpAPLists(nullptr, nullptr);
        results[1] = getCmpAPLists(&a, nullptr);
        results[2] = getCmpAPLists(nullptr, &a);
        results[3] = getCmpAPLists(&a, &a);
    });
    QCOMPARE(lines.size(), 4);
    QCOMPARE(results[0], 1);
    QCOMPARE(results[1], 1);
    QCOMPARE(results[2], 1);
    QCOMPARE(results[3], 0);
}

void TestRecords::dumpLogsEveryFieldInOrder()
{
    APData ap = record(7, 3, "home", "00:11:22:33:44:55");
    std::strcpy(ap.key_mgmt, "WPA2-PSK");
    std::strcpy(ap.psk, "secret");
    std::strcpy(ap.IP, "10.0.0.2");
    ap.encry[0] = 4;
    ap.encry[1] = 171;
    ap.is_encry = 2;
    ap.authMode = 11;
    ap.connectSUC = 1;
    ap.id = 12;
    ap.snow = 13;
    ap.keyIndex = 14;
    QList<QByteArray> expected;
    expected << "encry[0]=0x4"
             << "encry[1]=0xAB"
             << "is_encry=2"
             << "orderbynum=7"
             << "sigquality=3"
             << "macAddr =00:11:22:33:44:55"
             << "key_mgmt = WPA2-PSK "
             << "essid = home "
             << "psk = secret "
             << "authMode = 11 "
             << "connectSUC = 1 "
             << "id = 12 "
             << "IP = 10.0.0.2 "
             << "snow = 13 "
             << "authMode = 11 "
             << "keyIndex = 14 ";
    QCOMPARE(loggedMessages([&] { printAPData(ap); }), expected);
    QCOMPARE(loggedMessages([&] { printAPDataPoint(&ap); }), expected);
}

void TestRecords::dumpOfNothingLogsNothing()
{
    QCOMPARE(capturedOutput(stderr, [] { printAPDataPoint(nullptr); }), QByteArray());
}

void TestRecords::dumpOfHostileTextsStaysOnItsLines()
{
    APData ap = record(0, 0, "%s%n\n\033[31m%1");
    const QByteArray text = capturedOutput(stderr, [&] { printAPData(ap); });
    QCOMPARE(static_cast<int>(text.count('\n')), 16);
    QVERIFY2(text.contains("essid = %s%n\\x0a\\x1b[31m%1 "), text.constData());
}

void TestRecords::storeRecordDumpIsABareLine()
{
    StoreData saved;
    std::memset(&saved, 'x', sizeof saved); // no field may be read as text
    QCOMPARE(loggedMessages([&] { printStoreData(saved); }), QList<QByteArray>() << QByteArray(""));
}

void TestRecords::listItemIsThreeTextsAndTwoOneByteFlags()
{
    const RaItemData item = {QLatin1String("a"), QLatin1String("b"), QLatin1String("c"), true, false};
    QCOMPARE(item.text3, QString(QLatin1String("c")));
    QCOMPARE(static_cast<int>(sizeof item.flag1), 1);
    QCOMPARE(static_cast<int>(offsetof(RaItemData, flag1)), 3 * static_cast<int>(sizeof(QString)));
    QCOMPARE(static_cast<int>(offsetof(RaItemData, flag2)), 3 * static_cast<int>(sizeof(QString)) + 1);
}

QTEST_APPLESS_MAIN(TestRecords)
#include "tst_rawifirecords.moc"
