// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "managertest.h"
#include "ravirtualkeyboard.h"
#include "ravirtualkeyboard_btn.h"
#include "rawifiinputwnd.h"
#include "rawifiservice.h"

#include <QDirIterator>
#include <QLineEdit>
#include <QMap>
#include <QPair>
#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QRegularExpression>
#include <QtTest>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <sys/stat.h>

// A password from the finger to the store, and what the log says of it meanwhile. The variable that keeps secrets out
// of the log is read once in a process, so each flow runs in a process of its own: this program with "flow" and the
// number of a password as its arguments.

using namespace managertest;

namespace {

const char joinedFirst[] = "Lounge";
const char typedCharacter[] = "text=";

// As long as each other, and nothing else the same: of every kind and with many changes of the page, and of one kind.
const char* const passwords[] = {"wKx7402 &]qY", "hjzpvbnoicda"};
const char saved[] = "R9s-saved-by-another-flow";
const char wrong[] = "V2w-by-a-keyboard";
const char wrongByFinger[] = "V2w";
const char wrongByKeyboard[] = "-by-a-keyboard";

/** Every process's arguments while a command runs, and every command line. */
const char argumentsFile[] = "/tmp/arguments";
const char filesFile[] = "/tmp/files";

Lines allSecrets()
{
    return Lines() << passwords[0] << passwords[1] << saved << wrong;
}

// --- The flow, in a process of its own -------------------------------------------------------------------

void demand(bool holds, const char* what)
{
    if (!holds) {
        std::printf("%s\n", what);
        std::fflush(stdout);
        std::_Exit(1);
    }
}

class Flow : public ShownPage
{
public:
    explicit Flow(const QList<APData>& air) : ShownPage(air) {}

    RaWifiInputWnd* passwordPage() const { return get()->findChild<RaWifiInputWnd*>(); }

    /** The key of the keyboard page that is shown; null when it has none of this text. */
    RaVirtualKeyboard_Btn* key(const QString& text) const
    {
        for (RaVirtualKeyboard_Btn* key : passwordPage()->findChildren<RaVirtualKeyboard_Btn*>()) {
            if (key->isVisible() && key->getText() == text) {
                return key;
            }
        }
        return nullptr;
    }

    void tapKey(const char* text) const
    {
        RaVirtualKeyboard_Btn* const found = key(QLatin1String(text));
        demand(found != nullptr, text);
        tap(found);
        found->updatePressStatus(); // the guard against a double click
    }

    /** Shows the keyboard page with a key of this text. */
    void findKey(const QString& text) const
    {
        const char* const ways[] = {"!@#", "RI", "123", "abc", "abc"};
        for (const char* way : ways) {
            if (key(text)) {
                return;
            }
            tapKey(way);
        }
        demand(key(text) != nullptr, "no such key");
    }

    /** With the fingers. The space key has no text. */
    void type(const char* password) const
    {
        for (const char* c = password; *c != '\0'; ++c) {
            const QString text = *c == ' ' ? QString() : QString(QLatin1Char(*c));
            findKey(text);
            tapKey(text.toLatin1().constData());
        }
    }

