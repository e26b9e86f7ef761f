// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include <QCopChannel>

#include "qtwarnings.h"

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <unistd.h>
#include <vector>

// Channels between processes, over a bus of the test's own. The test program is also the other process:
// started with the name of a part and its arguments.

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

class Collector : public QCopChannel
{
public:
    explicit Collector(const QString& channel) : QCopChannel(channel) {}
    void receive(const QString& msg, const QByteArray& data) override { messages.append(msg.toUtf8() + '=' + data); }
    QList<QByteArray> messages;
};

void say(const QByteArray& line)
{
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

/** Sends numbered messages, flushes and is gone at once. */
int partSend(const QStringList& arguments)
{
    const int count = arguments.at(1).toInt();
    for (int i = 0; i < count; ++i) {
        QCopChannel::send(arguments.at(0), QString::number(i), QByteArray("\0\xff", 2));
    }
    QCopChannel::flush();
    _exit(0);
}

/** Says "ready", then each message, until it has had the given number. */
int partReceive(const QStringList& arguments)
{
    class Printer : public QCopChannel
    {
    public:
        Printer(const QString& channel, int number) : QCopChannel(channel), left(number) {}
        void receive(const QString& msg, const QByteArray& data) override
        {
            say(msg.toUtf8() + '=' + data.toHex());
            if (--left == 0) {
                QCoreApplication::quit();
            }
        }
        int left;
    } printer(arguments.at(0), arguments.at(1).toInt());
    say("ready");
    return QCoreApplication::exec();
}

const int crowdThreads = 8;

/** Sends numbered messages from several threads at once: "PROCESS/THREAD", and the number as data. */
void sendAsCrowd(const QString& channel, const QString& process, int countEach)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < crowdThreads; ++i) {
        threads.emplace_back([&channel, &process, countEach, i] {
            const QString sender = process + QLatin1Char('/') + QString::number(i);
            for (int number = 0; number < countEach; ++number) {
                QCopChannel::send(channel, sender, QByteArray::number(number));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    QCopChannel::flush();
}

int partCrowd(const QStringList& arguments)
{
    say("ready");
    std::getchar(); // until all are there
    sendAsCrowd(arguments.at(0), arguments.at(1), arguments.at(2).toInt());
    return 0;
}

/** Has of each sender the number that is to come next, and what came instead. */
class Counter : public QCopChannel
{
public:
    explicit Counter(const QString& channel) : QCopChannel(channel) {}
    void receive(const QString& msg, const QByteArray& data) override
    {
        ++total;
        int& next = expected[msg];
        if (data.toInt() != next && wrong.isEmpty()) {
            wrong = data + " of " + msg.toUtf8() + " came in the place of " + QByteArray::number(next);
        }
        ++next;
    }
    int total = 0;
    QMap<QString, int> expected;
    QByteArray wrong;
};

int partIsRegistered(const QStringList& arguments)
{
    say(QCopChannel::isRegistered(arguments.at(0)) ? "yes" : "no");
    return 0;
}

/** Uses the bus for the first time on a thread of its own, and says what the toolkit warned about. */
int partWorkerFirst(const QStringList& arguments)
{
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& message) { say("warning: " + message.toUtf8()); });
    std::thread worker([&arguments] {
        say(QCopChannel::isRegistered(arguments.at(0)) ? "yes" : "no");
        QCopChannel::send(arguments.at(0), text("from the worker"));
        QCopChannel::flush();
    });
    worker.join();
    const QCopChannel channel(text("late"));
    say(QCopChannel::isRegistered(text("late")) ? "yes" : "no");
    return 0;
}

} // namespace

class TestQCopChannelBus : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void messagesOfAnotherProcessArriveInOrderAndFlushedOnesAllArrive();
    void messagesReachAnotherProcess_data();
    void messagesReachAnotherProcess();
    void wildcardsReceiveFromOtherProcesses();
    void ownMessagesArriveOnce();
    void registeredAsLongAsTheOtherProcessHasTheChannel();
    void twoProcessesMayHaveTheSameChannel();
    void theNameStaysWithTheLastObject();
    void theNameSurvivesObjectsComingAndGoingOnManyThreads();
    void theBusMayFirstBeUsedOnAnyThread();
    void deletionStopsMessagesFromOtherProcesses();
    void aHundredThousandMessagesOfManySendersAllArriveInOrder();

private:
    /** Starts the other process; it is ended with the object. */
    static void start(QProcess& process, const QStringList& arguments)
    {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(), arguments);
        QVERIFY(process.waitForStarted());
    }

    static QByteArray outputOf(const QStringList& arguments)
    {
        QProcess process;
        start(process, arguments);
        process.waitForFinished();
        return process.readAllStandardOutput();
    }

    static QByteArray nextLine(QProcess& process)
    {
        while (!process.canReadLine() && process.waitForReadyRead()) {
        }
        return process.readLine().trimmed();
    }
};

void TestQCopChannelBus::initTestCase()
{
    QtWarnings::start();
}

void TestQCopChannelBus::cleanup()
{
    QCOMPARE(QtWarnings::take(), QString());
}

