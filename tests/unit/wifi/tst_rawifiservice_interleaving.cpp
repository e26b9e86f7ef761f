// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "fakesystem.h"
#include "joining.h"
#include "qtwarnings.h"
#include "rawifiglobals.h"
#include "silence.h"

#include <QTimer>
#include <QtTest>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <unistd.h>
#include <vector>

// The address loop and the DHCP stage use the same two files. Here both are run in the orders in which the
// single steps of one can fall between those of the other: each removal, each touch, each look and each read.
// In one order a thread gives way to the other at up to three places where it could go on, and these are all
// places in turn, or five with RAWIFI_LONG=1 in the environment; RAWIFI_INTERRUPTIONS=N sets another number (1000:
// every order there is, several minutes).

using namespace joining;

namespace {

const char address[] = "192.168.7.23";
const char addressOfBefore[] = "10.9.9.9\n";

enum Side { AddressLoop, DhcpStage };

/** Wherever both threads could go on: whether the one that has run gives way to the other one. */
typedef std::vector<bool> Order;

int mostInterruptions()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("RAWIFI_INTERRUPTIONS", &isGiven);
    return isGiven ? given : qEnvironmentVariableIntValue("RAWIFI_LONG") == 1 ? 5 : 3;
}

/**
 * Lets one of the two threads run at a time, from one gate to its next. Wherever both could go on, the order
 * given decides, and beyond its end none gives way; what was decided is kept.
 */
class Scheduler
{
public:
    explicit Scheduler(const Order& order) : m_order(order) {}

    /** From here on a DHCP stage is to be waited for. By the address loop's thread. */
    void expectDhcpStage()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ended[DhcpStage] = false;
    }

    /** Waits for the turn of a side. It is not given while \a isBlocked, unless the other side has ended. */
    void gate(Side side, const std::function<bool()>& isBlocked = nullptr)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_waiting[side] = true;
        m_isBlocked[side] = isBlocked;
        decide();
        while (!m_hasTurn[side]) {
            m_changed.wait(lock);
        }
        m_hasTurn[side] = false;
    }

    void end(Side side)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ended[side] = true;
        decide();
        m_changed.notify_all();
    }

    void awaitEnd(Side side)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        while (!m_ended[side]) {
            m_changed.wait(lock);
        }
    }

    /** From here on the DHCP stage goes first wherever both could: the rest is the same in every order. */
    void decideNoMore()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isOpen = false;
    }

    Order decisions() const { return m_decisions; }

private:
    bool isReady(Side side) { return m_waiting[side] && !(m_isBlocked[side] && m_isBlocked[side]()); }

    void decide()
    {
        const Side sides[] = {AddressLoop, DhcpStage};
        for (const Side side : sides) {
            if (!m_waiting[side] && !m_ended[side]) {
                return; // on its way to its next gate
            }
        }
        Side next = AddressLoop;
        if (isReady(AddressLoop) && isReady(DhcpStage)) {
            next = m_isOpen ? decided() : DhcpStage;
        } else if (isReady(DhcpStage)) {
            next = DhcpStage;
        } else if (!m_waiting[AddressLoop]) {
            return; // both have ended
        }
        m_waiting[next] = false;
        m_hasTurn[next] = true;
        m_last = next;
        m_changed.notify_all();
    }

    Side decided()
    {
        if (m_interruptions >= mostInterruptions()) {
            return m_last;
        }
        const std::size_t index = m_decisions.size();
        const bool givesWay = index < m_order.size() && m_order[index];
        m_decisions.push_back(givesWay);
        m_interruptions += givesWay ? 1 : 0;
        return givesWay ? (m_last == AddressLoop ? DhcpStage : AddressLoop) : m_last;
    }

    const Order m_order;
    Order m_decisions;
    int m_interruptions = 0;
    Side m_last = AddressLoop;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_waiting[2] = {false, false};
    bool m_hasTurn[2] = {false, false};
    bool m_ended[2] = {false, true};
    bool m_isOpen = true;
    std::function<bool()> m_isBlocked[2];
};

/** The order after one in which this was decided: at the last place where none gave way, one does. False
 * after the last. */
bool advance(Order& decisions)
{
    while (!decisions.empty() && decisions.back()) {
        decisions.pop_back();
    }
    if (decisions.empty()) {
        return false;
    }
    decisions.back() = true;
    return true;
}