    void tapButton(const char* text) const
    {
        for (QPushButton* button : passwordPage()->findChildren<QPushButton*>()) {
            if (button->text() == QString::fromUtf8(text)) {
                tap(button);
                return;
            }
        }
        demand(false, text);
    }
};

/** Every file that holds a password, with its mode, one a line. */
void listFilesWithSecrets()
{
    QByteArray list;
    const char* const directories[] = {"/home", "/apps", "/etc", "/run", "/var/tmp"};
    for (const char* directory : directories) {
        QDirIterator files(QLatin1String(directory), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QByteArray path = files.next().toLocal8Bit();
            struct stat about;
            if (stat(path.constData(), &about) != 0 || about.st_size > 1024 * 1024) {
                continue;
            }
            const QByteArray content = fakesystem::readFile(path.constData());
            for (const QByteArray& secret : allSecrets()) {
                if (content.contains(secret)) {
                    list += path + ' ' + QByteArray::number(about.st_mode & 07777, 8) + '\n';
                    break;
                }
            }
        }
    }
    fakesystem::writeFile(filesFile, fakesystem::readFile(filesFile) + list);
}

void setFlowScripts()
{
    const fakesystem::Script look = [] {
        fakesystem::runForReal(QByteArray("cat /proc/[0-9]*/cmdline >>") + argumentsFile + " 2>/dev/null");
    };
    fakesystem::answer("callwpaconf.sh", look);
    fakesystem::answer("dhcp_setip.sh", look);
    fakesystem::answer("getip.sh", [look] {
        look();
        fakesystem::writeFile(answer, QByteArray(address) + '\n');
    });
}

void demandJoined(const Flow& page)
{
    demand(waitForWorkers(), "the join does not end");
    demand(page.state(joinedFirst) == "joined", "not joined");
}

/**
 * Types \a password for a network, joins, loses the link, joins again, fails, types anew, forgets the network and joins
 * another one on its own.
 */
void runFlow(const char* password)
{
    freshDevice();
    saveNetworks(QList<APData>() << network(2, "Attic", true, 3, saved));
    const QList<APData> air = QList<APData>() << network(1, joinedFirst, true) << network(2, "Attic", true);
    setFlowScripts();
    QList<QByteArray> commands;
    {
        Flow page(air);
        tap(page.row(joinedFirst));
        page.type(password);
        page.tapKey("BS");
        page.type(QByteArray(1, password[qstrlen(password) - 1]).constData());
        page.tapButton("确定");
        demandJoined(page);
        listFilesWithSecrets();

        APData current;
        GetCurApData(&current);
        demand(qstrcmp(current.psk, password) == 0, "another password was used");
        printAPData(current);
        printStoreData(StoreData());

        page->disConnectAp();
        setLink(false);
        page->recAPSwitch(false);
        demand(scan(page), "the scan does not end");
        tap(page.row(joinedFirst)); // with its saved password
        demandJoined(page);

        fakesystem::answer("getip.sh", [] { fakesystem::writeFile(answer, "\n"); });
        page->disConnectAp();
        tap(page.row(joinedFirst));
        demand(waitForWorkers(), "the failing join does not end");
        demand(page.state(joinedFirst) == "idle", "joined without an address");
        listFilesWithSecrets();
        tap(page.row(joinedFirst)); // asks for it anew, with the saved one in the record
        demand(page.passwordPage()->isVisible(), "the password is not asked for");
        page.type(wrongByFinger);
        QTest::keyClicks(page.passwordPage()->findChild<QLineEdit*>(), QLatin1String(wrongByKeyboard));
        page.tapButton("确定");
        demand(waitForWorkers(), "the second failing join does not end");
        commands = fakesystem::commands();
    }
    setFlowScripts();
    {
        RaWifiService service(1, nullptr);
        service.getAPListByScan();
        service.reInitAPInfo(QLatin1String(network(1, "").macAddr));
    }
    {
        Flow page(air); // what is still saved is joined without anybody
        demand(page->connectCertainAP() == 0, "nothing to join on its own");
        demand(waitForWorkers(), "the join on its own does not end");
        demand(page.state("Attic") == "joined", "not joined on its own");
        commands += fakesystem::commands();
    }
    fakesystem::writeFile(argumentsFile, fakesystem::readFile(argumentsFile) + '\n' + commands.join('\n'));
}

// --- What is to be seen of it ----------------------------------------------------------------------------

/** Lines of the keyboard and of the password page. */
bool isAboutTyping(const QByteArray& line)
{
    return line.contains("[ravirtualkeyboard") || line.contains("[rawifiinputwnd");
}

Lines aboutTyping(const Lines& log)
{
    Lines lines;
    std::copy_if(log.begin(), log.end(), std::back_inserter(lines), isAboutTyping);
    return lines;
}

/**
 * All the others, sorted and each once, since more than one thread writes them and paints are as many as they like, and
 * without those of a race that both may win.
 */
Lines notAboutTyping(const Lines& log)
{
    Lines lines;
    for (const QByteArray& line : log) {
        if (!isAboutTyping(line) && !line.contains("(retrieveAddress)")) {
            lines << line;
        }
    }
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}

bool areSame(const Lines& wanted, const Lines& got)
{
    for (int i = 0; i < qMin(wanted.size(), got.size()); ++i) {
        if (wanted.at(i) != got.at(i)) {
            qWarning("wanted: %s\ngot:    %s", wanted.at(i).constData(), got.at(i).constData());
            return false;
        }
    }
    return wanted.size() == got.size();
}

} // namespace