void TestQCopChannelBus::messagesOfAnotherProcessArriveInOrderAndFlushedOnesAllArrive()
{
    const int count = 500;
    Collector receiver(text("order"));
    QCOMPARE(outputOf(QStringList() << text("send") << text("order") << QString::number(count)), QByteArray());
    QTRY_COMPARE(static_cast<int>(receiver.messages.size()), count);
    for (int i = 0; i < count; ++i) {
        QCOMPARE(receiver.messages.at(i), QByteArray::number(i) + '=' + QByteArray("\0\xff", 2));
    }
}

void TestQCopChannelBus::messagesReachAnotherProcess_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("usual") << text("mainprocess") << text("wifi(QString)") << QByteArray("linkend");
    QTest::newRow("no data") << text("c") << text("m()") << QByteArray();
    QTest::newRow("any bytes") << text("c") << text("m") << QByteArray("\0\n\xff", 3);
    QTest::newRow("empty channel") << text("") << text("m") << QByteArray("d");
    QTest::newRow("Chinese") << QString::fromUtf8("频道") << QString::fromUtf8("消息") << QByteArray("d");
    QTest::newRow("apostrophe") << text("it's") << text("m") << QByteArray("d");
    QTest::newRow("a rule's text") << text("a',type='signal") << text("m") << QByteArray("d");
    QTest::newRow("backslash") << text("a\\b") << text("m") << QByteArray("d");
    QTest::newRow("longer than a bus name") << QString(300, QLatin1Char('x')) << text("m") << QByteArray("d");
}

void TestQCopChannelBus::messagesReachAnotherProcess()
{
    QFETCH(QString, channel);
    QFETCH(QString, message);
    QFETCH(QByteArray, data);
    QProcess receiver;
    start(receiver, QStringList() << text("receive") << channel << text("1"));
    QCOMPARE(nextLine(receiver), QByteArray("ready"));
    QCopChannel::send(channel + QLatin1Char('x'), text("to somebody else"));
    QCopChannel::send(channel, message, data);
    QCOMPARE(nextLine(receiver), message.toUtf8() + '=' + data.toHex());
    QVERIFY(receiver.waitForFinished());
}

void TestQCopChannelBus::wildcardsReceiveFromOtherProcesses()
{
    Collector receiver(text("wild*"));
    outputOf(QStringList() << text("send") << text("tame") << text("1"));
    outputOf(QStringList() << text("send") << text("wildcat") << text("2"));
    QTRY_COMPARE(static_cast<int>(receiver.messages.size()), 2);
}

// What comes from the bus comes in order, so a second copy would be there before the other process's message.
void TestQCopChannelBus::ownMessagesArriveOnce()
{
    Collector receiver(text("own"));
    for (int i = 0; i < 3; ++i) {
        QCopChannel::send(text("own"), text("mine"), QByteArray::number(i));
    }
    QCopChannel::flush();
    outputOf(QStringList() << text("send") << text("own") << text("1"));
    QTRY_VERIFY(!receiver.messages.isEmpty() && receiver.messages.last().startsWith("0="));
    QCOMPARE(receiver.messages.mid(0, receiver.messages.size() - 1), QList<QByteArray>() << "mine=0"
                                                                                         << "mine=1"
                                                                                         << "mine=2");
}

void TestQCopChannelBus::registeredAsLongAsTheOtherProcessHasTheChannel()
{
    QVERIFY(!QCopChannel::isRegistered(text("theirs")));
    QProcess receiver;
    start(receiver, QStringList() << text("receive") << text("theirs") << text("1"));
    QCOMPARE(nextLine(receiver), QByteArray("ready"));
    QVERIFY(QCopChannel::isRegistered(text("theirs")));
    QVERIFY(!QCopChannel::isRegistered(text("their")));
    QCopChannel::send(text("theirs"), text("end"));
    QVERIFY(receiver.waitForFinished());
    QTRY_VERIFY(!QCopChannel::isRegistered(text("theirs")));
}

void TestQCopChannelBus::twoProcessesMayHaveTheSameChannel()
{
    QProcess other;
    start(other, QStringList() << text("receive") << text("both") << text("1"));
    QCOMPARE(nextLine(other), QByteArray("ready"));
    Collector receiver(text("both"));
    QCopChannel::send(text("both"), text("m"));
    QCOMPARE(nextLine(other), QByteArray("m="));
    QVERIFY(other.waitForFinished());
    QTRY_COMPARE(receiver.messages, QList<QByteArray>() << "m=");
    // The other one had the name first; with its end it is this one's.
    QTRY_COMPARE(outputOf(QStringList() << text("isRegistered") << text("both")), QByteArray("yes\n"));
}

void TestQCopChannelBus::theNameStaysWithTheLastObject()
{
    const QStringList question = QStringList() << text("isRegistered") << text("mine");
    QCopChannel* first = new QCopChannel(text("mine"));
    QCopChannel* second = new QCopChannel(text("mine"));
    QCOMPARE(outputOf(question), QByteArray("yes\n"));
    delete first;
    QCOMPARE(outputOf(question), QByteArray("yes\n"));
    delete second;
    QCOMPARE(outputOf(question), QByteArray("no\n"));
}

