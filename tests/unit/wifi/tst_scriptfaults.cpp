// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
//
// Each script of the device in each way of going wrong, run by a real shell through the flow that needs it. What a
// script writes to its standard output is the console's; the library reads its answer file only.
//
// A command holds its thread for as long as its script runs. On the manager's workers (scan, join, DHCP) a cancel
// ends that; where the GUI thread asks, only the script itself or whoever kills it can, and the device's own scripts are
// bounded for that reason.
#include "capturedoutput.h"
#include "fakesystem.h"
#include "joining.h"
#include "rawifimonitor.h"
#include "raworkerthread.h"
#include "recordtext.h"

#include <QtTest>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

enum Fault {
    None,
    Hangs,
    EndsEarly,
    Garbage,
    HundredMegabytes,
    Missing,
    DiesBySignal,
    LeavesChildren,
    RemovesDirectory
};

const char* const faultNames[] = {"works",
                                  "hangs",
                                  "ends early",
                                  "prints garbage",
                                  "prints 100 MB",
                                  "is missing",
                                  "dies by signal",
                                  "leaves children behind",
                                  "removes /home/wifi"};

const char hanging[] = "/tmp/hanging"; // a pipe that gets the process id of a script that hangs
const char leftBehind[] = "/tmp/left-behind";

/** A script, what it answers when all is well, and what becomes of the flow that calls it. */
struct Row
{
    const char* script;
    const char* command;
    const char* answerFile;
    const char* answer;
    bool onWorker;
    const char* good;
    const char* withoutAnswer;
    const char* withoutEnd;
    const char* withGarbage;
};

const char joinedText[] = "Successful connection|0";
const char configFailed[] = "Wifi network configuration information failed|-2";
const char noAddress[] = "Network connection error or the server is busy,please try again|-2";

const Row rows[] = {
    {"calldefaultconf.sh", "sh /usr/bin/calldefaultconf.sh", "temp.txt", "OK", true, "0", "-1", "-1", "0"},
    {"getwpastatus.sh", "sh /usr/bin/getwpastatus.sh", "temp.txt", "OK", true, "0", "-1", "-1", "0"},
    {"getlocalmac.sh", "sh /usr/bin/getlocalmac.sh;touch /home/wifi/result3", "temp.txt", "02:00:00:00:00:01", false,
     "02:00:00:00:00:01", "untouched", "untouched", "\xff%s%n$(touch /hom"},
    {"getfirstaplist.sh", "sh /usr/bin/getfirstaplist.sh;touch /home/wifi/result3", "temp.txt",
     "00:1a:2b:3c:4d:5e\t2412\t-45\t[WPA2-PSK-CCMP][ESS]\tHome", true, "Home", "older", "older", ""},
    {"getaplist.sh", "sh /usr/bin/getaplist.sh;touch /home/wifi/result3 ", "temp.txt",
     "00:1a:2b:3c:4d:5e\t2412\t-45\t[WPA2-PSK-CCMP][ESS]\tHome", true, "Home", "older", "older", ""},
    {"callwpaconf.sh", joining::loadConfig, "temp.txt", "", true, joinedText, joinedText, configFailed, joinedText},
    {"dhcp_setip.sh", joining::runDhcp, "dhcp.txt", "", true, joinedText, joinedText, joinedText, joinedText},
    {"getip.sh", joining::getAddress, "temp.txt", "192.168.7.23", true, joinedText, noAddress,
     "Failed to obtain IP information|-3", noAddress},
    {"getroute.sh", "sh /usr/bin/getroute.sh;touch /home/wifi/result3", "temp.txt", "192.168.7.1", false,
     "0 192.168.7.1\n", "0 untouched", "1 untouched", "0 \xff%s%n$(touch /home/canary)`touch /home/canary` ...\n"},
    {"getwifistatus.sh", "sh /usr/bin/getwifistatus.sh;touch /home/wifi/result", "connectstatus.txt",
     "bssid=00:1a:2b:3c:4d:5e", false, "0 00:1a:2b:3c:4d:5e", "-1 ", "-1 ", "0 "},
    {"getconnectstatus.sh", "sh /usr/bin/getconnectstatus.sh;touch /home/wifi/result", "temp.txt",
     "bssid=00:1a:2b:3c:4d:5e", false, "1", "0", "0", "1"},
};

