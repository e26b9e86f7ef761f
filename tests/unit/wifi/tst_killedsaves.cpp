// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
//
// The store and the supplicant's configuration under a process that is killed while it saves. What a power cut
// adds to that, a disk that has not yet got what was written, is shown by the order of the calls here and on the
// virtual device (tests/device/powercuts.sh).
#include "fakesystem.h"
#include "rawifiservice.h"
#include "savedlists.h"
#include "testsize.h"
#include "tracedchild.h"

#include <QDir>
#include <QMap>
#include <QtTest>
#include <atomic>
#include <new>
#include <poll.h>
#include <random>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>

using namespace savedlists;

namespace {

const char configFile[] = "/etc/wpa_supplicant.conf";
const char configTemporary[] = "/etc/wpa_supplicant.conf.tmp";
const int killsAtRandom = repetitions(10000, 100);

int modeOf(const char* path)
{
    struct stat about;
    return lstat(path, &about) == 0 ? static_cast<int>(about.st_mode & 07777) : -1;
}

/** Empty, or what lies in the store's two directories that should not. */
QByteArray strayFiles()
{
    QByteArray stray;
    const QMap<QByteArray, QByteArray> allowed = {{"/apps/config", "network.conf network.conf.tmp"},
                                                  {"/home/wifi", "tmpnetwork.conf"}};
    for (auto place = allowed.begin(); place != allowed.end(); ++place) {
        const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        for (const QFileInfo& file : QDir(QString::fromLatin1(place.key())).entryInfoList(all)) {
            if (!place.value().split(' ').contains(file.fileName().toLatin1()) || file.size() > 5 + 15 * 388) {
                stray += file.filePath().toLatin1() + ' ';
            }
        }
    }
    return stray;
}

/** Counts the stops of a child, two a system call, and kills it at one of them. */
struct KillAt
{
    int stop;
    int* stops;
    tracedchild::Fate operator()(const tracedchild::SystemCall&) const
    {
        const bool now = (*stops)++ == stop;
        return {now ? tracedchild::Fate::Kill : tracedchild::Fate::Go, 0};
    }
};

} // namespace

class TestKilledSaves : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void storeKilledAtEachSystemCallIsOldOrNew_data();
    void storeKilledAtEachSystemCallIsOldOrNew();
    void storeKilledAtRandomMomentsIsOldOrNew();
    void configurationKilledAtEachSystemCallIsNeverHalf();
    void configurationKilledAtRandomMomentsIsNeverHalf();
    void nothingTakesItsPlaceBeforeItIsOnDisk_data();
    void nothingTakesItsPlaceBeforeItIsOnDisk();
};

void TestKilledSaves::init()
{
    fakesystem::reset();
    fakesystem::runForReal("rm -rf /apps/config /home/wifi /etc/wpa_supplicant.conf*");
    fakesystem::runForReal("mkdir -p /apps/config && mkdir -m 777 /home/wifi");
    // Carried out in the same process, so that each of its system calls is one to be killed at, too.
    fakesystem::answerCommand("rm -f /etc/wpa_supplicant.conf", [] { unlink(configFile); });
}

void TestKilledSaves::storeKilledAtEachSystemCallIsOldOrNew_data()
{
    QTest::addColumn<int>("networks");
    QTest::addColumn<Step>("step");
    QTest::newRow("the first network") << 0 << Step{1, "key"};
    QTest::newRow("one more network") << 2 << Step{5, "key"};
    QTest::newRow("a sixteenth network") << 15 << Step{20, "key"};
    QTest::newRow("another key") << 3 << Step{1, "changed"};
    QTest::newRow("one forgotten") << 3 << Step{1, ""};
    QTest::newRow("the only one forgotten") << 1 << Step{0, ""};
}

