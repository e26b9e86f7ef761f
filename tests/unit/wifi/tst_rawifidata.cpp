// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifidata.h"

#include "capturedoutput.h"
#include "fakesystem.h"
#include "loggedmessages.h"

#include <QtTest>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <poll.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const char storeFile[] = "/apps/config/network.conf";
const char workingFile[] = "/home/wifi/tmpnetwork.conf";
const int recordSize = 388;

int g_failRename = 0; // errno of the next renames, 0: the real call
int g_failFsync = 0;

APData network(int number, const char* psk = "password")
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    std::snprintf(ap.essid, sizeof ap.essid, "network %d", number);
    std::snprintf(ap.macAddr, sizeof ap.macAddr, "02:00:00:00:00:%02x", number & 0xff);
    std::snprintf(ap.key_mgmt, sizeof ap.key_mgmt, "WPA2-PSK");
    std::snprintf(ap.psk, sizeof ap.psk, "%s", psk);
    std::snprintf(ap.IP, sizeof ap.IP, "10.0.0.1");
    std::snprintf(ap.wpa_state, sizeof ap.wpa_state, "COMPLETED");
    ap.encry[0] = WPA2_PSK;
    ap.encry[1] = NOENCRY;
    ap.sigquality = 3;
    ap.id = 7;
    ap.snow = 2;
    ap.connectSUC = 1;
    ap.authMode = 1;
    ap.keyIndex = 2;
    ap.is_encry = 2;
    ap.orderbynum = 5;
    return ap;
}

void save(RaWifiData& store, int number, const char* psk = "password")
{
    APData ap = network(number, psk);
    QCOMPARE(store.addData(&ap, false), 0);
}

QList<QByteArray> names(RaWifiData& store)
{
    QList<QByteArray> list;
    for (int i = 0; i < store.getDataCount(); ++i) {
        APData ap;
        if (store.getDataByIndex(&ap, i) == 0) {
            list << ap.essid;
        }
    }
    return list;
}

int modeOf(const char* path)
{
    struct stat about;
    return stat(path, &about) == 0 ? static_cast<int>(about.st_mode & 07777) : -1;
}

QByteArray record(const char* name, const char* mac)
{
    StoreData data;
    std::memset(&data, 0, sizeof data);
    std::strcpy(data.essid, name);
    std::strcpy(data.macAddr, mac);
    data.orderbynum = 3;
    return QByteArray(reinterpret_cast<const char*>(&data), sizeof data);
}

} // namespace

// The library's calls, failing on demand.
extern "C" int rename(const char* from, const char* to) noexcept
{
    if (g_failRename != 0) {
        errno = g_failRename;
        return -1;
    }
    typedef int (*Rename)(const char*, const char*);
    static const Rename real = reinterpret_cast<Rename>(dlsym(RTLD_NEXT, "rename"));
    return real(from, to);
}

extern "C" int fsync(int descriptor)
{
    if (g_failFsync != 0) {
        errno = g_failFsync;
        return -1;
    }
    typedef int (*Fsync)(int);
    static const Fsync real = reinterpret_cast<Fsync>(dlsym(RTLD_NEXT, "fsync"));
    return real(descriptor);
}

