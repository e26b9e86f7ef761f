// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
//
// A save of the store and a write of the supplicant's configuration in which one system call after the other fails.
#include "capturedoutput.h"
#include "fakesystem.h"
#include "rawifiservice.h"
#include "savedlists.h"
#include "tracedchild.h"

#include <QDir>
#include <QtTest>
#include <cerrno>
#include <functional>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/syscall.h>

using namespace savedlists;

namespace {

const char configFile[] = "/etc/wpa_supplicant.conf";
const char logFile[] = "/tmp/log";
const int shortWrite = -1; // in place of an errno

const int errors[] = {ENOSPC, EIO, EROFS, EMFILE, ENOENT, EINTR, shortWrite};

QByteArray nameOf(int error)
{
    const char* const names[] = {"ENOSPC", "EIO", "EROFS", "EMFILE", "ENOENT", "EINTR", "short write"};
    for (int i = 0; i < 7; ++i) {
        if (errors[i] == error) {
            return names[i];
        }
    }
    return QByteArray();
}

bool isWrite(const tracedchild::SystemCall& call)
{
    return call.number == SYS_write || call.number == SYS_writev;
}

bool isRename(const tracedchild::SystemCall& call)
{
#ifdef SYS_rename
    if (call.number == SYS_rename) {
        return true;
    }
#endif
    return call.number == SYS_renameat2;
}

/** A call that works on files, the log's lines aside. */
bool isFileCall(const tracedchild::SystemCall& call)
{
    const long numbers[] = {
#ifdef SYS_open
        SYS_open,   SYS_rename,    SYS_unlink,    SYS_mkdir,     SYS_stat,       SYS_lstat, SYS_chmod,
#endif
        SYS_openat, SYS_renameat2, SYS_unlinkat,  SYS_mkdirat,   SYS_newfstatat, SYS_fstat, SYS_fchmod, SYS_write,
        SYS_writev, SYS_fsync,     SYS_fdatasync, SYS_ftruncate, SYS_fcntl,      SYS_lseek, SYS_close,  SYS_flock};
    for (const long number : numbers) {
        if (call.number == number) {
            return !isWrite(call) || call.words[0] > STDERR_FILENO;
        }
    }
    return false;
}

int descriptors()
{
    return static_cast<int>(QDir(QLatin1String("/proc/self/fd")).entryList(QDir::Files | QDir::System).size());
}

int warnings(const QByteArray& log)
{
    return static_cast<int>(log.count("W/LOG"));
}

/** One way of saving: what it does, which file it is about, and what it may return. */
struct Subject
{
    const char* path;
    std::function<void()> putOld; ///< in the test
    std::function<int()> save;    ///< in the child, or in the test
    std::function<QByteArray()> newBytes;
    int success;
    int failure;
};

QByteArray config(const char* key)
{
    return QByteArray("# Simple case: WPA-PSK, PSK as an ASCII passphrase, allow all valid ciphers\n"
                      "ctrl_interface=/var/run/wpa_supplicant\nctrl_interface_group=0\nap_scan=1\nnetwork={\n"
                      "\tssid=\"home\"\n\tpsk=\"")
           + key + "\"\n}\n";
}

Networks threeNetworks()
{
    Networks networks;
    for (int i = 0; i < 3; ++i) {
        carryOut(networks, Step{i, "key"});
    }
    return networks;
}

} // namespace

class TestFailingCalls : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void eachCallFailsInEachWay_data();
    void eachCallFailsInEachWay();
    void realFaults_data();
    void realFaults();

private:
    Subject subjectOf(const QByteArray& name);
    void compareAfterwards(const Subject& subject, int result, const QByteArray& old, const QByteArray& log,
                           bool oldMayBeGone);

    RaWifiData* m_store = nullptr;
    RaWifiService* m_service = nullptr;
};

