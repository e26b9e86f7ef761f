// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ralog.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QtTest>
#include <cstdio>
#include <unistd.h>

class TestRaLog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lineHasPrefixMessageAndSuffix_data();
    void lineHasPrefixMessageAndSuffix();
    void controlCharactersAreVisible_data();
    void controlCharactersAreVisible();
    void aBreakAtTheEndOfTheFormatStays();
    void longMessagesAreWhole();

private:
    template<typename Work>
    static QByteArray stderrOf(Work work)
    {
        QTemporaryFile file;
        file.open();
        std::fflush(stderr);
        const int saved = dup(STDERR_FILENO);
        dup2(file.handle(), STDERR_FILENO);
        work();
        std::fflush(stderr);
        dup2(saved, STDERR_FILENO);
        close(saved);
        file.seek(0);
        return file.readAll();
    }
};

void TestRaLog::lineHasPrefixMessageAndSuffix_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("mark");
    QTest::newRow("debug") << static_cast<int>(RaLogLevel::Debug) << QByteArray("\033[32m[")
                           << QByteArray(" D/LOG]  [");
    QTest::newRow("warning") << static_cast<int>(RaLogLevel::Warning) << QByteArray("\033[33m[")
                             << QByteArray(" W/LOG]  [");
}

void TestRaLog::lineHasPrefixMessageAndSuffix()
{
    QFETCH(int, level);
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, mark);
    const QByteArray line =
        stderrOf([level] { raLog(static_cast<RaLogLevel>(level), "file.cpp", 7, "work", "n=%d", 3); });
    QVERIFY2(line.startsWith(start), line.constData());
    QVERIFY2(line.contains(mark), line.constData());
    QVERIFY2(line.endsWith("file.cpp: 7 : (work)]  n=3\033[0m\n"), line.constData());
    const QRegularExpression times(QLatin1String("\\[\\d\\d:\\d\\d:\\d\\d tid:\\d+ "));
    QVERIFY2(times.match(QString::fromLatin1(line)).hasMatch(), line.constData());
}

void TestRaLog::controlCharactersAreVisible_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("break inside") << QByteArray("a\nb") << QByteArray("a\\x0ab");
    QTest::newRow("break at the end") << QByteArray("a\n") << QByteArray("a\\x0a");
    QTest::newRow("escape") << QByteArray("\033[31m") << QByteArray("\\x1b[31m");
    QTest::newRow("delete") << QByteArray("\177") << QByteArray("\\x7f");
    QTest::newRow("beyond ASCII") << QByteArray("\xc2\x9b"
                                                "31m\xc2\x85\xc2")
                                  << QByteArray("\\xc2\\x9b31m\\xc2\\x85\xc2");
    QTest::newRow("bytes that a terminal may obey") << QByteArray("\x9b"
                                                                  "31m \xe4\x9b")
                                                    << QByteArray("\\x9b31m \xe4\\x9b");
    QTest::newRow("signs beyond ASCII stay") << QByteArray("\xc2\xa0\xc2\xbf") << QByteArray("\xc2\xa0\xc2\xbf");
    QTest::newRow("utf-8 stays") << QByteArray("\xe4\xb8\xad") << QByteArray("\xe4\xb8\xad");
}

void TestRaLog::controlCharactersAreVisible()
{
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, shown);
    const QByteArray line = stderrOf([&message] { RA_DEBUG("%s", message.constData()); });
    QVERIFY2(line.endsWith(")]  " + shown + "\033[0m\n"), line.constData());
}

void TestRaLog::aBreakAtTheEndOfTheFormatStays()
{
    const QByteArray line = stderrOf([] { RA_DEBUG("a%s\n", "\n"); });
    QVERIFY2(line.endsWith(")]  a\\x0a\n\033[0m\n"), line.constData());
}

void TestRaLog::longMessagesAreWhole()
{
    const QByteArray message(5000, 'x');
    const QByteArray line = stderrOf([&message] { RA_WARN("%s", message.constData()); });
    QVERIFY(line.endsWith(message + "\033[0m\n"));
}

QTEST_APPLESS_MAIN(TestRaLog)
#include "tst_ralog.moc"