void TestKilledSaves::storeKilledAtEachSystemCallIsOldOrNew()
{
    QFETCH(int, networks);
    QFETCH(Step, step);
    Networks older;
    for (int i = 0; i < networks; ++i) {
        carryOut(older, Step{i, "key"});
    }
    Networks newer = older;
    carryOut(newer, step);

    const auto isKilledAt = [&](int stop) {
        fakesystem::writeFile(storeFile, imageOf(older));
        int stops = 0;
        const int result = tracedchild::run(
            [&step] {
                beQuiet();
                RaWifiData store;
                store.loadData();
                tracedchild::begin();
                carryOut(store, step);
                tracedchild::end();
                return 0;
            },
            KillAt{stop, &stops});
        return result == -1;
    };
    int stops = 0;
    int old = 0;
    for (; isKilledAt(stops); ++stops) {
        const QByteArray bytes = fakesystem::readFile(storeFile);
        const bool isOld = bytes == imageOf(older);
        QVERIFY2(isOld || bytes == imageOf(newer), QByteArray::number(stops).constData());
        old += isOld ? 1 : 0;
        QCOMPARE(strayFiles(), QByteArray());

        RaWifiData store;
        QCOMPARE(store.loadData(), 0);
        QCOMPARE(keysRead(store), keysOf(isOld ? older : newer));
        carryOut(store, Step{9, "the next save"});
        Networks next = isOld ? older : newer;
        carryOut(next, Step{9, "the next save"});
        QCOMPARE(fakesystem::readFile(storeFile), imageOf(next));
        QVERIFY(!fakesystem::exists("/apps/config/network.conf.tmp"));
    }
    QCOMPARE(fakesystem::readFile(storeFile), imageOf(newer)); // not killed any more
    QVERIFY(old > 0 && old < stops);
    qInfo("killed at %d stops of %d system calls: %d times the old list, %d times the new one", stops, stops / 2, old,
          stops - old);
}

namespace {

/** Step number \a number of an endless life: a network comes, its key changes, an older one is forgotten. */
Step stepOf(int number)
{
    const int round = number / 3;
    switch (number % 3) {
    case 0:
        return Step{round % 20, "key " + QByteArray::number(round)};
    case 1:
        return Step{round % 20, "changed " + QByteArray::number(round)};
    default:
        return Step{(round + 13) % 20, round % 4 == 0 ? QByteArray() : QByteArray("once more")};
    }
}

/** A child that saves for ever, and a kill of it at a random moment. */
class Saver
{
public:
    Saver()
        : m_begun(new (mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1,
                            0)) std::atomic<int>(0))
    {
        if (pipe(m_ready) != 0) {
            qFatal("no pipe");
        }
    }
    ~Saver()
    {
        close(m_ready[0]);
        close(m_ready[1]);
    }
    Saver(const Saver&) = delete;
    Saver& operator=(const Saver&) = delete;

    typedef std::function<void(int number)> Save;

    /**
     * Has a child save again and again, counting from \a number; kills it, but not in its first save, which shows how
     * long one takes, and returns the last save begun.
     */
    int killWhileSaving(int number, const std::function<Save()>& makeSave)
    {
        const pid_t child = fork();
        char ready = 'r';
        if (child == 0) {
            beQuiet();
            const Save save = makeSave();
            for (int i = number;; ++i) {
                *m_begun = i;
                if (i <= number + 1) {
                    (void)!write(m_ready[1], &ready, 1);
                }
                save(i);
            }
        }
        QElapsedTimer first;
        (void)!read(m_ready[0], &ready, 1);
        first.start();
        (void)!read(m_ready[0], &ready, 1);
        std::uniform_int_distribution<long> nanoseconds(0, 2 * qMin<qint64>(first.nsecsElapsed(), 100 * 1000 * 1000));
        const timespec moment = {0, nanoseconds(m_random)};
        ppoll(nullptr, 0, &moment, nullptr);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        return *m_begun;
    }

private:
    std::atomic<int>* const m_begun;
    int m_ready[2];
    std::mt19937 m_random{20261121};
};

} // namespace