class TestLogSecrets : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void withoutTheVariablePasswordsAreLoggedAsEver_data();
    void withoutTheVariablePasswordsAreLoggedAsEver();
    void withTheVariableNoLineHoldsAPassword();
    void withTheVariableTheLogIsTheSameWhateverIsTyped();
    void withTheVariableEveryOtherLineIsAsBefore();
    void noPasswordIsInAnArgument();
    void filesWithPasswordsAreTheirOwnersAlone();

private:
    Lines logOf(int password, const char* variable);
    bool isSoInOneOfThreeTries(const std::function<bool()>& isSo);

    QByteArray m_outputWithTheVariable; // a few lines, of which the workers' come as it happens
    QMap<QPair<int, QByteArray>, Lines> m_logs;
};

/** What a flow writes to standard error, without times, threads and places in memory. Each flow is run once. */
Lines TestLogSecrets::logOf(int password, const char* variable)
{
    Lines& lines = m_logs[qMakePair(password, QByteArray(variable ? variable : "unset"))];
    if (!lines.isEmpty()) {
        return lines;
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QLatin1String("RAWIFI_LOG_SECRETS"));
    if (variable) {
        environment.insert(QLatin1String("RAWIFI_LOG_SECRETS"), QLatin1String(variable));
    }
    QProcess flow;
    flow.setProcessEnvironment(environment);
    flow.start(QCoreApplication::applicationFilePath(), QStringList()
                                                            << QLatin1String("flow") << QString::number(password));
    if (!flow.waitForFinished(60000) || flow.exitStatus() != QProcess::NormalExit || flow.exitCode() != 0) {
        qWarning("the flow has failed: %s%s", flow.readAllStandardOutput().constData(),
                 flow.readAllStandardError().right(2000).constData());
        return Lines();
    }
    if (qstrcmp(variable, "0") == 0) {
        m_outputWithTheVariable += flow.readAllStandardOutput();
    }
    for (const QByteArray& line : flow.readAllStandardError().split('\n')) {
        QString text = QString::fromLatin1(line);
        text.remove(QRegularExpression(QLatin1String("\\[\\d\\d:\\d\\d:\\d\\d tid:\\d+ ")));
        text.remove(QRegularExpression(QLatin1String("point =[ 0-9A-F]+--")));
        lines << text.toLatin1();
    }
    return lines;
}

/** Workers may win a race in one flow and lose it in another; what a password makes of a line comes every time. */
bool TestLogSecrets::isSoInOneOfThreeTries(const std::function<bool()>& isSo)
{
    for (int i = 0; i < 3; ++i) {
        if (isSo()) {
            return true;
        }
        m_logs.clear();
    }
    return false;
}

void TestLogSecrets::withoutTheVariablePasswordsAreLoggedAsEver_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::newRow("unset") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("00") << QByteArray("00");
}