class TestRaWifiData : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void missingFileIsCreatedEmptyWithOwnerOnlyMode();
    void fileLayoutIsHeaderAndRecords();
    void recordReadBackHasItsIndexAsRankAndNoLinkState();
    void sixteenthNetworkDropsTheOldest();
    void knownNetworkIsReplacedAndMovesToTheFront();
    void forgettingTheOnlyNetworkEmptiesTheFile();
    void forgettingFindsTheWholeAddressOnly_data();
    void forgettingFindsTheWholeAddressOnly();
    void forgettingNothingReturnsZeroAndWritesNothing();
    void emptyNameOrAddressIsNotSaved_data();
    void emptyNameOrAddressIsNotSaved();
    void indexOutOfRangeIsRefused_data();
    void indexOutOfRangeIsRefused();
    void filesAreRead_data();
    void filesAreRead();
    void unterminatedFieldsAreCut();
    void loadingTwiceDoublesTheList();
    void clearingKeepsTheFile();
    void writeReturnsTheBytesOfTheLastWrite();
    void filesHaveOwnerOnlyMode();
    void nothingIsLeftBesideTheStore();
    void linkAtTheWorkingFileIsNotFollowed();
    void eachRecordWrittenIsALineOfTheLog();
    void workingFileThatCannotBeWrittenGivesOne();
    void failingStepLeavesTheOldFile_data();
    void failingStepLeavesTheOldFile();
    void fullDiskLeavesTheOldFile();
    void unreadableFileIsNotLoaded_data();
    void unreadableFileIsNotLoaded();
    void networksOfAnUnreadFileAreKept();
    void aSaveIsFlushed();
    void storeSurvivesARestart();
    void processesThatSaveAtOnceAllSucceed();
};

void TestRaWifiData::init()
{
    fakesystem::reset();
    g_failRename = 0;
    g_failFsync = 0;
    fakesystem::runForReal("rm -rf /apps/config /home/wifi && mkdir -p /apps/config && mkdir -m 777 /home/wifi");
}

void TestRaWifiData::missingFileIsCreatedEmptyWithOwnerOnlyMode()
{
    RaWifiData store;
    QVERIFY(!fakesystem::exists(storeFile));
    QCOMPARE(store.loadData(), 0);
    QCOMPARE(store.getDataCount(), 0);
    QVERIFY(fakesystem::exists(storeFile));
    QCOMPARE(fakesystem::readFile(storeFile), QByteArray());
    QCOMPARE(modeOf(storeFile), 0600);
}

void TestRaWifiData::fileLayoutIsHeaderAndRecords()
{
    RaWifiData store;
    save(store, 1);
    save(store, 2);
    save(store, 3);
    const QByteArray bytes = fakesystem::readFile(storeFile);
    QCOMPARE(static_cast<int>(bytes.size()), 5 + 3 * recordSize);
    QCOMPARE(bytes.left(5), QByteArray("3xxxx"));

    const QByteArray newest = bytes.mid(5, recordSize);
    QCOMPARE(QByteArray(newest.constData()), QByteArray("network 3"));
    QCOMPARE(QByteArray(newest.constData() + 40), QByteArray("02:00:00:00:00:03"));
    QCOMPARE(QByteArray(newest.constData() + 58), QByteArray("WPA2-PSK"));
    QCOMPARE(QByteArray(newest.constData() + 158), QByteArray("password"));
    QCOMPARE(newest.mid(358, 2), QByteArray(2, '\0'));
    const int wanted[] = {WPA2_PSK, NOENCRY, 3, 999,
                          2,        2,       1}; // encry, sigquality, orderbynum, is_encry, keyIndex, authMode
    for (int i = 0; i < 7; ++i) {
        int value = 0;
        std::memcpy(&value, newest.constData() + 360 + 4 * i, 4);
        QCOMPARE(value, wanted[i]);
    }
    QCOMPARE(QByteArray(bytes.constData() + 5 + recordSize), QByteArray("network 2"));
}

void TestRaWifiData::recordReadBackHasItsIndexAsRankAndNoLinkState()
{
    RaWifiData store;
    save(store, 1);
    save(store, 2);
    APData ap = network(9);
    QCOMPARE(store.getDataByIndex(&ap, 1), 0);
    QCOMPARE(QByteArray(ap.essid), QByteArray("network 1"));
    QCOMPARE(ap.orderbynum, 1);
    QCOMPARE(QByteArray(ap.IP), QByteArray());
    QCOMPARE(QByteArray(ap.wpa_state), QByteArray());
    QCOMPARE(ap.connectSUC, 0);
    QCOMPARE(ap.id, 0);
    QCOMPARE(ap.snow, 0);
    QCOMPARE(QByteArray(ap.psk), QByteArray("password"));
    QCOMPARE(ap.authMode, 1);
    QCOMPARE(ap.keyIndex, 2);
    QCOMPARE(ap.is_encry, 2);
    QCOMPARE(ap.encry[0], static_cast<int>(WPA2_PSK));
}