/** What the scripts of a run are like. */
enum Scripts {
    AddressAtOnce,    ///< getip.sh tells the address whatever the DHCP stage does
    AddressByLease,   ///< getip.sh waits for the lease
    EmptyBeforeLease, ///< getip.sh tells nothing as long as there is no lease, twice; then it waits for it
    DhcpWithoutEnd,   ///< dhcp_setip.sh leaves no marker, getip.sh has an address
    NoAddress         ///< getip.sh never has one
};

/** One attempt in one order. */
class Run
{
public:
    Run(Scripts scripts, const Order& order)
        : m_scripts(scripts),
          m_scheduler(order),
          m_main(std::this_thread::get_id())
    {
        fakesystem::reset();
        fakesystem::writeFile(answer, addressOfBefore);
        fakesystem::writeFile(marker, "");
        QFile::remove(QLatin1String("/home/wifi/ipinfo.txt"));
        const char* const withoutEffect[] = {"rm -f /etc/wpa_supplicant.conf", "echo 3 >/home/wifi/signal.txt",
                                             "echo 1 >/home/wifi/linkap.txt",
                                             "echo 00:1a:2b:3c:4d:5e >/home/wifi/curmac.txt"};
        for (const char* command : withoutEffect) {
            fakesystem::answerCommand(command, [] {});
        }
        fakesystem::answerCommand(loadConfig, [] { fakesystem::writeFile(marker, ""); });
        fakesystem::answerCommand(QByteArray("echo ") + address + " >/home/wifi/ipinfo.txt",
                                  [] { fakesystem::writeFile("/home/wifi/ipinfo.txt", address); });
        fakesystem::answerCommand(removeAnswerAndMarker, [this] { onRemoveBoth(); });
        fakesystem::answerCommand(removeMarker, [this] { onRemoveMarker(); });
        fakesystem::answerCommand(getAddress, [this] { onGetAddress(); });
        if (scripts == DhcpWithoutEnd) {
            fakesystem::answerWithoutEnd("dhcp_setip.sh", [this] { m_scheduler.gate(DhcpStage); });
        } else {
            fakesystem::answerCommand(runDhcp, [this] { onRunDhcp(); });
        }
        fakesystem::onSleep([this](int milliseconds) { onSleep(milliseconds); });
    }

    /** The attempt's result; returns when its DHCP stage has ended, too. */
    int join(RaWifiService& service)
    {
        const int result = joining::join(service, Request());
        m_scheduler.end(AddressLoop);
        m_scheduler.awaitEnd(DhcpStage);
        QCoreApplication::processEvents();
        return result;
    }

    int tries() const { return m_tries; }
    Order decisions() const { return m_scheduler.decisions(); }

private:
    struct EndMark
    {
        Run* run = nullptr;
        ~EndMark() { run->m_scheduler.end(DhcpStage); }
    };

    bool isMain() const { return std::this_thread::get_id() == m_main; }

    /** A gate of the calling thread's side. */
    void gate()
    {
        if (isMain()) {
            m_scheduler.gate(AddressLoop);
            return;
        }
        thread_local EndMark mark;
        mark.run = this;
        m_scheduler.gate(DhcpStage);
    }

    static void remove(const char* path) { unlink(path); }

    void onRemoveBoth()
    {
        // The very first time the DHCP stage has not been started yet.
        if (isMain() && !m_inStage) {
            remove(answer);
            remove(marker);
            m_inStage = true;
            m_scheduler.expectDhcpStage();
            return;
        }
        gate();
        remove(answer);
        gate();
        remove(marker);
    }

    void onRemoveMarker()
    {
        if (isMain() && !m_inStage) {
            remove(marker);
            return;
        }
        gate();
        remove(marker);
        gate(); // before the answer is read
    }

    void onGetAddress()
    {
        if (++m_tries > 2) {
            m_scheduler.decideNoMore();
        }
        const bool mustWait = m_scripts == AddressByLease || (m_scripts == EmptyBeforeLease && m_tries > 2);
        m_scheduler.gate(AddressLoop, [this, mustWait] { return mustWait && !m_leased; });
        const bool told = m_scripts != NoAddress && (m_scripts != EmptyBeforeLease || m_leased);
        fakesystem::writeFile(answer, told ? QByteArray(address) + '\n' : QByteArray());
        gate();
        fakesystem::writeFile(marker, "");
    }