void TestLogSecrets::withoutTheVariablePasswordsAreLoggedAsEver()
{
    QFETCH(QByteArray, variable);
    const QByteArray log = logOf(0, variable.isNull() ? nullptr : variable.constData()).join('\n');
    const QByteArray password = passwords[0];
    const char* const mac = "02:00:00:00:00:01";
    const Lines wanted = Lines() << "-encry 4 ,macAddr =" + QByteArray(mac) + ",essid =" + joinedFirst
                                        + ",password = " + password + ",sigquality = 3 authMode =0,keyindex = 0"
                                 << " password = " + password + '\n'
                                 << "ssid =" + QByteArray(mac) + ",psk= " + password + " \n"
                                 << "psk = " + password + " \033"
                                 << "psk = " + QByteArray(saved) + " \033"
                                 << "clicked(\"7\")"
                                 << "text=7,objName = pwdLineEdit"
                                 << "text=BS,objName = pwdLineEdit"
                                 << "---------------- RI"
                                 << "page=1";
    for (const QByteArray& line : wanted) {
        QVERIFY2(log.contains(line), line.constData());
    }
    QVERIFY(!log.contains("***"));
}

void TestLogSecrets::withTheVariableNoLineHoldsAPassword()
{
    const QByteArray log = logOf(0, "0").join('\n');
    QVERIFY2(log.contains("password = ***,sigquality = 3"), log.constData());
    QVERIFY(!m_outputWithTheVariable.isEmpty());
    for (const QByteArray& secret : allSecrets()) {
        for (const QByteArray& text : {log, m_outputWithTheVariable}) {
            QVERIFY2(!text.contains(secret), secret.constData());
            QVERIFY2(!text.contains(secret.toHex()), secret.constData());
        }
    }
    QVERIFY(log.count(typedCharacter) > int(qstrlen(passwords[0])));
    QCOMPARE(log.count(QByteArray(typedCharacter) + "***,objName = pwdLineEdit"), log.count(typedCharacter));
    QVERIFY(!log.contains("clicked(\""));
}

// Then no character, and nothing about one, can be got out of it.
void TestLogSecrets::withTheVariableTheLogIsTheSameWhateverIsTyped()
{
    QVERIFY(aboutTyping(logOf(0, "0")).size() > int(qstrlen(passwords[0])));
    QVERIFY(areSame(aboutTyping(logOf(0, "0")), aboutTyping(logOf(1, "0"))));
    QVERIFY(isSoInOneOfThreeTries(
        [this] { return areSame(notAboutTyping(logOf(0, "0")), notAboutTyping(logOf(1, "0"))); }));
}

void TestLogSecrets::withTheVariableEveryOtherLineIsAsBefore()
{
    QVERIFY(isSoInOneOfThreeTries([this] {
        Lines open;
        for (QByteArray line : logOf(0, nullptr)) {
            for (const QByteArray& secret : allSecrets()) {
                line.replace(secret, "***");
            }
            open << line.replace("psk =  ", "psk = *** "); // of a record without one
        }
        return notAboutTyping(open).size() > 100 && areSame(notAboutTyping(open), notAboutTyping(logOf(0, "0")));
    }));
}

void TestLogSecrets::noPasswordIsInAnArgument()
{
    QVERIFY(!logOf(0, nullptr).isEmpty());
    const QByteArray all = fakesystem::readFile(argumentsFile);
    QVERIFY2(all.contains(QByteArray("flow\0000", 6)), "the flow itself is among the processes");
    QVERIFY(all.contains("\nsh /usr/bin/callwpaconf.sh;touch /home/wifi/result3"));
    for (const QByteArray& secret : allSecrets()) {
        QVERIFY2(!all.contains(secret), secret.constData());
    }
}

void TestLogSecrets::filesWithPasswordsAreTheirOwnersAlone()
{
    QVERIFY(!logOf(0, nullptr).isEmpty());
    const QByteArray files = fakesystem::readFile(filesFile);
    QVERIFY2(files.contains("/etc/wpa_supplicant.conf"), files.constData());
    QVERIFY2(files.contains("/apps/config/network.conf"), files.constData());
    for (const QByteArray& file : files.trimmed().split('\n')) {
        QVERIFY2(file.endsWith(" 600"), file.constData());
    }
}

int main(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[1], "flow") == 0) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        QApplication application(argc, argv);
        runFlow(passwords[std::atoi(argv[2])]);
        return 0;
    }
    QCoreApplication application(argc, argv);
    TestLogSecrets test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_logsecrets.moc"