void TestRaWifiData::sixteenthNetworkDropsTheOldest()
{
    RaWifiData store;
    for (int i = 1; i <= 16; ++i) {
        save(store, i);
    }
    QCOMPARE(store.getDataCount(), 15);
    QCOMPARE(names(store).first(), QByteArray("network 16"));
    QCOMPARE(names(store).last(), QByteArray("network 2"));
    const QByteArray bytes = fakesystem::readFile(storeFile);
    QCOMPARE(bytes.left(5), QByteArray("15xxx"));
    QCOMPARE(static_cast<int>(bytes.size()), 5 + 15 * recordSize);
}

void TestRaWifiData::knownNetworkIsReplacedAndMovesToTheFront()
{
    RaWifiData store;
    save(store, 1);
    save(store, 2);
    save(store, 1, "changed");
    QCOMPARE(store.getDataCount(), 2);
    QCOMPARE(names(store), (QList<QByteArray>() << "network 1"
                                                << "network 2"));
    APData ap;
    QCOMPARE(store.getDataByIndex(&ap, 0), 0);
    QCOMPARE(QByteArray(ap.psk), QByteArray("changed"));
}

void TestRaWifiData::forgettingTheOnlyNetworkEmptiesTheFile()
{
    RaWifiData store;
    save(store, 1);
    QCOMPARE(store.reInitAPData(QLatin1String("02:00:00:00:00:01")), 0);
    QCOMPARE(store.getDataCount(), 0);
    QVERIFY(fakesystem::exists(storeFile));
    QCOMPARE(fakesystem::readFile(storeFile), QByteArray());
    RaWifiData again;
    QCOMPARE(again.loadData(), 0);
    QCOMPARE(again.getDataCount(), 0);
}

void TestRaWifiData::forgettingFindsTheWholeAddressOnly_data()
{
    QTest::addColumn<QString>("mac");
    QTest::addColumn<int>("left");
    QTest::newRow("whole") << QString::fromLatin1("02:00:00:00:00:01") << 1;
    QTest::newRow("first 11 characters") << QString::fromLatin1("02:00:00:00") << 2;
    QTest::newRow("another end") << QString::fromLatin1("02:00:00:00:00:0a") << 2;
}

void TestRaWifiData::forgettingFindsTheWholeAddressOnly()
{
    QFETCH(QString, mac);
    QFETCH(int, left);
    RaWifiData store;
    save(store, 1);
    save(store, 2);
    const QByteArray printed = capturedOutput(stdout, [&] { QCOMPARE(store.reInitAPData(mac), recordSize); });
    QCOMPARE(store.getDataCount(), left);
    QCOMPARE(printed.contains(" --------------!strncmp(m_apinfo[i].macAddr,pinfo->macAddr,11)------------------\n"),
             left == 1);
    QCOMPARE(fakesystem::readFile(storeFile).left(1), QByteArray::number(left));
}

void TestRaWifiData::forgettingNothingReturnsZeroAndWritesNothing()
{
    RaWifiData store;
    QCOMPARE(store.reInitAPData(QString()), 0);
    QVERIFY(!fakesystem::exists(storeFile));
}

void TestRaWifiData::emptyNameOrAddressIsNotSaved_data()
{
    QTest::addColumn<bool>("withName");
    QTest::addColumn<bool>("withMac");
    QTest::newRow("no name") << false << true;
    QTest::newRow("no address") << true << false;
}