/** Makes the script as it is with this fault. */
void install(const Row& row, Fault fault)
{
    const QByteArray path = QByteArray("/usr/bin/") + row.script;
    const QByteArray answerFile = QByteArray("/home/wifi/") + row.answerFile;
    const QByteArray anew = "rm -f " + answerFile + '\n';
    const QByteArray good = anew + "printf '%s\\n' '" + row.answer + "' >" + answerFile + '\n';
    const QByteArray garbage = "printf '\\377%%s%%n$(touch /home/canary)`touch /home/canary` ...\\n\\001\\000\\377'";
    QByteArray text;
    switch (fault) {
    case None:
        text = good;
        break;
    case Hangs:
        text = QByteArray("echo $$ >") + hanging + "\nexec sleep 100000\n";
        break;
    case EndsEarly:
        text = "exit 1\n";
        break;
    case Garbage:
        text = anew + garbage + " >" + answerFile + '\n';
        break;
    case HundredMegabytes: // made once; a script may be called a dozen times
        text = "[ -f /home/big ] || (" + garbage + "; yes \"$(" + garbage
               + "2>/dev/null | tr -d '\\000')\") 2>/dev/null | head -c 104857600 >/home/big\nln -f /home/big "
               + answerFile + '\n';
        break;
    case Missing:
        unlink(path.constData());
        return;
    case DiesBySignal: // and its shell with it, so that it never comes to its end
        text = "[ \"$(cat /proc/$PPID/comm)\" != sh ] || kill -KILL $PPID\nkill -KILL $$\n";
        break;
    case LeavesChildren:
        text = good + "sleep 100000 &\necho $! >>" + leftBehind + '\n';
        break;
    case RemovesDirectory:
        text = "rm -rf /home/wifi\n";
        break;
    }
    fakesystem::writeFile(path.constData(), text);
}

int entriesOf(const char* directory)
{
    return static_cast<int>(
        QDir(QLatin1String(directory)).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

void end(pid_t process)
{
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
}

/** The process id of the script that hangs, once it does. */
pid_t whoHangs()
{
    QFile pipe(QString::fromLatin1(hanging));
    return pipe.open(QIODevice::ReadOnly) ? static_cast<pid_t>(pipe.readLine().trimmed().toInt()) : -1;
}

void putOlderList()
{
    qDeleteAll(APDataArray);
    APDataArray.clear();
    APDataArray << new APData(freshRecord());
    setField(APDataArray.first()->essid, "older");
}

/** The flow that calls the script of a row, and what comes of it, as a text. */
class Flow
{
public:
    explicit Flow(const Row& row) : m_row(row)
    {
        QObject::connect(
            &service, &RaWifiService::sendListWndInfo, &service,
            [this](int, const QString& name, const QString& text, int errflag) {
                const QString said = text.startsWith(name) ? text.mid(name.size()) : text;
                m_told = said.toLatin1() + '|' + QByteArray::number(errflag);
            },
            Qt::DirectConnection);
    }

    QByteArray run()
    {
        const QByteArray script = m_row.script;
        char text[256] = "untouched";
        APData ap = freshRecord();
        if (script == "calldefaultconf.sh") {
            return QByteArray::number(service.callWpaSupplicantDefaultConf());
        }
        if (script == "getwpastatus.sh") {
            return QByteArray::number(service.checkWpaSupplicantStatus());
        }
        if (script == "getlocalmac.sh") {
            service.disConnectAp(); // forgets an earlier answer
            service.getLocalMACaddress(text);
            return text;
        }
        if (script.endsWith("aplist.sh")) {
            bIsFirst = script == "getfirstaplist.sh";
            service.loadAPList();
            return APDataArray.isEmpty() ? QByteArray() : QByteArray(APDataArray.first()->essid);
        }
        if (script == "getroute.sh") {
            const int result = service.setRoute(text);
            return QByteArray::number(result) + ' ' + QByteArray(text);
        }
        if (script == "getwifistatus.sh") {
            const int result = getAPInfo(&ap);
            return QByteArray::number(result) + ' ' + QByteArray(ap.macAddr).trimmed();
        }
        if (script == "getconnectstatus.sh") {
            return QByteArray::number(m_monitor.getAPStatus());
        }
        joining::join(service, joining::Request());
        return m_told;
    }

    RaWifiService service{0, nullptr};

private:
    const Row& m_row;
    RaWifiMonitor m_monitor{nullptr};
    QByteArray m_told;
};

/** Runs a flow on a worker like the manager's. */
class Worker
{
public:
    explicit Worker(Flow& flow) : m_flow(flow) { m_thread.start(routine, this); }

    void cancel() { m_thread.cancel(); }

    /** Keeps the event loop going meanwhile: the watchdog's timer is started there. */
    QByteArray resultAtItsEnd()
    {
        while (m_thread.isAlive()) {
            QCoreApplication::processEvents();
            std::this_thread::yield();
        }
        return m_result;
    }

private:
    static void* routine(void* self)
    {
        Worker& worker = *static_cast<Worker*>(self);
        worker.m_result = worker.m_flow.run();
        return nullptr;
    }

    Flow& m_flow;
    QByteArray m_result = "cancelled";
    RaWorkerThread m_thread;
};

} // namespace

class TestScriptFaults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void theLibrarySurvives_data();
    void theLibrarySurvives();

private:
    QByteArray outcomeOf(Flow& flow, const Row& row, Fault fault);
};

