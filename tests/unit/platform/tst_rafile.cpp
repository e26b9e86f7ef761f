// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rafile.h"

#include "fakesystem.h"
#include "hostilefiles.h"
#include "loggedmessages.h"

#include <QDir>
#include <QtTest>
#include <functional>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const char directory[] = "/home/wifi";
const char path[] = "/home/wifi/file.txt";
const char temporary[] = "/home/wifi/file.txt.tmp";

typedef std::function<RaFile(const char*)> Open;

int modeOf(const char* file)
{
    struct stat about;
    return lstat(file, &about) == 0 ? static_cast<int>(about.st_mode & 07777) : -1;
}

bool write(const RaFile& file, const QByteArray& bytes)
{
    return std::fputs(bytes.constData(), file.get()) >= 0;
}

bool replace(const QByteArray& bytes)
{
    return raReplaceFile(path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

Q_DECLARE_METATYPE(Open)

class TestRaFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void onlyRegularFilesAreOpened_data();
    void onlyRegularFilesAreOpened();
    void missingFiles_data();
    void missingFiles();
    void olderContent_data();
    void olderContent();
    void aNewFileTakesThePlaceOfWhateverIsThere_data();
    void aNewFileTakesThePlaceOfWhateverIsThere();
    void onlyAPlainFileIsLeftForACommandToWriteTo_data();
    void onlyAPlainFileIsLeftForACommandToWriteTo();
    void aReplacedFileHasTheNewContentAndItsOwnersModeOnly_data();
    void aReplacedFileHasTheNewContentAndItsOwnersModeOnly();
    void aPlantedTemporaryFileIsNotWrittenTo_data();
    void aPlantedTemporaryFileIsNotWrittenTo();
    void aTemporaryFileLeftBehindIsInNobodysWay();
    void processesReplaceAFileInTurn();
    void aReplacementWaitsForTheOneBeforeItButNotForEver();
    void onlyTheOwnTemporaryFileTakesThePlace();
    void aFileThatCannotBeReplacedStaysWithOneLogLine_data();
    void aFileThatCannotBeReplacedStaysWithOneLogLine();

private:
    HostileFiles m_hostile;
};

void TestRaFile::init()
{
    fakesystem::reset();
    fakesystem::runForReal("rm -rf /home/wifi && mkdir -m 777 /home/wifi");
}

void TestRaFile::onlyRegularFilesAreOpened_data()
{
    QTest::addColumn<Open>("open");
    QTest::addColumn<bool>("creates");
    QTest::newRow("to read") << Open(raOpenForReading) << false;
    QTest::newRow("to update") << Open(raOpenForUpdate) << false;
    QTest::newRow("to append") << Open(raOpenForAppending) << true;
}

void TestRaFile::onlyRegularFilesAreOpened()
{
    QFETCH(Open, open);
    const QList<HostileFiles::Kind> kinds = HostileFiles::notRegular() << HostileFiles::DanglingLink;
    for (const HostileFiles::Kind kind : kinds) {
        m_hostile.plant(path, kind, "as it was");
        QVERIFY2(!open(path), HostileFiles::name(kind));
        QVERIFY2(m_hostile.isUntouched(), HostileFiles::name(kind));
        m_hostile.reset();
    }
}

void TestRaFile::missingFiles_data()
{
    onlyRegularFilesAreOpened_data();
}

void TestRaFile::missingFiles()
{
    QFETCH(Open, open);
    QFETCH(bool, creates);
    QCOMPARE(open(path) != nullptr, creates);
    QCOMPARE(modeOf(path), creates ? 0600 : -1);
    QVERIFY(!open("/home/wifi/no such directory/file.txt"));
}

void TestRaFile::olderContent_data()
{
    QTest::addColumn<Open>("open");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("mode");
    QTest::newRow("to update") << Open(raOpenForUpdate) << QByteArray("new content") << 0644;
    QTest::newRow("to append") << Open(raOpenForAppending) << QByteArray("old contentnew") << 0644;
    QTest::newRow("anew") << Open(raCreateAnew) << QByteArray("new") << 0600;
}

void TestRaFile::olderContent()
{
    QFETCH(Open, open);
    QFETCH(QByteArray, content);
    QFETCH(int, mode);
    fakesystem::writeFile(path, "old content");
    QCOMPARE(chmod(path, 0644), 0);
    {
        const RaFile file = open(path);
        QVERIFY(file);
        QVERIFY(write(file, "new"));
    }
    QCOMPARE(fakesystem::readFile(path), content);
    QCOMPARE(modeOf(path), mode);
}

void TestRaFile::aNewFileTakesThePlaceOfWhateverIsThere_data()
{
    QTest::addColumn<int>("kind");
    for (const HostileFiles::Kind kind : HostileFiles::traps()) {
        QTest::newRow(HostileFiles::name(kind)) << static_cast<int>(kind);
    }
}

void TestRaFile::aNewFileTakesThePlaceOfWhateverIsThere()
{
    QFETCH(int, kind);
    m_hostile.plant(path, static_cast<HostileFiles::Kind>(kind), "as it was");
    QVERIFY(write(raCreateAnew(path), "new"));
    QCOMPARE(fakesystem::readFile(path), QByteArray("new"));
    QCOMPARE(modeOf(path), 0600);
    QVERIFY(m_hostile.isUntouched());
}

void TestRaFile::onlyAPlainFileIsLeftForACommandToWriteTo_data()
{
    aNewFileTakesThePlaceOfWhateverIsThere_data();
}

void TestRaFile::onlyAPlainFileIsLeftForACommandToWriteTo()
{
    QFETCH(int, kind);
    raClearForWriting(path); // nothing there
    m_hostile.plant(path, static_cast<HostileFiles::Kind>(kind), "as it was");
    raClearForWriting(path);
    QVERIFY(!fakesystem::exists(path));
    QVERIFY(m_hostile.isUntouched());

    fakesystem::writeFile(path, "older");
    raClearForWriting(path);
    QCOMPARE(fakesystem::readFile(path), QByteArray("older")); // a command that fails leaves it
}

void TestRaFile::aReplacedFileHasTheNewContentAndItsOwnersModeOnly_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("text") << QByteArray("new");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("any bytes") << QByteArray("\0\n\xff", 3).repeated(10000);
}