void TestFailingCalls::init()
{
    fakesystem::reset();
    fakesystem::runForReal("rm -rf /apps/config /home/wifi /etc/wpa_supplicant.conf*");
    fakesystem::runForReal("mkdir -p /apps/config && mkdir -m 777 /home/wifi");
    fakesystem::answerCommand("rm -f /etc/wpa_supplicant.conf", [] { unlink(configFile); });
    m_service = new RaWifiService(1, nullptr);
}

void TestFailingCalls::cleanup()
{
    delete m_store;
    m_store = nullptr;
    delete m_service;
}

// Each is made so that the store in memory is the one of the old file when the save begins.
Subject TestFailingCalls::subjectOf(const QByteArray& name)
{
    if (name == "configuration") {
        return {configFile,
                [this] { m_service->changeWpaConfigfile("home", "old password"); },
                [this] { return m_service->changeWpaConfigfile("home", "new password"); },
                [] { return config("new password"); },
                0,
                -2};
    }
    const bool forgets = name == "network forgotten";
    const Step step = {1, forgets ? "" : "changed"};
    return {storeFile,
            [this] {
                fakesystem::writeFile(storeFile, imageOf(threeNetworks()));
                delete m_store;
                m_store = new RaWifiData;
                m_store->loadData();
            },
            [this, step, forgets] {
                if (forgets) {
                    return m_store->reInitAPData(QString::fromLatin1(macOf(step.network)));
                }
                APData ap = recordOf(step);
                return m_store->addData(&ap, true); // 0 in any case
            },
            [step] {
                Networks networks = threeNetworks();
                carryOut(networks, step);
                return imageOf(networks);
            },
            forgets ? 388 : 0,
            forgets ? 1 : 0};
}

/** \a oldMayBeGone: the step after the old configuration's removal failed. */
void TestFailingCalls::compareAfterwards(const Subject& subject, int result, const QByteArray& old,
                                         const QByteArray& log, bool oldMayBeGone)
{
    const QByteArray bytes = fakesystem::readFile(subject.path);
    const bool isNew = bytes == subject.newBytes();
    QVERIFY2(isNew || bytes == old || (oldMayBeGone && !fakesystem::exists(subject.path)), bytes.constData());
    QCOMPARE(result, isNew ? subject.success : subject.failure);
    if (isNew) {
        QVERIFY2(warnings(log) <= 1, log.constData()); // the directory could not be flushed
    } else {
        QCOMPARE(warnings(log), 1);
    }
    subject.putOld();
    QCOMPARE(subject.save(), subject.success);
    QCOMPARE(fakesystem::readFile(subject.path), subject.newBytes());
    QVERIFY(!fakesystem::exists((QByteArray(subject.path) + ".tmp").constData()));
}

void TestFailingCalls::eachCallFailsInEachWay_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QByteArray>("saved");
    for (const char* saved : {"network saved", "network forgotten", "configuration"}) {
        for (const int error : errors) {
            QTest::newRow((saved + QByteArray(", ") + nameOf(error)).constData()) << error << QByteArray(saved);
        }
    }
}

