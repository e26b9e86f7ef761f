// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include <QCopChannel>

#include "fakesystem.h"
#include "qtwarnings.h"

#include <QEventLoop>
#include <QProcess>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <future>
#include <thread>
#include <vector>

// Channels within one process, where there is no bus: neither one that is known nor, in the process that is
// started for it, one that could be tried.

namespace {

std::atomic<int> g_forks{0};

const char deadBus[] = "unix:path=/nonexistent/bus";

/** Collects what it receives instead of emitting the signal. */
class Collector : public QCopChannel
{
public:
    explicit Collector(const QString& channel) : QCopChannel(channel) {}
    void receive(const QString& msg, const QByteArray& data) override
    {
        messages.append(msg.toUtf8() + '=' + data);
        threads.append(QThread::currentThread());
    }
    QList<QByteArray> messages;
    QList<QThread*> threads;
};

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/** Uses every operation once and prints the results. */
int useWithoutAnyBus()
{
    Collector channel(text("here"));
    const bool sent = QCopChannel::send(text("here"), text("m"), "d");
    const bool flushed = QCopChannel::flush();
    const bool here = QCopChannel::isRegistered(text("here"));
    const bool there = QCopChannel::isRegistered(text("there"));
    QCoreApplication::processEvents();
    std::printf("%d%d%d%d %d messages %d forks %d waits\n", sent, flushed, here, there,
                static_cast<int>(channel.messages.size()), g_forks.load(),
                static_cast<int>(fakesystem::sleeps().size()));
    return 0;
}

} // namespace

extern "C" pid_t fork()
{
    typedef pid_t (*Fork)();
    static const Fork real = reinterpret_cast<Fork>(dlsym(RTLD_NEXT, "fork"));
    ++g_forks;
    return real();
}

class TestQCopChannel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void theInterfaceIsThatOfTheEmbeddedToolkit();
    void aChannelKnowsItsName();
    void messagesArriveAsTheyWereSent_data();
    void messagesArriveAsTheyWereSent();
    void messagesArriveByTheEventLoop();
    void everyObjectOfTheNameGetsTheMessage();
    void wildcardsMatchAnyText_data();
    void wildcardsMatchAnyText();
    void receiveCanBeReimplemented();
    void messagesOfOneSenderArriveInOrder();
    void messagesOfEachSendingThreadArriveInOrder();
    void deletionDropsPendingMessages();
    void receiversOnOtherThreadsGetTheirMessagesThere();
    void aMovedReceiverGetsItsMessagesOnItsNewThread();
    void channelsMayComeAndGoOnManyThreadsAtOnce();
    void sendingToNobodyIsNoError();
    void registeredWhileAnObjectExists();
    void withoutABusNothingIsTriedOrWaitedFor();
};

void TestQCopChannel::initTestCase()
{
    QtWarnings::start();
}

void TestQCopChannel::init()
{
    fakesystem::reset();
}

void TestQCopChannel::cleanup()
{
    QCOMPARE(QtWarnings::take(), QString());
    QCOMPARE(fakesystem::sleeps(), QList<int>());
}

void TestQCopChannel::theInterfaceIsThatOfTheEmbeddedToolkit()
{
    const QMetaObject& meta = QCopChannel::staticMetaObject;
    QCOMPARE(meta.className(), "QCopChannel");
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod method = meta.method(meta.methodOffset());
    QCOMPARE(method.methodType(), QMetaMethod::Signal);
    QCOMPARE(method.methodSignature(), QByteArray("received(QString,QByteArray)"));
    QCOMPARE(method.parameterNames(), QList<QByteArray>() << "msg"
                                                          << "data");
}

void TestQCopChannel::aChannelKnowsItsName()
{
    QObject parent;
    QCopChannel* channel = new QCopChannel(text("a b*"), &parent);
    QCOMPARE(channel->channel(), text("a b*"));
    QCOMPARE(channel->parent(), &parent);
}

void TestQCopChannel::messagesArriveAsTheyWereSent_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("usual") << text("mainprocess") << text("wifi(QString)") << QByteArray("linkend");
    QTest::newRow("no data") << text("c") << text("m()") << QByteArray();
    QTest::newRow("NUL in the data") << text("c") << text("m") << QByteArray("a\0b", 3);
    QTest::newRow("100,000 bytes") << text("c") << text("m") << QByteArray(100000, '\xff');
    QTest::newRow("empty channel") << QString() << text("m") << QByteArray("d");
    QTest::newRow("empty message") << text("c") << QString() << QByteArray("d");
    QTest::newRow("Chinese") << QString::fromUtf8("频道") << QString::fromUtf8("消息") << QByteArray("d");
    QTest::newRow("pattern characters") << text(".+[a]\\'") << text("m") << QByteArray("d");
}

