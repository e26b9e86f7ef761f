// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "keypages.h"

#include <QtTest>

class TestKeyPages : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void tableHoldsTheRowOneNamesAndItsEntries_data();
    void tableHoldsTheRowOneNamesAndItsEntries();
    void thereAreThreeTables();
    void pageShowsItsPartOfTheTableInOrder_data();
    void pageShowsItsPartOfTheTableInOrder();
    void rowOneIsTheSameOnEveryPage_data();
    void rowOneIsTheSameOnEveryPage();
    void noSymbolIsLostBetweenTheSymbolPages();
    void emptyEntryIsTheSpaceKey();
};

void TestKeyPages::tableHoldsTheRowOneNamesAndItsEntries_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("entries");
    QTest::addColumn<int>("total");
    QTest::newRow("letters") << 0 << QString::fromLatin1("abcdefghijklmnopqrstuvwxyz") << 31;
    QTest::newRow("digits") << 1 << QString::fromLatin1("1234567890") << 15;
    QTest::newRow("symbols") << 2 << QString::fromLatin1(".,?!`'\"-/:;()$&@#%^*+=_\\|~<>[]{}") << 38;
}

void TestKeyPages::tableHoldsTheRowOneNamesAndItsEntries()
{
    QFETCH(int, page);
    QFETCH(QString, entries);
    QFETCH(int, total);
    const QStringList table = keyPageTables().value(page);
    QCOMPARE(int(table.size()), total);
    QCOMPARE(QStringList(table.mid(0, 5)).join(QLatin1String(" ")), QString::fromLatin1("ABC abc 123 !@# BS"));
    QCOMPARE(QStringList(table.mid(5)).join(QString()), entries);
}

void TestKeyPages::thereAreThreeTables()
{
    QCOMPARE(keyPageTables().keys(), QList<int>() << 0 << 1 << 2);
}

void TestKeyPages::pageShowsItsPartOfTheTableInOrder_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("characters");
    QTest::addColumn<bool>("space");
    QTest::addColumn<bool>("nextPage");
    const QString first = QString::fromLatin1(".,?!`'\"-/:;()$&@#%^*+=_\\|~");
    const QString second = QString::fromLatin1("<>[]{}");
    QTest::newRow("letters") << 0 << QString::fromLatin1("abcdefghijklmnopqrstuvwxyz") << false << false;
    QTest::newRow("digits") << 1 << QString::fromLatin1("1234567890") << false << false;
    QTest::newRow("first symbols") << 2 << first << true << true;
    QTest::newRow("second symbols") << 3 << second << false << false;
    QTest::newRow("above the last") << 4 << second << false << false;
    QTest::newRow("highest number") << 5 << second << false << false;
    QTest::newRow("below the first") << -1 << QString::fromLatin1("abcdefghijklmnopqrstuvwxyz") << false << false;
}

void TestKeyPages::pageShowsItsPartOfTheTableInOrder()
{
    QFETCH(int, page);
    QFETCH(QString, characters);
    QFETCH(bool, space);
    QFETCH(bool, nextPage);
    const QList<KeyEntry> entries = keyPageEntries(keyPageTables(), page);
    QCOMPARE(int(entries.size()), 33);

    int next = 5;
    if (space) {
        QVERIFY(entries.at(next++).role == KeyRole::Space);
    }
    for (const QChar character : characters) {
        QVERIFY(entries.at(next).role == KeyRole::Character);
        QCOMPARE(entries.at(next++).text, QString(character));
    }
    if (nextPage) {
        QCOMPARE(next, 32);
        QVERIFY(entries.at(next).role == KeyRole::NextPage);
        QCOMPARE(entries.at(next++).text, QString::fromLatin1("RI"));
    }
    for (; next < int(entries.size()); ++next) {
        QVERIFY(entries.at(next).role == KeyRole::None);
        QCOMPARE(entries.at(next).text, QString());
    }
}

void TestKeyPages::rowOneIsTheSameOnEveryPage_data()
{
    QTest::addColumn<int>("page");
    for (int page = 0; page <= 5; ++page) {
        QTest::newRow(QByteArray::number(page).constData()) << page;
    }
}

void TestKeyPages::rowOneIsTheSameOnEveryPage()
{
    QFETCH(int, page);
    const QList<KeyEntry> entries = keyPageEntries(keyPageTables(), page);
    QVERIFY(entries.at(0).role == KeyRole::Shift);
    QVERIFY(entries.at(1).role == KeyRole::Letters);
    QVERIFY(entries.at(2).role == KeyRole::Digits);
    QVERIFY(entries.at(3).role == KeyRole::Symbols);
    QVERIFY(entries.at(4).role == KeyRole::Backspace);
    QStringList texts;
    for (int i = 0; i < 5; ++i) {
        texts << entries.at(i).text;
    }
    QCOMPARE(texts.join(QLatin1String(" ")), QString::fromLatin1("ABC abc 123 !@# BS"));
}

void TestKeyPages::noSymbolIsLostBetweenTheSymbolPages()
{
    QStringList shown;
    for (int page = 2; page <= 3; ++page) {
        const QList<KeyEntry> entries = keyPageEntries(keyPageTables(), page);
        for (int i = 5; i < int(entries.size()); ++i) {
            if (entries.at(i).role == KeyRole::Character || entries.at(i).role == KeyRole::Space) {
                shown << entries.at(i).text;
            }
        }
    }
    QCOMPARE(shown, QStringList(keyPageTables().value(2).mid(5)));
}

void TestKeyPages::emptyEntryIsTheSpaceKey()
{
    const QList<KeyEntry> entries = keyPageEntries(keyPageTables(), 2);
    QVERIFY(entries.at(5).role == KeyRole::Space);
    QCOMPARE(entries.at(5).text, QString());
}

QTEST_APPLESS_MAIN(TestKeyPages)
#include "tst_keypages.moc"