void TestRaWifiData::emptyNameOrAddressIsNotSaved()
{
    QFETCH(bool, withName);
    QFETCH(bool, withMac);
    APData ap = network(1);
    if (!withName) {
        ap.essid[0] = '\0';
    }
    if (!withMac) {
        ap.macAddr[0] = '\0';
    }
    RaWifiData store;
    QCOMPARE(store.addData(&ap, true), 0);
    QCOMPARE(store.getDataCount(), 0);
    QVERIFY(!fakesystem::exists(storeFile));
    QVERIFY(!fakesystem::exists(workingFile));
}

void TestRaWifiData::indexOutOfRangeIsRefused_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("one past the end") << 2;
    QTest::newRow("far beyond") << 100;
}

void TestRaWifiData::indexOutOfRangeIsRefused()
{
    QFETCH(int, index);
    RaWifiData store;
    save(store, 1);
    save(store, 2);
    APData ap = network(9);
    QCOMPARE(store.getDataByIndex(&ap, index), -1);
    QCOMPARE(QByteArray(ap.essid), QByteArray("network 9"));
}

void TestRaWifiData::filesAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("loaded"); // names, comma between
    const QByteArray a = record("a", "02:00:00:00:00:01");
    const QByteArray b = record("b", "02:00:00:00:00:02");
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("one") << "1xxxx" + a << QByteArray("a");
    QTest::newRow("two") << "2xxxx" + a + b << QByteArray("a,b");
    QTest::newRow("more counted than there are") << "3xxxx" + a + b << QByteArray("a,b");
    QTest::newRow("fewer counted than there are") << "1xxxx" + a + b << QByteArray("a");
    QTest::newRow("two digits") << "15xxx" + a << QByteArray("a");
    QTest::newRow("no number") << "xxxxx" + a << QByteArray();
    QTest::newRow("negative") << "-1xxx" + a << QByteArray();
    QTest::newRow("huge") << "99999" + a << QByteArray("a");
    QTest::newRow("short header") << QByteArray("1x") << QByteArray();
    QTest::newRow("record without a name") << "2xxxx" + record("", "02:00:00:00:00:01") + b << QByteArray("b");
    QTest::newRow("record without an address") << "2xxxx" + record("a", "") + b << QByteArray("b");
    QTest::newRow("last record cut behind its texts") << "2xxxx" + a + b.left(100) << QByteArray("a,b");
    QTest::newRow("last record cut in its name") << "2xxxx" + a + b.left(20) << QByteArray("a");
}

void TestRaWifiData::filesAreRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, loaded);
    fakesystem::writeFile(storeFile, bytes);
    RaWifiData store;
    const QList<QByteArray> logged = loggedMessages([&store] { QCOMPARE(store.loadData(), 0); });
    QCOMPARE(names(store).join(','), loaded);
    QCOMPARE(logged.last(), "..index =" + bytes.left(5).split('x').first());
    QCOMPARE(fakesystem::readFile(storeFile), bytes);
}

void TestRaWifiData::unterminatedFieldsAreCut()
{
    fakesystem::writeFile(storeFile, "1xxxx" + QByteArray(recordSize, 'y'));
    RaWifiData store;
    QCOMPARE(store.loadData(), 0);
    APData ap;
    QCOMPARE(store.getDataByIndex(&ap, 0), 0);
    QCOMPARE(QByteArray(ap.essid), QByteArray(39, 'y'));
    QCOMPARE(QByteArray(ap.macAddr), QByteArray(17, 'y'));
    QCOMPARE(QByteArray(ap.key_mgmt), QByteArray(99, 'y'));
    QCOMPARE(QByteArray(ap.psk), QByteArray(199, 'y'));
}

void TestRaWifiData::loadingTwiceDoublesTheList()
{
    RaWifiData store;
    save(store, 1);
    RaWifiData other;
    QCOMPARE(other.loadData(), 0);
    QCOMPARE(other.loadData(), 0);
    QCOMPARE(other.getDataCount(), 2);
}

