// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiManager.h"

#include "filecommands.h"
#include "loggedmessages.h"
#include "managertest.h"
#include "silence.h"
#include "steppedworkers.h"
#include "testsize.h"

#include <QtTest>
#include <mutex>
#include <random>

// Requests at any moment of the workers' work, thousands of times, by a schedule that a number decides:
// RAWIFI_STORM_SEED=N in the environment begins with another one, and RAWIFI_STORM_COUNT=1 ends with it. What fails
// says its own number.

using namespace managertest;

namespace {

const APData openNetwork = network(1, "Open", false);
const APData otherNetwork = network(2, "Other", false);

QList<APData> air()
{
    return QList<APData>() << openNetwork << otherNetwork;
}

int fromEnvironment(const char* name, int otherwise)
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue(name, &isGiven);
    return isGiven ? given : otherwise;
}

unsigned firstSeed()
{
    return unsigned(fromEnvironment("RAWIFI_STORM_SEED", 1));
}

/** The same numbers for the same seed on every machine. */
class Random
{
public:
    explicit Random(unsigned seed) : m_engine(seed) {}
    int below(int limit) { return int(m_engine() % unsigned(limit)); }
    bool oneIn(int count) { return below(count) == 0; }

private:
    std::mt19937 m_engine;
};

/** A device on which each script does its work or does not come to its end. */
void setDevice(Random& random)
{
    fakesystem::reset();
    fakesystem::carryOutFilesBy(carryOutFilesHere);
    setScripts();
    setScan(air());
    const char* const mayBreak[] = {"callwpaconf.sh", "dhcp_setip.sh", "getip.sh"};
    for (const char* script : mayBreak) {
        if (random.oneIn(6)) {
            breakScript(script);
        }
    }
}

enum Request {
    SwitchOn,
    SwitchOff,
    Join,
    JoinUnmarked,
    JoinSaved,
    Disconnect,
    CloseWifi,
    LeavePage,
    Refresh,
    ErrorShownLongEnough,
    RequestCount
};

void ask(RaWifiManager& manager, Request request)
{
    switch (request) {
    case SwitchOn:
        manager.recAPSwitch(true);
        break;
    case SwitchOff:
        manager.recAPSwitch(false);
        break;
    case Join:
        manager.receiveAPManageInfo(3, openNetwork);
        break;
    case JoinUnmarked:
        manager.receiveAPManageInfo(0, otherNetwork);
        break;
    case JoinSaved:
        manager.connectCertainAP();
        break;
    case Disconnect:
        manager.disConnectAp();
        break;
    case CloseWifi:
        manager.closeWifi();
        break;
    case LeavePage:
        manager.recQuitListWnd();
        break;
    case Refresh:
        manager.callSendRefreshList();
        break;
    case ErrorShownLongEnough:
        manager.timeout();
        break;
    case RequestCount:
        break;
    }
}

/** Keeps the toolkit's messages to itself, thousands of them about connections that are known to fail. */
class MessageWatch
{
public:
    MessageWatch() : m_previous(qInstallMessageHandler(&MessageWatch::handle)) { first().clear(); }
    ~MessageWatch() { qInstallMessageHandler(m_previous); }
    MessageWatch(const MessageWatch&) = delete;
    MessageWatch& operator=(const MessageWatch&) = delete;

    /** The first message about anything else; empty when none. */
    QByteArray unexpected() const
    {
        const std::lock_guard<std::mutex> lock(mutex());
        return first();
    }

private:
    static void handle(QtMsgType, const QMessageLogContext&, const QString& message)
    {
        const bool isKnown = message.startsWith(QLatin1String("QObject::connect: "))
                             || message == QLatin1String("Unknown property caret-color"); // of the password field
        const std::lock_guard<std::mutex> lock(mutex());
        if (!isKnown && first().isEmpty()) {
            first() = message.toUtf8();
        }
    }
    static std::mutex& mutex()
    {
        static std::mutex instance;
        return instance;
    }
    static QByteArray& first()
    {
        static QByteArray instance;
        return instance;
    }

    const QtMessageHandler m_previous;
};

bool isLocked(QMutex& mutex)
{
    if (!mutex.tryLock()) {
        return true;
    }
    mutex.unlock();
    return false;
}