void TestQCopChannelBus::theNameSurvivesObjectsComingAndGoingOnManyThreads()
{
    const QStringList question = QStringList() << text("isRegistered") << text("busy");
    for (int round = 0; round < 20; ++round) {
        QCopChannel* kept = nullptr;
        std::thread coming([&kept] { kept = new QCopChannel(text("busy")); });
        std::thread going([] { const QCopChannel passing(text("busy")); });
        coming.join();
        going.join();
        // Asked of the bus itself: this process knows its own channels without asking.
        if (round % 5 == 4) {
            QCOMPARE(outputOf(question), QByteArray("yes\n"));
        }
        delete kept;
    }
    QCOMPARE(outputOf(question), QByteArray("no\n"));
}

void TestQCopChannelBus::theBusMayFirstBeUsedOnAnyThread()
{
    Collector receiver(text("here"));
    QCOMPARE(outputOf(QStringList() << text("workerFirst") << text("here")), QByteArray("yes\nyes\n"));
    QTRY_COMPARE(receiver.messages, QList<QByteArray>() << "from the worker=");
}

void TestQCopChannelBus::deletionStopsMessagesFromOtherProcesses()
{
    Collector* deleted = new Collector(text("short"));
    Collector kept(text("short"));
    outputOf(QStringList() << text("send") << text("short") << text("3"));
    delete deleted; // what the bus had brought for it is dropped
    outputOf(QStringList() << text("send") << text("short") << text("3"));
    QTRY_COMPARE(static_cast<int>(kept.messages.size()), 6);
}

// Of five processes this one receives, too, so its own messages come another way.
void TestQCopChannelBus::aHundredThousandMessagesOfManySendersAllArriveInOrder()
{
    const int processes = 4;
    const int countEach = 2500;
    const int senders = (processes + 1) * crowdThreads;
    const int all = senders * countEach;
    Counter receiver(text("crowd"));
    QProcess others[processes];
    for (int i = 0; i < processes; ++i) {
        start(others[i],
              QStringList() << text("crowd") << text("crowd") << QString::number(i + 1) << QString::number(countEach));
        QCOMPARE(nextLine(others[i]), QByteArray("ready"));
    }
    for (QProcess& other : others) {
        other.write("\n");
        other.closeWriteChannel();
        QVERIFY(other.bytesToWrite() == 0 || other.waitForBytesWritten());
    }
    sendAsCrowd(text("crowd"), text("0"), countEach);
    QTRY_COMPARE_WITH_TIMEOUT(receiver.total, all, 120000);
    for (QProcess& other : others) {
        QVERIFY(other.state() == QProcess::NotRunning || other.waitForFinished());
        QCOMPARE(other.exitCode(), 0);
    }
    QVERIFY2(receiver.wrong.isEmpty(), receiver.wrong.constData());
    QCOMPARE(static_cast<int>(receiver.expected.size()), senders);
    QCOMPARE(outputOf(QStringList() << text("send") << text("crowd") << text("1")), QByteArray());
    QTRY_COMPARE(receiver.total, all + 1); // and nothing twice before it
    qInfo("%d messages of %d senders in %d processes", all, senders, processes + 1);
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString part = arguments.value(1);
    if (part == text("send")) {
        return partSend(arguments.mid(2));
    }
    if (part == text("receive")) {
        return partReceive(arguments.mid(2));
    }
    if (part == text("crowd")) {
        return partCrowd(arguments.mid(2));
    }
    if (part == text("isRegistered")) {
        return partIsRegistered(arguments.mid(2));
    }
    if (part == text("workerFirst")) {
        return partWorkerFirst(arguments.mid(2));
    }

    const QTemporaryDir directory;
    const QByteArray address = "unix:path=" + QFile::encodeName(directory.path()) + "/bus";
    QFile configuration(directory.path() + text("/bus.conf"));
    if (!configuration.open(QIODevice::WriteOnly)) {
        return 1;
    }
    configuration.write("<busconfig><type>session</type><listen>" + address
                        + "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow user=\"*\"/>"
                          "<allow own=\"*\"/><allow send_destination=\"*\"/><allow receive_sender=\"*\"/>"
                          "</policy></busconfig>");
    configuration.close();
    QProcess bus;
    // It ends with this process, however that ends.
    bus.start(text("setpriv"), QStringList() << text("--pdeathsig") << text("KILL") << text("dbus-daemon")
                                             << text("--nofork") << text("--nopidfile") << text("--print-address")
                                             << text("--config-file=") + configuration.fileName());
    if (!bus.waitForStarted() || !bus.waitForReadyRead()) {
        qWarning("no dbus-daemon: %s", bus.readAllStandardError().constData());
        return 1;
    }
    setenv("DBUS_SESSION_BUS_ADDRESS", address.constData(), 1);
    TestQCopChannelBus test;
    const int result = QTest::qExec(&test, argc, argv);
    bus.kill();
    bus.waitForFinished();
    return result;
}

#include "tst_qcopchannel_bus.moc"