void TestQCopChannel::messagesArriveAsTheyWereSent()
{
    QFETCH(QString, channel);
    QFETCH(QString, message);
    QFETCH(QByteArray, data);
    QCopChannel receiver(channel);
    QSignalSpy spy(&receiver, SIGNAL(received(QString, QByteArray)));
    QVERIFY(QCopChannel::send(channel, message, data));
    QVERIFY(QCopChannel::send(channel, message));
    QCoreApplication::processEvents();
    QCOMPARE(static_cast<int>(spy.size()), 2);
    QCOMPARE(spy.at(0).at(0).toString(), message);
    QCOMPARE(spy.at(0).at(1).toByteArray(), data);
    QCOMPARE(spy.at(1).at(0).toString(), message);
    QCOMPARE(spy.at(1).at(1).toByteArray(), QByteArray());
}

void TestQCopChannel::messagesArriveByTheEventLoop()
{
    Collector receiver(text("c"));
    QCopChannel::send(text("c"), text("m"));
    QVERIFY(QCopChannel::flush());
    QCOMPARE(receiver.messages, QList<QByteArray>());
    QCoreApplication::processEvents();
    QCOMPARE(receiver.messages, QList<QByteArray>() << "m=");
}

void TestQCopChannel::everyObjectOfTheNameGetsTheMessage()
{
    Collector first(text("c"));
    Collector second(text("c"));
    Collector other(text("C"));
    QCopChannel::send(text("c"), text("m"));
    QCoreApplication::processEvents();
    QCOMPARE(first.messages, QList<QByteArray>() << "m=");
    QCOMPARE(second.messages, QList<QByteArray>() << "m=");
    QCOMPARE(other.messages, QList<QByteArray>());
}

void TestQCopChannel::wildcardsMatchAnyText_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("sentTo");
    QTest::addColumn<bool>("matches");
    QTest::newRow("behind") << text("main*") << text("mainprocess") << true;
    QTest::newRow("nothing behind") << text("main*") << text("main") << true;
    QTest::newRow("before") << text("*process") << text("mainprocess") << true;
    QTest::newRow("between") << text("m*p*s") << text("mainprocess") << true;
    QTest::newRow("alone") << text("*") << text("mainprocess") << true;
    QTest::newRow("alone, empty name") << text("*") << QString() << true;
    QTest::newRow("line break") << text("a*b") << text("a\nb") << true;
    QTest::newRow("other start") << text("main*") << text("amain") << false;
    QTest::newRow("other end") << text("*process") << text("processes") << false;
    QTest::newRow("a dot is a dot") << text("a.b*") << text("axbc") << false;
    QTest::newRow("brackets are brackets") << text("[ab]*") << text("a") << false;
    QTest::newRow("sent to a wildcard, a plain one") << text("abc") << text("a*") << false;
    QTest::newRow("sent to a wildcard, the same") << text("a*") << text("a*") << true;
}

void TestQCopChannel::wildcardsMatchAnyText()
{
    QFETCH(QString, channel);
    QFETCH(QString, sentTo);
    QFETCH(bool, matches);
    Collector receiver(channel);
    QCopChannel::send(sentTo, text("m"));
    QCoreApplication::processEvents();
    QCOMPARE(static_cast<int>(receiver.messages.size()), matches ? 1 : 0);
}

void TestQCopChannel::receiveCanBeReimplemented()
{
    Collector receiver(text("c"));
    QSignalSpy spy(&receiver, SIGNAL(received(QString, QByteArray)));
    QCopChannel::send(text("c"), text("m"), "d");
    QCoreApplication::processEvents();
    QCOMPARE(receiver.messages, QList<QByteArray>() << "m=d");
    QCOMPARE(static_cast<int>(spy.size()), 0);
    receiver.QCopChannel::receive(text("m"), "d");
    QCOMPARE(static_cast<int>(spy.size()), 1);
}

void TestQCopChannel::messagesOfOneSenderArriveInOrder()
{
    Collector receiver(text("c"));
    QList<QByteArray> expected;
    for (int i = 0; i < 100; ++i) {
        QCopChannel::send(text("c"), QString::number(i));
        expected << QByteArray::number(i) + '=';
    }
    QCoreApplication::processEvents();
    QCOMPARE(receiver.messages, expected);
}

void TestQCopChannel::messagesOfEachSendingThreadArriveInOrder()
{
    Collector receiver(text("c"));
    const int count = 200;
    std::vector<std::thread> senders;
    for (int sender = 0; sender < 3; ++sender) {
        senders.emplace_back([sender] {
            for (int i = 0; i < count; ++i) {
                QCopChannel::send(text("c"), QString::number(sender), QByteArray::number(i));
            }
        });
    }
    for (std::thread& sender : senders) {
        sender.join();
    }
    QCoreApplication::processEvents();
    QList<int> next = QList<int>() << 0 << 0 << 0;
    for (const QByteArray& message : receiver.messages) {
        const int sender = message.split('=').first().toInt();
        QCOMPARE(message.split('=').last().toInt(), next[sender]++);
    }
    QCOMPARE(next, QList<int>() << count << count << count);
}