void TestFailingCalls::eachCallFailsInEachWay()
{
    QFETCH(int, error);
    QFETCH(QByteArray, saved);
    if (!tracedchild::canChangeCalls) {
        QSKIP("system calls cannot be changed on this machine");
    }
    const Subject subject = subjectOf(saved);
    const int leak = 100;
    const int codes[] = {0, 1, 388, -2};
    int calls = 1; // until the first run has counted them
    int failures = 0;
    for (int failing = 0; failing < calls; ++failing) {
        subject.putOld();
        const QByteArray old = fakesystem::readFile(subject.path);
        int counted = 0;
        bool isConfigurationsRename = false;
        bool isHit = false;
        const int status = tracedchild::run(
            [&] {
                beQuiet();
                dup2(open(logFile, O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
                const int before = descriptors();
                tracedchild::begin();
                const int result = subject.save();
                tracedchild::end();
                int code = 0;
                while (codes[code] != result) {
                    ++code;
                }
                return code + (descriptors() == before ? 0 : leak);
            },
            [&](const tracedchild::SystemCall& call) {
                using tracedchild::Fate;
                // A descriptor is gone even if its close() is said to have failed.
                const bool isClose = call.number == SYS_close;
                if (!isFileCall(call) || call.isEntry == isClose || counted++ != failing) {
                    return Fate{Fate::Go, 0};
                }
                isHit = error != shortWrite || isWrite(call);
                isConfigurationsRename = isRename(call) && QByteArray(configFile) == subject.path;
                return error != shortWrite ? Fate{Fate::Fail, error} : Fate{isHit ? Fate::Halve : Fate::Go, 0};
            });
        calls = qMax(calls, counted);
        QVERIFY2(status >= 0 && status < leak, status < 0 ? "died" : "descriptors leaked");
        failures += isHit ? 1 : 0;
        compareAfterwards(subject, codes[status], old, fakesystem::readFile(logFile), isConfigurationsRename);
        if (QTest::currentTestFailed()) {
            qWarning("at call %d of %d", failing, calls);
            return;
        }
    }
    QVERIFY(failures > 0);
    qInfo("%d calls failed, one at a time", failures);
}

void TestFailingCalls::realFaults_data()
{
    QTest::addColumn<QByteArray>("saved");
    QTest::addColumn<QByteArray>("fault");
    for (const char* saved : {"network saved", "network forgotten", "configuration"}) {
        for (const char* fault : {"disk full", "read-only", "no descriptors", "directory gone"}) {
            QTest::newRow((saved + QByteArray(", ") + fault).constData()) << QByteArray(saved) << QByteArray(fault);
        }
    }
}

void TestFailingCalls::realFaults()
{
    QFETCH(QByteArray, saved);
    QFETCH(QByteArray, fault);
    const Subject subject = subjectOf(saved);
    const QByteArray directory = QByteArray(subject.path).left(QByteArray(subject.path).lastIndexOf('/'));
    // A disk of three pages: the old file, and two more that are taken when it is to be full.
    QCOMPARE(mount("tiny", directory.constData(), "tmpfs", 0, "size=12k"), 0);
    subject.putOld();
    const QByteArray old = fakesystem::readFile(subject.path);
    rlimit before;
    getrlimit(RLIMIT_NOFILE, &before);
    const QByteArray filler = directory + "/filler";
    const QByteArray moved = "/home/wifi-moved";
    std::function<void()> repair;
    std::function<void()> breakIt;
    if (fault == "disk full") {
        breakIt = [&] { fakesystem::writeFile(filler.constData(), QByteArray(8192, 'f')); };
        repair = [&] { unlink(filler.constData()); };
    } else if (fault == "read-only") {
        breakIt = [&] { mount("tiny", directory.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr); };
        repair = [&] { mount("tiny", directory.constData(), "tmpfs", MS_REMOUNT, nullptr); };
    } else if (fault == "no descriptors") {
        breakIt = [&] {
            const rlimit none = {0, before.rlim_max};
            setrlimit(RLIMIT_NOFILE, &none);
        };
        repair = [&] { setrlimit(RLIMIT_NOFILE, &before); };
    } else {
        breakIt = [&] { fakesystem::runForReal("mv /home/wifi " + moved); };
        repair = [&] { fakesystem::runForReal("mv " + moved + " /home/wifi"); };
    }
    int result = 0;
    int left = 0;
    const QByteArray log = capturedOutput(stderr, [&] {
        const int had = descriptors();
        breakIt();
        result = subject.save();
        repair();
        left = descriptors() - had;
    });
    const QByteArray after = fakesystem::readFile(subject.path);
    compareAfterwards(subject, result, old, log, false);
    umount(directory.constData());
    QCOMPARE(left, 0);
    // The configuration needs nothing in /home/wifi.
    const bool succeeds = saved == "configuration" && fault == "directory gone";
    QCOMPARE(after, succeeds ? subject.newBytes() : old);
}

QTEST_GUILESS_MAIN(TestFailingCalls)
#include "tst_failingcalls.moc"