void TestRaWifiData::clearingKeepsTheFile()
{
    RaWifiData store;
    save(store, 1);
    const QByteArray bytes = fakesystem::readFile(storeFile);
    store.clearStoreAP();
    QCOMPARE(store.getDataCount(), 0);
    QCOMPARE(fakesystem::readFile(storeFile), bytes);
}

void TestRaWifiData::writeReturnsTheBytesOfTheLastWrite()
{
    RaWifiData store;
    QCOMPARE(store.writeData(), 0);
    save(store, 1);
    QCOMPARE(store.writeData(), recordSize);
}

void TestRaWifiData::filesHaveOwnerOnlyMode()
{
    fakesystem::writeFile(storeFile, QByteArray());
    chmod(storeFile, 0644);
    RaWifiData store;
    save(store, 1);
    QCOMPARE(modeOf(storeFile), 0600);
    QCOMPARE(modeOf(workingFile), 0600);
    QCOMPARE(fakesystem::readFile(workingFile), fakesystem::readFile(storeFile));
}

void TestRaWifiData::nothingIsLeftBesideTheStore()
{
    RaWifiData store;
    save(store, 1);
    QCOMPARE(QDir(QLatin1String("/apps/config")).entryList(QDir::Files | QDir::Hidden),
             QStringList(QLatin1String("network.conf")));
}

void TestRaWifiData::linkAtTheWorkingFileIsNotFollowed()
{
    fakesystem::writeFile("/home/victim", "untouched");
    QCOMPARE(symlink("/home/victim", workingFile), 0);
    RaWifiData store;
    save(store, 1);
    QCOMPARE(fakesystem::readFile("/home/victim"), QByteArray("untouched"));
    QCOMPARE(fakesystem::readFile(storeFile).left(5), QByteArray("1xxxx"));
}

void TestRaWifiData::eachRecordWrittenIsALineOfTheLog()
{
    RaWifiData store;
    save(store, 1);
    save(store, 2);
    const QByteArray printed = capturedOutput(stderr, [&] { QCOMPARE(store.writeData(), recordSize); });
    QCOMPARE(printed, (QByteArray(34, '-') + '\n').repeated(2));
}

void TestRaWifiData::workingFileThatCannotBeWrittenGivesOne()
{
    RaWifiData store;
    save(store, 1);
    const QByteArray before = fakesystem::readFile(storeFile);
    fakesystem::runForReal("rm -rf /home/wifi");
    const QByteArray printed =
        capturedOutput(stderr, [&] { QCOMPARE(store.reInitAPData(QLatin1String("02:00:00:00:00:09")), 1); });
    QCOMPARE(static_cast<int>(printed.count('\n')), 1); // one log line
    QVERIFY2(printed.contains(QByteArray("cannot write ") + workingFile), printed.constData());
    QCOMPARE(fakesystem::readFile(storeFile), before);
}

void TestRaWifiData::failingStepLeavesTheOldFile_data()
{
    QTest::addColumn<int>("renameError");
    QTest::addColumn<int>("fsyncError");
    QTest::newRow("rename") << EIO << 0;
    QTest::newRow("fsync") << 0 << EIO;
}

void TestRaWifiData::failingStepLeavesTheOldFile()
{
    QFETCH(int, renameError);
    QFETCH(int, fsyncError);
    RaWifiData store;
    save(store, 1);
    const QByteArray before = fakesystem::readFile(storeFile);
    g_failRename = renameError;
    g_failFsync = fsyncError;
    QCOMPARE(store.reInitAPData(QLatin1String("02:00:00:00:00:01")), 1);
    QCOMPARE(fakesystem::readFile(storeFile), before);
    QVERIFY(!fakesystem::exists("/apps/config/network.conf.tmp"));
    g_failRename = 0;
    g_failFsync = 0;
    QCOMPARE(store.writeData(), 0);
    QCOMPARE(fakesystem::readFile(storeFile), QByteArray());
}

