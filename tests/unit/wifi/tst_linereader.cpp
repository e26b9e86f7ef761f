// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "linereader.h"

#include "fakesystem.h"

#include <QtTest>
#include <unistd.h>

namespace {

const char path[] = "/home/wifi/temp.txt";

QList<QByteArray> linesOf(const QByteArray& content)
{
    fakesystem::writeFile(path, content);
    std::FILE* const file = std::fopen(path, "r");
    LineReader reader(file, LineReader::statusLimit);
    QList<QByteArray> lines;
    while (const char* line = reader.next()) {
        lines << line;
    }
    std::fclose(file);
    return lines;
}

} // namespace

class TestLineReader : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lineBreakIsCutAtTheEndOnly_data();
    void lineBreakIsCutAtTheEndOnly();
    void linesAreRead_data();
    void linesAreRead();
    void readingStaysAtTheEnd();
    void fileIsCutAtItsLimit_data();
    void fileIsCutAtItsLimit();
    void lineThatBeginsBelowTheLimitIsWhole();
};

void TestLineReader::lineBreakIsCutAtTheEndOnly_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("cut");
    QTest::newRow("line break") << QByteArray("ab\n") << QByteArray("ab");
    QTest::newRow("none") << QByteArray("ab") << QByteArray("ab");
    QTest::newRow("only one of two") << QByteArray("ab\n\n") << QByteArray("ab\n");
    QTest::newRow("inside") << QByteArray("a\nb") << QByteArray("a\nb");
    QTest::newRow("carriage return stays") << QByteArray("ab\r\n") << QByteArray("ab\r");
    QTest::newRow("alone") << QByteArray("\n") << QByteArray();
    QTest::newRow("empty") << QByteArray() << QByteArray();
}

void TestLineReader::lineBreakIsCutAtTheEndOnly()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, cut);
    QCOMPARE(cutLineBreak(line.data()), static_cast<int>(cut.size()));
    QCOMPARE(QByteArray(line.constData()), cut);
}

void TestLineReader::linesAreRead_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QList<QByteArray>>("lines");
    typedef QList<QByteArray> Lines;
    const QByteArray x254(254, 'x');
    const QByteArray x255(255, 'x');
    QTest::newRow("empty file") << QByteArray() << Lines();
    QTest::newRow("two lines") << QByteArray("a\nb\n")
                               << (Lines() << "a\n"
                                           << "b\n");
    QTest::newRow("last without line break") << QByteArray("a\nb")
                                             << (Lines() << "a\n"
                                                         << "b");
    QTest::newRow("empty lines") << QByteArray("\n\na")
                                 << (Lines() << "\n"
                                             << "\n"
                                             << "a");
    QTest::newRow("254 characters") << x254 + "\nb\n"
                                    << (Lines() << x254 + "\n"
                                                << "b\n");
    QTest::newRow("255 characters lose their line break") << x255 + "\nb\n" << (Lines() << x255 << "b\n");
    QTest::newRow("256 characters") << x255 + "y\nb\n" << (Lines() << x255 << "b\n");
    QTest::newRow("10000 characters") << QByteArray(10000, 'x') + "\nb\n" << (Lines() << x255 << "b\n");
    QTest::newRow("over-long last line") << x255 + "yyy" << (Lines() << x255);
    QTest::newRow("NUL inside") << QByteArray("a\0b\nc\n", 6)
                                << (Lines() << "a"
                                            << "c\n");
    QTest::newRow("NUL inside an over-long line does not let its rest pass for a line")
        << QByteArray("a\0", 2) + QByteArray(300, 'x') + "\nc\n"
        << (Lines() << "a"
                    << "c\n");
    QTest::newRow("NUL as the 255th character") << x254 + QByteArray("\0forged\nc\n", 10) << (Lines() << x254 << "c\n");
    QTest::newRow("any bytes") << QByteArray("\xff\x01\xc0\r\n") << (Lines() << "\xff\x01\xc0\r\n");
}

void TestLineReader::linesAreRead()
{
    QFETCH(QByteArray, content);
    QFETCH(QList<QByteArray>, lines);
    QCOMPARE(linesOf(content), lines);
}

void TestLineReader::readingStaysAtTheEnd()
{
    fakesystem::writeFile(path, "a\n");
    std::FILE* const file = std::fopen(path, "r");
    LineReader reader(file, LineReader::statusLimit);
    QVERIFY(reader.next() != nullptr);
    QVERIFY(reader.next() == nullptr);
    QVERIFY(reader.next() == nullptr);
    std::fclose(file);
}

void TestLineReader::fileIsCutAtItsLimit_data()
{
    QTest::addColumn<QByteArray>("pattern"); // repeated; empty: a sparse file of 1 GB
    QTest::addColumn<int>("scan");
    for (int scan = 0; scan <= 1; ++scan) {
        const auto row = [scan](const char* title, const QByteArray& pattern) {
            QTest::newRow((QByteArray(scan ? "scan, " : "status, ") + title).constData()) << pattern << scan;
        };
        row("zeros", QByteArray());
        row("one line", QByteArray("x"));
        row("short lines", QByteArray("0123456789\n"));
        row("empty lines", QByteArray("\n"));
        row("lines that begin with a NUL", QByteArray(200, '\0') + '\n');
    }
}

void TestLineReader::fileIsCutAtItsLimit()
{
    QFETCH(QByteArray, pattern);
    QFETCH(int, scan);
    const LineReader::Limit limit = scan ? LineReader::scanLimit : LineReader::statusLimit;
    const int tooMuch = static_cast<int>(limit) + 100000;
    if (pattern.isEmpty()) {
        fakesystem::writeFile(path, QByteArray());
        QCOMPARE(truncate(path, 1024L * 1024 * 1024), 0);
    } else {
        fakesystem::writeFile(path, pattern.repeated(tooMuch / static_cast<int>(pattern.size()) + 1));
    }
    std::FILE* const file = std::fopen(path, "r");
    LineReader reader(file, limit);
    while (reader.next()) {
    }
    const long read = std::ftell(file);
    std::fclose(file);
    unlink(path);
    QVERIFY2(read >= limit && read <= limit + lineSize, QByteArray::number(static_cast<qlonglong>(read)).constData());
}

void TestLineReader::lineThatBeginsBelowTheLimitIsWhole()
{
    const int limit = LineReader::statusLimit;
    const QByteArray filling = (QByteArray(63, 'x') + '\n').repeated(limit / 64);
    QCOMPARE(linesOf(filling + "behind\n").last(), filling.right(64));
    QCOMPARE(linesOf(filling.mid(1) + "below\nbehind\n").last(), QByteArray("below\n"));
}

QTEST_APPLESS_MAIN(TestLineReader)
#include "tst_linereader.moc"