void TestKilledSaves::storeKilledAtRandomMomentsIsOldOrNew()
{
    Saver saver;
    Networks networks;
    int next = 0;
    int old = 0;
    for (int i = 0; i < killsAtRandom; ++i) {
        const int last = saver.killWhileSaving(next, [] {
            RaWifiData* const store = new RaWifiData; // until the kill
            store->loadData();
            return [store](int number) { carryOut(*store, stepOf(number)); };
        });
        for (; next < last; ++next) {
            carryOut(networks, stepOf(next));
        }
        Networks newer = networks;
        carryOut(newer, stepOf(last));
        const QByteArray bytes = fakesystem::readFile(storeFile);
        const bool isOld = bytes == imageOf(networks);
        QVERIFY2(isOld || bytes == imageOf(newer), QByteArray::number(i).constData());
        if (isOld) {
            ++old;
        } else {
            networks = newer;
            next = last + 1;
        }
        RaWifiData store;
        QCOMPARE(store.loadData(), 0);
        QCOMPARE(keysRead(store), keysOf(networks));
        QCOMPARE(strayFiles(), QByteArray());
    }
    QVERIFY(old > 0 && old < killsAtRandom);
    qInfo("%d kills at random in %d saves: %d times the old list, %d times the new one", killsAtRandom, next, old,
          killsAtRandom - old);
}

namespace {

QByteArray keyNumber(int number)
{
    return "password " + QByteArray::number(number).rightJustified(8, '0');
}

QByteArray configNumber(int number)
{
    return "# Simple case: WPA-PSK, PSK as an ASCII passphrase, allow all valid ciphers\n"
           "ctrl_interface=/var/run/wpa_supplicant\nctrl_interface_group=0\nap_scan=1\nnetwork={\n"
           "\tssid=\"home\"\n\tpsk=\""
           + keyNumber(number) + "\"\n}\n";
}

/** Old, new, or in the moment between the two none, the new one standing whole beside its place. 'X': something else. */
char stateOf(int newer)
{
    const QByteArray bytes = fakesystem::readFile(configFile);
    if (fakesystem::exists(configFile) && modeOf(configFile) != 0600) {
        return 'X';
    }
    if (bytes == configNumber(newer)) {
        return 'n';
    }
    if (bytes == configNumber(newer - 1)) {
        return 'o';
    }
    const bool between = !fakesystem::exists(configFile) && fakesystem::readFile(configTemporary) == configNumber(newer)
                         && modeOf(configTemporary) == 0600;
    return between ? '-' : 'X';
}

} // namespace

void TestKilledSaves::configurationKilledAtEachSystemCallIsNeverHalf()
{
    RaWifiService service(1, nullptr);
    const auto isKilledAt = [&](int stop) {
        service.changeWpaConfigfile("home", keyNumber(0).constData());
        int stops = 0;
        const int result = tracedchild::run(
            [&service] {
                beQuiet();
                tracedchild::begin();
                service.changeWpaConfigfile("home", keyNumber(1).constData());
                tracedchild::end();
                return 0;
            },
            KillAt{stop, &stops});
        return result == -1;
    };
    QByteArray states;
    while (isKilledAt(static_cast<int>(states.size()))) {
        states += stateOf(1);
        QCOMPARE(service.changeWpaConfigfile("home", keyNumber(2).constData()), 0);
        QCOMPARE(fakesystem::readFile(configFile), configNumber(2));
        QVERIFY(!fakesystem::exists(configTemporary));
    }
    QCOMPARE(fakesystem::readFile(configFile), configNumber(1)); // not killed any more
    QVERIFY2(!states.contains('X') && states.contains('o') && states.contains('n'), states.constData());
    const int stops = static_cast<int>(states.size());
    qInfo("killed at %d stops of %d system calls: %s", stops, stops / 2, states.constData());
}