void TestRaFile::aReplacedFileHasTheNewContentAndItsOwnersModeOnly()
{
    QFETCH(QByteArray, content);
    for (const bool isThere : {false, true}) {
        if (isThere) {
            fakesystem::writeFile(path, "old");
            QCOMPARE(chmod(path, 0666), 0);
        }
        QVERIFY(replace(content));
        QCOMPARE(fakesystem::readFile(path), content);
        QCOMPARE(modeOf(path), 0600);
        QVERIFY(!fakesystem::exists(temporary));
    }
}

void TestRaFile::aPlantedTemporaryFileIsNotWrittenTo_data()
{
    aNewFileTakesThePlaceOfWhateverIsThere_data();
}

void TestRaFile::aPlantedTemporaryFileIsNotWrittenTo()
{
    QFETCH(int, kind);
    m_hostile.plant(temporary, static_cast<HostileFiles::Kind>(kind), "as it was");
    QVERIFY(replace("new"));
    QCOMPARE(fakesystem::readFile(path), QByteArray("new"));
    QVERIFY(m_hostile.isUntouched());
}

void TestRaFile::aTemporaryFileLeftBehindIsInNobodysWay()
{
    fakesystem::writeFile(temporary, "half of a longer one");
    QCOMPARE(chmod(temporary, 0644), 0);
    QVERIFY(replace("new"));
    QCOMPARE(fakesystem::readFile(path), QByteArray("new"));
    QCOMPARE(modeOf(path), 0600);
    QVERIFY(!fakesystem::exists(temporary));
}