void TestQCopChannel::deletionDropsPendingMessages()
{
    Collector* deleted = new Collector(text("c"));
    Collector kept(text("c"));
    QCopChannel::send(text("c"), text("before"));
    delete deleted;
    QCopChannel::send(text("c"), text("after"));
    QCoreApplication::processEvents();
    QCOMPARE(kept.messages, QList<QByteArray>() << "before="
                                                << "after=");
}

// Here and below the threads are the standard library's: TSan sees how these wait for each other, and not how the
// toolkit's do.
void TestQCopChannel::receiversOnOtherThreadsGetTheirMessagesThere()
{
    std::promise<void> made;
    std::promise<void> sent;
    QList<QByteArray> messages;
    bool there = false;
    std::thread thread([&] {
        Collector receiver(text("c"));
        QCopChannel::send(text("c"), text("1"));
        made.set_value();
        sent.get_future().wait();
        QEventLoop().processEvents();
        messages = receiver.messages;
        QThread* const here = QThread::currentThread();
        there = receiver.threads == (QList<QThread*>() << here << here);
    });
    made.get_future().wait();
    QCopChannel::send(text("c"), text("2"));
    QCoreApplication::processEvents();
    sent.set_value();
    thread.join();
    QCOMPARE(messages, QList<QByteArray>() << "1="
                                           << "2=");
    QVERIFY(there);
}

void TestQCopChannel::aMovedReceiverGetsItsMessagesOnItsNewThread()
{
    QThread* const newThread = QThread::currentThread();
    Collector* receiver = nullptr;
    std::thread thread([&receiver, newThread] {
        receiver = new Collector(text("c"));
        QCopChannel::send(text("c"), text("before"));
        receiver->moveToThread(newThread);
        QCopChannel::send(text("c"), text("after"));
        QEventLoop().processEvents();
    });
    thread.join();
    const QScopedPointer<Collector> owner(receiver);
    QCOMPARE(receiver->messages, QList<QByteArray>());
    QCoreApplication::processEvents();
    QCOMPARE(receiver->messages, QList<QByteArray>() << "before="
                                                     << "after=");
    QCOMPARE(receiver->threads, QList<QThread*>() << newThread << newThread);
}

void TestQCopChannel::channelsMayComeAndGoOnManyThreadsAtOnce()
{
    const int rounds = 500;
    std::atomic<int> received{0};
    std::atomic<int> registered{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&received, &registered, number] {
            const QString own = QString::number(number);
            for (int round = 0; round < rounds; ++round) {
                const Collector receiver(own);
                registered += QCopChannel::isRegistered(own) ? 1 : 0;
                QCopChannel::send(own, text("m"));
                QEventLoop().processEvents();
                received += static_cast<int>(receiver.messages.size());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    QCOMPARE(received.load(), 4 * rounds);
    QCOMPARE(registered.load(), 4 * rounds);
    QVERIFY(!QCopChannel::isRegistered(text("0")));
}

void TestQCopChannel::sendingToNobodyIsNoError()
{
    QVERIFY(QCopChannel::send(text("nobody"), text("m")));
    QVERIFY(QCopChannel::send(text("nobody"), text("m"), "d"));
}

void TestQCopChannel::registeredWhileAnObjectExists()
{
    QVERIFY(!QCopChannel::isRegistered(text("c")));
    QCopChannel* first = new QCopChannel(text("c"));
    QCopChannel* second = new QCopChannel(text("c"));
    QCopChannel wild(text("d*"));
    QVERIFY(QCopChannel::isRegistered(text("c")));
    QVERIFY(!QCopChannel::isRegistered(text("d")));
    QVERIFY(QCopChannel::isRegistered(text("d*")));
    delete first;
    QVERIFY(QCopChannel::isRegistered(text("c")));
    delete second;
    QVERIFY(!QCopChannel::isRegistered(text("c")));
}

void TestQCopChannel::withoutABusNothingIsTriedOrWaitedFor()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(text("DBUS_SESSION_BUS_ADDRESS"));
    environment.remove(text("XDG_RUNTIME_DIR"));
    environment.insert(text("DISPLAY"),
                       text(":99")); // with a display, the bus library would try to launch a bus
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), QStringList() << text("--use"));
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.readAllStandardOutput(), QByteArray("1110 1 messages 0 forks 0 waits\n"));
}

int main(int argc, char** argv)
{
    setenv("DBUS_SYSTEM_BUS_ADDRESS", deadBus, 1);
    if (argc == 2 && QByteArray(argv[1]) == "--use") {
        QCoreApplication application(argc, argv);
        return useWithoutAnyBus();
    }
    setenv("DBUS_SESSION_BUS_ADDRESS", deadBus, 1);
    QCoreApplication application(argc, argv);
    TestQCopChannel test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_qcopchannel.moc"