/** Empty when a manager without workers scans and joins as ever, else what it did not do. */
QByteArray whatFails(SteppedWorkers& workers)
{
    fakesystem::reset();
    fakesystem::carryOutFilesBy(carryOutFilesHere);
    setScripts();
    setScan(air());
    setLink(false);
    RaWifiManager* const manager = RaWifiManager::instance();
    manager->recAPSwitch(false);
    const bool isFirst = p_thread_msg == 0;
    const Lines told = loggedMessages([manager] { manager->recAPSwitch(true); });
    if (!told.contains(isFirst ? "Not a valid thread handle." : "thread is not exist or already exit")
        || told.contains("pthread is alive")) {
        return "the last worker is not known to have ended";
    }
    if (!workers.finish()) {
        return "a clean scan does not end";
    }
    if (manager->findChild<RaWifiListWidget*>()->findChild<RaListwidget*>()->rowCount() != 2) {
        return "a clean scan is not shown";
    }
    if (!m_conMux.tryLock()) {
        return "the exported mutex is lost";
    }
    manager->receiveAPManageInfo(3, openNetwork);
    if (!workers.finish()) {
        return "a clean join does not end";
    }
    const bool isReleased = m_conMux.tryLock();
    m_conMux.unlock();
    if (!isReleased) {
        return "a clean join has not released the exported mutex";
    }
    if (isLocked(m_mutex) || lockStatus != 0) {
        return "a clean join has kept the lock of its DHCP stage";
    }
    RaItemPushBtn* joined = nullptr;
    for (RaItemPushBtn* row : manager->findChildren<RaItemPushBtn*>()) {
        if (row->accessibleDescription() == QStringLiteral("已连接")) {
            joined = row;
        }
    }
    if (!getIsConnect() || !joined || joined->getText() != QLatin1String("Open")) {
        return "a clean join is not shown";
    }
    return QByteArray();
}

/** Lets the workers do a part of their work, sometimes each step to its end, sometimes not. */
bool workOn(SteppedWorkers& workers, Random& random)
{
    const int mostSteps[] = {1, 6, 6, 40};
    const int steps = random.below(mostSteps[random.below(4)]);
    const bool isSettled = !random.oneIn(3);
    for (int i = 0; i < steps; ++i) {
        if (isSettled && !workers.settle()) {
            return false;
        }
        workers.letGo(random.oneIn(4) ? SteppedWorkers::DhcpStage : SteppedWorkers::Worker);
    }
    return !isSettled || workers.settle();
}

/** Closes the manager; false when a worker of its goes on. */
bool endsWithItsManager(SteppedWorkers& workers, const std::function<void()>& close)
{
    close();
    const int points = workers.pointCount();
    return waitWithoutEvents([&workers] { return !workers.isAnyAlive(); }) && workers.pointCount() == points;
}

/** Sometimes on the screen, with the list, the message and the password page. */
void showWindows(Random& random)
{
    RaWifiManager* const manager = RaWifiManager::instance();
    if (!random.oneIn(8)) {
        return;
    }
    manager->resize(320, 480);
    manager->show();
    if (random.oneIn(2)) {
        setAir(QList<APData>() << network(3, "Locked"));
        manager->recRefreshList();
        tap(manager->findChildren<RaItemPushBtn*>().last());
    }
    if (random.oneIn(2)) {
        manager->receiveAPManageInfo(3, openNetwork);
        manager->recShowInfo(0, QLatin1String("Open"), QLatin1String("no address"), -3);
    }
    QCoreApplication::processEvents();
}

} // namespace

class TestRaWifiManagerStorm : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void afterAnyOrderOfRequestsTheManagerWorks();
    void destroyedAtAnyMomentItLeavesNothingBehind();
    void ofTwoManagersInTurnEachWorks();

private:
    QByteArray storm(SteppedWorkers& workers, unsigned seed);
    QByteArray destroy(SteppedWorkers& workers, unsigned seed);

    int m_requests = 0;
};

void TestRaWifiManagerStorm::initTestCase()
{
    prepare();
}

void TestRaWifiManagerStorm::init()
{
    freshDevice();
    saveNetworks(air());
    m_requests = 0;
}

void TestRaWifiManagerStorm::cleanup()
{
    RaWifiManager::close();
    QVERIFY(waitWithoutEvents(isIdle));
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    QCoreApplication::processEvents(); // nothing is left for the manager
    QCOMPARE(unexpectedWarnings(), QStringList());
}

QByteArray TestRaWifiManagerStorm::storm(SteppedWorkers& workers, unsigned seed)
{
    Random random(seed);
    setDevice(random);
    setLink(false);
    workers.begin();
    showWindows(random);
    const int requests = 2 + random.below(4);
    for (int i = 0; i < requests; ++i) {
        if (random.oneIn(12)) {
            if (!endsWithItsManager(workers, &RaWifiManager::close)) {
                return "a worker has outlived its manager";
            }
        }
        ask(*RaWifiManager::instance(), Request(random.below(RequestCount)));
        ++m_requests;
        if (!workOn(workers, random)) {
            return "a worker is stuck";
        }
    }
    if (!workers.finish()) {
        return "a worker does not come to its end";
    }
    if (isLocked(m_mutex) != (lockStatus == 1)) {
        return "the lock of the DHCP stage is not as its status says";
    }
    const QByteArray wrong = whatFails(workers);
    RaWifiManager::instance()->hide(); // painting takes its time
    return workers.collision().isEmpty() ? wrong : workers.collision();
}