void TestRaWifiData::fullDiskLeavesTheOldFile()
{
    QCOMPARE(mount("tiny", "/apps/config", "tmpfs", 0, "size=8k"), 0);
    RaWifiData store;
    save(store, 1);
    const QByteArray before = fakesystem::readFile(storeFile);
    fakesystem::writeFile("/apps/config/filler", QByteArray(4096, 'f'));
    for (int i = 2; i < 15; ++i) {
        save(store, i);
    }
    const int result = store.writeData();
    const QByteArray after = fakesystem::readFile(storeFile);
    umount("/apps/config");
    QCOMPARE(result, 1);
    QCOMPARE(after, before);
}

void TestRaWifiData::unreadableFileIsNotLoaded_data()
{
    QTest::addColumn<QByteArray>("planted");
    QTest::newRow("directory") << QByteArray("mkdir /apps/config/network.conf");
    QTest::newRow("fifo") << QByteArray("mkfifo /apps/config/network.conf");
    QTest::newRow("link") << QByteArray("echo 1xxxx >/home/other; ln -s /home/other /apps/config/network.conf");
}

void TestRaWifiData::unreadableFileIsNotLoaded()
{
    QFETCH(QByteArray, planted);
    fakesystem::runForReal(planted);
    RaWifiData store;
    QCOMPARE(store.loadData(), -1);
    QCOMPARE(store.getDataCount(), 0);
}

// As when all descriptors were in use while the device started.
void TestRaWifiData::networksOfAnUnreadFileAreKept()
{
    {
        RaWifiData store;
        save(store, 1);
        save(store, 2);
    }
    RaWifiData store;
    rlimit before;
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none = {0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const int loaded = store.loadData();
    setrlimit(RLIMIT_NOFILE, &before);
    QCOMPARE(loaded, -1);
    save(store, 3);
    RaWifiData again;
    QCOMPARE(again.loadData(), 0);
    QCOMPARE(names(again), (QList<QByteArray>() << "network 3"
                                                << "network 2"
                                                << "network 1"));
}

void TestRaWifiData::aSaveIsFlushed()
{
    RaWifiData store;
    const int before = fakesystem::syncs();
    save(store, 1);
    QVERIFY(fakesystem::syncs() > before);
}

void TestRaWifiData::storeSurvivesARestart()
{
    {
        RaWifiData store;
        save(store, 1);
        save(store, 2);
    }
    RaWifiData again;
    QCOMPARE(again.loadData(), 0);
    QCOMPARE(names(again), (QList<QByteArray>() << "network 2"
                                                << "network 1"));
}

void TestRaWifiData::processesThatSaveAtOnceAllSucceed()
{
    const int savesEach = 300;
    const int processes = 3;
    int failed = 0;
    capturedOutput(stderr, [&] {
        QList<pid_t> children;
        for (int process = 0; process < processes; ++process) {
            const pid_t child = fork();
            if (child == 0) {
                fakesystem::onSleep([](int milliseconds) { poll(nullptr, 0, milliseconds); });
                int failures = 0;
                RaWifiData store;
                save(store, process);
                for (int i = 0; i < savesEach; ++i) {
                    failures += store.writeData() == 1 ? 1 : 0;
                }
                _exit(failures == 0 ? 0 : 1);
            }
            children << child;
        }
        for (const pid_t child : children) {
            int status = -1;
            waitpid(child, &status, 0);
            failed += status == 0 ? 0 : 1;
        }
    });
    QCOMPARE(failed, 0);
    RaWifiData store;
    QCOMPARE(store.loadData(), 0);
    QCOMPARE(store.getDataCount(), 1); // the last one's list
    qInfo("%d saves of %d processes at once", processes * savesEach, processes);
}

QTEST_APPLESS_MAIN(TestRaWifiData)
#include "tst_rawifidata.moc"