    void onRunDhcp()
    {
        m_leased = true;
        gate();
        fakesystem::writeFile(marker, "");
        gate(); // before the marker is looked for
    }

    void onSleep(int milliseconds)
    {
        const bool beforeALook = isMain() ? m_tries > 0 && milliseconds == 5 : milliseconds == 1000;
        if (beforeALook) {
            gate();
        }
    }

    const Scripts m_scripts;
    Scheduler m_scheduler;
    const std::thread::id m_main;
    bool m_inStage = false;
    std::atomic<bool> m_leased{false};
    int m_tries = 0;
};

} // namespace

class TestRaWifiServiceInterleaving : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void everyOrderOfTheTwoThreadsEndsRight_data();
    void everyOrderOfTheTwoThreadsEndsRight();
};

void TestRaWifiServiceInterleaving::initTestCase()
{
    QtWarnings::start();
}

void TestRaWifiServiceInterleaving::init()
{
    freshDevice();
}

void TestRaWifiServiceInterleaving::cleanup()
{
    fakesystem::reset();
    QCOMPARE(QtWarnings::take(), QString());
}

void TestRaWifiServiceInterleaving::everyOrderOfTheTwoThreadsEndsRight_data()
{
    QTest::addColumn<int>("scripts");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("mostTries");
    QTest::addColumn<bool>("stageEndsWell");
    QTest::newRow("the address is there at once") << static_cast<int>(AddressAtOnce) << 0 << 3 << true;
    QTest::newRow("the address comes with the lease") << static_cast<int>(AddressByLease) << 0 << 3 << true;
    QTest::newRow("no answer before the lease") << static_cast<int>(EmptyBeforeLease) << 0 << 4 << true;
    QTest::newRow("the DHCP script does not come to its end") << static_cast<int>(DhcpWithoutEnd) << 0 << 3 << false;
    QTest::newRow("there is no address") << static_cast<int>(NoAddress) << -2 << 15 << true;
}

void TestRaWifiServiceInterleaving::everyOrderOfTheTwoThreadsEndsRight()
{
    QFETCH(int, scripts);
    QFETCH(int, result);
    QFETCH(int, mostTries);
    QFETCH(bool, stageEndsWell);

    RaWifiService service(0, nullptr);
    int messages = 0;
    connect(
        &service, &RaWifiService::sendListWndInfo, &service, [&messages] { ++messages; }, Qt::DirectConnection);
    QTimer* const watchdog = watchdogOf(service);
    QByteArray wrong;
    int orders = 0;
    int greatest = 0;
    {
        const Silence silence;
        Order order;
        bool isThereAnother = true;
        while (isThereAnother && wrong.isEmpty()) {
            Run run(static_cast<Scripts>(scripts), order);
            const int got = run.join(service);
            const bool isReleased = lockStatus == 0 && !isConnectionMutexLocked() && !watchdog->isActive();
            const bool isKept = lockStatus == 1 && isConnectionMutexLocked() && watchdog->isActive();
            const bool isStageRight = isReleased || (!stageEndsWell && isKept);
            const QByteArray published = fakesystem::readFile("/home/wifi/ipinfo.txt");
            if (got != result || run.tries() > mostTries || !isStageRight
                || published != (result == 0 ? QByteArray(address) : QByteArray())) {
                wrong += "result " + QByteArray::number(got) + ", address " + published + ", "
                         + QByteArray::number(run.tries()) + " tries, lock status " + QByteArray::number(lockStatus)
                         + ", order ";
                for (const bool givesWay : run.decisions()) {
                    wrong += givesWay ? '/' : '.';
                }
            }
            greatest = qMax(greatest, run.tries());
            ++orders;
            order = run.decisions();
            isThereAnother = advance(order);
        }
    }
    QVERIFY2(wrong.isEmpty(), wrong.constData());
    qInfo("%d orders, at most %d tries", orders, greatest);
    QVERIFY(orders > 100); // the threads did meet
}

QTEST_MAIN(TestRaWifiServiceInterleaving)
#include "tst_rawifiservice_interleaving.moc"