void TestKilledSaves::configurationKilledAtRandomMomentsIsNeverHalf()
{
    RaWifiService service(1, nullptr);
    service.changeWpaConfigfile("home", keyNumber(0).constData());
    Saver saver;
    QMap<char, int> seen;
    int next = 1;
    for (int i = 0; i < killsAtRandom; ++i) {
        const int last = saver.killWhileSaving(next, [&service] {
            return [&service](int number) { service.changeWpaConfigfile("home", keyNumber(number).constData()); };
        });
        const char state = stateOf(last);
        QVERIFY2(state != 'X', QByteArray::number(i).constData());
        ++seen[state];
        next = last + (state == 'n' ? 1 : 0);
    }
    QVERIFY(seen.value('o') > 0 && seen.value('n') > 0);
    qInfo("%d kills at random in %d writes: %d times the old file, %d times none with the whole new one beside it, "
          "%d times the new one",
          killsAtRandom, next, seen.value('o'), seen.value('-'), seen.value('n'));
}

void TestKilledSaves::nothingTakesItsPlaceBeforeItIsOnDisk_data()
{
    QTest::addColumn<bool>("isStore");
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("store") << true << QByteArray(storeFile);
    QTest::newRow("configuration") << false << QByteArray(configFile);
}

// A disk may keep back, for as long as it likes, all that no fsync has asked for.
void TestKilledSaves::nothingTakesItsPlaceBeforeItIsOnDisk()
{
    QFETCH(bool, isStore);
    QFETCH(QByteArray, path);
    const QByteArray temporary = path + ".tmp";
    const QByteArray directory = path.left(path.lastIndexOf('/'));
    RaWifiService service(1, nullptr);
    RaWifiData store;
    QList<QByteArray> order;
    const int result = tracedchild::run(
        [&] {
            beQuiet();
            tracedchild::begin();
            if (isStore) {
                carryOut(store, Step{1, "key"});
            } else {
                service.changeWpaConfigfile("home", "password");
            }
            tracedchild::end();
            return 0;
        },
        [&](const tracedchild::SystemCall& call) {
            if (!call.isEntry) {
                return tracedchild::Fate{tracedchild::Fate::Go, 0};
            }
            switch (call.number) {
            case SYS_write:
            case SYS_writev:
            case SYS_pwrite64:
            case SYS_ftruncate:
                order << "write " + call.fileOf(0);
                break;
            case SYS_fsync:
            case SYS_fdatasync:
                order << "fsync " + call.fileOf(0);
                break;
#ifdef SYS_rename
            case SYS_rename:
                order << "rename " + call.textOf(0) + " " + call.textOf(1);
                break;
#endif
#ifdef SYS_unlink
            case SYS_unlink:
                order << "remove " + call.textOf(0);
                break;
#endif
            case SYS_unlinkat:
                order << "remove " + call.textOf(1);
                break;
            case SYS_renameat:
            case SYS_renameat2:
                order << "rename " + call.textOf(1) + " " + call.textOf(3);
                break;
            default:
                break;
            }
            return tracedchild::Fate{tracedchild::Fate::Go, 0};
        });
    QCOMPARE(result, 0);
    QList<QByteArray> ofTheFile;
    for (const QByteArray& call : order) {
        if (call.contains(temporary) || call.endsWith(' ' + path) || call.endsWith(' ' + directory)) {
            ofTheFile << call;
        }
    }
    while (ofTheFile.count("write " + temporary) > 1) {
        ofTheFile.removeOne("write " + temporary);
    }
    QList<QByteArray> expected = QList<QByteArray>() << "write " + temporary << "fsync " + temporary;
    if (!isStore) {
        expected << "remove " + path; // the interface's own step
    }
    expected << "rename " + temporary + ' ' + path << "fsync " + directory;
    QCOMPARE(ofTheFile, expected);
}

QTEST_GUILESS_MAIN(TestKilledSaves)
#include "tst_killedsaves.moc"