void TestScriptFaults::initTestCase()
{
    // What a script leaves behind comes to this process, which can count and end it.
    QCOMPARE(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    QCOMPARE(mkfifo(hanging, 0600), 0);
}

void TestScriptFaults::init()
{
    joining::freshDevice();
    joining::goodScripts();
    putOlderList();
    unlink(leftBehind);
}

void TestScriptFaults::theLibrarySurvives_data()
{
    QTest::addColumn<int>("script");
    QTest::addColumn<int>("fault");
    for (int script = 0; script < 11; ++script) {
        for (int fault = Hangs; fault <= RemovesDirectory; ++fault) {
            if (fault == RemovesDirectory && QByteArray(rows[script].command) == joining::runDhcp) {
                continue; // runs beside the next script, whose answer the test itself puts into the directory
            }
            const QByteArray name = QByteArray(rows[script].script) + ": " + faultNames[fault];
            QTest::newRow(name.constData()) << script << fault;
        }
    }
}

QByteArray TestScriptFaults::outcomeOf(Flow& flow, const Row& row, Fault fault)
{
    install(row, fault);
    const bool hangs = fault == Hangs;
    if (row.onWorker) {
        Worker worker(flow);
        const pid_t script = hangs ? whoHangs() : 0;
        const bool isDhcp = QByteArray(row.command) == joining::runDhcp;
        if (hangs && !isDhcp) {
            worker.cancel();
        }
        QByteArray outcome = worker.resultAtItsEnd();
        if (hangs && isDhcp) {
            // The join went on without it; the watchdog takes the lock from it, the next scan or join ends its thread.
            outcome += ", lock " + QByteArray::number(lockStatus);
            joining::expire(joining::watchdogOf(flow.service));
            outcome += ", then " + QByteArray::number(lockStatus);
            flow.service.getAPListByScan();
        }
        if (hangs) {
            end(script);
        }
        return outcome;
    }
    std::thread killer;
    if (hangs) {
        killer = std::thread([] { kill(whoHangs(), SIGKILL); });
    }
    const QByteArray outcome = flow.run();
    if (killer.joinable()) {
        killer.join();
    }
    return outcome;
}

void TestScriptFaults::theLibrarySurvives()
{
    QFETCH(int, script);
    QFETCH(int, fault);
    const Row& row = rows[script];
    const QByteArray command = row.command;
    fakesystem::answerCommand(command, [command] { fakesystem::runForReal(command); });
    const bool isDhcp = command == joining::runDhcp;
    const QByteArray whenHanging =
        isDhcp ? row.good + QByteArray(", lock 1, then 0") : QByteArray(row.onWorker ? "cancelled" : row.withoutAnswer);
    const QByteArray outcomes[] = {row.good,        whenHanging,     row.withoutAnswer,
                                   row.withGarbage, row.withGarbage, row.withoutAnswer,
                                   row.withoutEnd,  row.good,        row.withoutEnd};

    const int descriptors = entriesOf("/proc/self/fd");
    const int threads = entriesOf("/proc/self/task");
    QByteArray withFault;
    QByteArray nextTime;
    capturedOutput(stdout, [&] {
        Flow flow(row);
        withFault = outcomeOf(flow, row, static_cast<Fault>(fault));
        if (fault == RemovesDirectory) {
            fakesystem::runForReal("mkdir -m 777 /home/wifi"); // as the next start does
        }
        nextTime = outcomeOf(flow, row, None);
    });
    QCOMPARE(withFault, outcomes[fault]);
    QCOMPARE(nextTime, QByteArray(row.good));
    for (const QByteArray& child : fakesystem::readFile(leftBehind).split('\n')) {
        if (!child.isEmpty()) {
            end(static_cast<pid_t>(child.toInt()));
        }
    }
    while (waitpid(-1, nullptr, 0) > 0) {
        // who has been killed; anybody else would be waited for until the test's own time is up
    }
    QCOMPARE(errno, ECHILD);
    while (entriesOf("/proc/self/task") > threads) {
        std::this_thread::yield(); // a thread that has said its last word
    }
    QCOMPARE(entriesOf("/proc/self/fd"), descriptors);
    QVERIFY(!fakesystem::exists("/home/canary"));
}

QTEST_MAIN(TestScriptFaults)
#include "tst_scriptfaults.moc"