void TestRaWifiManagerStorm::afterAnyOrderOfRequestsTheManagerWorks()
{
    const int count = fromEnvironment("RAWIFI_STORM_COUNT", repetitions(10000, 2000));
    const unsigned seed = firstSeed();
    QByteArray wrong;
    int done = 0;
    int points = 0;
    {
        const Silence silence;
        const MessageWatch messages;
        SteppedWorkers workers;
        for (; done < count && wrong.isEmpty(); ++done) {
            wrong = storm(workers, seed + unsigned(done));
            wrong += messages.unexpected();
        }
        points = workers.pointCount();
        RaWifiManager::close();
    }
    if (!wrong.isEmpty()) {
        wrong += ", RAWIFI_STORM_SEED=" + QByteArray::number(seed + unsigned(done) - 1);
    }
    QVERIFY2(wrong.isEmpty(), wrong.constData());
    qInfo("%d interleavings, seed %u: %d requests among %d commands and waits of the workers", done, seed, m_requests,
          points);
    QVERIFY(m_requests >= 2 * count && points > 20 * count);
}

QByteArray TestRaWifiManagerStorm::destroy(SteppedWorkers& workers, unsigned seed)
{
    Random random(seed);
    setDevice(random);
    setLink(false);
    workers.begin();
    showWindows(random);
    const Request starts[] = {SwitchOn, Join, JoinSaved, Refresh};
    const Request start = starts[random.below(4)];
    RaWifiManager::instance()->recAPSwitch(false);
    ask(*RaWifiManager::instance(), start);
    ++m_requests;
    const int steps = random.below(45); // a join has about 40
    for (int i = 0; i < steps; ++i) {
        if (!workers.settle()) {
            return "a worker is stuck";
        }
        workers.letGo(random.oneIn(4) ? SteppedWorkers::DhcpStage : SteppedWorkers::Worker);
    }
    if (random.oneIn(2) && !workers.settle()) {
        return "a worker is stuck";
    }
    if (!endsWithItsManager(workers, &RaWifiManager::close)) {
        return "a worker has outlived its manager";
    }
    if (!QApplication::topLevelWidgets().isEmpty() || pWnd || g_PassParam.owner) {
        return "something of the manager is left";
    }
    const QByteArray wrong = whatFails(workers);
    return workers.collision().isEmpty() ? wrong : workers.collision();
}

void TestRaWifiManagerStorm::destroyedAtAnyMomentItLeavesNothingBehind()
{
    const int count = fromEnvironment("RAWIFI_STORM_COUNT", 1000);
    const unsigned seed = firstSeed();
    QByteArray wrong;
    int done = 0;
    {
        const Silence silence;
        const MessageWatch messages;
        SteppedWorkers workers;
        for (; done < count && wrong.isEmpty(); ++done) {
            wrong = destroy(workers, seed + unsigned(done));
            wrong += messages.unexpected();
        }
        RaWifiManager::close();
    }
    if (!wrong.isEmpty()) {
        wrong += ", RAWIFI_STORM_SEED=" + QByteArray::number(seed + unsigned(done) - 1);
    }
    QVERIFY2(wrong.isEmpty(), wrong.constData());
    qInfo("destroyed at %d moments, seed %u", done, seed);
}

void TestRaWifiManagerStorm::ofTwoManagersInTurnEachWorks()
{
    const int count = 100;
    QByteArray wrong;
    {
        const Silence silence;
        const MessageWatch messages;
        SteppedWorkers workers;
        for (int i = 0; i < count && wrong.isEmpty(); ++i) {
            Random random(firstSeed() + unsigned(i));
            setDevice(random);
            workers.begin();
            // One of the host's own, whose worker is at some point when it goes.
            RaWifiManager* const first = new RaWifiManager(nullptr);
            ask(*first, i % 2 == 0 ? SwitchOn : Join);
            for (int step = 0; step < i % 40 && workers.settle(); ++step) {
                workers.letGo(SteppedWorkers::Worker);
            }
            const bool isOver = endsWithItsManager(workers, [first] { delete first; });
            wrong = isOver ? whatFails(workers) : QByteArray("a worker has outlived its manager");
            RaWifiManager::close();
            wrong += messages.unexpected();
        }
    }
    QVERIFY2(wrong.isEmpty(), wrong.constData());
    qInfo("%d pairs of managers", count);
}

int main(int argc, char** argv)
{
    return managertest::run<TestRaWifiManagerStorm>(argc, argv);
}

#include "tst_rawifimanager_storm.moc"