void TestRaFile::processesReplaceAFileInTurn()
{
    const int looks = 1000;
    const int replacementsAtLeast = 100;
    const char* const enough = "/home/wifi/enough";
    const QList<QByteArray> contents = QList<QByteArray>() << QByteArray(5000, 'a') << QByteArray(20000, 'b');
    fakesystem::writeFile(path, contents.first());
    QList<pid_t> children;
    for (const QByteArray& content : contents) {
        const pid_t child = fork();
        if (child == 0) {
            fakesystem::onSleep([](int milliseconds) { poll(nullptr, 0, milliseconds); });
            int failures = 0;
            for (int i = 0; i < replacementsAtLeast || !fakesystem::exists(enough); ++i) {
                failures += replace(content) ? 0 : 1;
            }
            _exit(failures == 0 ? 0 : 1);
        }
        children << child;
    }
    int torn = 0;
    for (int i = 0; i < looks; ++i) {
        torn += contents.contains(fakesystem::readFile(path)) ? 0 : 1;
    }
    fakesystem::writeFile(enough, "");
    int failed = 0;
    for (const pid_t child : children) {
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        failed += status == 0 ? 0 : 1;
    }
    QCOMPARE(torn, 0);
    QCOMPARE(failed, 0);
    QVERIFY(!fakesystem::exists(temporary));
    qInfo("%d looks at a file that two processes replace: always whole", looks);
}

void TestRaFile::aReplacementWaitsForTheOneBeforeItButNotForEver()
{
    fakesystem::writeFile(path, "old");
    {
        RaReplacement first(path, "1", 1);
        QCOMPARE(first.error(), 0);
        const QList<QByteArray> logged = loggedMessages([] { QVERIFY(!replace("2")); });
        QCOMPARE(static_cast<int>(logged.size()), 1);
        QCOMPARE(static_cast<int>(fakesystem::sleeps().size()), 5000);
        QCOMPARE(fakesystem::sleeps().count(1), fakesystem::sleeps().size());
        QCOMPARE(fakesystem::readFile(path), QByteArray("old"));
        QCOMPARE(first.complete(), 0);
    }
    QCOMPARE(fakesystem::readFile(path), QByteArray("1"));
    QVERIFY(replace("2"));
    QCOMPARE(fakesystem::readFile(path), QByteArray("2"));
}

void TestRaFile::onlyTheOwnTemporaryFileTakesThePlace()
{
    fakesystem::writeFile(path, "old");
    {
        RaReplacement replacement(path, "new", 3);
        QCOMPARE(replacement.error(), 0);
        fakesystem::runForReal("rm /home/wifi/file.txt.tmp; echo -n half >/home/wifi/file.txt.tmp");
        QCOMPARE(replacement.complete(), EAGAIN);
    }
    QCOMPARE(fakesystem::readFile(path), QByteArray("old"));
    QCOMPARE(fakesystem::readFile(temporary), QByteArray("half"));
}

void TestRaFile::aFileThatCannotBeReplacedStaysWithOneLogLine_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("directory in the way of the temporary file")
        << QByteArray("mkdir /home/wifi/file.txt.tmp") << QByteArray("cannot write the new /home/wifi/file.txt: ");
    QTest::newRow("directory in place of the file") << QByteArray("rm /home/wifi/file.txt; mkdir /home/wifi/file.txt")
                                                    << QByteArray("cannot replace /home/wifi/file.txt: ");
    QTest::newRow("no directory") << QByteArray("rm -r /home/wifi")
                                  << QByteArray("cannot write the new /home/wifi/file.txt: ");
}

void TestRaFile::aFileThatCannotBeReplacedStaysWithOneLogLine()
{
    QFETCH(QByteArray, fault);
    QFETCH(QByteArray, message);
    fakesystem::writeFile(path, "old");
    fakesystem::runForReal(fault);
    const QByteArray before = fakesystem::readFile(path);
    const QStringList files = QDir(QLatin1String(directory)).entryList();
    bool replaced = true;
    const QList<QByteArray> logged = loggedMessages([&] { replaced = replace("new"); });
    QVERIFY(!replaced);
    QCOMPARE(static_cast<int>(logged.size()), 1);
    QVERIFY2(logged.first().startsWith(message), logged.first().constData());
    QCOMPARE(fakesystem::readFile(path), before);
    QCOMPARE(QDir(QLatin1String(directory)).entryList(), files);
}

QTEST_APPLESS_MAIN(TestRaFile)
#include "tst_rafile.moc"
