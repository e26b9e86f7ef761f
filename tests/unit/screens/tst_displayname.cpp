// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "displayname.h"
#include "networks.h"

#include <QtTest>

class TestDisplayName : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void unseenCharactersBecomeVisible_data();
    void unseenCharactersBecomeVisible();
    void bytesThatAreNotUtf8AreReadInTheLocalCodec();
    void nothingIsReadBeyondTheField();
    void longNamesAreCutAfterTwentyCharacters_data();
    void longNamesAreCutAfterTwentyCharacters();
};

void TestDisplayName::unseenCharactersBecomeVisible_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const char* bytes, const char* shown) {
        QTest::newRow(name) << QByteArray(bytes) << QString::fromUtf8(shown);
    };
    row("empty", "", "");
    row("ASCII", "Home-2.4_GHz!", "Home-2.4_GHz!");
    row("Chinese", "办公室", "办公室");
    row("Hebrew keeps its letters", "בית", "בית");
    row("outside the basic plane", "a😀b", "a😀b");
    row("rich text is text", "<b>x</b>&amp;", "<b>x</b>&amp;");
    row("place markers are text", "%1 %n %s", "%1 %n %s");
    row("tab and line break", "a\tb\nc",
        "a\xef\xbf\xbd"
        "b\xef\xbf\xbd"
        "c");
    row("escape", "\033[31m", "\xef\xbf\xbd[31m");
    row("last control U+001F", "a\x1f", "a\xef\xbf\xbd");
    row("delete", "a\x7f", "a\xef\xbf\xbd");
    row("C1 control", "a\xc2\x9b", "a\xef\xbf\xbd");
    row("Arabic letter mark U+061C", "\xd8\x9c", "\xef\xbf\xbd");
    row("left-to-right mark U+200E", "\xe2\x80\x8e", "\xef\xbf\xbd");
    row("right-to-left mark U+200F", "\xe2\x80\x8f", "\xef\xbf\xbd");
    row("zero-width joiner U+200D stays", "\xe2\x80\x8d", "\xe2\x80\x8d");
    row("hyphen U+2010 stays", "\xe2\x80\x90", "\xe2\x80\x90");
    row("line separator U+2028", "\xe2\x80\xa8", "\xef\xbf\xbd");
    row("paragraph separator U+2029", "\xe2\x80\xa9", "\xef\xbf\xbd");
    row("first embedding U+202A", "\xe2\x80\xaa", "\xef\xbf\xbd");
    row("right-to-left override U+202E", "evil\xe2\x80\xaegnp.exe", "evil\xef\xbf\xbdgnp.exe");
    row("narrow blank U+202F stays", "\xe2\x80\xaf", "\xe2\x80\xaf");
    row("first isolate U+2066", "\xe2\x81\xa6", "\xef\xbf\xbd");
    row("last isolate U+2069", "\xe2\x81\xa9", "\xef\xbf\xbd");
    row("after the isolates U+206A stays", "\xe2\x81\xaa", "\xe2\x81\xaa");
}

void TestDisplayName::unseenCharactersBecomeVisible()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, shown);
    QCOMPARE(displayName(bytes), shown);
    if (bytes.size() < 40) {
        QCOMPARE(displayName(network(1, bytes)), shown);
    }
}

void TestDisplayName::bytesThatAreNotUtf8AreReadInTheLocalCodec()
{
    const QByteArray bytes("caf\xe9\xa0\xed\xb0\x80"); // Latin-1, and a lone surrogate
    const QString name = displayName(bytes);
    QCOMPARE(name.left(3), QString::fromLatin1("caf"));
    QCOMPARE(name.mid(3).left(1), QString::fromLocal8Bit("\xe9", 1));
    for (const QChar c : name) {
        QVERIFY(!c.isSurrogate());
    }
}

void TestDisplayName::nothingIsReadBeyondTheField()
{
    APData record = network(1, "x");
    std::memset(record.essid, 'n', sizeof record.essid);
    QCOMPARE(displayName(record), QString(40, QLatin1Char('n')));
}

void TestDisplayName::longNamesAreCutAfterTwentyCharacters_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    const QString digits = QString::fromLatin1("01234567890123456789");
    const QString smile = QString::fromUtf8("😀");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("20") << digits << digits;
    QTest::newRow("21") << digits + QLatin1Char('x') << digits + QLatin1String("...");
    QTest::newRow("200") << QString(200, QLatin1Char('w')) << QString(20, QLatin1Char('w')) + QLatin1String("...");
    QTest::newRow("a pair ends at the cut")
        << digits.left(18) + smile + QLatin1Char('x') << digits.left(18) + smile + QLatin1String("...");
    QTest::newRow("a pair lies across the cut") << digits.left(19) + smile << digits.left(19) + QLatin1String("...");
}

void TestDisplayName::longNamesAreCutAfterTwentyCharacters()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    QCOMPARE(shortenedName(name), shown);
}

QTEST_GUILESS_MAIN(TestDisplayName)
#include "tst_displayname.moc"
