// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raglobalfun.h"

#include "fakesystem.h"
#include "qtwarnings.h"

#include <QCopChannel>
#include <QtTest>
#include <functional>

namespace {

const char linkFile[] = "/home/wifi/linkap.txt";

/** The host's end of its channel. */
class Host : public QCopChannel
{
public:
    Host() : QCopChannel(QStringLiteral("mainprocess")) {}
    void receive(const QString& msg, const QByteArray& data) override
    {
        messages << msg;
        payloads << data;
    }
    QStringList messages;
    QList<QByteArray> payloads;
};

typedef std::function<void()> Send;

} // namespace

Q_DECLARE_METATYPE(Send)

class TestHostMessages : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void payloadsAreTheBareBytesOfTheText_data();
    void payloadsAreTheBareBytesOfTheText();
    void everyCallSends();
    void openWifiReturnsOne();
    void messagesGoToTheHostsChannelOnly();
    void withoutAHostNothingHappens();
    void theLinkFileHoldsOneDigit_data();
    void theLinkFileHoldsOneDigit();
    void aFileThatCannotBeWrittenStaysAsItWas();
};

void TestHostMessages::initTestCase()
{
    QtWarnings::start();
}

void TestHostMessages::init()
{
    fakesystem::reset();
    QFile::remove(QLatin1String(linkFile));
}

void TestHostMessages::cleanup()
{
    QCOMPARE(QtWarnings::take(), QString());
}

void TestHostMessages::payloadsAreTheBareBytesOfTheText_data()
{
    QTest::addColumn<Send>("send");
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("link begins") << Send([] { sendAPSleep(1); }) << QByteArray("linkstart", 9);
    QTest::newRow("link begins, any number") << Send([] { sendAPSleep(-4); }) << QByteArray("linkstart", 9);
    QTest::newRow("link ends") << Send([] { sendAPSleep(0); }) << QByteArray("linkend", 7);
    QTest::newRow("Wi-Fi is open") << Send([] { sendOpenWifiToMain(); }) << QByteArray("openwifi", 8);
}

void TestHostMessages::payloadsAreTheBareBytesOfTheText()
{
    QFETCH(Send, send);
    QFETCH(QByteArray, payload);
    Host host;
    send();
    QTRY_COMPARE(static_cast<int>(host.payloads.size()), 1);
    QCOMPARE(host.messages, QStringList() << QStringLiteral("wifi(QString)"));
    QCOMPARE(host.payloads.first(), payload);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>());
}

void TestHostMessages::everyCallSends()
{
    Host host;
    sendAPSleep(0);
    sendAPSleep(0);
    sendOpenWifiToMain();
    sendAPSleep(1);
    QTRY_COMPARE(static_cast<int>(host.payloads.size()), 4);
    QCOMPARE(host.payloads, QList<QByteArray>() << "linkend"
                                                << "linkend"
                                                << "openwifi"
                                                << "linkstart");
}

void TestHostMessages::openWifiReturnsOne()
{
    QCOMPARE(sendOpenWifiToMain(), 1);
}

void TestHostMessages::messagesGoToTheHostsChannelOnly()
{
    QCopChannel other(QStringLiteral("mainproces"));
    QSignalSpy spy(&other, SIGNAL(received(QString, QByteArray)));
    Host host;
    sendAPSleep(0);
    QTRY_COMPARE(static_cast<int>(host.payloads.size()), 1);
    QCOMPARE(static_cast<int>(spy.size()), 0);
}

void TestHostMessages::withoutAHostNothingHappens()
{
    sendAPSleep(1);
    QCOMPARE(sendOpenWifiToMain(), 1);
    Host late;
    QCoreApplication::processEvents();
    QVERIFY(late.payloads.isEmpty());
}

void TestHostMessages::theLinkFileHoldsOneDigit_data()
{
    QTest::addColumn<bool>("linked");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("linked") << true << QByteArray("1\n");
    QTest::newRow("not linked") << false << QByteArray("0\n");
}

void TestHostMessages::theLinkFileHoldsOneDigit()
{
    QFETCH(bool, linked);
    QFETCH(QByteArray, content);
    fakesystem::writeFile(linkFile, "older and longer\n");
    int syncsBefore = -1;
    fakesystem::beforeCommand([&syncsBefore](const QByteArray&) { syncsBefore = fakesystem::syncs(); });
    SendAPStatusToOther(linked);
    QCOMPARE(fakesystem::readFile(linkFile), content);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << "echo " + content.left(1) + " >/home/wifi/linkap.txt");
    QCOMPARE(syncsBefore, 0); // the file systems are flushed once it is written
    QCOMPARE(fakesystem::syncs(), 1);
}

void TestHostMessages::aFileThatCannotBeWrittenStaysAsItWas()
{
    QDir().mkpath(QLatin1String(linkFile));
    SendAPStatusToOther(true);
    QVERIFY(QFileInfo(QLatin1String(linkFile)).isDir());
    QCOMPARE(fakesystem::syncs(), 1);
    QDir().rmdir(QLatin1String(linkFile));
}

int main(int argc, char** argv)
{
    // No message of a test leaves its process.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    QCoreApplication application(argc, argv);
    TestHostMessages test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hostmessages.moc"
